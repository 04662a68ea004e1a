#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "findings/findingList.h"
#include "pages/affine.h"
#include "pages/pageGlyphs.h"
#include "qvAnnotation/qvCadAnnotationView.h"
#include "qvSvg/image.h"
#include "qvSvg/itemInterface.h"
#include "qvToolkit/migration/migratedView.h"

namespace qvToolkit {

/// An image that a page shows.
struct PageImage {
  Image const& m_image;
  std::size_t m_uses = 0;
};

/// The images of a page, each content once, in the order met.
class PageImages {
 public:
  explicit PageImages(MigratedView const& view) : m_view(view) {}

  /// Counts one use; images that cannot be shown are not taken in.
  void addUse(qv::svg::Image const& item);
  /// The index of what the item shows; `npos` when it cannot be shown.
  std::size_t find(qv::svg::Image const& item) const;
  std::vector<PageImage> const& getImages() const noexcept { return m_images; }

  static constexpr std::size_t npos = static_cast<std::size_t>(-1);

 private:
  std::size_t add(Image const& image);

  MigratedView const& m_view;
  std::vector<PageImage> m_images;
  std::unordered_map<Image const*, std::size_t> m_indices;
  std::map<std::string_view, std::size_t> m_byContent;
};

/// Where the page's parts stand in page coordinates.
Affine getPlacement(qv::qvCadAnnotation const& annotation);
Affine getPlacement(qv::qvCadAnnotation::Shape const& shape);
inline PagePoint project(Wm4::Vector3<float> const& point) {
  return {static_cast<double>(point.X()), -static_cast<double>(point.Y())};
}
bool isDrawable(qv::qvCadAnnotation::LineSegment const& segment);

/// Looks through all that a page will show: its extent, its images and glyphs, and what must be left out
/// because of its numbers.
class PageMeasure {
 public:
  /// Glyphs are collected only when `hasOutlines`.
  PageMeasure(MigratedView const& view, bool hasOutlines);

  Extent const& getExtent() const noexcept { return m_extent; }
  PageImages const& getImages() const noexcept { return m_images; }
  PageGlyphs const& getGlyphs() const noexcept { return m_glyphs; }
  bool isLeftOut(qv::svg::ItemInterface const* item) const { return m_leftOut.contains(item); }
  /// What is left out, one finding for each annotation that it belongs to.
  Findings listFindings() const;

  /// Where an item is to be drawn.
  struct Place {
    Affine m_map;
    std::string const* m_address;  ///< of the annotation that it belongs to
  };
  /// For `walkItems`: measures an item, and tells where its children are to be drawn.
  std::optional<Place> enter(qv::svg::ItemInterface const& item, Place const& outer);
  void leave(qv::svg::ItemInterface const&) {}

 private:
  void measureAnnotation(qv::qvCadAnnotation const& annotation);
  void leaveOut(std::string const& address, bool isAnnotation);

  MigratedView const& m_view;
  bool m_hasOutlines;
  PageImages m_images;
  PageGlyphs m_glyphs;
  Extent m_extent;
  struct LeftOutCount {
    std::string m_address;
    std::size_t m_items;
    bool m_isAnnotation;  ///< its root is left out, and so everything in it
  };

  std::unordered_set<qv::svg::ItemInterface const*> m_leftOut;
  std::vector<LeftOutCount> m_leftOutCounts;  ///< in the order met
  std::unordered_map<std::string, std::size_t> m_leftOutPlaces;
};

}  // namespace qvToolkit
