#pragma once

#include <cstdint>
#include <string_view>

namespace qvToolkit {

/// A stream version at which the record layout changed.
struct StreamGate {
  std::uint32_t m_version;
  std::string_view m_what;

  constexpr bool isOpenAt(std::uint32_t version) const { return version >= m_version; }
};

/// The layout's history as the encoder and the dump know it. They share nothing with the library's readers,
/// not even this table, so that a mistake on either side shows as a disagreement.
namespace streamGates {

constexpr std::uint32_t pack(std::uint32_t major, std::uint32_t minor) {
  return major << 16 | minor;
}

constexpr StreamGate Views{pack(6, 13), "views"};
constexpr StreamGate Names{pack(6, 14), "names of text annotations"};
constexpr StreamGate FrameShapes{pack(6, 14), "frame shapes and flags"};
constexpr StreamGate SharedRecord{pack(6, 15), "one shared record"};
constexpr StreamGate Rasters{pack(6, 15), "rasters"};
constexpr StreamGate Measures{pack(6, 17), "measure leaders"};
constexpr StreamGate RunTypes{pack(6, 17), "run types and 16-bit lengths"};
constexpr StreamGate Heads{pack(6, 22), "leader heads"};
constexpr StreamGate Arrows{pack(6, 22), "arrow directions"};
constexpr StreamGate Children{pack(6, 22), "sub-annotations"};
constexpr StreamGate AnnotationMetadata{pack(6, 22), "annotation metadata"};
constexpr StreamGate ViewMetadata{pack(6, 27), "view metadata"};

}  // namespace streamGates

/// What the container and its base objects hold.
constexpr std::string_view StreamMark = "qvStream";
constexpr std::string_view ViewTypeName = "qvCore.qvAnnotationView";
/// The spelling that the library's entry points register, and the one of the class's own type record.
constexpr std::string_view MetadataTypeName = "qvCore.qvAnnotationMetadata";
constexpr std::string_view MetadataTypeNameOfRecord = "qvCore.qvAnnotationMetaData";
constexpr std::uint32_t AnnotationMetadataType = 5;

/// Maps and lists of metadata may nest this deep, the outermost map counted.
constexpr int MaxVariantLevel = 64;

}  // namespace qvToolkit
