#include "qvToolkit/reports/reportList.h"

#include <array>

#include "outcome/jsonDocument.h"
#include "reports/reportHead.h"

namespace qvToolkit {

namespace {

/// Of all formats: grows when a member of one of them changes its meaning or goes, not when one is added.
constexpr int FormatVersion = 2;

/// In the order of the enumeration.
constexpr std::array<std::string_view, 4> FormatNames = {"qvannot.inspect", "qvannot.inspect-full",
                                                         "qvannot.fonts", "qvannot.migrated"};

}  // namespace

std::string_view getFormatName(ReportFormat format) noexcept {
  return FormatNames[static_cast<std::size_t>(format)];
}

void writeHead(JsonWriter& json, ReportFormat format) {
  writeHead(json, getFormatName(format), FormatVersion);
}

/// Up to the bracket behind which the entries stand.
std::string ReportList::formatHead() const {
  JsonWriter json(m_style);
  writeHead(json.beginObject(), m_format);
  json.key("files").beginArray();
  std::string head = json.takeText();
  head.pop_back();  // the line feed
  return head;
}

std::string ReportList::beginEntry() {
  std::string text = m_isEmpty ? formatHead() + '\n' : ",\n";
  m_isEmpty = false;
  if (m_style == JsonStyle::Pretty) text.append(2 * EntryDepth, ' ');
  return text;
}

std::string ReportList::end() const {
  bool const isPretty = m_style == JsonStyle::Pretty;
  std::string const behind = isPretty ? "]\n}\n" : "]}\n";
  return m_isEmpty ? formatHead() + behind : (isPretty ? "\n  " : "\n") + behind;
}

}  // namespace qvToolkit
