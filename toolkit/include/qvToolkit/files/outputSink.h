#pragma once

#include <string>
#include <string_view>

#include "qvToolkit/export.h"

namespace qvToolkit {

/// Takes the bytes of one output in order.
/// @code
/// struct Counter : OutputSink {
///   bool write(std::string_view bytes) override { return (m_size += bytes.size()) <= 1000; }
///   std::size_t m_size = 0;
/// } counter;
/// JsonWriter json(counter);
/// json.beginArray().endArray();
/// assert(json.finish() && counter.m_size == 3);
/// @endcode
class QVT_EXPORT OutputSink {
 public:
  virtual ~OutputSink() = default;
  /// Takes the next bytes, which need not live longer than the call; false when they are not taken. A sink
  /// that failed says so on every further call and knows why itself.
  [[nodiscard]] virtual bool write(std::string_view bytes) = 0;

 protected:
  OutputSink() = default;                              ///< for sinks
  OutputSink(OutputSink const&) = default;             ///< for sinks that may be copied
  OutputSink& operator=(OutputSink const&) = default;  ///< likewise
};

/// Keeps what is written, in memory. Never fails but by `std::bad_alloc`.
/// @code
/// TextSink sink;
/// JsonWriter json(sink);
/// json.beginArray().endArray();
/// assert(json.finish() && sink.m_text == "[]\n");
/// @endcode
class QVT_EXPORT TextSink : public OutputSink {
 public:
  /// Appends them to the text.
  bool write(std::string_view bytes) override {
    m_text += bytes;
    return true;
  }

  std::string m_text;  ///< all that was written, in order
};

}  // namespace qvToolkit
