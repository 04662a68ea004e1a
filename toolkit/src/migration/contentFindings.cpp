#include <cmath>
#include <string>

#include "images/imageFormat.h"
#include "migration/fontFindings.h"
#include "migration/migrationFindings.h"
#include "qvSvg/image.h"
#include "qvSvg/text.h"
#include "text/svgNumber.h"

namespace qvToolkit {

namespace {

std::string formatSize(float width, float height) {
  std::string text;
  appendNumber(text, width);
  text += " x ";
  appendNumber(text, height);
  return text;
}

bool isVisibleLength(float length) {
  return std::abs(static_cast<double>(length)) >= MinMagnitude;
}

/// A size that is not finite never gets this far.
void reportSize(qv::svg::Image const& image, std::string const& address, FindingList& findings) {
  float const width = image.m_size.X();
  float const height = image.m_size.Y();
  bool const isSeen = isVisibleLength(width) && isVisibleLength(height);
  if (isSeen && width > 0.0F && height > 0.0F) return;
  std::string const size = "the image has a size of " + formatSize(width, height) + " mm; ";
  if (isSeen) {
    findings.add(
        FindingCode::RasterSize, Severity::Warning,
        size + "it is shown as " + formatSize(std::abs(width), std::abs(height)) + ", and not mirrored",
        address);
  } else {
    findings.add(FindingCode::RasterSize, size + "it is not to be seen", address);
  }
}

void reportImage(qv::svg::Image const& image, std::string const& address, RasterFolder const& rasters,
                 FindingList& findings) {
  reportSize(image, address, findings);
  ImageHeader const header = readImageHeader(rasters.resolve(image.m_data));
  if (isShowable(header)) return;
  std::string_view const reason = header.m_mediaType.empty()
                                      ? "the data are no PNG, JPEG, GIF or WebP image"
                                      : "its header is broken or it has more than 64 million pixels";
  findings.add(FindingCode::RasterUnreadable,
               "the image is shown as a black rectangle: " + std::string(reason), address);
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
