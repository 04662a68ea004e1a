#include "encodedOutput.h"

#include <filesystem>

#include "cli/sharedOptions.h"
#include "optionNames.h"
#include "optionNumbers.h"

namespace qvannot {

namespace {

std::string readFileName(std::string const& text, DocumentRun& run) {
  std::filesystem::path const path = text;
  if (path.filename().empty()) return "'" + text + "' names no file";
  run.m_outputName = path.filename();
  run.m_outputFolder = path.has_parent_path() ? path.parent_path().string() : ".";
  return {};
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

}  // namespace

Options makeEncodedOutputOptions(DocumentRun& run) {
  return {makeFileOperand(run.m_files),
          {.m_names = option::Output,
           .m_value = {.m_word = "OUT", .m_completion = Completion::File},
           .m_help = "File for the result",
           .m_read = [&run](auto const& words) { return readFileName(words[0], run); },
           .m_presence = Presence::Required},
          makeFlag(option::ViewsOnly, "Write no metadata object, only the views", run.m_request.m_viewsOnly),
          makeFlag(option::Force, "Replace a result that exists", run.m_force)};
}

Option makeStreamVersionOption(qvToolkit::Request& request) {
  return {.m_names = option::StreamVersion,
          .m_value = {.m_word = "X.Y"},
          .m_help = "Version of the object stream, from " +
                    formatVersion(qvToolkit::getOldestWritableVersion()) + " to " +
                    formatVersion(qvToolkit::getNewestWritableVersion()),
          .m_read = [&request](auto const& words) {
            return readStreamVersion(words[0], request.m_streamVersion);
          }};
}

}  // namespace qvannot
