#include <cstdio>
#include <exception>
#include <memory>
#include <new>
#include <variant>

#include "cli/parser.h"
#include "files/standardStreams.h"
#include "interruption.h"
#include "qvToolkit/text/textEscape.h"
#include "qvannot/commandList.h"
#include "reporter.h"

namespace {

using qvannot::Reporter;

int execute(qvannot::Answer const& answer) {
  if (answer.m_exitCode != qvToolkit::ExitDone) {
    std::fwrite(answer.m_text.data(), 1, answer.m_text.size(), stderr);
    return answer.m_exitCode;
  }
  Reporter reporter(false);
  reporter.expectNoViews();
  reporter.print(answer.m_text);
  return reporter.finish();
}

int execute(std::unique_ptr<qvannot::Command> const& command) {
  Reporter reporter(command->isStrict());
  command->run(reporter);
  return reporter.finish();
}

int runTool(int count, char const* const* arguments) {
  try {
    qvToolkit::reserveStandardStreams();
    qvannot::installSignalHandling();
    auto const parsed = qvannot::parseCommandLine(qvannot::Commands, count, arguments);
    int const exitCode = std::visit([](auto const& chosen) { return execute(chosen); }, parsed);
    qvannot::endByInterruption();
    return exitCode;
  } catch (std::bad_alloc const&) {
    std::fputs("qvannot: out of memory\n", stderr);
    return qvToolkit::ExitLimit;
  } catch (std::exception const& error) {
    std::string const text = qvToolkit::escapeTerminal(error.what());
    std::fprintf(stderr, "qvannot: a bug, please report it: %s\n", text.c_str());
  } catch (...) {
    std::fputs("qvannot: a bug, please report it\n", stderr);
  }
  return qvToolkit::ExitBug;
}

}  // namespace

int main(int count, char** arguments) {
  return runTool(count, arguments);
}
