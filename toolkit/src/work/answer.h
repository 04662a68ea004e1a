#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "files/spool.h"
#include "qvToolkit/files/outputSink.h"

namespace qvToolkit {

/// Writes what the work on an input prints and what became of it into a nameless file: frames of text, then
/// one of the outcome. Without that one the answer is not whole, and counts for nothing.
class AnswerWriter : public OutputSink {
 public:
  /// `file` is empty, and not owned.
  explicit AnswerWriter(int file) : m_file(file) {}

  /// Text; false with errno set when the file takes no more.
  [[nodiscard]] bool write(std::string_view text) override;
  /// Takes back all text.
  void withdraw();
  /// Ends the answer with the outcome as JSON; false with errno set when the file takes no more.
  [[nodiscard]] bool conclude(std::string_view outcome);

 private:
  bool writeFrame(std::uint32_t kind, std::string_view bytes);
  bool flush();

  int m_file;
  std::string m_text;  ///< that waits to be written
};

/// Reads an answer: nothing is believed that is not whole.
class AnswerReader {
 public:
  explicit AnswerReader(Spool const& spool);

  /// Frames of text and one outcome at the end, and nothing else.
  bool isWhole() const noexcept { return m_isWhole; }
  /// The outcome as JSON; only of a whole answer.
  std::string const& getOutcome() const noexcept { return m_outcome; }
  /// Hands over the text in pieces, until `take` answers false. False when the file cannot be read again.
  bool forEachText(std::function<bool(std::string_view)> const& take) const;

 private:
  Spool const& m_spool;
  std::uint64_t m_textEnd = 0;
  std::string m_outcome;
  bool m_isWhole = false;
};

}  // namespace qvToolkit
