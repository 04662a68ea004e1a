#pragma once

#include <cstdint>

namespace qvLegacy::readers {

/// The stream versions at which the persisted form changed, packed as major and minor: 0x60016 is 6.22. Both
/// encodings count them alike, and gates compare whole numbers. Several names share a version because one
/// change of the stream brought several fields.
enum class Since : std::uint32_t {
  views = 0x6000D,            // 6.13: views are objects of the stream; older ones cannot be read
  annotationNames = 0x6000E,  // 6.14: text annotations have a name
  frameShapes = 0x6000E,  // 6.14: the frame byte holds shape and flags; before, only whether there is a frame
  sharedRecord =
      0x6000F,         // 6.15: text and raster begin with one shared record; before, text had its own order
  rasters = 0x6000F,   // 6.15: raster annotations, counted apart in a view
  measures = 0x60011,  // 6.17: measure leaders
  segmentTypes = 0x60011,        // 6.17: runs have a type, and a length of 16 bits
  variantMaps = 0x60011,         // 6.17: annotations are persisted as variant maps, too
  heads = 0x60016,               // 6.22: leaders have a head; in variants they became maps
  arrowDirections = 0x60016,     // 6.22: measure leaders have an arrow direction
  children = 0x60016,            // 6.22: sub-annotations
  annotationMetadata = 0x60016,  // 6.22: annotations carry user metadata
  oneAnnotationList =
      0x60016,             // 6.22: variant views list all kinds in one list; before, one list for each kind
  viewMetadata = 0x6001B,  // 6.27: views carry user metadata
};

/// Whether a document of the packed `version` has what `gate` names.
constexpr bool reaches(std::uint32_t version, Since gate) noexcept {
  return version >= static_cast<std::uint32_t>(gate);
}

}  // namespace qvLegacy::readers
