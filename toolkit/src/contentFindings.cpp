#include <array>
#include <charconv>

#include "imageFormat.h"
#include "migrationFindings.h"
#include "qvSvg/image.h"
#include "qvSvg/text.h"
#include "utf8.h"

namespace qvToolkit {

namespace {

/// "U+2300", at least four digits.
std::string nameCodePoint(char32_t c) {
  std::array<char, 8> digits;
  auto const result =
      std::to_chars(digits.data(), digits.data() + digits.size(), static_cast<std::uint32_t>(c), 16);
  std::string text(digits.data(), result.ptr);
  for (char& digit : text) digit = digit >= 'a' ? static_cast<char>(digit - 'a' + 'A') : digit;
  return "U+" + std::string(text.size() < 4 ? 4 - text.size() : 0, '0') + text;
}

void reportMissing(std::string_view text, std::string const& address, FindingList& findings) {
  while (!text.empty()) {
    Utf8Step const step = decodeUtf8(text);
    text.remove_prefix(step.m_length);
    findings.add(FindingCode::GlyphMissing, Severity::Error, address,
                 "no font has the character " + nameCodePoint(step.m_codePoint) +
                     "; a replacement sign is drawn; install a font that has it");
  }
}

void reportSpan(qv::svg::TextSpan const& span, std::string const& address, FindingList& findings) {
  std::string const families =
      "text in font '" + span.m_askedFamily + "' is drawn with '" + span.m_family + "'";
  switch (span.m_match) {
    case qv::svg::FontMatch::Asked:
      return;
    case qv::svg::FontMatch::MetricCompatible:
      findings.add(FindingCode::FontMetricCompatible, Severity::Info, address,
                   families + ", which is as wide");
      return;
    case qv::svg::FontMatch::Substitute:
      findings.add(FindingCode::FontSubstituted, Severity::Warning, address, families);
      return;
    case qv::svg::FontMatch::Missing:
      reportMissing(span.m_original, address, findings);
      return;
  }
}

void reportImage(qv::svg::Image const& image, std::string const& address, RasterFolder const& rasters,
                 FindingList& findings) {
  ImageHeader const header = readImageHeader(rasters.resolve(image.m_data));
  if (isShowable(header)) return;
  std::string_view const reason = header.m_mediaType.empty()
                                      ? "the data are no PNG, JPEG, GIF or WebP image"
                                      : "its header is broken or it has more than 64 million pixels";
  findings.add(FindingCode::RasterUnreadable, Severity::Warning, address,
               "the image is shown as a black rectangle: " + std::string(reason));
}

void reportItems(qv::svg::Node const& node, AnnotationPair const& pair, AnnotationMarks const& marks,
                 RasterFolder const& rasters, FindingList& findings) {
  for (auto const& item : node.getChildren()) {
    if (auto const* text = dynamic_cast<qv::svg::Text const*>(item.get())) {
      for (auto const& span : text->m_spans) reportSpan(span, pair.m_address, findings);
    } else if (auto const* image = dynamic_cast<qv::svg::Image const*>(item.get())) {
      reportImage(*image, pair.m_address, rasters, findings);
    } else if (auto const* group = dynamic_cast<qv::svg::Node const*>(item.get())) {
      if (!marks.contains(group)) reportItems(*group, pair, marks, rasters, findings);
    }
  }
}

}  // namespace

void reportContent(AnnotationPair const& pair, AnnotationMarks const& marks, RasterFolder const& rasters,
                   FindingList& findings) {
  if (pair.m_root != nullptr) reportItems(*pair.m_root, pair, marks, rasters, findings);
}

}  // namespace qvToolkit
