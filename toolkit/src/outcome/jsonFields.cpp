#include "outcome/jsonFields.h"

#include <charconv>
#include <cmath>

#include "findings/jsonPointer.h"
#include "qvToolkit/text/textEscape.h"
#include "text/hexadecimal.h"

namespace qvToolkit {

namespace {

using Kind = qv::qvVariant::Kind;

constexpr std::size_t MaxShownText = 60;

std::string describe(qv::qvVariant const& value) {
  switch (value.getKind()) {
    case Kind::Null:
      return "null";
    case Kind::String:
      return quoteJson(shortenText(value.getString(), MaxShownText));
    case Kind::Map:
      return "an object";
    case Kind::List:
      return "a list";
    default:
      return value.toString();
  }
}

/// The bytes that were written as two digits each; nothing for another text.
std::optional<std::string> fromHexBytes(std::string_view digits) {
  std::string bytes(digits.size() / 2, '\0');
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    unsigned char byte = 0;
    char const* const end = digits.data() + 2 * i + 2;
    if (std::from_chars(end - 2, end, byte, 16).ptr != end) return std::nullopt;
    bytes[i] = static_cast<char>(byte);
  }
  return digits.size() % 2 == 0 ? std::optional(std::move(bytes)) : std::nullopt;
}

/// A count beyond 63 bits, which JSON readers do not hold as an integer, is a text of its digits.
std::optional<std::uint64_t> toCount(qv::qvVariant const& value) {
  if (value.getKind() == Kind::Integer && value.toInteger() >= 0) {
    return static_cast<std::uint64_t>(value.toInteger());
  }
  std::string const& digits = value.getString();
  std::uint64_t count = 0;
  auto const [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), count);
  bool const isBig = error == std::errc() && end == digits.data() + digits.size() &&
                     count > static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max());
  return isBig ? std::optional(count) : std::nullopt;
}

}  // namespace

JsonFields::JsonFields(qv::qvVariant const& object, std::string pointer, std::string& problem)
    : m_object(object), m_pointer(std::move(pointer)), m_problem(problem) {
  if (!object.isMap()) fail(object, m_pointer, "an object");
}

void JsonFields::read(std::string_view key, bool& target) {
  qv::qvVariant const* const value = get(key);
  if (value == nullptr) return;
  if (value->getKind() != Kind::Bool) return fail(key, "true or false");
  target = value->toBool();
}

void JsonFields::read(std::string_view key, double& target) {
  qv::qvVariant const* const value = get(key);
  if (value == nullptr) return;
  if (!value->isNumber()) return fail(key, "a number");
  target = value->toReal();
}

void JsonFields::read(std::string_view key, float& target) {
  double number = target;
  read(key, number);
  // The shortest text of the largest one stands for a little more, which is rounded.
  auto const rounded = static_cast<float>(number);
  if (!std::isfinite(rounded)) return fail(key, "a number of single precision");
  target = rounded;
}

void JsonFields::read(std::string_view key, std::int64_t& target) {
  qv::qvVariant const* const value = get(key);
  if (value == nullptr) return;
  if (value->getKind() != Kind::Integer) return fail(key, "an integer");
  target = value->toInteger();
}

void JsonFields::read(std::string_view key, std::uint64_t& target) {
  qv::qvVariant const* const value = get(key);
  if (value == nullptr) return;
  std::optional<std::uint64_t> const count = toCount(*value);
  if (!count.has_value()) return fail(key, "an integer from 0 on, beyond 63 bits as a text");
  target = *count;
}

void JsonFields::read(std::string_view key, unsigned& target) {
  std::int64_t number = target;
  read(key, number);
  if (number < 0 || number > std::numeric_limits<unsigned>::max()) {
    return fail(key, "an integer from 0 to 4294967295");
  }
  target = static_cast<unsigned>(number);
}

void JsonFields::read(std::string_view key, std::string& target) {
  qv::qvVariant const* const value = get(key);
  if (value == nullptr) return;
  if (!value->isString()) return fail(key, "a text");
  target = value->getString();
}

void JsonFields::readTextOrNull(std::string_view key, std::string& target) {
  std::optional<std::string> text;
  read(key, text);
  if (text.has_value() && text->empty()) return fail(key, "null or a text that is not empty");
  target = text.value_or(std::string());
}

void JsonFields::readBytes(std::string_view key, std::string& target) {
  std::string text;
  read(key, text);
  std::string const hexKey = std::string(key) + "Hex";
  std::optional<std::string> digits;
  read(hexKey, digits);
  std::optional<std::string> bytes = digits.has_value() ? fromHexBytes(*digits) : std::move(text);
  if (!bytes.has_value()) return fail(hexKey, "null or two hexadecimal digits for each byte");
  target = std::move(*bytes);
}

void JsonFields::readBytesOrNull(std::string_view key, std::string& target) {
  if (!isNull(key)) {
    readBytes(key, target);
    if (target.empty()) fail(key, "null or a text that is not empty");
    return;
  }
  std::string const hexKey = std::string(key) + "Hex";
  if (get(hexKey) != nullptr && !isNull(hexKey)) return fail(hexKey, "null, as the text is");
  target.clear();
}

std::vector<double> JsonFields::readNumbers(std::string_view key, std::size_t count) {
  qv::qvVariant const* const list = getList(key);
  if (list == nullptr) return {};
  std::vector<double> numbers;
  for (qv::qvVariant const& entry : list->toList()) {
    if (!entry.isNumber()) fail(entry, getPointer(key, numbers.size()), "a number");
    numbers.push_back(entry.toReal());
  }
  if (numbers.size() != count) fail(key, "a list of " + std::to_string(count) + " numbers");
  return isSound() ? numbers : std::vector<double>();
}

void JsonFields::fail(std::string_view key, std::string_view expected) {
  if (qv::qvVariant const* const value = find(key)) fail(*value, getPointer(key), expected);
}

void JsonFields::fail(qv::qvVariant const& found, std::string const& pointer, std::string_view expected) {
  if (!isSound()) return;
  m_problem = pointer.empty() ? std::string("found ") : pointer + ": found ";
  m_problem += describe(found).append(", expected ").append(expected);
}

qv::qvVariant const* JsonFields::find(std::string_view key) const {
  auto const entry = m_object.toMap().find(key);
  return entry == m_object.toMap().end() ? nullptr : &entry->second;
}

/// The member; null, and a problem, when there is none.
qv::qvVariant const* JsonFields::get(std::string_view key) {
  qv::qvVariant const* const value = find(key);
  if (value == nullptr && isSound()) {
    m_problem = getPointer(key) + ": found nothing, expected a member of this name";
  }
  return value;
}

qv::qvVariant const* JsonFields::getList(std::string_view key) {
  qv::qvVariant const* const value = get(key);
  if (value == nullptr || value->isList()) return value;
  fail(key, "a list");
  return nullptr;
}

bool JsonFields::isNull(std::string_view key) const {
  qv::qvVariant const* const value = find(key);
  return value != nullptr && value->isNull();
}

std::string JsonFields::getPointer(std::string_view key) const {
  std::string pointer = m_pointer;
  appendPointerKey(pointer, key);
  return pointer;
}

std::string JsonFields::getPointer(std::string_view key, std::size_t index) const {
  std::string pointer = getPointer(key);
  appendPointerIndex(pointer, index);
  return pointer;
}

}  // namespace qvToolkit
