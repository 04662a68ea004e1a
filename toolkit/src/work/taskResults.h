#pragma once

#include <cstdint>
#include <string>

#include "files/stagedFiles.h"
#include "qvToolkit/work/results.h"
#include "work/answer.h"

namespace qvToolkit {

/// The results of one task: text into its answer, files into its staging folder.
class TaskResults : public Results {
 public:
  /// Of files that are not owned; `place` as of `StagedFiles`.
  TaskResults(int answer, int staging, std::string const& place);

  OutputSink& getText() override { return m_text; }
  bool open(std::string const& name) override { return m_files.open(name); }
  OutputSink& getFile() override { return m_files; }
  void limit(std::uint64_t allBytes, std::uint64_t fileBytes) override;
  void withdraw() override { m_answer.withdraw(); }
  Finding const& getProblem() const override;

  AnswerWriter& getAnswer() noexcept { return m_answer; }

 private:
  /// Text as far as the limits admit it.
  class Text : public OutputSink {
   public:
    explicit Text(TaskResults& results) : m_results(results) {}
    bool write(std::string_view bytes) override { return m_results.print(bytes); }

   private:
    TaskResults& m_results;
  };

  bool print(std::string_view bytes);
  bool refuse(std::uint64_t limit, OptionKey option);
  bool fail(Finding problem);

  AnswerWriter m_answer;
  StagedFiles m_files;
  Text m_text{*this};
  std::uint64_t m_maxAllBytes;
  std::uint64_t m_maxTextBytes;
  std::uint64_t m_textBytes = 0;
  bool m_hasFailed = false;
  Finding m_problem;
};

}  // namespace qvToolkit
