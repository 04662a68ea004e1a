#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "qvToolkit/files/outputSink.h"

namespace qvToolkit {

/// Writes well-formed XML to a sink, in pieces of about 1 MiB. Element and attribute names are the caller's
/// own words; everything else is escaped here. One element per line; text stands within its element without
/// added blanks.
class Markup {
 public:
  explicit Markup(OutputSink& sink) : m_sink(sink) {}

  Markup& open(char const* element);
  /// Only between `open` and whatever follows in the element.
  Markup& attribute(char const* name, std::string_view value);
  /// For values that need no escaping: numbers, path data, base64.
  Markup& rawAttribute(char const* name, std::string_view value);
  Markup& text(std::string_view content);
  Markup& close();

  /// Hands over what is left; false when the sink has failed.
  [[nodiscard]] bool finish();
  bool hasFailed() const noexcept { return m_hasFailed; }

 private:
  void endTag();
  void startLine();
  void flushWhenFull();
  void flush();

  OutputSink& m_sink;
  std::string m_buffer;
  std::vector<char const*> m_elements;
  bool m_inTag = false;
  bool m_inText = false;  ///< blanks would count
  bool m_hasFailed = false;
};

}  // namespace qvToolkit
