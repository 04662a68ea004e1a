#include "findingSamples.h"

#include <string_view>

#include "annotationLegacy/qvAnnotationInterface.h"
#include "tests/support/streamTest.h"

namespace qvTest {

namespace {

using namespace qvToolkit;
using namespace qvStreamTest;

constexpr char const* Rasters = QVA_EXAMPLES "/rasters";
constexpr std::uint32_t Version = 0x60016;

std::string makeView(std::string const& annotations, std::string const& metadata = "{}",
                     std::string const& plane = R"("origin":[0,0,0],"normal":[0,0,1],"axis":[1,0,0])") {
  return R"({"ver":"6.27","name":"v",)" + plane + R"(,"metadata":)" + metadata + R"(,"annotations":[)" +
         annotations + "]}";
}

/// `members` have a comma behind each.
std::string makeText(std::string const& members = {}, std::string const& text = "plain",
                     std::string const& properties = R"("font":"Liberation Sans")") {
  return R"({"type":"text","name":"n",)" + members + R"("defaulttextprop":{)" + properties + R"(},"text":")" +
         text + R"("})";
}

std::string makeRaster(std::string const& name, std::string const& size = "[1,1]") {
  return R"({"type":"raster","rastername":")" + name + R"(","sizeem":)" + size + "}";
}

std::string makeChildren(std::string const& child) {
  return R"("children":[)" + child + "],";
}

std::string repeat(std::string const& item, std::size_t count, std::string const& separator = {}) {
  std::string all = item;
  for (std::size_t i = 1; i < count; ++i) all += separator + item;
  return all;
}

std::string join(std::vector<std::string> const& objects, std::uint32_t version = Version) {
  Bytes stream = beginDocument(version, static_cast<std::uint32_t>(objects.size()));
  for (std::string const& object : objects) stream.raw(object);
  return stream.get();
}

/// A view of that payload, and nothing else.
std::string joinView(std::string const& payload, std::uint32_t version = Version) {
  return join({makeObject(1, ViewType, payload)}, version);
}

std::string joinMetadata(std::vector<std::uint32_t> const& links) {
  return join(
      {makeObject(1, MetadataType, makeMetadata(links)), makeObject(2, ViewType, makeEmptyView("v"))});
}

/// JSON names the heads that are known, so that only an object stream holds another one.
std::string encodeUnknownHead() {
  Session const session;
  Document const document = read(makeView(makeText(R"("leaders":[{"pos":[9,9,0]}],)")));
  document.m_views[0].m_view->m_annotations[0]->m_leaders[0].m_head = 200;
  return encodeDocument(document, {}).m_bytes;
}

std::vector<FindingSample> getOpeningSamples() {
  std::string const view = makeView({});
  std::string const empty = makeEmptyView("v");
  return {
      {FindingCode::InputUnreadable, "inspect", {}, {}},
      {FindingCode::InputTooLarge, "inspect", view, {"--max-input", "1"}},
      {FindingCode::FormatUnknown, "inspect", "hello", {}},
      {FindingCode::JsonBroken, "inspect", "{", {}},
      {FindingCode::JsonTooDeep, "inspect", "[[[]]]", {"--max-json-depth", "2"}},
      {FindingCode::JsonDuplicateKey, "inspect", R"({"views":[],"views":[]})", {}},
      {FindingCode::JsonBigInteger, "inspect", R"({"views":[],"x":99999999999999999999})", {}},
      {FindingCode::JsonByteOrderMark, "inspect", "\xEF\xBB\xBF[]", {}},
      {FindingCode::DocumentShape, "inspect", "7", {}},
      {FindingCode::NoViews, "inspect", "[]", {}},
      {FindingCode::StreamBroken, "inspect", "qvStream", {}},
      {FindingCode::StreamObjectId, "inspect", join({makeObject(0, ViewType, empty)}), {}},
      {FindingCode::StreamUnknownType, "inspect", join({makeObject(1, "x", {})}), {}},
      {FindingCode::StreamOverRead, "inspect", joinView(empty.substr(0, empty.size() - 1)), {}},
      {FindingCode::StreamRefused, "inspect", joinView(empty, 0x6000C), {}},
      {FindingCode::StreamUnderRead, "inspect", joinView(empty + "x"), {}},
      {FindingCode::StreamLink, "inspect", joinMetadata({9}), {}},
      {FindingCode::StreamUnlistedView, "inspect", joinMetadata({}), {}},
      {FindingCode::StreamTrailing, "inspect", joinView(empty) + "x", {}},
      {FindingCode::StreamVersion, "inspect", joinView(empty, 0x70000), {}},
      {FindingCode::StreamMore, "inspect", join(std::vector(2000, makeObject(1, "x", {}))), {}},
      {FindingCode::StreamOffset, "dump", joinView(empty), {"--at", "1000"}},
  };
}

std::vector<FindingSample> getReadingSamples() {
  std::string const wrongColor = makeText(R"("color":"x",)");
  return {
      {FindingCode::ReaderMessage, "inspect", makeView(wrongColor), {}},
      {FindingCode::ReaderRepeated, "inspect", makeView(repeat(wrongColor, 101, ",")), {}},
      {FindingCode::RecordLost, "inspect", makeView(R"({"type":"text","lines":7})"), {}},
      {FindingCode::KeyIgnored, "inspect", makeView(makeText(R"("colour":"000000",)")), {}},
      {FindingCode::ValueUnknown, "inspect", makeView(makeText(R"("frameshape":"star",)")), {}},
      {FindingCode::ValueInexact, "inspect", makeView(makeText(R"("color":"12zzzz",)")), {}},
      {FindingCode::ValueRounded, "inspect", makeView(makeText({}, "a", R"("heightem":0.123)")), {}},
      {FindingCode::NumberNotFinite, "migrate", makeView(makeText(R"("position":[0,0,1e300],)")), {}},
      {FindingCode::TextRepaired, "inspect", makeView(makeText({}, R"(\ud800)")), {}},
  };
}

std::vector<FindingSample> getMigrationSamples() {
  std::string const withMetadata = makeView(makeText(), R"({"k":1})");
  std::string const collapsed = R"("leaders":[{"pos":[0,0,0],"head":"arrow"}],)";
  std::string const grandchild = makeText(R"("leaders":[{"pos":[1,2,3]}],)");
  return {
      {FindingCode::MigrationMessage, "migrate", withMetadata, {}},
      {FindingCode::ViewNotMigrated, "migrate", withMetadata, {}},
      {FindingCode::MetadataDropped, "migrate", withMetadata, {"--drop-view-metadata"}},
      {FindingCode::PlaneDegenerate,
       "migrate",
       makeView(makeText(), "{}", R"("normal":[0,0,1],"axis":[0,0,1])"),
       {}},
      {FindingCode::ShapeAsRectangle, "migrate", makeView(makeText(R"("frameshape":"circle",)")), {}},
      {FindingCode::LeaderHeadUnknown, "migrate", encodeUnknownHead(), {}},
      {FindingCode::LeaderHeadCollapsed, "migrate", makeView(makeText(collapsed)), {}},
      {FindingCode::LeaderLost,
       "migrate",
       makeView(makeText(makeChildren(makeText(makeChildren(grandchild))))),
       {}},
      {FindingCode::RasterUnavailable, "migrate", makeView(makeRaster("logo")), {}},
      {FindingCode::RasterUnreadable, "migrate", makeView(makeRaster("p.json")), {"--rasters", "HERE"}},
      {FindingCode::RasterSize, "migrate", makeView(makeRaster("mark.png", "[0,1]")), {"--rasters", Rasters}},
  };
}

std::vector<FindingSample> getTextSamples() {
  std::string const blanks = R"({"type":"text","lines":[[{"text":" "},{"text":"b"}]]})";
  std::string const bold = R"("font":"Noto Sans Symbols2","bold":true)";
  return {
      {FindingCode::BlankLineSkipped, "migrate", makeView(makeText({}, R"(a\n\nb)")), {}},
      {FindingCode::BlankRunSkipped, "migrate", makeView(blanks), {}},
      {FindingCode::TextNoHeight, "migrate", makeView(makeText({}, "a", R"("heightem":0)")), {}},
      {FindingCode::TextLowContrast, "migrate", makeView(makeText(R"("color":"000080",)")), {}},
      {FindingCode::FontNone, "migrate", makeView(makeText()), {"--no-system-fonts"}},
      {FindingCode::FontMetricCompatible, "migrate", makeView(makeText({}, "a", R"("font":"Arial")")), {}},
      {FindingCode::FontSubstituted, "migrate", makeView(makeText({}, "a", R"("font":"No Such")")), {}},
      {FindingCode::FontReplaced,
       "migrate",
       makeView(makeText()),
       {"--font-map", "Liberation Sans=DejaVu Sans"}},
      {FindingCode::FontSynthesized, "migrate", makeView(makeText({}, R"(\u2610)", bold)), {}},
      {FindingCode::GlyphMissing, "migrate", makeView(makeText({}, R"(\ue123)")), {}},
  };
}

std::vector<FindingSample> getWritingSamples() {
  std::string const view = makeView(makeText());
  std::string const endless = makeView(makeText(), "{}", R"("normal":[0,0,1e300],"axis":[1,0,0])");
  std::string const far = makeView(makeText(), "{}", R"("origin":[1e38,0,0])");
  return {
      {FindingCode::EncodingLoss, "encode", view, {"--stream-version", "6.13"}},
      {FindingCode::EncodingOrder,
       "encode",
       makeView(makeRaster("logo") + "," + makeText()),
       {"--stream-version", "6.27"}},
      {FindingCode::TransformSizeKept, "transform", view, {"--scale", "2"}},
      {FindingCode::TransformPlaneKept, "transform", endless, {"--translate", "1", "0", "0"}},
      {FindingCode::TransformOverflow, "transform", far, {"--scale", "1e6"}},
      {FindingCode::OutputExists, "migrate", view, {}},
      {FindingCode::OutputFailed, "migrate", view, {"-o", "/proc/none"}},
  };
}

std::vector<FindingSample> getLimitSamples() {
  std::string const view = makeView(makeText());
  std::string const large = R"({"views":[)" + repeat("[[],[]]", 1000000, ",") + "]}";
  std::string phantoms = makeEmptyView("v");
  phantoms = phantoms.substr(0, phantoms.size() - 8) + Bytes().u32(5000).get();
  return {
      {FindingCode::LimitMemory, "inspect", large, {"--max-memory", "20M"}},
      {FindingCode::LimitFailedReads, "inspect", joinView(phantoms), {"--max-failed-reads", "10"}},
      {FindingCode::LimitStack, "inspect", repeat("[", 500) + repeat("]", 500), {"--max-stack", "16K"}},
      {FindingCode::LimitDepth,
       "migrate",
       makeView(makeText(makeChildren(makeText()))),
       {"--max-depth", "0"}},
      {FindingCode::LimitViews, "migrate", "[" + view + "," + view + "]", {"--max-views", "1"}},
      {FindingCode::LimitNodes, "migrate", makeView(makeText() + "," + makeText()), {"--max-nodes", "1"}},
      {FindingCode::LimitOutput, "inspect", view, {"--max-output", "1"}},
      {FindingCode::LimitRaster,
       "migrate",
       makeView(makeRaster("mark.png")),
       {"--rasters", Rasters, "--max-raster", "1"}},
  };
}

}  // namespace

std::vector<FindingSample> getFindingSamples() {
  std::vector<FindingSample> all;
  for (auto const get : {getOpeningSamples, getReadingSamples, getMigrationSamples, getTextSamples,
                         getWritingSamples, getLimitSamples}) {
    for (FindingSample& sample : get()) all.push_back(std::move(sample));
  }
  return all;
}

}  // namespace qvTest
