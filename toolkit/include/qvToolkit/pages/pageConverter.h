#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "qvToolkit/export.h"
#include "qvToolkit/files/outputSink.h"
#include "qvToolkit/findings/finding.h"
#include "qvToolkit/migration/fontSettings.h"
#include "qvToolkit/outcome/request.h"

namespace qvToolkit {

/// What a budget of memory has left.
struct MemoryLeft {
  std::uint64_t m_limit = 0;  ///< bytes that it had at first; for findings
  std::uint64_t m_left = 0;   ///< bytes
};

/// What pages are to be converted into.
struct PageConversion {
  static constexpr unsigned DefaultResolution = Request::DefaultResolution;  ///< in pixels per inch
  static constexpr unsigned MinResolution = 10;                              ///< texts are specks below
  static constexpr unsigned MaxResolution = 2400;  ///< pages take gigabytes of pixels above

  PageFormat m_format = PageFormat::Svg;      ///< of the results
  unsigned m_resolution = DefaultResolution;  ///< of PNG, in pixels per inch of paper
  /// Tells what a program may take of the memory; without it there is no limit.
  std::function<MemoryLeft()> m_getMemory = nullptr;
};

/// Converts SVG pages by the program rsvg-convert, which runs as a child process with the given fonts.
/// @code
/// PageConversion conversion;
/// conversion.m_format = PageFormat::Pdf;
/// PageConverter converter(conversion, FontOptions{});
/// OutputSet files("pdf", /*force*/ false);
/// std::string_view const page = R"(<svg xmlns="http://www.w3.org/2000/svg" width="9mm" height="9mm"/>)";
/// if (files.open("page.pdf") && !converter.convert(page, files) && converter.findProblem())
///   std::cerr << converter.findProblem()->m_text << '\n';
/// @endcode
/// PDF keeps live text as text. Equal pages give equal bytes. Each page starts the program anew, and holds
/// its result in memory once.
class QVT_EXPORT PageConverter {
 public:
  /// Keeps a font configuration in memory where the system's own will not do. When that fails `convert`
  /// tells.
  PageConverter(PageConversion const& conversion, FontOptions const& fonts);
  ~PageConverter();
  PageConverter(PageConverter const&) = delete;
  PageConverter& operator=(PageConverter const&) = delete;

  /// Writes the converted page to the sink. False when there is none, for which `findProblem` has the
  /// reason, or when the sink has failed. Throws `std::bad_alloc` only.
  [[nodiscard]] bool convert(std::string_view svg, OutputSink& sink);

  /// Why the last page that failed could not be converted; nothing while every page could. A sink that failed
  /// does not count here.
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
