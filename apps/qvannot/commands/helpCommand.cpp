#include <algorithm>

#include "qvannot/cli/helpText.h"
#include "qvannot/cli/manualPage.h"
#include "qvannot/cli/nearestNames.h"
#include "qvannot/cli/toolText.h"
#include "qvannot/commandList.h"
#include "qvannot/optionNames.h"
#include "qvannot/reporter.h"

namespace qvannot {

namespace {

struct HelpCommand final : Command {
  Options listOptions() override;
  void run(Reporter& reporter) const override;

  CommandRow const* m_command = nullptr;  ///< null for the tool as a whole
  bool m_asManual = false;
};

std::string readCommand(std::string const& text, CommandRow const*& command) {
  auto const* const found = std::ranges::find(Commands, text, &CommandRow::m_name);
  if (found == std::end(Commands))
    return "there is no command '" + text + "'" + suggestName(text, listNames(Commands));
  command = *found;
  return {};
}

Options HelpCommand::listOptions() {
  return {
      {.m_names = "COMMAND",
       .m_value = {.m_word = "COMMAND", .m_completion = Completion::Choice, .m_choices = listNames(Commands)},
       .m_help = "What to tell about; without one, the tool as a whole",
       .m_read = [this](auto const& words) { return readCommand(words[0], m_command); }},
      makeFlag(option::Manual, "Write the manual page of the tool, for man", m_asManual)};
}

void HelpCommand::run(Reporter& reporter) const {
  reporter.expectNoViews();
  if (m_asManual) {
    reporter.print(formatManualPage(Commands));
  } else {
    reporter.print(m_command == nullptr ? formatToolHelp(Commands) : formatCommandHelp(*m_command));
  }
}

constexpr Example Examples[] = {
    {"qvannot help migrate", "Tells what the command takes, with examples."},
};

}  // namespace

constexpr CommandRow helpCommand = {"help",
                                    "Tell what the tool or a command takes",
                                    "Prints what 'qvannot COMMAND --help' prints.",
                                    Examples,
                                    makeCommand<HelpCommand>,
                                    true};

}  // namespace qvannot
