#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "qvToolkit/files/outputSink.h"
#include "qvToolkit/findings/exitCode.h"
#include "qvToolkit/findings/finding.h"
#include "qvToolkit/migration/fontSettings.h"

namespace qvToolkit {

/// What a page is written as.
enum class PageFormat : std::uint8_t { Svg, Png, Pdf };

/// "svg", "png" or "pdf": the word for the format and the extension of its files.
std::string_view getFormatText(PageFormat format);

/// What a budget of memory has left.
struct MemoryLeft {
  std::uint64_t m_limit = 0;
  std::uint64_t m_left = 0;
};

struct PageConversion {
  static constexpr unsigned DefaultResolution = 150;
  static constexpr unsigned MinResolution = 10;
  static constexpr unsigned MaxResolution = 2400;

  PageFormat m_format = PageFormat::Svg;
  unsigned m_resolution = DefaultResolution;  ///< of PNG, in pixels per inch of paper
  /// Tells what a program may take of the memory; without it there is no limit.
  std::function<MemoryLeft()> m_getMemory = nullptr;
};

/// Converts SVG pages by the program rsvg-convert, which runs as a child process with the given fonts. PDF
/// keeps live text as text. Equal pages give equal bytes.
class PageConverter {
 public:
  PageConverter(PageConversion const& conversion, FontOptions const& fonts);
  ~PageConverter();
  PageConverter(PageConverter const&) = delete;
  PageConverter& operator=(PageConverter const&) = delete;

  /// Writes the converted page to the sink. False when there is none, for which `findProblem` has the
  /// reason, or when the sink has failed. Throws `std::bad_alloc` only.
  [[nodiscard]] bool convert(std::string_view svg, OutputSink& sink);

  /// Why the last page could not be converted; nothing while every page could.
  std::optional<Finding> const& findProblem() const noexcept { return m_problem; }

 private:
  class FontFile;
  bool fail(std::string text);
  bool fail(Finding problem);

  PageConversion m_conversion;
  std::unique_ptr<FontFile> m_fontFile;  ///< null when the system's fonts will do
  std::optional<Finding> m_problem;
};

}  // namespace qvToolkit
