#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "qvToolkit/export.h"
#include "qvToolkit/files/outputSink.h"
#include "qvToolkit/json/jsonKey.h"

namespace qvToolkit {

/// How JSON text is laid out. What it says is the same.
enum class JsonStyle : std::uint8_t {
  Compact,  ///< without blanks and line breaks
  Pretty,   ///< each member and value on a line of its own, indented by two spaces
};

/// As an option says.
constexpr JsonStyle toJsonStyle(bool isPretty) {
  return isPretty ? JsonStyle::Pretty : JsonStyle::Compact;
}

/// Writes JSON text in the order of the calls.
/// @code
/// JsonWriter json;
/// json.beginObject().member("name", "Front").key("normal").inlineArray({0, 0, 1}).endObject();
/// assert(json.takeText() == "{\"name\":\"Front\",\"normal\":[0,0,1]}\n");
/// @endcode
/// Texts leave through one escaping function, `appendJson`. Numbers are the shortest text that reads back,
/// the sign of zero included; a number that is not finite becomes null.
///
/// Calls must nest properly, which is not checked: within an object each value follows a `key`, and each
/// `end` ends what was begun last. All but `takeText` and `finish` return the writer itself. A sink that
/// fails is not called again; `finish` tells.
class QVT_EXPORT JsonWriter {
 public:
  /// Keeps the text for `takeText`. The text of a `depth` above 0 is to stand that many containers deep in
  /// another text: its lines are indented by so much more, and no line feed ends it.
  explicit JsonWriter(JsonStyle style = JsonStyle::Compact, std::size_t depth = 0)
      : m_isPretty(style == JsonStyle::Pretty), m_depth(depth) {}
  /// Hands the text over to the sink in pieces of about 1 MiB, so that a large text takes no memory of its
  /// size. The sink must outlive the writer.
  explicit JsonWriter(OutputSink& sink, JsonStyle style = JsonStyle::Compact, std::size_t depth = 0)
      : m_sink(&sink), m_isPretty(style == JsonStyle::Pretty), m_depth(depth) {}

  JsonWriter& beginObject();  ///< members follow
  JsonWriter& endObject();    ///< one without members stays on one line
  JsonWriter& beginArray();   ///< values follow
  JsonWriter& endArray();     ///< one without values stays on one line
  /// A short array of numbers, such as a point, on one line in either style.
  JsonWriter& inlineArray(std::span<float const> numbers);
  /// The same.
  JsonWriter& inlineArray(std::initializer_list<float> numbers) {
    return inlineArray(std::span(numbers.begin(), numbers.size()));
  }
  /// The next call gives the member's value; `ending` makes another name of it, as in "nameHex". That no name
  /// comes twice is up to the caller.
  JsonWriter& key(JsonKey name, std::string_view ending = {});

  /// A text; bytes that are no valid UTF-8 become U+FFFD.
  JsonWriter& value(std::string_view text);
  /// A zero-terminated text, which must not be null.
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
  JsonWriter& member(JsonKey name, T const& content) {
    return key(name).value(content);
  }
  /// The same, null without a content.
  template <class T>
  JsonWriter& member(JsonKey name, std::optional<T> const& content) {
    return content.has_value() ? member(name, *content) : key(name).null();
  }
  /// A member whose text is null when it is empty.
  JsonWriter& textOrNull(JsonKey name, std::string_view text) {
    return text.empty() ? key(name).null() : member(name, text);
  }
  /// Two members for bytes that came from outside: what they say as a text, and under the name + "Hex" all of
  /// them, two hexadecimal digits each, or null where they are valid UTF-8 and nothing is lost.
  JsonWriter& bytes(JsonKey name, std::string_view bytes);
  /// The same two members where there is nothing: both are null.
  JsonWriter& noBytes(JsonKey name) { return key(name).null().key(name, "Hex").null(); }

  /// The text so far, with a line feed at its end at depth 0; complete once all objects and arrays are ended.
  /// The writer is empty then, and may begin another text. Not for a writer with a sink.
  std::string takeText();
  /// Hands the rest of the text over to the sink, with a line feed at its end at depth 0; false when the sink
  /// has failed now or before. Only for a writer with a sink.
  [[nodiscard]] bool finish();

 private:
  JsonWriter& begin(char bracket);
  JsonWriter& end(char bracket);
  void beforeValue();
  void breakLine();
  void endText();
  void flush();

  OutputSink* m_sink = nullptr;
  bool m_isPretty;
  std::size_t m_depth;
  bool m_hasFailed = false;
  std::string m_text;
  std::size_t m_levels = 0;  ///< containers that are open
  bool m_isEmpty = true;     ///< nothing stands yet in the innermost of them
  bool m_afterKey = false;
};

}  // namespace qvToolkit
