#include "qvannot/cli/sharedOptions.h"
#include "qvannot/commandList.h"
#include "qvannot/documentRun.h"
#include "qvannot/optionNames.h"

namespace qvannot {

namespace {

struct InspectCommand final : Command {
  Options listOptions() override;
  void run(Reporter& reporter) const override;

  DocumentRun m_run{qvToolkit::Action::Inspect};
};

Options InspectCommand::listOptions() {
  qvToolkit::Request& request = m_run.m_request;
  Option full =
      makeFlag(option::Full, std::string("With ") + option::Json + ": the whole legacy model, field by field",
               request.m_isFull);
  full.m_needs = option::Json;
  return join({makeFilesOperand(m_run.m_files), makeFlag(option::Json, "Write JSON", request.m_asJson), full,
               makePrettyFlag(request.m_isPretty), makeJobsOption(m_run.m_jobs), makeStrictFlag(m_isStrict)},
              makeLimitOptions(request.m_limits));
}

void InspectCommand::run(Reporter& reporter) const {
  runDocuments(m_run, reporter);
}

constexpr Example Examples[] = {
    {"qvannot inspect bracket.json",
     "Shows the views and annotations of a document, and what its reader says."},
    {"qvannot inspect --json --full old/*.json > old.json",
     "Writes every field of the legacy model of many documents as JSON."},
};

}  // namespace

constexpr CommandRow inspectCommand = {
    "inspect", "Show what documents hold",
    "Lists views, planes and annotations with their texts, and what was found while reading.", Examples,
    makeCommand<InspectCommand>};

}  // namespace qvannot
