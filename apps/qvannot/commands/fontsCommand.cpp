#include "qvannot/cli/sharedOptions.h"
#include "qvannot/commandList.h"
#include "qvannot/documentRun.h"
#include "qvannot/optionNames.h"

namespace qvannot {

namespace {

struct FontsCommand final : Command {
  Options listOptions() override;
  void run(Reporter& reporter) const override;

  DocumentRun m_run{qvToolkit::Action::Fonts};
};

Options FontsCommand::listOptions() {
  qvToolkit::Request& request = m_run.m_request;
  return join({makeFilesOperand(m_run.m_files), makeFlag(option::Json, "Write JSON", request.m_asJson),
               makePrettyFlag(request.m_isPretty), makeJobsOption(m_run.m_jobs), makeStrictFlag(m_isStrict)},
              makeFontOptions(request.m_fonts), makeLimitOptions(request.m_limits));
}

void FontsCommand::run(Reporter& reporter) const {
  runDocuments(m_run, reporter);
}

constexpr Example Examples[] = {
    {"qvannot fonts old/*.json",
     "Lists the fonts that documents ask for, what is drawn instead, and which packages to install."},
};

}  // namespace

constexpr CommandRow fontsCommand = {
    "fonts", "List the fonts that documents ask for and get",
    "Shows for each font the one that is drawn, the characters that no font has, and the packages that bring "
    "what is missing.",
    Examples, makeCommand<FontsCommand>};

}  // namespace qvannot
