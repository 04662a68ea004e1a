#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <string_view>

namespace qvToolkit {

/// A value of a closed set and the word that stands for it.
template <class Value>
struct Word {
  Value m_value;
  std::string_view m_text;
};

/// The words of a closed set.
template <class Value, std::size_t Count>
using WordTable = std::array<Word<Value>, Count>;

/// The word for a value, which the table must hold.
template <class Value, std::size_t Count>
constexpr std::string_view getWord(WordTable<Value, Count> const& table, Value value) {
  return std::ranges::find(table, value, &Word<Value>::m_value)->m_text;
}

/// The value that a word stands for; nothing for a word that the table does not hold.
template <class Value, std::size_t Count>
constexpr std::optional<Value> findValue(WordTable<Value, Count> const& table, std::string_view text) {
  auto const found = std::ranges::find(table, text, &Word<Value>::m_text);
  return found == table.end() ? std::nullopt : std::optional<Value>(found->m_value);
}

}  // namespace qvToolkit
