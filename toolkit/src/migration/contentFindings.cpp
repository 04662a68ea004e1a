#include <cmath>
#include <optional>
#include <string>
#include <utility>

#include "migration/fontFindings.h"
#include "migration/itemWalk.h"
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

void reportImage(qv::svg::Image const& item, std::string const& address, MigratedView const& view,
                 FindingList& findings) {
  reportSize(item, address, findings);
  Image const& image = findImage(view, item);
  if (image.isShowable()) return;
  std::string_view const reason = image.getMediaType().empty()
                                      ? "the data are no PNG, JPEG, GIF or WebP image"
                                      : "its header is broken or it has more than 64 million pixels";
  findings.add(FindingCode::RasterUnreadable,
               "the image is shown as a black rectangle: " + std::string(reason), address);
}

/// Reports the items of one annotation; what belongs to another one is left to that one.
struct ContentReport {
  struct Nothing {};

  std::optional<Nothing> enter(qv::svg::ItemInterface const& item, Nothing) {
    if (item.getKind() == qv::svg::ItemKind::Text) {
      for (auto const& span : static_cast<qv::svg::Text const&>(item).m_spans)
        reportSpan(span, m_pair.m_address, m_findings);
    } else if (item.getKind() == qv::svg::ItemKind::Image) {
      reportImage(static_cast<qv::svg::Image const&>(item), m_pair.m_address, m_view, m_findings);
    }
    bool const isForeign = &item != m_pair.m_root && findMark(m_view.m_marks, &item) != nullptr;
    return isForeign ? std::nullopt : std::optional<Nothing>(std::in_place);
  }
  void leave(qv::svg::ItemInterface const&) {}

  AnnotationPair const& m_pair;
  MigratedView const& m_view;
  FindingList& m_findings;
};

}  // namespace

void reportContent(AnnotationPair const& pair, MigratedView const& view, FindingList& findings) {
  ContentReport report{pair, view, findings};
  if (pair.m_root != nullptr) walkItems(*pair.m_root, report, ContentReport::Nothing());
}

}  // namespace qvToolkit
