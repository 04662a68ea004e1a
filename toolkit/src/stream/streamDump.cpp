#include "qvToolkit/stream/streamDump.h"

#include <algorithm>
#include <deque>

#include "annotationLegacy/platform.h"
#include "files/inputFile.h"
#include "qvToolkit/text/textEscape.h"
#include "reading/streamDocument.h"
#include "rules/typeNames.h"
#include "stream/recordWalk.h"
#include "stream/streamContainer.h"

namespace qvToolkit {

namespace {

constexpr std::int32_t MaxTypeName = 256;
constexpr std::size_t MaxShownBytes = 12;
constexpr std::size_t Neighbours = 2;
constexpr std::size_t MaxFindings = 100;

std::string toHexNumber(std::uint64_t number, std::size_t width) {
  constexpr std::string_view Digits = "0123456789abcdef";
  std::string text;
  for (; number > 0 || text.size() < width; number >>= 4) text += Digits[number & 0x0FU];
  std::reverse(text.begin(), text.end());
  return text;
}

/// A length that no type name has leaves no way to find what follows.
std::string_view walkTypeName(FieldCursor& in) {
  auto const length = static_cast<std::int32_t>(in.takeNumber<std::uint32_t>("type.length"));
  if (length > MaxTypeName) {
    in.breakHere("type.length",
                 "expected a type name of at most 256 bytes, found one of " + std::to_string(length));
    return {};
  }
  in.show("type.length", std::to_string(length));
  return length > 0 ? in.text("type", static_cast<std::uint64_t>(length)) : std::string_view();
}

/// True when the document goes on behind the object.
bool walkObject(FieldCursor& in, std::uint32_t index) {
  FieldCursor::Inside const inObject(in, "object", index);
  in.number<std::uint32_t>("id");
  std::string_view const type = walkTypeName(in);
  auto const size = in.number<std::uint64_t>("payloadSize");
  if (in.isBroken()) return false;
  std::uint64_t const held = std::min(size, in.getLeft());
  in.beginPayload(size);
  bool const isView = type == qvLegacy::rules::viewTypeName;
  bool const isMetadata =
      type == qvLegacy::rules::metadataTypeName || type == qvLegacy::rules::metadataTypeNameOfRecord;
  if (isView) walkViewRecord(in);
  if (isMetadata) walkMetadataRecord(in);
  bool const wasBroken = in.isBroken();
  in.endPayload(isView || isMetadata ? "expected the end of the payload, found " : "unknown type: ");
  if (held == size) return true;
  if (!wasBroken) in.take("payload", size - held);
  return false;
}

void walkObjects(FieldCursor& in) {
  in.take("mark", StreamMark.size());
  in.show("mark", '"' + std::string(StreamMark) + '"');
  auto const version = in.takeNumber<std::uint32_t>("version");
  in.show("version", "0x" + toHexNumber(version, 1) + " (" + qv::qvStreamVersion(version).toString() + ")");
  in.setVersion(version);
  auto const count = in.number<std::uint32_t>("objectCount");
  for (std::uint32_t i = 0; i < count && !in.isBroken(); ++i) {
    if (!walkObject(in, i)) break;
  }
}

std::string formatBytes(std::string_view bytes) {
  std::string text;
  for (char const c : bytes.substr(0, MaxShownBytes)) {
    if (!text.empty()) text += ' ';
    text += toHexNumber(static_cast<unsigned char>(c), 2);
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

DumpResult fail(ExitCode failure, Finding finding) {
  return {{std::move(finding)}, failure};
}

void addBreak(Findings& findings, StreamField const& field) {
  if (findings.size() == MaxFindings) return;
  findings.push_back({FindingCode::StreamBroken,
                      Severity::Error,
                      "byte " + std::to_string(field.m_offset) + ", " + field.m_path + ": " + field.m_value,
                      {},
                      {field.m_offset, {}, {}, {}},
                      {}});
}

}  // namespace

void walkObjectStream(std::string_view bytes, FieldVisitor const& visit) {
  FieldCursor in(bytes, visit);
  walkObjects(in);
  in.endPayload("expected the end of the document, found ");
}

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

DumpResult dumpStream(std::string_view bytes, std::optional<std::uint64_t> at,
                      std::function<void(std::string_view)> const& write) {
  if (!isObjectStream(bytes)) {
    return fail(ExitInputBroken, {FindingCode::FormatUnknown,
                                  Severity::Error,
                                  "expected an object stream, which begins with 'qvStream'",
                                  {},
                                  {0, {}, {}, {}},
                                  {}});
  }
  if (at.has_value() && *at >= bytes.size()) {
    return fail(ExitUsage, {FindingCode::StreamOffset,
                            Severity::Error,
                            "byte " + std::to_string(*at) + " lies beyond the end of the document of " +
                                describeBytes(bytes.size()),
                            {},
                            {},
                            "--at"});
  }
  DumpResult result;
  FieldFilter filter(at, [&](StreamField const& field) { write(formatField(field, bytes) + '\n'); });
  walkObjectStream(bytes, [&](StreamField const& field) {
    if (field.m_state == StreamField::State::Break) addBreak(result.m_findings, field);
    filter.add(field);
  });
  return result;
}

DumpResult dumpStreamFile(std::string const& path, std::optional<std::uint64_t> at,
                          std::function<void(std::string_view)> const& write, OpenLimits const& limits) {
  InputFile const input = readInputFile(path, limits.m_maxInputBytes);
  if (input.m_problem.has_value()) return fail(input.m_failure, *input.m_problem);
  if (limits.m_onInput) limits.m_onInput(input.m_bytes.size());
  return dumpStream(input.m_bytes, at, write);
}

}  // namespace qvToolkit
