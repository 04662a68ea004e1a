#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <numbers>
#include <optional>

#include "toolkit/documentTransform.h"

namespace qvToolkit {

namespace {

using Transformation = qv::qvGenericTransformation<float>;
using Words = std::vector<std::string>;

/// A finite number with nothing around it; not bound to a locale.
std::optional<double> readNumber(std::string_view word) {
  double number = 0;
  auto const result = std::from_chars(word.data(), word.data() + word.size(), number);
  bool const isNumber = result.ec == std::errc() && result.ptr == word.data() + word.size();
  return isNumber && std::isfinite(static_cast<float>(number)) ? std::optional(number) : std::nullopt;
}

/// The numbers of the words, or what is wrong with them.
std::string readNumbers(Words const& words, std::vector<float>& numbers) {
  for (std::string const& word : words) {
    auto const number = readNumber(word);
    if (!number) return "'" + word + "' is no number; write it like 3 or -2.5";
    numbers.push_back(static_cast<float>(*number));
  }
  return {};
}

std::string readMatrix(std::vector<float> const& n, Transformation& transformation) {
  constexpr std::array<float, 4> lastRow{0, 0, 0, 1};
  if (n.size() != 12 && n.size() != 16) return "a matrix takes 12 numbers, three rows of four, or 16";
  if (n.size() == 16 && !std::equal(lastRow.begin(), lastRow.end(), n.begin() + 12)) {
    return "the fourth row of a matrix is 0 0 0 1; the translation is its fourth column";
  }
  // Stored as given: a decomposition would drop what is small, such as a translation of half a thousandth.
  transformation.SetMatrix({n[0], n[1], n[2], n[4], n[5], n[6], n[8], n[9], n[10]});
  transformation.SetTranslate({n[3], n[7], n[11]});
  return {};
}

std::string readTranslation(std::vector<float> const& numbers, Transformation& transformation) {
  if (numbers.size() != 3) return "a translation takes three numbers";
  transformation.SetTranslate({numbers[0], numbers[1], numbers[2]});
  return {};
}

std::string readScale(std::vector<float> const& numbers, Transformation& transformation) {
  if (numbers.size() == 1) {
    transformation.SetUniformScale(numbers[0]);
  } else if (numbers.size() == 3) {
    transformation.SetScale({numbers[0], numbers[1], numbers[2]});
  } else {
    return "a scale takes one number, or three";
  }
  return {};
}

struct Turn {
  float m_cosine;
  float m_sine;
};

/// Quarter turns are exact: they are what drawings are turned by.
Turn turnOf(double degrees) {
  constexpr std::array<Turn, 4> quarters{{{1, 0}, {0, 1}, {-1, 0}, {0, -1}}};
  double const turn = std::fmod(std::fmod(degrees, 360.0) + 360.0, 360.0);
  double const quarter = turn / 90.0;
  if (quarter == std::floor(quarter)) return quarters[static_cast<std::size_t>(quarter) % 4];
  double const radians = turn * std::numbers::pi / 180.0;
  return {static_cast<float>(std::cos(radians)), static_cast<float>(std::sin(radians))};
}

std::string readRotation(Words const& words, Transformation& transformation) {
  constexpr std::string_view axes = "xyz";
  if (words.size() != 2 || words[0].size() != 1 || axes.find(words[0]) == std::string_view::npos) {
    return "a rotation takes an axis, x, y or z, and an angle in degrees";
  }
  auto const degrees = readNumber(words[1]);
  if (!degrees) return "'" + words[1] + "' is no angle; write it like 90 or -22.5";
  Turn const turn = turnOf(*degrees);
  std::size_t const first = (axes.find(words[0]) + 1) % 3;
  std::size_t const second = (first + 1) % 3;
  Wm4::Matrix3<float> rotation = Wm4::Matrix3<float>::IDENTITY;
  rotation(first, first) = rotation(second, second) = turn.m_cosine;
  rotation(first, second) = 0.0F - turn.m_sine;
  rotation(second, first) = turn.m_sine;
  transformation.SetRotate(rotation);
  return {};
}

}  // namespace

std::string readTransform(TransformKind kind, Words const& words, Transformation& transformation) {
  if (kind == TransformKind::Rotate) return readRotation(words, transformation);
  std::vector<float> numbers;
  std::string const problem = readNumbers(words, numbers);
  if (!problem.empty()) return problem;
  switch (kind) {
    case TransformKind::Matrix:
      return readMatrix(numbers, transformation);
    case TransformKind::Translate:
      return readTranslation(numbers, transformation);
    default:
      return readScale(numbers, transformation);
  }
}

}  // namespace qvToolkit
