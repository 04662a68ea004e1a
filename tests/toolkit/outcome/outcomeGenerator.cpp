#include "tests/toolkit/outcome/outcomeGenerator.h"

#include <array>
#include <cmath>
#include <limits>

#include "qvToolkit/findings/address.h"
#include "text/sha256.h"

namespace qvToolkit {

namespace {

std::size_t anyIndex(std::size_t size) {
  return *rc::gen::inRange<std::size_t>(0, size);
}

template <class Item>
std::vector<Item> anyList(Item (*make)()) {
  std::vector<Item> items(anyIndex(4));
  for (Item& item : items) item = make();
  return items;
}

template <class Value, class Make>
std::optional<Value> maybe(Make make) {
  return *rc::gen::arbitrary<bool>() ? std::optional<Value>(make()) : std::nullopt;
}

/// Valid UTF-8 of one to four bytes a character, control characters and parts of other characters.
std::string anyBytes() {
  static std::array<std::string, 12> const Parts = {
      "a", "\"", "\\", "\n", std::string(1, '\0'), "\x7F", "é", "⌀", "😀", "\xFF", "\xC3", "\xED\xA0\x80"};
  std::string bytes;
  for (std::size_t i = anyIndex(8); i > 0; --i) bytes += Parts[anyIndex(Parts.size())];
  return bytes;
}

std::string anyText() {
  return *rc::gen::element<std::string>("", "6.22", "⌀ \"\\\n");
}

std::string anyTime() {
  return *rc::gen::element<std::string>("2026-02-28T23:59:59.125Z", "1999-12-31T23:59:60Z");
}

/// Counts are rarely large, and once are larger than any integer of JSON readers.
std::uint64_t anyCount() {
  constexpr std::uint64_t Half = std::uint64_t{1} << 63;
  return *rc::gen::oneOf(rc::gen::arbitrary<std::uint64_t>(),
                         rc::gen::element<std::uint64_t>(0, 1, Half - 1, Half, ~std::uint64_t{0}));
}

template <class Real>
Real anyReal() {
  using Limits = std::numeric_limits<Real>;
  Real const number =
      *rc::gen::oneOf(rc::gen::arbitrary<Real>(),
                      rc::gen::element<Real>(Real(0.1), Real(1e30), Limits::max(), Limits::lowest(),
                                             Limits::denorm_min(), Limits::min(), -Real(0)));
  return std::isfinite(number) ? number : Real(0);
}

std::string anySha256() {
  return *rc::gen::arbitrary<bool>() ? hashSha256(anyBytes()) : std::string();
}

std::string anyAddress() {
  std::vector<std::size_t> indices(anyIndex(5));
  for (std::size_t& index : indices) index = anyIndex(1000);
  return Address::ofIndices(indices).getText();
}

Source anySource() {
  Source source;
  source.m_path = anyBytes();
  source.m_size = maybe<std::uint64_t>(anyCount);
  source.m_sha256 = anySha256();
  source.m_format = maybe<Format>([] { return *rc::gen::element(Format::Json, Format::ObjectStream); });
  return source;
}

Finding anyFinding() {
  Finding finding;
  finding.m_code = getCatalogue()[anyIndex(getCatalogue().size())].m_code;
  finding.m_severity = *rc::gen::element(Severity::Info, Severity::Warning, Severity::Error);
  finding.m_text = anyBytes();
  finding.m_address = anyAddress();
  finding.m_place = {maybe<std::uint64_t>(anyCount), maybe<std::uint64_t>(anyCount),
                     maybe<std::uint64_t>(anyCount), anyBytes()};
  finding.m_options = anyList<OptionKey>(
      [] { return static_cast<OptionKey>(1 + anyIndex(static_cast<std::size_t>(OptionKey::MaxViews))); });
  return finding;
}

ViewOutcome anyView() {
  ViewOutcome view;
  view.m_address = Address::ofView(anyIndex(1000)).getText();
  view.m_name = anyBytes();
  view.m_version = anyText();
  view.m_isRead = *rc::gen::arbitrary<bool>();
  view.m_isMigrated = maybe<bool>([] { return *rc::gen::arbitrary<bool>(); });
  view.m_sameAs = anyAddress();
  view.m_page = anyBytes();
  LegacyCounts& counts = view.m_counts;
  for (auto* count : {&counts.m_annotations, &counts.m_children, &counts.m_depth, &counts.m_leaders,
                      &counts.m_lines, &counts.m_measures, &counts.m_ownProperties, &counts.m_raster,
                      &counts.m_segments, &counts.m_text, &counts.m_textBytes}) {
    *count = anyCount();
  }
  return view;
}

OutputFile anyOutput() {
  return {anyBytes(), anyCount(), anySha256()};
}

FontIdentity anyFont() {
  return {anyBytes(), anyBytes(), anySha256(), *rc::gen::arbitrary<unsigned>()};
}

/// A turn by any axis and angle.
Wm4::Matrix3<double> anyTurn() {
  auto const turn = [](std::size_t a, std::size_t b) {
    double const angle = *rc::gen::inRange(-3000, 3001) / 1000.0;
    Wm4::Matrix3<double> matrix = Wm4::Matrix3<double>::IDENTITY;
    matrix(a, a) = matrix(b, b) = std::cos(angle);
    matrix(a, b) = -std::sin(angle);
    matrix(b, a) = std::sin(angle);
    return matrix;
  };
  return turn(0, 1) * turn(1, 2) * turn(0, 2);
}

Limits anyLimits() {
  Limits limits;
  if (*rc::gen::arbitrary<bool>()) limits.lift();
  for (std::size_t i = 0; i < LimitCount; ++i) {
    if (auto const value = maybe<std::uint64_t>(anyCount)) limits.set(static_cast<Limit>(i), *value);
  }
  return limits;
}

void fillMigration(Request& request) {
  request.m_dropped = *rc::gen::inRange(0, 8);
  request.m_headSize = anyReal<float>();
  request.m_rasterFolder = anyBytes();
  request.m_fonts.m_directories = anyList<std::string>(anyBytes);
  request.m_fonts.m_replacements = anyList<qv::text::FontReplacement>([] {
    return qv::text::FontReplacement{anyBytes(), anyBytes()};
  });
  request.m_fonts.m_useSystemFonts = *rc::gen::arbitrary<bool>();
  request.m_textMode = *rc::gen::element(TextMode::Live, TextMode::Outline, TextMode::Both);
  request.m_pageFormat = *rc::gen::element(PageFormat::Svg, PageFormat::Png, PageFormat::Pdf);
  request.m_resolution = *rc::gen::arbitrary<unsigned>();
}

Request makeRequest() {
  Request request;
  request.m_action = static_cast<Action>(anyIndex(6));
  request.m_asJson = *rc::gen::arbitrary<bool>();
  request.m_isFull = *rc::gen::arbitrary<bool>();
  request.m_isPretty = *rc::gen::arbitrary<bool>();
  fillMigration(request);
  request.m_streamVersion = *rc::gen::arbitrary<std::uint32_t>();
  request.m_viewsOnly = *rc::gen::arbitrary<bool>();
  request.m_transformation.m_rotation = anyTurn();
  request.m_transformation.m_scale = *rc::gen::element(MinScale, 0.1, 1.0, 25.4, MaxScale);
  request.m_transformation.m_translation = {anyReal<double>(), anyReal<double>(), anyReal<double>()};
  request.m_offset = maybe<std::uint64_t>(anyCount);
  request.m_limits = anyLimits();
  return request;
}

// A new member makes these bindings fail to compile: write it, read it and compare it.

bool isSame(Source const& a, Source const& b) {
  auto const& [path, size, sha256, format] = a;
  return path == b.m_path && size == b.m_size && sha256 == b.m_sha256 && format == b.m_format;
}

bool isSame(Finding const& a, Finding const& b) {
  auto const& [code, severity, text, address, place, options] = a;
  auto const& [offset, line, column, pointer] = place;
  return code == b.m_code && severity == b.m_severity && text == b.m_text && address == b.m_address &&
         offset == b.m_place.m_byteOffset && line == b.m_place.m_line && column == b.m_place.m_column &&
         pointer == b.m_place.m_jsonPointer && options == b.m_options;
}

bool isSame(ViewOutcome const& a, ViewOutcome const& b) {
  auto const& [address, name, version, isRead, isMigrated, sameAs, page, counts] = a;
  return address == b.m_address && name == b.m_name && version == b.m_version && isRead == b.m_isRead &&
         isMigrated == b.m_isMigrated && sameAs == b.m_sameAs && page == b.m_page && counts == b.m_counts;
}

bool isSame(OutputFile const& a, OutputFile const& b) {
  auto const& [name, size, sha256] = a;
  return name == b.m_name && size == b.m_size && sha256 == b.m_sha256;
}

bool isSame(FontIdentity const& a, FontIdentity const& b) {
  auto const& [family, version, sha256, faceIndex] = a;
  return family == b.m_family && version == b.m_version && sha256 == b.m_sha256 && faceIndex == b.m_faceIndex;
}

bool isSame(qv::text::FontReplacement const& a, qv::text::FontReplacement const& b) {
  auto const& [family, replacement] = a;
  return family == b.m_family && replacement == b.m_replacement;
}

template <class Item>
bool isSameList(std::vector<Item> const& a, std::vector<Item> const& b) {
  return std::ranges::equal(a, b, [](Item const& x, Item const& y) { return isSame(x, y); });
}

bool isSame(qv::text::FontOptions const& a, qv::text::FontOptions const& b) {
  auto const& [directories, replacements, useSystemFonts] = a;
  return directories == b.m_directories && isSameList(replacements, b.m_replacements) &&
         useSystemFonts == b.m_useSystemFonts;
}

bool isSame(Similarity const& a, Similarity const& b) {
  auto const& [rotation, scale, translation] = a;
  return rotation == b.m_rotation && scale == b.m_scale && translation == b.m_translation;
}

}  // namespace

rc::Gen<Outcome> anyOutcome() {
  return rc::gen::exec([] {
    Outcome outcome;
    outcome.m_source = anySource();
    outcome.m_conclusion =
        *rc::gen::element(ExitDone, ExitFindings, ExitUsage, ExitInputUnreadable, ExitInputBroken,
                          ExitOutputFailed, ExitLimit, ExitNothingToDo, ExitBug);
    outcome.m_findings = anyList<Finding>(anyFinding);
    outcome.m_views = anyList<ViewOutcome>(anyView);
    outcome.m_outputs = anyList<OutputFile>(anyOutput);
    outcome.m_fonts = anyList<FontIdentity>(anyFont);
    return outcome;
  });
}

rc::Gen<Request> anyRequest() {
  return rc::gen::exec(makeRequest);
}

rc::Gen<RunFacts> anyRunFacts() {
  return rc::gen::exec([] {
    return RunFacts{anyBytes(),
                    anyTime(),
                    anyTime(),
                    std::abs(anyReal<double>()),
                    std::abs(anyReal<double>()),
                    anyCount(),
                    anyBytes(),
                    *rc::gen::arbitrary<std::int64_t>()};
  });
}

bool isSame(Outcome const& a, Outcome const& b) {
  auto const& [source, conclusion, findings, views, outputs, fonts] = a;
  return isSame(source, b.m_source) && conclusion == b.m_conclusion && isSameList(findings, b.m_findings) &&
         isSameList(views, b.m_views) && isSameList(outputs, b.m_outputs) && isSameList(fonts, b.m_fonts);
}

bool isSame(Request const& a, Request const& b) {
  auto const& [action, asJson, isFull, isPretty, dropped, headSize, rasterFolder, fonts, textMode, pageFormat,
               resolution, streamVersion, viewsOnly, transformation, offset, limits] = a;
  return action == b.m_action && asJson == b.m_asJson && isFull == b.m_isFull && isPretty == b.m_isPretty &&
         dropped == b.m_dropped && headSize == b.m_headSize && rasterFolder == b.m_rasterFolder &&
         isSame(fonts, b.m_fonts) && textMode == b.m_textMode && pageFormat == b.m_pageFormat &&
         resolution == b.m_resolution && streamVersion == b.m_streamVersion && viewsOnly == b.m_viewsOnly &&
         isSame(transformation, b.m_transformation) && offset == b.m_offset && limits == b.m_limits;
}

bool isSame(RunFacts const& a, RunFacts const& b) {
  auto const& [givenPath, started, ended, processorSeconds, wallSeconds, peakMemory, host, process] = a;
  return givenPath == b.m_givenPath && started == b.m_started && ended == b.m_ended &&
         processorSeconds == b.m_processorSeconds && wallSeconds == b.m_wallSeconds &&
         peakMemory == b.m_peakMemory && host == b.m_host && process == b.m_process;
}

}  // namespace qvToolkit
