#pragma once

#include <vector>

#include "qvToolkit/export.h"
#include "qvToolkit/json/jsonWriter.h"
#include "qvToolkit/model/document.h"

namespace qvToolkit {

/// The whole legacy model of a document as a JSON object, an entry of a list of `ReportFormat::InspectFull`:
/// every field of each view and annotation.
/// @code
/// std::cout << formatLegacyJson({openDocument("bracket.json"), openDocument("bracket.qvs")});
/// @endcode
/// Nothing is rounded or guessed: heights are the stored hundredths, values of closed sets come as name and
/// number, metadata values with their kind, texts that are no valid UTF-8 with their bytes under the key +
/// "Hex", numbers that are not finite with their bits under the key + "Bits". Annotations of all levels stand
/// in one list, each before its sub-annotations, told apart by their address. docs/inspect-json.md describes
/// it field by field. The library must be initialised.
QVT_EXPORT void writeLegacyDocument(JsonWriter& json, Document const& document,
                                    OptionSpelling spelling = nullptr);

/// The whole list, with one object of `writeLegacyDocument` for each.
QVT_EXPORT std::string formatLegacyJson(std::vector<Document> const& documents,
                                        OptionSpelling spelling = nullptr,
                                        JsonStyle style = JsonStyle::Compact);

}  // namespace qvToolkit
