#include "qvToolkit/findings/address.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <system_error>

namespace qvToolkit {

namespace {

/// What stands in front of the indices; the last one repeats.
constexpr std::array<std::string_view, 3> Words = {"view/", "/annot/", "/sub/"};

constexpr std::string_view getWord(std::size_t level) {
  return Words[std::min(level, Words.size() - 1)];
}

/// Takes the digits of an index off the front.
std::optional<std::size_t> takeIndex(std::string_view& text) {
  std::size_t index = 0;
  auto const result = std::from_chars(text.data(), text.data() + text.size(), index);
  if (result.ec != std::errc()) return std::nullopt;
  text.remove_prefix(static_cast<std::size_t>(result.ptr - text.data()));
  return index;
}

}  // namespace

Address Address::ofView(std::size_t index) {
  return Address().getChild(index);
}

Address Address::ofIndices(std::vector<std::size_t> const& indices) {
  Address address;
  for (std::size_t const index : indices) address.enter(index);
  return address;
}

std::optional<Address> Address::parse(std::string_view text) {
  Address address;
  for (std::string_view left = text; !left.empty();) {
    std::string_view const word = getWord(address.m_levels);
    if (!left.starts_with(word)) return std::nullopt;
    left.remove_prefix(word.size());
    std::optional<std::size_t> const index = takeIndex(left);
    if (!index.has_value()) return std::nullopt;
    address.enter(*index);
  }
  // Leading zeros are not ours.
  return address.m_text == text ? std::optional(address) : std::nullopt;
}

Address Address::getChild(std::size_t index) const {
  Address child = *this;
  child.enter(index);
  return child;
}

void Address::enter(std::size_t index) {
  std::array<char, 20> digits;
  auto const result = std::to_chars(digits.data(), digits.data() + digits.size(), index);
  m_text.append(getWord(m_levels++)).append(digits.data(), result.ptr);
}

void Address::leave() {
  std::size_t const digits = m_text.find_last_of('/') + 1;
  m_text.resize(digits - getWord(--m_levels).size());
}

std::vector<std::size_t> Address::getIndices() const {
  std::vector<std::size_t> indices;
  for (std::string_view left = m_text; !left.empty();) {
    left.remove_prefix(getWord(indices.size()).size());
    indices.push_back(takeIndex(left).value_or(0));
  }
  return indices;
}

}  // namespace qvToolkit
