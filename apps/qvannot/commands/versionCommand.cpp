#include "qvannot/cli/toolText.h"
#include "qvannot/commandList.h"
#include "qvannot/reporter.h"

namespace qvannot {

namespace {

struct VersionCommand final : Command {
  Options listOptions() override { return {}; }
  void run(Reporter& reporter) const override {
    reporter.expectNoViews();
    reporter.print(formatVersion());
  }
};

}  // namespace

constexpr CommandRow versionCommand = {
    "version", "Print the version",         "Prints what 'qvannot --version' prints.",
    {},        makeCommand<VersionCommand>, true};

}  // namespace qvannot
