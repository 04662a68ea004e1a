#pragma once

#include <string>

#include "qvToolkit/json/jsonWriter.h"
#include "qvToolkit/reports/reportList.h"

namespace qvToolkit {

/// The first members of a document: "format", "formatVersion", "toolVersion".
void writeHead(JsonWriter& json, ReportFormat format);

/// A list as a whole; `write(json, each)` writes an entry.
template <class Items, class Write>
std::string formatList(ReportFormat format, JsonStyle style, Items const& items, Write write) {
  ReportList list(format, style);
  std::string text;
  for (auto const& each : items) {
    JsonWriter entry = list.makeEntryWriter();
    write(entry, each);
    text += list.beginEntry() + entry.takeText();
  }
  return text + list.end();
}

}  // namespace qvToolkit
