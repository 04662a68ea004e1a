#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "qvToolkit/files/outputSink.h"

namespace qvToolkit {

/// Writes JSON text, indented by two spaces, in the order of the calls. Strings leave through one escaping
/// function: control characters are escaped, invalid UTF-8 becomes U+FFFD. Numbers are the shortest text that
/// reads back, without
/// "-0"; a number that is not finite becomes null.
///
/// Calls must nest properly: within an object each value follows a `key`.
class JsonWriter {
 public:
  /// Keeps the text for `takeText`.
  JsonWriter() = default;
  /// Hands the text over to the sink, in pieces of about 1 MiB.
  explicit JsonWriter(OutputSink& sink) : m_sink(&sink) {}

  JsonWriter& beginObject();
  JsonWriter& endObject();
  JsonWriter& beginArray();
  JsonWriter& endArray();
  /// A short array of scalars on one line, such as a point.
  JsonWriter& inlineArray(std::vector<float> const& numbers);
  JsonWriter& key(std::string_view name);

  JsonWriter& value(std::string_view text);
  JsonWriter& value(char const* text) { return value(std::string_view(text)); }
  JsonWriter& value(bool flag);
  JsonWriter& value(std::int64_t number);
  JsonWriter& value(std::uint64_t number);
  JsonWriter& value(int number) { return value(static_cast<std::int64_t>(number)); }
  JsonWriter& value(unsigned int number) { return value(static_cast<std::uint64_t>(number)); }
  JsonWriter& value(float number);
  JsonWriter& value(double number);
  JsonWriter& null();

  /// `key` and `value` in one call.
  template <class T>
  JsonWriter& member(std::string_view name, T const& content) {
    return key(name).value(content);
  }

  /// The text so far; complete once all objects and arrays are ended. Ends with a line feed.
  std::string takeText();
  /// Hands the rest of the text over to the sink, with a line feed at its end; false when the sink has
  /// failed.
  [[nodiscard]] bool finish();

 private:
  void beforeValue();
  void breakLine();
  void flush();

  struct Level {
    bool m_isArray = false;
    bool m_isEmpty = true;
  };
  OutputSink* m_sink = nullptr;
  bool m_hasFailed = false;
  std::string m_text;
  std::vector<Level> m_levels;
  bool m_afterKey = false;
};

}  // namespace qvToolkit
