#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace qvLegacy::rules {

/// What came with a stream version. Several names share a version because one change of the stream brought
/// several fields.
enum class Since : std::uint8_t {
  views,
  annotationNames,
  frameShapes,
  sharedRecord,
  rasters,
  measures,
  segmentTypes,
  variantMaps,
  heads,
  arrowDirections,
  children,
  annotationMetadata,
  oneAnnotationList,
  viewMetadata,
};

/// Which of the two persisted forms changed.
enum class Encodings : std::uint8_t { Stream, Variants, Both };

/// One change of the persisted form.
struct Gate {
  Since since;
  std::uint32_t version;     ///< the first one with it, packed as major and minor: 0x60016 is 6.22
  Encodings encodings;       ///< the forms that it changed
  std::string_view brought;  ///< the change in a few words
};

/// The history of the persisted form. Both encodings count versions alike, and gates compare whole numbers.
inline constexpr std::array<Gate, 14> gates{{
    // Views are objects of the stream; older ones cannot be read.
    {Since::views, 0x6000D, Encodings::Stream, "views"},
    {Since::annotationNames, 0x6000E, Encodings::Stream, "names of text annotations"},
    // The frame byte holds shape and flags; before, only whether there is a frame.
    {Since::frameShapes, 0x6000E, Encodings::Stream, "frame shapes and flags"},
    // Text and raster begin with one shared record; before, text had its own order.
    {Since::sharedRecord, 0x6000F, Encodings::Stream, "one shared record"},
    // Counted apart in a view.
    {Since::rasters, 0x6000F, Encodings::Stream, "rasters"},
    {Since::measures, 0x60011, Encodings::Stream, "measure leaders"},
    {Since::segmentTypes, 0x60011, Encodings::Stream, "run types and 16-bit lengths"},
    {Since::variantMaps, 0x60011, Encodings::Variants, "variant maps"},
    // In variants leaders became maps.
    {Since::heads, 0x60016, Encodings::Both, "leader heads"},
    {Since::arrowDirections, 0x60016, Encodings::Both, "arrow directions"},
    {Since::children, 0x60016, Encodings::Both, "sub-annotations"},
    {Since::annotationMetadata, 0x60016, Encodings::Both, "annotation metadata"},
    // Before, one list for each kind.
    {Since::oneAnnotationList, 0x60016, Encodings::Variants, "one list of annotations"},
    {Since::viewMetadata, 0x6001B, Encodings::Both, "view metadata"},
}};

constexpr bool gatesStandInOrder() {
  for (std::size_t i = 0; i < gates.size(); ++i) {
    if (static_cast<std::size_t>(gates[i].since) != i) return false;
    if (i > 0 && gates[i].version < gates[i - 1].version) return false;
  }
  return gates.back().since == Since::viewMetadata;
}
static_assert(gatesStandInOrder());

constexpr Gate const& gateOf(Since since) noexcept {
  return gates[static_cast<std::size_t>(since)];
}

/// Whether a document of the packed `version` has what `since` names.
constexpr bool reaches(std::uint32_t version, Since since) noexcept {
  return version >= gateOf(since).version;
}

/// The oldest and the newest version at which the form changed: what stands between them can be written.
inline constexpr std::uint32_t oldestVersion = gates.front().version;
inline constexpr std::uint32_t newestVersion = gates.back().version;

}  // namespace qvLegacy::rules
