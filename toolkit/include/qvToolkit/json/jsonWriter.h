#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "qvToolkit/export.h"
#include "qvToolkit/files/outputSink.h"

namespace qvToolkit {

/// Writes JSON text, indented by two spaces, in the order of the calls.
/// @code
/// JsonWriter json;
/// json.beginObject().member("name", "Front").key("normal").inlineArray({0, 0, 1}).endObject();
/// assert(json.takeText() == "{\n  \"name\": \"Front\",\n  \"normal\": [0, 0, 1]\n}\n");
/// @endcode
/// Strings leave through one escaping function, `quoteJson`. Numbers are the shortest text that reads back,
/// without "-0"; a number that is not finite becomes null.
///
/// Calls must nest properly, which is not checked: within an object each value follows a `key`, and each
/// `end` ends what was begun last. All but `takeText` and `finish` return the writer itself. A sink that
/// fails is not called again; `finish` tells.
class QVT_EXPORT JsonWriter {
 public:
  /// Keeps the text for `takeText`.
  JsonWriter() = default;
  /// Hands the text over to the sink in pieces of about 1 MiB, so that a large text takes no memory of its
  /// size. The sink must outlive the writer.
  explicit JsonWriter(OutputSink& sink) : m_sink(&sink) {}

  JsonWriter& beginObject();  ///< members follow, each on a line of its own
  JsonWriter& endObject();    ///< an object without members stays on one line
  JsonWriter& beginArray();   ///< values follow, each on a line of its own
  JsonWriter& endArray();     ///< an array without values stays on one line
  /// A short array of scalars on one line, such as a point.
  JsonWriter& inlineArray(std::vector<float> const& numbers);
  /// The next call gives the member's value. That no name comes twice is up to the caller.
  JsonWriter& key(std::string_view name);

  /// A string; bytes that are no valid UTF-8 become U+FFFD.
  JsonWriter& value(std::string_view text);
  /// A zero-terminated string, which must not be null.
  JsonWriter& value(char const* text) { return value(std::string_view(text)); }
  JsonWriter& value(bool flag);             ///< true or false
  JsonWriter& value(std::int64_t number);   ///< all digits, also where a double would not hold them
  JsonWriter& value(std::uint64_t number);  ///< likewise
  /// As 64 bits.
  JsonWriter& value(int number) { return value(static_cast<std::int64_t>(number)); }
  /// As 64 bits.
  JsonWriter& value(unsigned int number) { return value(static_cast<std::uint64_t>(number)); }
  JsonWriter& value(float number);   ///< the shortest text that reads back in single precision
  JsonWriter& value(double number);  ///< the shortest text that reads back in double precision
  JsonWriter& null();                ///< for what is not known or not there

  /// `key` and `value` in one call.
  template <class T>
  JsonWriter& member(std::string_view name, T const& content) {
    return key(name).value(content);
  }

  /// The text so far with a line feed at its end; complete once all objects and arrays are ended. The writer
  /// is empty then, and may begin another text. Not for a writer with a sink.
  std::string takeText();
  /// Hands the rest of the text over to the sink, with a line feed at its end; false when the sink has failed
  /// now or before. Only for a writer with a sink.
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
