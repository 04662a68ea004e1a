#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "qvToolkit/export.h"
#include "qvToolkit/json/jsonWriter.h"

namespace qvToolkit {

/// The documents that the reports are written as. Each names its format, the version of the format and the
/// version of the tool in its first members.
enum class ReportFormat : std::uint8_t {
  Inspect,      ///< "qvannot.inspect", docs/inspect-json.md
  InspectFull,  ///< "qvannot.inspect-full", likewise
  Fonts,        ///< "qvannot.fonts", docs/fonts-json.md
  Migrated,     ///< "qvannot.migrated", docs/migrated-json.md
};

/// The name of a format, as it stands in its documents.
QVT_EXPORT std::string_view getFormatName(ReportFormat format) noexcept;

/// The text around the entries of a list, {"format": ..., "formatVersion": ..., "toolVersion": ..., "files":
/// [...]}. Each entry is made apart, by another process perhaps, and none is held here.
/// @code
/// ReportList list(ReportFormat::Inspect);
/// for (char const* path : {"bracket.json", "image_sheet.json"}) {
///   JsonWriter entry = list.makeEntryWriter();
///   writeInspection(entry, inspectDocument(openDocument(path)));
///   std::cout << list.beginEntry() << entry.takeText();
/// }
/// std::cout << list.end();
/// @endcode
/// Without indentation each entry stands on a line of its own between those of the list, so that a long list
/// can be searched, split and read line by line.
class QVT_EXPORT ReportList {
 public:
  /// A list without entries yet, all of which are to be of that format and style.
  explicit ReportList(ReportFormat format, JsonStyle style = JsonStyle::Compact)
      : m_format(format), m_style(style) {}

  /// A writer for the next entry, which is one object.
  JsonWriter makeEntryWriter() const { return JsonWriter(m_style, EntryDepth); }
  /// The same for a sink.
  JsonWriter makeEntryWriter(OutputSink& sink) const { return JsonWriter(sink, m_style, EntryDepth); }
  /// What stands in front of the next entry: the list's head, or what parts it from the entry before.
  std::string beginEntry();
  /// What stands behind the last entry; all of a list that has none.
  std::string end() const;

 private:
  static constexpr std::size_t EntryDepth = 2;
  std::string formatHead() const;

  ReportFormat m_format;
  JsonStyle m_style;
  bool m_isEmpty = true;
};

}  // namespace qvToolkit
