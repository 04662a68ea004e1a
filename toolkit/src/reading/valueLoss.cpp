#include "reading/valueLoss.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <system_error>

#include "qvToolkit/text/textEscape.h"
#include "reading/annotationRules.h"
#include "rules/values.h"
#include "text/colorText.h"

namespace qvToolkit {

namespace {

namespace rules = qvLegacy::rules;
using rules::Form;
using Loss = std::optional<ValueLoss>;

constexpr std::size_t MaxShownElements = 3;

bool isContainer(qv::qvVariant const& value) {
  return value.isMap() || value.isList();
}

/// The number that a text is from its first to its last character; "inf" and "nan" are words.
std::optional<double> readWhole(std::string_view text) {
  double number = 0.0;
  auto const [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  bool const isNumber = error == std::errc() && end == text.data() + text.size() && std::isfinite(number);
  return isNumber ? std::optional(number) : std::nullopt;
}

bool isExactNumber(qv::qvVariant const& value) {
  return value.isString() ? readWhole(value.getString()).has_value() : !value.isNull() && !isContainer(value);
}

bool isExactFlag(qv::qvVariant const& value) {
  if (value.isNull() || isContainer(value)) return false;
  if (value.isString()) {
    std::string const& text = value.getString();
    std::optional<double> const number = readWhole(text);
    return text == "true" || text == "false" || number == 0.0 || number == 1.0;
  }
  return !value.isNumber() || value.toReal() == 0.0 || value.toReal() == 1.0;
}

bool isTooLarge(qv::qvVariant const& value) {
  return !rules::toSingle(value.toReal()).isExact;
}

Loss findVectorLoss(rules::Field const& field, qv::qvVariant const& value) {
  if (!isNumberList(value, 3)) return ValueLoss{"a list of 3 numbers", std::string(field.absent)};
  if (!std::ranges::any_of(value.toList(), isTooLarge)) return std::nullopt;
  return ValueLoss{"numbers of single precision, up to 3.4e38", "infinity"};
}

/// A list of another length costs the whole annotation.
Loss findSizeLoss(qv::qvVariant const& value) {
  VariantList const& sides = value.toList();
  if (!std::ranges::all_of(sides, isExactNumber))
    return ValueLoss{"a list of 2 numbers", "0 for what is no number"};
  if (!std::ranges::any_of(sides, isTooLarge)) return std::nullopt;
  return ValueLoss{"numbers of single precision, up to 3.4e38", "infinity"};
}

Loss findColorLoss(rules::Field const& field, qv::qvVariant const& value) {
  auto const color = value.isString() ? rules::toColor(value.getString()) : rules::toColor(value.toString());
  if (color && color->isExact) return std::nullopt;
  ValueLoss loss{"six hexadecimal digits", std::string(field.absent)};
  if (color) loss.m_taken = formatColor({color->value[0], color->value[1], color->value[2]});
  return loss;
}

Loss findHeightLoss(qv::qvVariant const& value) {
  auto const height = rules::toHundredths(rules::toSingle(value.toReal()).value);
  if (height.isExact && isExactNumber(value)) return std::nullopt;
  return ValueLoss{"a number of ems from 0 to 655.34", formatHundredths(height.value)};
}

/// "square, circle or none".
std::string listNames(rules::ValueNames const& set) {
  std::string list;
  for (rules::ValueName const& name : set.names) {
    if (!list.empty()) list += &name == &set.names.back() ? " or " : ", ";
    list += name.text;
  }
  return list;
}

/// The empty text stands for the default, as an absent one does.
Loss findNameLoss(rules::ValueNames const& set, qv::qvVariant const& value) {
  if (value.isString() && (value.getString().empty() || set.has(value.getString()))) return std::nullopt;
  return ValueLoss{listNames(set), "'" + std::string(set.nameOf(set.otherwise)) + "'"};
}

}  // namespace

std::optional<ValueLoss> findValueLoss(rules::Field const& field, qv::qvVariant const& value) {
  if (value.isNull()) return std::nullopt;
  switch (field.form) {
    case Form::Text:
    case Form::RunText:
      return isContainer(value) ? Loss({"a text", "an empty one"}) : std::nullopt;
    case Form::Vector:
      return findVectorLoss(field, value);
    case Form::Size:
      return findSizeLoss(value);
    case Form::Color:
      return findColorLoss(field, value);
    case Form::Flag:
      return isExactFlag(value) ? std::nullopt : Loss({"true or false", value.toBool() ? "true" : "false"});
    case Form::Height:
      return findHeightLoss(value);
    case Form::Named:
      return findNameLoss(*field.names, value);
    case Form::Metadata:
      return value.isMap() ? std::nullopt : Loss({"a map", "an empty one"});
    case Form::Properties:
      return value.isMap() ? std::nullopt : Loss({"a map", std::string(field.absent)});
    default:
      return std::nullopt;
  }
}

std::optional<std::uint16_t> findCutHeight(qv::qvVariant const& value) {
  float const ems = rules::toSingle(value.toReal()).value;
  std::uint16_t const hundredths = rules::toHundredths(ems).value;
  return rules::isWhole(ems, hundredths) ? std::nullopt : std::optional(hundredths);
}

std::string formatHundredths(std::uint16_t hundredths) {
  return qv::qvVariant(hundredths / 100.0).toString();
}

std::string describeValue(qv::qvVariant const& value) {
  if (value.isString()) return "'" + shortenText(value.getString()) + "'";
  if (value.isMap()) return "a map";
  if (!value.isList()) return value.isNull() ? "null" : value.toString();
  VariantList const& list = value.toList();
  if (list.size() > MaxShownElements || std::ranges::any_of(list, isContainer))
    return "a list of " + std::to_string(list.size());
  std::string text;
  for (qv::qvVariant const& element : list) text += (text.empty() ? "[" : ", ") + describeValue(element);
  return (text.empty() ? "[" : text) + "]";
}

}  // namespace qvToolkit
