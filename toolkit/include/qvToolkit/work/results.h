#pragma once

#include <cstdint>
#include <string>

#include "qvToolkit/export.h"
#include "qvToolkit/files/outputSink.h"
#include "qvToolkit/findings/finding.h"

namespace qvToolkit {

/// Where the results of the work on one input go. After the first problem its sinks and `open` answer false.
/// @code
/// struct Printed : Results {
///   OutputSink& getText() override { return m_text; }
///   bool open(std::string const&) override { return false; }
///   OutputSink& getFile() override { return m_text; }
///   void limit(std::uint64_t, std::uint64_t) override {}
///   void withdraw() override { m_text.m_text.clear(); }
///   Finding const& getProblem() const override { return m_problem; }
///   TextSink m_text;
///   Finding m_problem = makeFinding(FindingCode::OutputFailed, "no files are taken here");
/// } printed;
/// assert(printed.getText().write("text") && printed.m_text.m_text == "text");
/// @endcode
class QVT_EXPORT Results {
 public:
  virtual ~Results() = default;

  /// Takes what the action prints; valid as long as the results.
  virtual OutputSink& getText() = 0;
  /// Begins the next file, ending the one before; `name` is a plain file name.
  [[nodiscard]] virtual bool open(std::string const& name) = 0;
  /// The file that was opened last.
  virtual OutputSink& getFile() = 0;
  /// From here on text and files may have at most `allBytes` together, each of them at most `fileBytes`.
  /// Called when the input's size is known, before anything is written.
  virtual void limit(std::uint64_t allBytes, std::uint64_t fileBytes) = 0;
  /// Nothing that was printed or written so far counts: a part of a result must not look whole.
  virtual void withdraw() = 0;
  /// Why a sink or `open` answered false; valid once one did.
  virtual Finding const& getProblem() const = 0;

 protected:
  Results() = default;
  Results(Results const&) = default;             ///< for what derives from it
  Results& operator=(Results const&) = default;  ///< likewise
};

}  // namespace qvToolkit
