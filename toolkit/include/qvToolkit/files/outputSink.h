#pragma once

#include <string_view>

namespace qvToolkit {

/// Takes the bytes of one output in order. A sink that failed says so on every further call and knows why
/// itself.
class OutputSink {
 public:
  virtual ~OutputSink() = default;
  [[nodiscard]] virtual bool write(std::string_view bytes) = 0;

 protected:
  OutputSink() = default;
  OutputSink(OutputSink const&) = default;
  OutputSink& operator=(OutputSink const&) = default;
};

}  // namespace qvToolkit
