#pragma once

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "annotationLegacy/platform.h"

namespace qvToolkit {

/// Reads the members of a JSON object, strictly: what is missing or of another kind is a problem, of which
/// the first is kept with its JSON pointer. A member that has one leaves its target as it was.
class JsonFields {
 public:
  /// `pointer` leads to the object. `problem` takes the first problem, and must outlive the fields.
  JsonFields(qv::qvVariant const& object, std::string pointer, std::string& problem);

  void read(std::string_view key, bool& target);
  void read(std::string_view key, double& target);
  void read(std::string_view key, float& target);
  void read(std::string_view key, std::int64_t& target);
  void read(std::string_view key, std::uint64_t& target);
  void read(std::string_view key, unsigned& target);
  void read(std::string_view key, std::string& target);
  /// Null or a value.
  template <class Value>
  void read(std::string_view key, std::optional<Value>& target) {
    if (isNull(key)) return target.reset();
    Value value{};
    read(key, value);
    target = std::move(value);
  }
  /// Null for the empty text.
  void readTextOrNull(std::string_view key, std::string& target);
  /// Two members, the second one under the key + "Hex": what `JsonWriter::bytes` wrote.
  void readBytes(std::string_view key, std::string& target);
  /// The same, both null for no bytes.
  void readBytesOrNull(std::string_view key, std::string& target);
  /// A text for which `parse` gives a value.
  template <class Value, class Parse>
  void readWord(std::string_view key, Value& target, std::string_view expected, Parse parse) {
    qv::qvVariant const* const value = get(key);
    if (value == nullptr) return;
    std::optional<Value> const found = value->isString() ? parse(value->getString()) : std::nullopt;
    if (!found.has_value()) return fail(key, expected);
    target = *found;
  }
  /// An object, whose members `readMembers` reads.
  template <std::invocable<JsonFields&> Read>
  void readObject(std::string_view key, Read readMembers) {
    qv::qvVariant const* const value = get(key);
    if (value == nullptr) return;
    JsonFields fields(*value, getPointer(key), m_problem);
    readMembers(fields);
  }
  /// A list of objects; `readMembers(fields, item)` reads each.
  template <class Item, std::invocable<JsonFields&, Item&> Read>
  void readList(std::string_view key, std::vector<Item>& target, Read readMembers) {
    qv::qvVariant const* const list = getList(key);
    if (list == nullptr) return;
    target.clear();
    for (qv::qvVariant const& entry : list->toList()) {
      JsonFields fields(entry, getPointer(key, target.size()), m_problem);
      readMembers(fields, target.emplace_back());
    }
  }
  /// A list of exactly so many finite numbers; of none when it is another one.
  std::vector<double> readNumbers(std::string_view key, std::size_t count);
  /// A list of words, for each of which `parse` gives a value.
  template <class Value, class Parse>
  void readWords(std::string_view key, std::vector<Value>& target, std::string_view expected, Parse parse) {
    qv::qvVariant const* const list = getList(key);
    if (list == nullptr) return;
    target.clear();
    for (qv::qvVariant const& entry : list->toList()) {
      std::optional<Value> const found = entry.isString() ? parse(entry.getString()) : std::nullopt;
      if (!found.has_value()) return fail(entry, getPointer(key, target.size()), expected);
      target.push_back(*found);
    }
  }

  /// True for a member that is there and null.
  bool isNull(std::string_view key) const;
  /// The member is not what it should be.
  void fail(std::string_view key, std::string_view expected);
  /// Nothing was wrong so far.
  bool isSound() const noexcept { return m_problem.empty(); }

 private:
  qv::qvVariant const* find(std::string_view key) const;
  qv::qvVariant const* get(std::string_view key);
  qv::qvVariant const* getList(std::string_view key);
  std::string getPointer(std::string_view key) const;
  std::string getPointer(std::string_view key, std::size_t index) const;
  void fail(qv::qvVariant const& found, std::string const& pointer, std::string_view expected);

  qv::qvVariant const& m_object;
  std::string m_pointer;
  std::string& m_problem;
};

}  // namespace qvToolkit
