#include "qvannot/cli/completion.h"
#include "qvannot/commandList.h"
#include "qvannot/reporter.h"

namespace qvannot {

namespace {

using Formatter = std::string (*)(CommandRows);

struct CompletionCommand final : Command {
  Options listOptions() override;
  void run(Reporter& reporter) const override;

  Formatter m_format = nullptr;
};

constexpr Choice<Formatter> Shells[] = {
    {"bash", formatBashCompletion}, {"zsh", formatZshCompletion}, {"fish", formatFishCompletion}};

Options CompletionCommand::listOptions() {
  Option shell = makeChoice<Formatter>("SHELL", "Shell that is to complete command lines", Shells, m_format);
  shell.m_presence = Presence::Required;
  return {shell};
}

void CompletionCommand::run(Reporter& reporter) const {
  reporter.expectNoViews();
  reporter.print(m_format(CommandRows(Commands)));
}

constexpr Example Examples[] = {
    {"source <(qvannot completion bash)", "Lets this shell complete commands, options and files."},
};

}  // namespace

constexpr CommandRow completionCommand = {
    "completion",
    "Write what lets a shell complete command lines",
    "Installed packages bring these scripts along; where there is none, load what this command writes.",
    Examples,
    makeCommand<CompletionCommand>,
    true};

}  // namespace qvannot
