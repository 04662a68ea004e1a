#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <optional>
#include <string_view>

#include "qvSystem/qvVariant.h"

namespace qv {

namespace {

/// The number that the whole text is, in decimal, if it is one: no blank, no plus sign in front, no word.
template <class T>
std::optional<T> parseWhole(std::string_view text) noexcept {
  T number{};
  auto const [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return number;
}

double parseReal(std::string_view text) noexcept {
  double const number = parseWhole<double>(text).value_or(0.0);
  // "inf" and "nan" are words, not numbers.
  return std::isfinite(number) ? number : 0.0;
}

std::int64_t truncateReal(double value) noexcept {
  constexpr double limit = 9223372036854775808.0;
  if (std::isnan(value)) return 0;
  if (value >= limit) return std::numeric_limits<std::int64_t>::max();
  if (value < -limit) return std::numeric_limits<std::int64_t>::min();
  return static_cast<std::int64_t>(value);
}

std::int64_t parseInteger(std::string_view text) noexcept {
  if (auto const number = parseWhole<std::int64_t>(text)) return *number;
  return truncateReal(parseReal(text));
}

std::string formatReal(double value) {
  std::array<char, 32> text;
  auto const end = std::to_chars(text.data(), text.data() + text.size(), value).ptr;
  return {text.data(), end};
}

}  // namespace

std::int64_t qvVariant::toInteger() const noexcept {
  switch (m_kind) {
    case Kind::Integer:
      return m_content.integer;
    case Kind::Real:
      return truncateReal(m_content.real);
    case Kind::Bool:
      return m_content.boolean ? 1 : 0;
    case Kind::String:
      return parseInteger(*m_content.string);
    default:
      return 0;
  }
}

double qvVariant::toReal() const noexcept {
  switch (m_kind) {
    case Kind::Integer:
      return static_cast<double>(m_content.integer);
    case Kind::Real:
      return m_content.real;
    case Kind::Bool:
      return m_content.boolean ? 1.0 : 0.0;
    case Kind::String:
      return parseReal(*m_content.string);
    default:
      return 0.0;
  }
}

bool qvVariant::toBool() const noexcept {
  switch (m_kind) {
    case Kind::Integer:
      return m_content.integer != 0;
    case Kind::Real:
      return m_content.real != 0.0;
    case Kind::Bool:
      return m_content.boolean;
    case Kind::String:
      return *m_content.string == "true" || parseReal(*m_content.string) != 0.0;
    default:
      return false;
  }
}

std::string qvVariant::toString() const {
  switch (m_kind) {
    case Kind::Integer:
      return std::to_string(m_content.integer);
    case Kind::Real:
      return formatReal(m_content.real);
    case Kind::Bool:
      return m_content.boolean ? "true" : "false";
    case Kind::String:
      return *m_content.string;
    default:
      return {};
  }
}

}  // namespace qv
