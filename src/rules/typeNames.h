#pragma once

/// The type names under which objects are persisted.
namespace qvLegacy::rules {

inline constexpr char viewTypeName[] = "qvCore.qvAnnotationView";
/// KEEP: documents were written with a lower-case "d", and the library's entry points register that, while
/// the type record of the class has the upper-case one, which a host may register.
inline constexpr char metadataTypeName[] = "qvCore.qvAnnotationMetadata";
inline constexpr char metadataTypeNameOfRecord[] = "qvCore.qvAnnotationMetaData";

}  // namespace qvLegacy::rules
