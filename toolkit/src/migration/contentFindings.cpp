#include "images/imageFormat.h"
#include "migration/fontFindings.h"
#include "migration/migrationFindings.h"
#include "qvSvg/image.h"
#include "qvSvg/text.h"

namespace qvToolkit {

namespace {

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
