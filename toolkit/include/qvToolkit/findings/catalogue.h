#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

#include "qvToolkit/export.h"
#include "qvToolkit/findings/exitCode.h"

namespace qvToolkit {

/// How much a finding weighs. Info: by design and harmless. Warning: changed in look or hard to see. Error:
/// lost or unreadable.
enum class Severity : std::uint8_t { Info, Warning, Error };

/// What a finding says about the work; each has a row of its own, see `getClasses`.
enum class FindingClass : std::uint8_t {
  Done,        ///< by design: all is there and looks as it should
  Look,        ///< changed in look, or hard to see
  Lost,        ///< something of the document is not there any more
  Usage,       ///< what was asked for cannot be asked of this document
  Unopenable,  ///< the input cannot be opened or read
  Broken,      ///< the input is of no known format or broken beyond reading
  Output,      ///< an output cannot be written
  Limit,       ///< a limit was hit, or a worker died
  Bug,         ///< the program itself is at fault
};

/// What is told once about a class.
struct ClassRow {
  FindingClass m_class;     ///< the class itself
  std::string_view m_text;  ///< "done", "look", "lost" and so on
  ExitCode m_exitCode;      ///< of work that ended because of a finding of the class; `ExitDone` for none
  std::string_view m_explanation;  ///< a sentence for people
};

/// What a caller may set so that a finding does not come, or so that the work goes on in spite of it. How an
/// option is spelled is its caller's business, see `OptionSpelling`.
enum class OptionKey : std::uint8_t {
  None,  ///< nothing that a caller could set
  // what may be lost
  DropViewMetadata,     ///< `qvLegacy::qvAnnotationMigration::DropViewMetadata`
  DropKnownMetadata,    ///< `qvLegacy::qvAnnotationMigration::DropKnownMetadata`
  DropUnknownMetadata,  ///< `qvLegacy::qvAnnotationMigration::DropUnknownMetadata`
  // where things are
  Rasters,          ///< the folder that answers for images, see `RasterFolder`
  FontFolder,       ///< one of `FontOptions::m_directories`
  FontReplacement,  ///< one of `FontOptions::m_replacements`
  Offset,           ///< the byte that a dump shows
  Force,            ///< results that exist may be replaced
  // limits
  MaxMemory,       ///< bytes for all work on one input
  MaxTime,         ///< milliseconds for all work on one input, `OpenLimits::m_maxMilliseconds`
  MaxInput,        ///< bytes, `OpenLimits::m_maxInputBytes`
  MaxFailedReads,  ///< `OpenLimits::m_maxFailedReads`
  MaxStack,        ///< bytes, `OpenLimits::m_maxStackBytes`
  MaxJsonDepth,    ///< levels, `OpenLimits::m_maxContainers`
  MaxDepth,        ///< levels, `TreeLimits::m_maxDepth`
  MaxNodes,        ///< annotations, `TreeLimits::m_maxNodes`
  MaxOutput,       ///< bytes of all results of one input
  MaxOutputFile,   ///< bytes of one result
  MaxRaster,       ///< bytes of one image, see `RasterFolder`
  MaxViews,        ///< views of one document that are written as pages
};

/// How a caller spells an option, as a word of its command line, say. Never asked for `OptionKey::None`.
using OptionSpelling = std::string_view (*)(OptionKey);

/// Everything that the toolkit reports about a document beside the library's own messages.
enum class FindingCode : std::uint8_t {
  // opening
  InputUnreadable,    ///< the file cannot be opened or read
  InputTooLarge,      ///< the file is larger than the limit
  FormatUnknown,      ///< empty, or neither JSON nor another known encoding
  JsonBroken,         ///< no well-formed JSON
  JsonTooDeep,        ///< more nested containers than a document may have
  JsonDuplicateKey,   ///< the last value won
  JsonBigInteger,     ///< an integer beyond 64 bits became a real
  JsonByteOrderMark,  ///< a byte-order mark in front was skipped
  DocumentShape,      ///< well-formed, but no view map, array of view maps or {"views": [...]}
  NoViews,            ///< a document without any view
  // object streams
  StreamBroken,        ///< the document ends too early, or where its next object starts is not known
  StreamObjectId,      ///< an object id is 0 or taken
  StreamUnknownType,   ///< an object of a type that nobody reads was skipped
  StreamOverRead,      ///< an object asked for more than its payload holds
  StreamRefused,       ///< an object's reader knows no such version or record kind
  StreamUnderRead,     ///< an object left some of its payload
  StreamLink,          ///< a link that leads to no view, or to one that is listed already
  StreamUnlistedView,  ///< a view that no metadata object lists
  StreamTrailing,      ///< bytes behind the last object
  StreamVersion,       ///< newer than every known version, or none that can be written
  StreamMore,          ///< how many problems of the stream are not listed
  StreamOffset,        ///< an asked offset that lies beyond the end
  // reading
  ReaderMessage,   ///< the exact text of one message of the readers; severity by what it cost
  ReaderRepeated,  ///< how often a message of the readers came that is not listed each time
  RecordLost,      ///< annotation records that the reader passed over
  KeyIgnored,      ///< a key that this version's reader never looks at
  ValueUnknown,    ///< a text that the reader does not know, so that it took the default
  ValueInexact,    ///< a value for which the reader took another one
  ValueRounded,    ///< text heights were cut to hundredths of an em
  // migration
  MigrationMessage,      ///< the exact text of one record of the migration's log
  ViewNotMigrated,       ///< the reader or the migration refused the view, which has no page
  MetadataDropped,       ///< metadata that the migration has no place for, by the user's own wish
  PlaneDegenerate,       ///< the view plane's axes span no plane
  BlankLineSkipped,      ///< a line of blanks only takes no room
  BlankRunSkipped,       ///< blanks between texts are left out, so that these stand closer
  TextNoHeight,          ///< text of height 0, which is not drawn
  TextLowContrast,       ///< text that its background hardly lets see
  ShapeAsRectangle,      ///< a frame shape that is drawn as a rectangle
  FontNone,              ///< there is no font at all, so that no text can be drawn
  FontMetricCompatible,  ///< another family of the same widths is drawn
  FontSubstituted,       ///< another family is drawn, which is not as wide
  FontReplaced,          ///< by the user's own wish
  FontSynthesized,       ///< bold or italic is made up, since the family has no such face
  GlyphMissing,          ///< a character that no font has, or for which its font draws nothing
  LeaderHeadUnknown,     ///< a number that stands for no head, so that none is drawn
  LeaderHeadCollapsed,   ///< a head without a direction, since its leader has no length
  LeaderLost,            ///< a leader that the migration cannot keep
  RasterUnavailable,     ///< the raster folder has no such file, or its name leaves the folder
  RasterUnreadable,      ///< the data are no known image format, so only the rectangle is drawn
  RasterSize,            ///< an image of no size, which is not to be seen, or of one below zero
  NumberNotFinite,       ///< a NaN or infinite number: left out of the page, null in the migrated model
  TextRepaired,          ///< control characters, halves of surrogate pairs or invalid UTF-8 became U+FFFD
  // encoding
  EncodingLoss,   ///< something that the asked stream version cannot hold
  EncodingOrder,  ///< a view's texts were moved in front of its rasters
  // moving
  TransformSizeKept,   ///< places were scaled, texts, images, frames and heads were not
  TransformPlaneKept,  ///< a view stayed where it was, since a number of its plane is not finite
  TransformOverflow,   ///< a moved number would be larger than single precision holds
  // limits
  LimitMemory,       ///< the document needs more memory than it may have
  LimitFailedReads,  ///< too many reads behind the end of the data
  LimitStack,        ///< nested too deep to be read
  LimitTime,         ///< the work takes too long
  LimitDepth,        ///< sub-annotations nested too deep to be migrated or written
  LimitViews,        ///< too many views to be written as pages
  LimitNodes,        ///< too many annotations to be migrated or written
  LimitOutput,       ///< the results are larger than they may be
  LimitRaster,       ///< an image file is larger than it may be
  // worker processes
  WorkerCrashed,  ///< a signal ended the process that worked on the input
  WorkerKilled,   ///< somebody killed it: the system short of memory, or an operator
  WorkerGarbage,  ///< it ended without saying how
  // writing
  OutputExists,  ///< a result exists already and is not replaced
  OutputFailed,  ///< a result cannot be written
};

/// What is told once about a code.
/// @code
/// CatalogueRow const& row = getRow(FindingCode::JsonDuplicateKey);
/// assert(row.m_text == "json.duplicate-key" && getCodeText(row.m_code) == row.m_text);
/// std::cout << row.m_title << "\n\n" << row.m_explanation << '\n' << row.m_remedy << '\n';
/// @endcode
/// All texts are static.
struct CatalogueRow {
  FindingCode m_code;              ///< that the row is about
  std::string_view m_text;         ///< stable, such as "json.duplicate-key": scripts filter by it
  FindingClass m_class;            ///< from which the exit code follows
  Severity m_severity;             ///< unless the finding knows better
  OptionKey m_option;              ///< that tolerates it, unless the finding knows better; `None` for most
  std::string_view m_title;        ///< one line
  std::string_view m_explanation;  ///< what it means and why it comes
  std::string_view m_remedy;       ///< what to do; without the spelling of an option
};

/// All rows, in the order of the codes.
QVT_EXPORT std::span<CatalogueRow const> getCatalogue() noexcept;

/// All classes, those that end more of the work behind those that end less.
QVT_EXPORT std::span<ClassRow const> getClasses() noexcept;

/// The row of a code or of a class, for every value of the enumeration and no other.
QVT_EXPORT CatalogueRow const& getRow(FindingCode code) noexcept;
QVT_EXPORT ClassRow const& getRow(FindingClass findingClass) noexcept;

/// Stable text of a code, such as "json.duplicate-key"; "unknown" for a value that is none.
QVT_EXPORT std::string_view getCodeText(FindingCode code);
/// "info", "warning" or "error".
QVT_EXPORT std::string_view getSeverityText(Severity severity);
/// Stable text of an option's key, such as "dropViewMetadata", however its caller spells it. Never asked for
/// `OptionKey::None`.
QVT_EXPORT std::string_view getOptionText(OptionKey key);

/// The code that has the text; nothing for a text of none.
QVT_EXPORT std::optional<FindingCode> findCode(std::string_view text);
/// The severity that has the text; nothing for a text of none.
QVT_EXPORT std::optional<Severity> findSeverity(std::string_view text);
/// The option whose key has the text; nothing for a text of none.
QVT_EXPORT std::optional<OptionKey> findOption(std::string_view text);

/// True for a limit that was hit and for a worker that died: the findings that exit code 6 stands for.
QVT_EXPORT bool isLimit(FindingCode code);

/// The exit code of work that ended because of such a finding; `ExitDone` for those that end none.
inline ExitCode getExitCode(FindingCode code) {
  return getRow(getRow(code).m_class).m_exitCode;
}

}  // namespace qvToolkit
