#include "json/jsonReader.h"

#include <simdjson.h>

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <new>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include "findings/jsonPointer.h"
#include "findings/textPosition.h"
#include "json/jsonFault.h"
#include "json/jsonNumber.h"
#include "json/jsonString.h"
#include "qvToolkit/text/textEscape.h"

namespace qvToolkit {

namespace {

namespace ondemand = simdjson::ondemand;
using VariantList = qv::qvVariant::qvVariantListImpl;
using VariantMap = qv::qvVariant::qvVariantMapImpl;

constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";
constexpr std::size_t MaxShownDigits = 40;

/// False when 64 bits do not hold the integer.
bool readInteger(std::string_view digits, qv::qvVariant& target) {
  std::int64_t number = 0;
  if (std::from_chars(digits.data(), digits.data() + digits.size(), number).ec != std::errc()) return false;
  target = number;
  return true;
}

/// Fills a variant from a parsed document, container by container from a stack of its own, so that depth
/// costs no call stack.
class VariantBuilder {
 public:
  VariantBuilder(std::string_view text, std::size_t maxContainers, Findings& findings)
      : m_text(text), m_lines(text), m_maxContainers(maxContainers), m_findings(findings) {}

  simdjson::error_code build(ondemand::value root, qv::qvVariant& target) {
    simdjson::error_code error = readValue(root, target);
    while (error == simdjson::SUCCESS && !m_levels.empty()) {
      m_depth = std::max(m_depth, m_levels.size());
      error = step();
    }
    return error;
  }

  std::size_t getDepth() const noexcept { return m_depth; }

 private:
  /// An open container: one of the two iterators and its target.
  struct Level {
    ondemand::array_iterator m_elements;
    ondemand::object_iterator m_fields;
    VariantList* m_list = nullptr;
    VariantMap* m_map = nullptr;
    std::string m_key;
    bool m_isStarted = false;
  };

  /// A value that another one of the same key took the place of, in a map that is still open.
  struct ReplacedValue {
    VariantMap const* m_map;
    qv::qvVariant const* m_kept;
    qv::qvVariant m_lost;
    std::size_t m_finding;
  };

  simdjson::error_code step();
  simdjson::error_code stepList(Level& level);
  simdjson::error_code stepMap(Level& level);
  simdjson::error_code readValue(ondemand::value value, qv::qvVariant& target);
  simdjson::error_code openList(ondemand::value value, qv::qvVariant& target);
  simdjson::error_code openMap(ondemand::value value, qv::qvVariant& target);
  simdjson::error_code readString(ondemand::value value, qv::qvVariant& target);
  std::optional<JsonString> repair(char const* place) const;
  void reportHalves(JsonString const& string, char const* place);
  simdjson::error_code readBool(ondemand::value value, qv::qvVariant& target);
  simdjson::error_code readNull(ondemand::value value);
  simdjson::error_code readNumber(ondemand::value value, qv::qvVariant& target);
  void reportBigInteger(std::string_view number);
  void replace(qv::qvVariant& value, char const* place);
  void weighReplaced();

  void report(FindingCode code, std::string text, char const* place);
  std::string makePointer() const;

  std::string_view m_text;
  LineCounter m_lines;
  std::size_t m_maxContainers;
  Findings& m_findings;
  std::vector<Level> m_levels;
  std::vector<ReplacedValue> m_replaced;  ///< those of inner maps behind those of outer ones
  std::size_t m_depth = 0;
};

simdjson::error_code VariantBuilder::step() {
  Level& level = m_levels.back();
  return level.m_list != nullptr ? stepList(level) : stepMap(level);
}

simdjson::error_code VariantBuilder::stepList(Level& level) {
  if (std::exchange(level.m_isStarted, true)) ++level.m_elements;
  if (level.m_elements == ondemand::array_iterator()) {
    m_levels.pop_back();
    return simdjson::SUCCESS;
  }
  ondemand::value value;
  if (auto const error = (*level.m_elements).get(value)) return error;
  return readValue(value, level.m_list->emplace_back());
}

simdjson::error_code VariantBuilder::stepMap(Level& level) {
  if (std::exchange(level.m_isStarted, true)) ++level.m_fields;
  if (level.m_fields == ondemand::object_iterator()) {
    if (!m_replaced.empty()) weighReplaced();
    m_levels.pop_back();
    return simdjson::SUCCESS;
  }
  ondemand::field field;
  if (auto const error = (*level.m_fields).get(field)) return error;
  char const* const place = field.key().raw() - 1;
  std::string_view key;
  auto const keyError = field.unescaped_key().get(key);
  std::optional<JsonString> repaired;
  if (keyError != simdjson::SUCCESS || !simdjson::validate_utf8(key)) {
    repaired = repair(place);
    if (!repaired) return simdjson::STRING_ERROR;
    key = repaired->m_text;
  }
  level.m_key = key;
  if (repaired) reportHalves(*repaired, place);

  auto const [entry, isNew] = level.m_map->try_emplace(level.m_key);
  if (!isNew) replace(entry->second, place);
  return readValue(field.value(), entry->second);
}

/// Makes room for the value of a key that is there already.
void VariantBuilder::replace(qv::qvVariant& value, char const* place) {
  Level const& level = m_levels.back();
  m_replaced.push_back({level.m_map, &value, std::exchange(value, {}), m_findings.size()});
  report(FindingCode::JsonDuplicateKey,
         "the key '" + shortenText(level.m_key) + "' appears again in the same object; the last value counts",
         place);
}

/// True for a text, list or map that is not empty.
bool isContent(qv::qvVariant const& value) {
  return !value.getString().empty() || !value.toList().empty() || !value.toMap().empty();
}

/// When a map is complete it shows whether content went with its replaced values.
void VariantBuilder::weighReplaced() {
  VariantMap const* const map = m_levels.back().m_map;
  for (; !m_replaced.empty() && m_replaced.back().m_map == map; m_replaced.pop_back()) {
    ReplacedValue const& replaced = m_replaced.back();
    if (!isContent(replaced.m_lost) || replaced.m_lost == *replaced.m_kept) continue;
    Finding& finding = m_findings[replaced.m_finding];
    finding.m_severity = Severity::Error;
    finding.m_text += ", and the one before it is lost";
  }
}

simdjson::error_code VariantBuilder::readValue(ondemand::value value, qv::qvVariant& target) {
  ondemand::json_type type;
  if (auto const error = value.type().get(type)) return error;
  switch (type) {
    case ondemand::json_type::array:
      return openList(value, target);
    case ondemand::json_type::object:
      return openMap(value, target);
    case ondemand::json_type::string:
      return readString(value, target);
    case ondemand::json_type::number:
      return readNumber(value, target);
    case ondemand::json_type::boolean:
      return readBool(value, target);
    case ondemand::json_type::null:
      break;
  }
  return readNull(value);
}

simdjson::error_code VariantBuilder::openList(ondemand::value value, qv::qvVariant& target) {
  if (m_levels.size() >= m_maxContainers) return simdjson::DEPTH_ERROR;
  Level level;
  ondemand::array array;
  if (auto const error = value.get_array().get(array)) return error;
  if (auto const error = array.begin().get(level.m_elements)) return error;
  level.m_list = &target.editList();
  m_levels.push_back(std::move(level));
  return simdjson::SUCCESS;
}

simdjson::error_code VariantBuilder::openMap(ondemand::value value, qv::qvVariant& target) {
  if (m_levels.size() >= m_maxContainers) return simdjson::DEPTH_ERROR;
  Level level;
  ondemand::object object;
  if (auto const error = value.get_object().get(object)) return error;
  if (auto const error = object.begin().get(level.m_fields)) return error;
  level.m_map = &target.editMap();
  m_levels.push_back(std::move(level));
  return simdjson::SUCCESS;
}

simdjson::error_code VariantBuilder::readString(ondemand::value value, qv::qvVariant& target) {
  char const* const place = value.raw_json_token().data();
  std::string_view text;
  auto const error = value.get_string().get(text);
  // Some escaped halves of surrogate pairs unescape to bytes that are no UTF-8, others are an error.
  if (error == simdjson::SUCCESS && simdjson::validate_utf8(text)) {
    target = std::string(text);
    return simdjson::SUCCESS;
  }
  std::optional<JsonString> repaired = repair(place);
  if (!repaired) return simdjson::STRING_ERROR;
  reportHalves(*repaired, place);
  target = std::move(repaired->m_text);
  return simdjson::SUCCESS;
}

/// The string at `place`, which the parser cannot unescape, when halves of surrogate pairs are all that is
/// wrong with it.
std::optional<JsonString> VariantBuilder::repair(char const* place) const {
  std::optional<JsonString> string =
      readJsonString(m_text.substr(static_cast<std::size_t>(place - m_text.data())));
  return string.has_value() && string->m_halves > 0 ? std::move(string) : std::nullopt;
}

void VariantBuilder::reportHalves(JsonString const& string, char const* place) {
  std::string text = "found half of a surrogate pair, '" + string.m_firstHalf + "'";
  if (string.m_halves > 1)
    text += ", and " + std::to_string(string.m_halves - 1) + " more in the same string";
  report(FindingCode::TextRepaired, text + "; it was read as U+FFFD", place);
}

simdjson::error_code VariantBuilder::readBool(ondemand::value value, qv::qvVariant& target) {
  bool flag = false;
  if (auto const error = value.get_bool().get(flag)) return error;
  target = flag;
  return simdjson::SUCCESS;
}

simdjson::error_code VariantBuilder::readNull(ondemand::value value) {
  bool isNull = false;
  if (auto const error = value.is_null().get(isNull)) return error;
  return isNull ? simdjson::SUCCESS : simdjson::N_ATOM_ERROR;
}

constexpr bool isBlank(char c) {
  return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

/// Not by the parser's own numbers: it reads a real of more than 19 digits as another one. A value that was
/// not asked for is stepped over by the list or map that holds it.
simdjson::error_code VariantBuilder::readNumber(ondemand::value value, qv::qvVariant& target) {
  std::string_view token = value.raw_json_token();
  while (isBlank(token.back())) token.remove_suffix(1);
  if (std::optional<double> const number = readShortReal(token)) {
    target = *number;
    return simdjson::SUCCESS;
  }
  NumberForm const form = getNumberForm(token);
  if (form == NumberForm::None) return simdjson::NUMBER_ERROR;
  if (form == NumberForm::Integer && readInteger(token, target)) return simdjson::SUCCESS;
  std::optional<double> const number = readReal(token);
  if (!number.has_value()) return simdjson::NUMBER_ERROR;
  if (form == NumberForm::Integer) reportBigInteger(token);
  target = *number;
  return simdjson::SUCCESS;
}

void VariantBuilder::reportBigInteger(std::string_view number) {
  std::string const shown(number.substr(0, MaxShownDigits));
  report(FindingCode::JsonBigInteger,
         "the integer " + shown + (number.size() > MaxShownDigits ? "..." : "") +
             " does not fit into 64 bits; it was read as a real number",
         number.data());
}

void VariantBuilder::report(FindingCode code, std::string text, char const* place) {
  Finding finding = makeFinding(code, std::move(text));
  finding.m_place = m_lines.locate(static_cast<std::size_t>(place - m_text.data()));
  finding.m_place.m_jsonPointer = makePointer();
  m_findings.push_back(std::move(finding));
}

/// The place of the value being read.
std::string VariantBuilder::makePointer() const {
  std::string pointer;
  for (Level const& level : m_levels) {
    if (level.m_list != nullptr) {
      appendPointerIndex(pointer, level.m_list->size() - 1);
    } else {
      appendPointerKey(pointer, level.m_key);
    }
  }
  return pointer;
}

/// Parses and builds; any error but that of memory stands for a text that is no JSON.
simdjson::error_code parse(std::string_view text, std::size_t maxContainers, JsonReading& reading) {
  ondemand::parser parser;
  // The parser keeps one entry per level that it is promised never to exceed.
  if (auto const error = parser.allocate(text.size(), maxContainers + 2)) return error;
  ondemand::document document;
  if (auto const error = parser.iterate(text, text.size() + JsonPadding).get(document)) return error;
  ondemand::value root;
  if (auto const error = document.get_value().get(root)) return error;
  VariantBuilder builder(text, maxContainers, reading.m_findings);
  if (auto const error = builder.build(root, reading.m_value)) return error;
  reading.m_depth = builder.getDepth();
  // Only behind the last token there is no location any more.
  bool const isAtEnd = document.current_location().error() == simdjson::OUT_OF_BOUNDS;
  return isAtEnd ? simdjson::SUCCESS : simdjson::TRAILING_CONTENT;
}

/// Why the parser refused the text; nothing when it is a sound one of a single scalar, which the parser does
/// not read.
std::optional<Finding> explain(std::string_view text, std::size_t maxContainers, simdjson::error_code error) {
  std::optional<JsonFault> const fault = findJsonFault(text, maxContainers);
  if (!fault.has_value()) {
    if (error == simdjson::SCALAR_DOCUMENT_AS_VALUE) return std::nullopt;
    return makeFinding(FindingCode::JsonBroken,
                       std::string("the JSON parser refused the text: ") + simdjson::error_message(error));
  }
  return makeFinding(fault->m_isTooDeep ? FindingCode::JsonTooDeep : FindingCode::JsonBroken,
                     (fault->m_isTooDeep ? "nested too deep: found " : "no valid JSON: found ") +
                         fault->m_found + ", expected " + fault->m_expected,
                     {}, LineCounter(text).locate(fault->m_offset));
}

void shiftOffsets(Findings& findings, std::size_t shift) {
  for (Finding& finding : findings) {
    SourcePlace& place = finding.m_place;
    if (place.m_byteOffset) *place.m_byteOffset += shift;
    if (place.m_column && place.m_line == 1U) *place.m_column += shift;
  }
}

/// The parser does not say which limit refused it memory; the same request once more does.
[[noreturn]] void failWithoutMemory(std::size_t textBytes) {
  std::vector<std::uint32_t> const indices(textBytes);
  throw std::bad_alloc();
}

Finding reportByteOrderMark() {
  return makeFinding(FindingCode::JsonByteOrderMark,
                     "found a byte-order mark in front of the JSON text; it was skipped", {}, {0, 1, 1, {}});
}

}  // namespace

JsonReading readJson(std::string& text, std::size_t maxContainers) {
  static_assert(JsonPadding >= simdjson::SIMDJSON_PADDING);
  JsonReading reading;
  std::size_t const size = text.size();
  text.resize(size + JsonPadding);
  text.resize(size);
  std::string_view content = text;
  std::size_t const skipped =
      content.substr(0, ByteOrderMark.size()) == ByteOrderMark ? ByteOrderMark.size() : 0;
  content.remove_prefix(skipped);

  auto const error = parse(content, maxContainers, reading);
  if (error == simdjson::MEMALLOC) failWithoutMemory(content.size());
  if (error != simdjson::SUCCESS) {
    reading.m_value = qv::qvVariant();
    std::optional<Finding> const fault = explain(content, maxContainers, error);
    reading.m_isBroken = fault.has_value();
    // Of a text that cannot be read only the reason matters.
    if (fault.has_value()) reading.m_findings = {*fault};
  }
  shiftOffsets(reading.m_findings, skipped);
  if (skipped > 0 && !reading.m_isBroken) {
    reading.m_findings.insert(reading.m_findings.begin(), reportByteOrderMark());
  }
  return reading;
}

}  // namespace qvToolkit
