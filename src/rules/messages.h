#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace qvLegacy::rules {

/// What a problem costs the document.
enum class Cost : std::uint8_t {
  Look,     ///< a default takes the place of the value
  Content,  ///< an annotation, a line, a run or a leader is gone, or the place of the view is
  View,     ///< the whole view is
};

/// An established message of the variant readers: hosts know the text word for word.
struct Message {
  char const* text;
  Cost cost;
};

/// In the order in which a view is read.
namespace messages {

/// The version as the document spells it follows.
inline constexpr Message invalidVersion{"invalid version ", Cost::View};
inline constexpr Message invalidOrigin{"invalid 'origin' field", Cost::Content};
inline constexpr Message invalidNormal{"invalid 'normal' field", Cost::Content};
inline constexpr Message invalidAxis{"invalid 'axis' field", Cost::Content};
inline constexpr Message invalidMetadata{"invalid 'metadata' field", Cost::Look};
inline constexpr Message missingTexts{"missing 'textannotations' field", Cost::View};
inline constexpr Message invalidTexts{"invalid 'textannotations' field", Cost::View};
inline constexpr Message missingRasters{"missing 'rasterannotations' field", Cost::View};
inline constexpr Message invalidRasters{"invalid 'rasterannotations' field", Cost::View};
inline constexpr Message invalidRastersContent{"invalid 'rasterannotations' field content", Cost::Content};
inline constexpr Message missingAnnotations{"missing 'annotations' field", Cost::View};
inline constexpr Message invalidAnnotations{"invalid 'annotations' field", Cost::View};
/// KEEP: a list of texts is reported by the same words, which name the other list.
inline constexpr Message invalidAnnotationsContent{"invalid 'annotations' field content", Cost::Content};
inline constexpr Message invalidType{"invalid annotation type", Cost::Content};
inline constexpr Message invalidAnnotationVersion{"invalid version for annotation interface", Cost::Content};
/// KEEP: rasters have always reported the text's message.
inline constexpr Message invalidTextVersion{"invalid version for text annotation", Cost::Content};
inline constexpr Message invalidColor{"invalid 'color' field", Cost::Look};
inline constexpr Message invalidPosition{"invalid 'position' field", Cost::Content};
inline constexpr Message invalidLeadersContent{"invalid 'leaders' field content", Cost::Content};
inline constexpr Message invalidLeaders{"invalid 'leaders' field", Cost::Content};
inline constexpr Message invalidMeasuresContent{"invalid 'measures' field content", Cost::Content};
inline constexpr Message invalidMeasures{"invalid 'measures' field", Cost::Content};
inline constexpr Message invalidDefaultProperties{"invalid 'defaulttextprop' field", Cost::Look};
inline constexpr Message invalidLine{"invalid line", Cost::Content};
inline constexpr Message invalidSegment{"invalid segment", Cost::Content};
inline constexpr Message invalidSize{"invalid 'sizeem' field", Cost::Content};
inline constexpr Message invalidSizeLength{"invalid 'sizeem' length", Cost::Content};

}  // namespace messages

inline constexpr std::array readerMessages{
    messages::invalidVersion,
    messages::invalidOrigin,
    messages::invalidNormal,
    messages::invalidAxis,
    messages::invalidMetadata,
    messages::missingTexts,
    messages::invalidTexts,
    messages::missingRasters,
    messages::invalidRasters,
    messages::invalidRastersContent,
    messages::missingAnnotations,
    messages::invalidAnnotations,
    messages::invalidAnnotationsContent,
    messages::invalidType,
    messages::invalidAnnotationVersion,
    messages::invalidTextVersion,
    messages::invalidColor,
    messages::invalidPosition,
    messages::invalidLeadersContent,
    messages::invalidLeaders,
    messages::invalidMeasuresContent,
    messages::invalidMeasures,
    messages::invalidDefaultProperties,
    messages::invalidLine,
    messages::invalidSegment,
    messages::invalidSize,
    messages::invalidSizeLength,
};

/// What a reader's message costs. A message that is not in the table names a version that is not read.
constexpr Cost costOf(std::string_view text) noexcept {
  for (Message const& message : readerMessages) {
    if (message.text == text) return message.cost;
  }
  return Cost::View;
}

}  // namespace qvLegacy::rules
