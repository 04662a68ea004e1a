#pragma once

#include <memory>
#include <span>
#include <string_view>

#include "qvannot/cli/option.h"

namespace qvannot {

class Reporter;

/// A command with its settings: made by its row at their defaults, filled by its options, then run.
class Command {
 public:
  Command() = default;
  virtual ~Command() = default;
  Command(Command const&) = delete;
  Command& operator=(Command const&) = delete;

  /// The options in the order of the help. They fill this command, and so must not outlive it.
  virtual Options listOptions() = 0;
  /// Works through its inputs in order; one that fails does not stop the others. The library must be
  /// initialised.
  virtual void run(Reporter& reporter) const = 0;

  bool isStrict() const noexcept { return m_isStrict; }

 protected:
  bool m_isStrict = false;  ///< warnings count, too
};

/// A command line that works, and what it does.
struct Example {
  std::string_view m_line;
  std::string_view m_effect;  ///< a sentence
};

/// A command as the list of all has it.
struct CommandRow {
  std::string_view m_name;
  std::string_view m_summary;      ///< what it does, in a few words without a full stop
  std::string_view m_description;  ///< sentences that say more
  std::span<Example const> m_examples;
  std::unique_ptr<Command> (*m_make)();
  bool m_isAboutTool =
      false;  ///< it works on no document; otherwise the tool's own help shows the first example
};

using CommandRows = std::span<CommandRow const* const>;

template <class Made>
std::unique_ptr<Command> makeCommand() {
  return std::make_unique<Made>();
}

}  // namespace qvannot
