#pragma once

#include <cstdint>
#include <limits>
#include <string>
#include <vector>

#include "qvToolkit/export.h"
#include "qvToolkit/work/results.h"

namespace qvToolkit {

/// Keeps the results of the work on one input in memory.
/// @code
/// MemoryResults results;
/// assert(results.open("a.txt") && results.getFile().write("text"));
/// assert(results.getFiles()[0].m_name == "a.txt" && results.getFiles()[0].m_bytes == "text");
/// @endcode
/// What a limit refuses is the problem that `getProblem` tells; memory that runs out throws `std::bad_alloc`.
class QVT_EXPORT MemoryResults : public Results {
 public:
  /// A file that was written.
  struct File {
    std::string m_name;   ///< as it was opened
    std::string m_bytes;  ///< all that was written into it
  };

  OutputSink& getText() override { return m_textSink; }
  [[nodiscard]] bool open(std::string const& name) override;
  OutputSink& getFile() override { return m_fileSink; }
  void limit(std::uint64_t allBytes, std::uint64_t fileBytes) override;
  void withdraw() override;
  Finding const& getProblem() const override { return m_problem; }

  std::string const& getPrinted() const noexcept { return m_text; }       ///< all of the text
  std::vector<File> const& getFiles() const noexcept { return m_files; }  ///< in the order of `open`

 private:
  class Sink : public OutputSink {
   public:
    Sink(MemoryResults& results, bool isText) : m_results(results), m_isText(isText) {}
    [[nodiscard]] bool write(std::string_view bytes) override { return m_results.append(bytes, m_isText); }

   private:
    MemoryResults& m_results;
    bool m_isText;
  };
  bool append(std::string_view bytes, bool isText);
  bool refuse(std::string const& what, std::uint64_t limit, OptionKey option);

  Sink m_textSink{*this, true};
  Sink m_fileSink{*this, false};
  std::string m_text;
  std::vector<File> m_files;
  std::uint64_t m_maxAllBytes = std::numeric_limits<std::uint64_t>::max();
  std::uint64_t m_maxFileBytes = m_maxAllBytes;
  std::uint64_t m_allBytes = 0;
  bool m_hasFailed = false;
  Finding m_problem;
};

}  // namespace qvToolkit
