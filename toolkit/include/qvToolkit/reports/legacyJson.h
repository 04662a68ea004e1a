#pragma once

#include <vector>

#include "qvToolkit/export.h"
#include "qvToolkit/json/jsonWriter.h"
#include "qvToolkit/model/document.h"

namespace qvToolkit {

/// The whole legacy model of a document as a JSON object: every field of each view and annotation.
/// @code
/// std::cout << formatLegacyJson({openDocument("bracket.json"), openDocument("bracket.qvs")});
/// @endcode
/// Nothing is rounded or guessed: heights are the stored hundredths, enumerations come as number and name,
/// metadata values with their kind, strings that are no valid UTF-8 with their bytes in hexadecimal under the
/// key + "Hex", vectors with a number that is not finite with their bits under the key + "Bits". Annotations
/// of all levels stand in one list, each before its sub-annotations, told apart by their address. The library
/// must be initialised.
QVT_EXPORT void writeLegacyDocument(JsonWriter& json, Document const& document,
                                    OptionSpelling spelling = nullptr);

/// {"files": [...]} with one object of `writeLegacyDocument` for each.
QVT_EXPORT std::string formatLegacyJson(std::vector<Document> const& documents,
                                        OptionSpelling spelling = nullptr);

}  // namespace qvToolkit
