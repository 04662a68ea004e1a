#include "qvToolkit/stream/streamDump.h"

#include <algorithm>
#include <deque>

#include "annotationLegacy/platform.h"
#include "files/inputFile.h"
#include "qvToolkit/text/textEscape.h"
#include "reading/streamDocument.h"
#include "text/countText.h"
#include "text/hexadecimal.h"

namespace qvToolkit {

namespace {

constexpr std::size_t MaxShownBytes = 12;
constexpr std::size_t Neighbours = 2;
constexpr std::size_t MaxFindings = 100;

std::string formatBytes(std::string_view bytes) {
  std::string text;
  for (char const c : bytes.substr(0, MaxShownBytes)) {
    if (!text.empty()) text += ' ';
    appendHex(text, static_cast<unsigned char>(c), 2);
  }
  return text + (bytes.size() > MaxShownBytes ? " .." : "");
}

/// Lets through the field that holds an offset and its neighbours; every field when none is asked for.
class FieldFilter {
 public:
  FieldFilter(std::optional<std::uint64_t> at, FieldVisitor pass) : m_at(at), m_pass(std::move(pass)) {}

  void add(StreamField const& field) {
    if (!m_at.has_value()) return m_pass(field);
    bool const isAsked = *m_at >= field.m_offset && *m_at < field.m_offset + field.m_size;
    if (isAsked) {
      for (StreamField const& before : m_before) m_pass(before);
      m_pass(field);
      m_toCome = Neighbours;
    } else if (m_toCome > 0) {
      m_pass(field);
      --m_toCome;
    }
    m_before.push_back(field);
    if (m_before.size() > Neighbours) m_before.pop_front();
  }

 private:
  std::optional<std::uint64_t> m_at;
  FieldVisitor m_pass;
  std::deque<StreamField> m_before;
  std::size_t m_toCome = 0;
};

void addBreak(Findings& findings, StreamField const& field) {
  if (findings.size() == MaxFindings) return;
  findings.push_back(
      makeFinding(FindingCode::StreamBroken,
                  "byte " + std::to_string(field.m_offset) + ", " + field.m_path + ": " + field.m_value, {},
                  {field.m_offset, {}, {}, {}}));
}

}  // namespace

std::string formatField(StreamField const& field, std::string_view bytes) {
  constexpr std::size_t BytesWidth = 3 * MaxShownBytes + 2;
  std::string line = toHexNumber(field.m_offset, 8) + "  ";
  std::string const shown = field.m_size == 0 ? "-" : formatBytes(bytes.substr(field.m_offset, field.m_size));
  line += shown + std::string(BytesWidth - shown.size() + 2, ' ') + field.m_path;
  line += field.m_state == StreamField::State::Break ? ": BREAK: " : " = ";
  line += field.m_value;
  if (!field.m_gate.empty()) line += "  [" + field.m_gate + "]";
  return line;
}

Findings dumpStream(std::string_view bytes, std::optional<std::uint64_t> at,
                    std::function<void(std::string_view)> const& write) {
  if (!isObjectStream(bytes)) {
    return {makeFinding(FindingCode::FormatUnknown, "expected an object stream, which begins with 'qvStream'",
                        {}, {0, {}, {}, {}})};
  }
  if (at.has_value() && *at >= bytes.size()) {
    return {makeFinding(FindingCode::StreamOffset, "byte " + std::to_string(*at) +
                                                       " lies beyond the end of the document of " +
                                                       formatCount(bytes.size(), "byte"))};
  }
  Findings findings;
  FieldFilter filter(at, [&](StreamField const& field) { write(formatField(field, bytes) + '\n'); });
  walkObjectStream(bytes, [&](StreamField const& field) {
    if (field.m_state == StreamField::State::Break) addBreak(findings, field);
    filter.add(field);
  });
  return findings;
}

Findings dumpStreamFile(std::string const& path, std::optional<std::uint64_t> at,
                        std::function<void(std::string_view)> const& write, OpenLimits const& limits) {
  InputFile const input = readInputFile(path, limits.m_maxInputBytes);
  if (input.m_problem.has_value()) return {*input.m_problem};
  if (limits.m_onInput) limits.m_onInput(input.m_bytes.size());
  return dumpStream(input.m_bytes, at, write);
}

}  // namespace qvToolkit
