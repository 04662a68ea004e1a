#pragma once

#include <array>
#include <string_view>

#include "rules/messages.h"

/// The records that the migration writes to the process log: hosts know the texts word for word.
namespace qvLegacy::rules::migrationMessages {

/// Of what is left out, while the migration goes on.
inline constexpr Message unhandledHead{"Unhandled leader head", Cost::Look};
inline constexpr Message subLeaders{"Fail to migrate sub annot leaders", Cost::Content};
inline constexpr Message subMeasures{"Fail to migrate sub annot measure leaders", Cost::Content};
inline constexpr Message perpendicular{"Fail to compute perpendicular line", Cost::Content};

/// Of what ends the migration of the view. A name or a key follows where the text ends with a quote or a
/// blank.
inline constexpr Message viewMetadata{"Found metadata in annotation view", Cost::View};
inline constexpr Message knownMetadata{"Found CT metadata ", Cost::View};
inline constexpr Message unknownMetadata{"Found unexpected metadata ", Cost::View};
inline constexpr Message noRasterCallback{"No raster callback", Cost::View};
inline constexpr Message missingRaster{"Fail to retrieve raster '", Cost::View};
inline constexpr Message emptyFrame{"Empty frame", Cost::View};
inline constexpr Message earlierLeaders{"Unexpected leader segments or shapes", Cost::View};
/// Once for each level on the way up from the annotation that failed.
inline constexpr Message subAnnotation{"Fail to migrate sub annotation of '", Cost::View};
inline constexpr Message annotation{"Fail to migrate annotation '", Cost::View};
inline constexpr Message leaders{"Fail to migrate leaders of annotation '", Cost::View};
inline constexpr Message measures{"Fail to migrate measure leaders of annotation '", Cost::View};

inline constexpr std::array all{
    unhandledHead,  subLeaders,      subMeasures,      perpendicular, viewMetadata,
    knownMetadata,  unknownMetadata, noRasterCallback, missingRaster, emptyFrame,
    earlierLeaders, subAnnotation,   annotation,       leaders,       measures,
};

/// Whether a record of the log is the message, with whatever follows it.
constexpr bool isMessage(std::string_view record, Message const& message) noexcept {
  return record.starts_with(message.text);
}

/// What a record of the log costs; one that is not known ends a view.
constexpr Cost costOf(std::string_view record) noexcept {
  for (Message const& message : all) {
    if (isMessage(record, message)) return message.cost;
  }
  return Cost::View;
}

}  // namespace qvLegacy::rules::migrationMessages
