#include "outcome/jsonDocument.h"

#include <limits>

#include "annotationLegacy/version.h"
#include "outcome/formatWords.h"

namespace qvToolkit {

namespace {

/// More than any of the documents needs; what newer tools add may be deeper.
constexpr std::size_t MaxContainers = 100;

}  // namespace

void writeHead(JsonWriter& json, std::string_view format, int version) {
  json.member("format", format).member("formatVersion", version);
  json.member("toolVersion", qvAnnotationLegacy::Version::GetDescStringMajorMinorRelease(false));
}

void readHead(JsonFields& fields, std::string_view format) {
  std::string text;
  fields.read("format", text);
  if (text != format) fields.fail("format", "\"" + std::string(format) + "\"");
  std::int64_t version = 0;
  fields.read("formatVersion", version);
  if (version != OutcomeFormatVersion) fields.fail("formatVersion", std::to_string(OutcomeFormatVersion));
  fields.read("toolVersion", text);
}

std::string parseObject(std::string& json, qv::qvVariant& object) {
  JsonReading reading = readJson(json, MaxContainers);
  if (reading.m_isBroken) return formatFinding("JSON", reading.m_findings.front());
  object = std::move(reading.m_value);
  return {};
}

void writeSource(JsonWriter& json, Source const& source) {
  json.key("source").beginObject().bytes("path", source.m_path);
  writeCount(json, "size", source.m_size);
  json.textOrNull("sha256", source.m_sha256);
  json.textOrNull("encoding", source.m_format ? getWord(EncodingWords, *source.m_format) : "");
  json.endObject();
}

void writeCounts(JsonWriter& json, LegacyCounts const& counts) {
  json.key("counts").beginObject();
  for (CountWord const& word : CountWords) writeCount(json, word.m_key, counts.*word.m_count);
  json.endObject();
}

void writeCount(JsonWriter& json, JsonKey key, std::uint64_t count) {
  bool const isBig = count > static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max());
  if (isBig) {
    json.member(key, std::to_string(count));
  } else {
    json.member(key, count);
  }
}

void writeCount(JsonWriter& json, JsonKey key, std::optional<std::uint64_t> const& count) {
  if (count.has_value()) return writeCount(json, key, *count);
  json.key(key).null();
}

void writeBytesOrNull(JsonWriter& json, JsonKey key, std::string_view bytes) {
  if (bytes.empty()) {
    json.noBytes(key);
  } else {
    json.bytes(key, bytes);
  }
}

}  // namespace qvToolkit
