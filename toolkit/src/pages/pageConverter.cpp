#include "qvToolkit/pages/pageConverter.h"

#include <fcntl.h>

#include <array>
#include <cerrno>
#include <cstddef>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

#include "files/childLimit.h"
#include "files/childProcess.h"
#include "files/temporaryFile.h"
#include "files/wholeIo.h"

namespace qvToolkit {

namespace {

constexpr char const* Program = "rsvg-convert";
constexpr char const* Package = "librsvg2-bin";
constexpr std::size_t MaxShownMessage = 500;

/// The first line of what a program says, at most 500 bytes of it.
std::string shorten(std::string_view message) {
  message = message.substr(0, message.find('\n'));
  return std::string(message.substr(0, MaxShownMessage));
}

/// What an option of the program takes.
enum class Argument : std::uint8_t { None, Format, Resolution };

struct ProgramOption {
  std::string_view m_name;  ///< without the two dashes in front
  Argument m_argument;
};

constexpr std::array ProgramOptions = {
    ProgramOption{"format", Argument::Format}, ProgramOption{"dpi-x", Argument::Resolution},
    ProgramOption{"dpi-y", Argument::Resolution}, ProgramOption{"unlimited", Argument::None}};

std::vector<std::string> makeWords(PageConversion const& conversion) {
  std::vector<std::string> words = {Program};
  for (ProgramOption const& option : ProgramOptions) {
    words.push_back("--" + std::string(option.m_name));
    if (option.m_argument == Argument::Format) words.emplace_back(getFormatText(conversion.m_format));
    if (option.m_argument == Argument::Resolution) words.push_back(std::to_string(conversion.m_resolution));
  }
  return words;
}

}  // namespace

/// The font configuration as a nameless file, which the child inherits and opens anew by its number.
class PageConverter::FontFile {
 public:
  explicit FontFile(std::string const& content)
      : m_file(openMemoryFile()),
        m_isWritten(fcntl(m_file.get(), F_SETFD, 0) == 0 && writeAll(m_file.get(), content)) {}

  bool isWritten() const noexcept { return m_isWritten; }
  std::string getPath() const { return "/proc/self/fd/" + std::to_string(m_file.get()); }

 private:
  FileDescriptor m_file;
  bool m_isWritten;
};

PageConverter::PageConverter(PageConversion const& conversion, FontOptions const& fonts)
    : m_conversion(conversion) {
  std::string const configuration = formatFontConfiguration(fonts);
  if (!configuration.empty()) m_fontFile = std::make_unique<FontFile>(configuration);
}

PageConverter::~PageConverter() = default;

bool PageConverter::convert(std::string_view svg, OutputSink& sink) {
  ChildCommand command;
  command.m_words = makeWords(m_conversion);
  MemoryLeft const memory = m_conversion.m_getMemory
                                ? m_conversion.m_getMemory()
                                : MemoryLeft{ChildCommand::Unlimited, ChildCommand::Unlimited};
  command.m_maxMemory = memory.m_left;
  // A PDF would name the time of its making.
  command.m_environment = {"SOURCE_DATE_EPOCH=0"};
  if (m_fontFile != nullptr) {
    if (!m_fontFile->isWritten()) return fail("cannot write a font configuration");
    command.m_environment.push_back("FONTCONFIG_FILE=" + m_fontFile->getPath());
  }
  ChildRun const run = runChild(command, svg);
  if (run.m_problem == ENOENT) {
    return fail("cannot write " + std::string(getFormatText(m_conversion.m_format)) + ": the program " +
                Program + " is not there; install the package " + Package + ", or write SVG");
  }
  if (run.m_problem != 0) {
    return fail(std::string("cannot run ") + Program + ": " + std::generic_category().message(run.m_problem));
  }
  if (auto limit = findChildLimit(Program, run, memory.m_limit)) return fail(std::move(*limit));
  if (run.m_exitCode != 0 || run.m_output.empty()) {
    return fail(std::string(Program) + " failed: " + shorten(run.m_errors));
  }
  return sink.write(run.m_output);
}

bool PageConverter::fail(std::string text) {
  return fail(makeFinding(FindingCode::OutputFailed, std::move(text)));
}

bool PageConverter::fail(Finding problem) {
  m_problem = std::move(problem);
  return false;
}

}  // namespace qvToolkit
