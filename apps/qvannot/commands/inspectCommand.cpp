#include "qvToolkit/reports/inspection.h"
#include "qvToolkit/reports/legacyJson.h"
#include "qvannot/cli/sharedOptions.h"
#include "qvannot/commandList.h"
#include "qvannot/job.h"
#include "qvannot/jsonFiles.h"
#include "qvannot/optionNames.h"

namespace qvannot {

namespace {

struct InspectCommand final : Command {
  Options listOptions() override;
  void run(Reporter& reporter) const override;

  std::vector<std::string> m_files;
  bool m_asJson = false;
  bool m_isFull = false;
  bool m_isPretty = false;
  qvToolkit::Limits m_limits;
};

Options InspectCommand::listOptions() {
  Option full =
      makeFlag(option::Full, std::string("With ") + option::Json + ": the whole legacy model, field by field",
               m_isFull);
  full.m_needs = option::Json;
  return join({makeFilesOperand(m_files), makeFlag(option::Json, "Write JSON", m_asJson), full,
               makePrettyFlag(m_isPretty), makeStrictFlag(m_isStrict)},
              makeLimitOptions(m_limits));
}

void writeEntry(qvToolkit::JsonWriter& json, qvToolkit::Document const& document, bool isFull) {
  if (isFull) {
    writeLegacyDocument(json, document, spellOption);
  } else {
    writeInspection(json, inspectDocument(document), spellOption);
  }
}

void inspectFile(InspectCommand const& command, std::string const& path, Reporter& reporter) {
  qvToolkit::Document const document = openInput(path, command.m_limits, reporter);
  reporter.reportOpened(document);
  if (getFailure(document) == qvToolkit::ExitDone)
    reporter.print(formatInspection(inspectDocument(document)));
}

void InspectCommand::run(Reporter& reporter) const {
  auto const write = [&](qvToolkit::JsonWriter& json, std::string const& path) {
    qvToolkit::Document const document = openInput(path, m_limits, reporter);
    reporter.reportOpened(document);
    writeEntry(json, document, m_isFull);
  };
  auto const writeFailed = [&](qvToolkit::JsonWriter& json, qvToolkit::Document const& document) {
    writeEntry(json, document, m_isFull);
  };
  if (m_asJson) {
    auto const format = m_isFull ? qvToolkit::ReportFormat::InspectFull : qvToolkit::ReportFormat::Inspect;
    qvToolkit::ReportList const list(format, qvToolkit::toJsonStyle(m_isPretty));
    return runJson({list, m_files, m_limits, write, writeFailed}, reporter);
  }
  auto const makeJob = [&](std::size_t i) -> Job {
    std::string const& path = m_files[i];
    return {path, m_limits, [&] { inspectFile(*this, path, reporter); }, {}, {}};
  };
  static_cast<void>(runAll(m_files, makeJob, reporter));
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
