#pragma once

#include <array>

#include "qvToolkit/findings/catalogue.h"

namespace qvToolkit {

/// The rows of what is found when a document is opened: its file, its text, its stream.
constexpr auto OpeningRows = std::to_array<CatalogueRow>({
    {FindingCode::InputUnreadable, "input.unreadable", FindingClass::Unopenable, Severity::Error,
     OptionKey::None, "The input cannot be opened",
     "The system refused to open or to read the file, or the name leads to no regular file.",
     "Check the name and the rights of the file; copy what is no regular file into one."},
    {FindingCode::InputTooLarge, "input.too-large", FindingClass::Limit, Severity::Error, OptionKey::MaxInput,
     "The input is larger than the limit",
     "The file holds more bytes than an input may have; nothing of it was read.",
     "Raise the limit if the document can be trusted."},
    {FindingCode::FormatUnknown, "input.unknown-format", FindingClass::Broken, Severity::Error,
     OptionKey::None, "The input is of no known format",
     "The first bytes are neither those of JSON text in UTF-8 nor those of an object stream, or there are "
     "none.",
     "Make sure that the file is the right one, whole and not compressed; convert text of 16 or 32 bits a "
     "character to UTF-8."},
    {FindingCode::JsonBroken, "json.broken", FindingClass::Broken, Severity::Error, OptionKey::None,
     "The JSON text is not well-formed",
     "The text breaks the grammar of JSON at the place that is named; nothing of it was read.",
     "Correct the text at that place, or export the document again."},
    {FindingCode::JsonTooDeep, "json.too-deep", FindingClass::Limit, Severity::Error, OptionKey::MaxJsonDepth,
     "The JSON text is nested too deep",
     "There are more objects and arrays within each other than the limit allows; nothing was read.",
     "Raise the limit if the document can be trusted."},
    {FindingCode::JsonDuplicateKey, "json.duplicate-key", FindingClass::Lost, Severity::Warning,
     OptionKey::None, "A key appears twice in one object",
     "JSON objects hold each key once. The last value was read, the earlier ones count for nothing; an "
     "error where a text, a list or a map went with them.",
     "Find out which value is right and remove the others."},
    {FindingCode::JsonBigInteger, "json.big-integer", FindingClass::Look, Severity::Warning, OptionKey::None,
     "An integer does not fit into 64 bits",
     "The number was read as a real, so that its last digits may be lost.",
     "Write a smaller number, or a text if it is no quantity."},
    {FindingCode::JsonByteOrderMark, "json.byte-order-mark", FindingClass::Done, Severity::Warning,
     OptionKey::None, "A byte-order mark was skipped",
     "Some programs put this mark in front of UTF-8 text; JSON has none.",
     "Nothing; to be rid of it, save the file as UTF-8 without the mark."},
    {FindingCode::DocumentShape, "document.shape", FindingClass::Lost, Severity::Error, OptionKey::None,
     "The JSON text is no document",
     "A document is a view map, an array of view maps, or an object with an array of view maps under "
     "\"views\". A view that is no object is passed over.",
     "Compare the file with docs/formats, and export the document again."},
    {FindingCode::NoViews, "document.no-views", FindingClass::Done, Severity::Warning, OptionKey::None,
     "The document holds no view", "It could be read, but nothing in it can be shown or migrated.",
     "Check whether the export chose the right views."},
    {FindingCode::StreamBroken, "stream.broken", FindingClass::Lost, Severity::Error, OptionKey::None,
     "The object stream breaks off",
     "It ends too early, or the place where its next object starts is not known; what stood before was read.",
     "Fetch the file again; if it stays so, see where it breaks in a dump of its fields."},
    {FindingCode::StreamObjectId, "stream.object-id", FindingClass::Lost, Severity::Error, OptionKey::None,
     "An object id is 0 or taken", "Links name objects by their ids, so that none leads to this object.",
     "See the object in a dump of the fields; export the document again."},
    {FindingCode::StreamUnknownType, "stream.unknown-type", FindingClass::Lost, Severity::Warning,
     OptionKey::None, "An object is of a type that nobody reads",
     "Object streams may carry objects of other applications; this one was skipped.",
     "Nothing, if the object belongs to another application."},
    {FindingCode::StreamOverRead, "stream.over-read", FindingClass::Lost, Severity::Error, OptionKey::None,
     "An object asks for more than its payload holds",
     "Its reader came to the end of the payload before the record was complete; what was read up to there is "
     "kept.",
     "See the object in a dump of the fields; the record is cut short, or its version is not that of the "
     "stream."},
    {FindingCode::StreamRefused, "stream.refused", FindingClass::Lost, Severity::Error, OptionKey::None,
     "An object was refused by its reader",
     "The record names a version or a kind that its reader does not know.",
     "See the object in a dump of the fields; export the document again."},
    {FindingCode::StreamUnderRead, "stream.under-read", FindingClass::Lost, Severity::Warning,
     OptionKey::None, "An object left some of its payload",
     "Its record ended before its payload; the bytes between were skipped.",
     "Nothing, if a newer application wrote the document; otherwise see the object in a dump of the fields."},
    {FindingCode::StreamLink, "stream.link", FindingClass::Lost, Severity::Error, OptionKey::None,
     "A link leads to no view of its own",
     "A metadata object links to nothing, to an object of another type, or to a view that is listed before.",
     "Nothing, if all views are there that should be; otherwise export the document again."},
    {FindingCode::StreamUnlistedView, "stream.unlisted-view", FindingClass::Done, Severity::Info,
     OptionKey::None, "A view is listed by no metadata object",
     "It is shown nevertheless, behind the views that are listed.", "Nothing."},
    {FindingCode::StreamTrailing, "stream.trailing-bytes", FindingClass::Lost, Severity::Warning,
     OptionKey::None, "Bytes stand behind the last object",
     "The stream announces fewer objects than it seems to have; nobody reads these bytes.",
     "Check whether the file was glued together from several."},
    {FindingCode::StreamVersion, "stream.version", FindingClass::Look, Severity::Warning, OptionKey::None,
     "The stream version is not known",
     "The document is newer than every known version and was read as the newest one; or the version that was "
     "asked for cannot be written.",
     "Compare the result with another export; ask for a version that can be written."},
    {FindingCode::StreamMore, "stream.more", FindingClass::Lost, Severity::Error, OptionKey::None,
     "More problems of the stream are not listed",
     "A stream may have as many problems as it has bytes; the first ones are listed, the rest is counted.",
     "Mend or fetch again what the first ones name."},
    {FindingCode::StreamOffset, "stream.offset", FindingClass::Usage, Severity::Error, OptionKey::Offset,
     "The offset lies beyond the end", "A dump was asked for a byte that the document does not have.",
     "Ask for an offset below the size of the document."},
});

}  // namespace qvToolkit
