#include "encodedOutput.h"

#include <filesystem>

#include "cli/sharedOptions.h"
#include "interruption.h"
#include "job.h"
#include "optionNames.h"
#include "optionNumbers.h"
#include "qvToolkit/files/outputSet.h"

namespace qvannot {

namespace {

std::string readFileName(std::string const& path, std::string& name) {
  name = path;
  return path.empty() || path.ends_with('/') ? "'" + path + "' names no file" : std::string();
}

std::string formatVersion(std::uint32_t packed) {
  return qv::qvStreamVersion(packed).toString();
}

/// Spelled as versions are, so that nobody takes 6.022 for an older one.
std::string readStreamVersion(std::string const& text, std::uint32_t& packed) {
  qv::qvStreamVersion const version(text);
  NumberRange<std::uint32_t> const writable{qvToolkit::getOldestWritableVersion(),
                                            qvToolkit::getNewestWritableVersion()};
  if (!writable.holds(version.GetPacked()) || version.toString() != text)
    return refuseNumber(text, "version", formatVersion(writable.m_least), formatVersion(writable.m_most));
  packed = version.GetPacked();
  return {};
}

std::string getFolder(EncodedOutput const& settings) {
  std::string const folder = std::filesystem::path(settings.m_output).parent_path();
  return folder.empty() ? "." : folder;
}

bool writeOutput(EncodedOutput const& settings, std::string const& bytes, Reporter const& reporter,
                 qvToolkit::OutputSet& outputs) {
  outputs.limit(reporter.getOutputBudget(), settings.m_limits.get(qvToolkit::Limit::OutputFile));
  std::string const name = std::filesystem::path(settings.m_output).filename();
  return outputs.open(name) && outputs.write(bytes) && outputs.commit();
}

}  // namespace

Options makeEncodedOutputOptions(EncodedOutput& settings) {
  return {
      makeFileOperand(settings.m_file),
      {.m_names = option::Output,
       .m_value = {.m_word = "OUT", .m_completion = Completion::File},
       .m_help = "File for the result",
       .m_read = [&settings](auto const& words) { return readFileName(words[0], settings.m_output); },
       .m_presence = Presence::Required},
      makeFlag(option::ViewsOnly, "Write no metadata object, only the views", settings.m_options.m_viewsOnly),
      makeFlag(option::Force, "Replace a result that exists", settings.m_force)};
}

Option makeStreamVersionOption(qvToolkit::EncodingOptions& options) {
  return {.m_names = option::StreamVersion,
          .m_value = {.m_word = "X.Y"},
          .m_help = "Version of the object stream, from " +
                    formatVersion(qvToolkit::getOldestWritableVersion()) + " to " +
                    formatVersion(qvToolkit::getNewestWritableVersion()),
          .m_read = [&options](auto const& words) { return readStreamVersion(words[0], options.m_version); }};
}

void writeEncoded(qvToolkit::Document const& document, EncodedOutput const& settings, Reporter& reporter) {
  if (auto const refusal = checkTrees(document, qvToolkit::makeTreeLimits(settings.m_limits))) {
    return reporter.report(document.m_path, {*refusal});
  }
  qvToolkit::EncodedDocument encoded = encodeDocument(document, settings.m_options);
  qvToolkit::FileIdentities const input({settings.m_file});
  qvToolkit::OutputSet outputs(getFolder(settings), settings.m_force, getInterruption());
  outputs.protect(input);
  bool const isWritten = writeOutput(settings, encoded.m_bytes, reporter, outputs);
  if (!isWritten) encoded.m_findings.push_back(outputs.getProblem());
  reporter.report(document.m_path, encoded.m_findings);
  if (isWritten) reporter.print(settings.m_output + '\n');
}

void runEncoding(EncodedOutput const& settings, std::function<void()> const& work, Reporter& reporter) {
  auto const cleanUp = [&](pid_t process, qvToolkit::Finding const&) {
    qvToolkit::removeTemporaryFiles(getFolder(settings), process);
  };
  static_cast<void>(run({settings.m_file, settings.m_limits, work, {}, cleanUp}, reporter, Progress(1)));
}

}  // namespace qvannot
