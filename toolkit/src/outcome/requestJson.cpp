#include <array>
#include <cmath>

#include "annotationLegacy/qvAnnotationMigration.h"
#include "outcome/jsonDocument.h"
#include "outcome/requestWords.h"
#include "qvToolkit/outcome/outcomeJson.h"

namespace qvToolkit {

namespace {

using qv::text::FontOptions;
using qv::text::FontReplacement;
using qvLegacy::qvAnnotationMigration;

struct DroppedWord {
  JsonKey m_key;
  qvAnnotationMigration::Option m_bit;
};

constexpr std::array DroppedWords = {
    DroppedWord{"dropViewMetadata", qvAnnotationMigration::DropViewMetadata},
    DroppedWord{"dropKnownMetadata", qvAnnotationMigration::DropKnownMetadata},
    DroppedWord{"dropUnknownMetadata", qvAnnotationMigration::DropUnknownMetadata},
};

struct LimitWord {
  JsonKey m_key;
  Limit m_limit;
};

/// Under the texts of their options' keys, which a test sees to.
constexpr std::array<LimitWord, LimitCount> LimitWords = {{
    {"maxMemory", Limit::Memory},
    {"maxTime", Limit::Time},
    {"maxInput", Limit::Input},
    {"maxFailedReads", Limit::FailedReads},
    {"maxStack", Limit::Stack},
    {"maxJsonDepth", Limit::JsonDepth},
    {"maxDepth", Limit::Depth},
    {"maxNodes", Limit::Nodes},
    {"maxOutput", Limit::Output},
    {"maxOutputFile", Limit::OutputFile},
    {"maxRaster", Limit::Raster},
    {"maxViews", Limit::Views},
}};

void writeFonts(JsonWriter& json, FontOptions const& fonts) {
  json.key("fonts").beginObject().key("folders").beginArray();
  for (std::string const& folder : fonts.m_directories) json.beginObject().bytes("path", folder).endObject();
  json.endArray().key("replacements").beginArray();
  for (FontReplacement const& each : fonts.m_replacements) {
    json.beginObject().bytes("family", each.m_family).bytes("replacement", each.m_replacement).endObject();
  }
  json.endArray().member("systemFonts", fonts.m_useSystemFonts).endObject();
}

void readFonts(JsonFields& fields, FontOptions& fonts) {
  fields.readList("folders", fonts.m_directories,
                  [](JsonFields& each, std::string& folder) { each.readBytes("path", folder); });
  fields.readList("replacements", fonts.m_replacements, [](JsonFields& each, FontReplacement& replacement) {
    each.readBytes("family", replacement.m_family);
    each.readBytes("replacement", replacement.m_replacement);
  });
  fields.read("systemFonts", fonts.m_useSystemFonts);
}

void writeTransformation(JsonWriter& json, Similarity const& similarity) {
  json.key("transformation").beginObject().key("rotation").beginArray();
  for (std::size_t i = 0; i < 9; ++i) json.value(similarity.m_rotation(i / 3, i % 3));
  json.endArray().member("scale", similarity.m_scale).key("translation").beginArray();
  Wm4::Vector3<double> const& move = similarity.m_translation;
  json.value(move.X()).value(move.Y()).value(move.Z()).endArray().endObject();
}

/// True for a turn that neither mirrors nor scales.
bool isTurn(Wm4::Matrix3<double> const& matrix) {
  Similarity apart;
  return takeApart(matrix, apart).empty() && std::abs(apart.m_scale - 1) <= MatrixTolerance;
}

void readTransformation(JsonFields& fields, Similarity& similarity) {
  std::vector<double> const r = fields.readNumbers("rotation", 9);
  fields.read("scale", similarity.m_scale);
  std::vector<double> const t = fields.readNumbers("translation", 3);
  if (!fields.isSound()) return;
  similarity.m_rotation = {r[0], r[1], r[2], r[3], r[4], r[5], r[6], r[7], r[8]};
  similarity.m_translation = {t[0], t[1], t[2]};
  if (!isTurn(similarity.m_rotation)) fields.fail("rotation", "a turn, which neither mirrors nor scales");
  if (!checkScale(similarity.m_scale).empty()) fields.fail("scale", "a scale from 1e-12 to 1e12");
}

void writeLimits(JsonWriter& json, Limits const& limits) {
  json.key("limits").beginObject().member("lifted", limits.areLifted());
  for (LimitWord const& word : LimitWords) writeCount(json, word.m_key, limits.findSet(word.m_limit));
  json.endObject();
}

void readLimits(JsonFields& fields, Limits& limits) {
  bool areLifted = false;
  fields.read("lifted", areLifted);
  if (areLifted) limits.lift();
  for (LimitWord const& word : LimitWords) {
    std::optional<std::uint64_t> value;
    fields.read(word.m_key.getText(), value);
    if (value.has_value()) limits.set(word.m_limit, *value);
  }
}

std::optional<std::uint32_t> findVersion(std::string_view text) {
  qv::qvStreamVersion const version{std::string(text)};
  return version.toString() == text ? std::optional(version.GetPacked()) : std::nullopt;
}

void readOptions(JsonFields& fields, Request& request) {
  for (DroppedWord const& word : DroppedWords) {
    bool isDropped = false;
    fields.read(word.m_key.getText(), isDropped);
    if (isDropped) request.m_dropped |= word.m_bit;
  }
  fields.read("headSize", request.m_headSize);
  fields.readBytesOrNull("rasters", request.m_rasterFolder);
  fields.readObject("fonts", [&](JsonFields& fonts) { readFonts(fonts, request.m_fonts); });
  fields.readWord("textMode", request.m_textMode, "\"live\", \"outline\" or \"both\"",
                  [](std::string_view text) { return findValue(TextModeWords, text); });
  fields.readWord("pageFormat", request.m_pageFormat, "\"svg\", \"png\" or \"pdf\"",
                  [](std::string_view text) { return findValue(PageFormatWords, text); });
  fields.read("resolution", request.m_resolution);
}

void readMembers(JsonFields& fields, Request& request) {
  readHead(fields, RequestFormat);
  fields.readWord("action", request.m_action, "the word for an action",
                  [](std::string_view text) { return findValue(ActionWords, text); });
  fields.read("json", request.m_asJson);
  fields.read("full", request.m_isFull);
  fields.read("pretty", request.m_isPretty);
  readOptions(fields, request);
  fields.readWord("streamVersion", request.m_streamVersion, "a version such as \"6.27\"", findVersion);
  fields.read("viewsOnly", request.m_viewsOnly);
  fields.readObject("transformation",
                    [&](JsonFields& each) { readTransformation(each, request.m_transformation); });
  fields.read("offset", request.m_offset);
  fields.readObject("limits", [&](JsonFields& limits) { readLimits(limits, request.m_limits); });
}

}  // namespace

void writeRequest(JsonWriter& json, Request const& request) {
  writeHead(json.beginObject(), RequestFormat, OutcomeFormatVersion);
  json.member("action", getActionText(request.m_action)).member("json", request.m_asJson);
  json.member("full", request.m_isFull).member("pretty", request.m_isPretty);
  for (DroppedWord const& word : DroppedWords) json.member(word.m_key, (request.m_dropped & word.m_bit) != 0);
  json.member("headSize", request.m_headSize);
  writeBytesOrNull(json, "rasters", request.m_rasterFolder);
  writeFonts(json, request.m_fonts);
  json.member("textMode", getTextModeText(request.m_textMode));
  json.member("pageFormat", getFormatText(request.m_pageFormat));
  json.member("resolution", request.m_resolution);
  json.member("streamVersion", qv::qvStreamVersion(request.m_streamVersion).toString());
  json.member("viewsOnly", request.m_viewsOnly);
  writeTransformation(json, request.m_transformation);
  writeCount(json, "offset", request.m_offset);
  writeLimits(json, request.m_limits);
  json.endObject();
}

std::string readRequest(std::string json, Request& request) {
  return readDocumentInto(json, request, readMembers);
}

}  // namespace qvToolkit
