#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <numbers>
#include <optional>

#include "qvToolkit/model/documentTransform.h"

namespace qvToolkit {

namespace {

using Matrix = Wm4::Matrix3<double>;
using Words = std::vector<std::string>;
using Numbers = std::vector<double>;

/// A thousand turns. Far beyond them, neighbouring numbers are no neighbouring angles.
constexpr double MaxDegrees = 360000;

constexpr char const* AnyRange = "from -3.4e38 to 3.4e38; write it like 3 or -2.5";
constexpr char const* ScaleRange = "from 1e-12 to 1e+12; write it like 2 or 0.5";

/// A number within single precision with nothing around it; not bound to a locale.
std::optional<double> readNumber(std::string_view word) {
  double number = 0;
  auto const result = std::from_chars(word.data(), word.data() + word.size(), number);
  bool const isNumber = result.ec == std::errc() && result.ptr == word.data() + word.size();
  bool const isHeld = std::abs(number) <= static_cast<double>(std::numeric_limits<float>::max());
  return isNumber && isHeld ? std::optional(number) : std::nullopt;
}

/// The numbers of the words, or what is wrong with them; `range` is what they may be.
std::string readNumbers(Words const& words, char const* range, Numbers& numbers) {
  for (std::string const& word : words) {
    auto const number = readNumber(word);
    if (!number) return "'" + word + "' is no number " + range;
    numbers.push_back(*number);
  }
  return {};
}

std::string readMatrix(Numbers const& n, Similarity& transformation) {
  constexpr std::array<double, 4> LastRow{0, 0, 0, 1};
  if (n.size() != 12 && n.size() != 16) return "a matrix takes 12 numbers, three rows of four, or 16";
  if (n.size() == 16 && !std::equal(LastRow.begin(), LastRow.end(), n.begin() + 12)) {
    return "the fourth row of a matrix is 0 0 0 1; the translation is its fourth column";
  }
  std::string problem = takeApart({n[0], n[1], n[2], n[4], n[5], n[6], n[8], n[9], n[10]}, transformation);
  if (problem.empty()) transformation.m_translation = {n[3], n[7], n[11]};
  return problem;
}

std::string readTranslation(Numbers const& numbers, Similarity& transformation) {
  if (numbers.size() != 3) return "a translation takes three numbers";
  transformation.m_translation = {numbers[0], numbers[1], numbers[2]};
  return {};
}

/// Three numbers that agree are one.
std::string readScale(Numbers const& numbers, Similarity& transformation) {
  auto const has = [&](auto const& isFound) { return std::any_of(numbers.begin(), numbers.end(), isFound); };
  if (numbers.size() != 1 && numbers.size() != 3) return "a scale takes one number for all axes";
  if (has([](double number) { return number == 0; })) {
    return "a scale of 0 would put all into one place; give a number above 0";
  }
  if (has([](double number) { return number < 0; })) {
    return "a scale below 0 mirrors, but texts and planes cannot be mirrored; give a number above 0, and "
           "turn by "
           "180 degrees to see them from behind";
  }
  if (has([&](double number) { return number != numbers[0]; })) {
    return "a non-uniform scale is no move: texts and planes have one scale; give one number for all axes";
  }
  std::string problem = checkScale(numbers[0]);
  if (problem.empty()) transformation.m_scale = numbers[0];
  return problem;
}

struct Turn {
  double m_cosine;
  double m_sine;
};

/// Quarter turns are exact: they are what drawings are turned by.
Turn turnOf(double degrees) {
  constexpr std::array<Turn, 4> Quarters{{{1, 0}, {0, 1}, {-1, 0}, {0, -1}}};
  double const turn = std::fmod(std::fmod(degrees, 360.0) + 360.0, 360.0);
  double const quarter = turn / 90.0;
  if (quarter == std::floor(quarter)) return Quarters[static_cast<std::size_t>(quarter) % 4];
  double const radians = turn * std::numbers::pi / 180.0;
  return {std::cos(radians), std::sin(radians)};
}

std::string readRotation(Words const& words, Similarity& transformation) {
  constexpr std::string_view Axes = "xyz";
  if (words.size() != 2 || words[0].size() != 1 || Axes.find(words[0]) == std::string_view::npos) {
    return "a rotation takes an axis, x, y or z, and an angle in degrees";
  }
  auto const degrees = readNumber(words[1]);
  if (!degrees || std::abs(*degrees) > MaxDegrees) {
    return "'" + words[1] + "' is no angle from -360000 to 360000; write it like 90 or -22.5";
  }
  Turn const turn = turnOf(*degrees);
  std::size_t const first = (Axes.find(words[0]) + 1) % 3;
  std::size_t const second = (first + 1) % 3;
  Matrix rotation = Matrix::IDENTITY;
  rotation(first, first) = rotation(second, second) = turn.m_cosine;
  rotation(first, second) = 0.0 - turn.m_sine;
  rotation(second, first) = turn.m_sine;
  transformation.m_rotation = rotation;
  return {};
}

}  // namespace

std::string readTransform(TransformKind kind, Words const& words, Similarity& transformation) {
  if (kind == TransformKind::Rotate) return readRotation(words, transformation);
  Numbers numbers;
  std::string problem = readNumbers(words, kind == TransformKind::Scale ? ScaleRange : AnyRange, numbers);
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
