#include "qvannot/cli/toolText.h"

#include "annotationLegacy/version.h"
#include "qvannot/cli/buildText.h"
#include "qvannot/optionNames.h"

namespace qvannot {

Option makeHelpFlag() {
  return {.m_names = option::Help, .m_help = "Print this help and exit"};
}

Option makeVersionFlag() {
  return {.m_names = option::Version, .m_help = "Print the version and exit"};
}

Options describeOptions(CommandRow const& command) {
  Options options = command.m_make()->listOptions();
  for (Option& option : options) option.m_read = nullptr;
  options.push_back(makeHelpFlag());
  return options;
}

std::vector<std::string_view> listNames(CommandRows commands) {
  std::vector<std::string_view> names;
  for (CommandRow const* const command : commands) names.push_back(command->m_name);
  return names;
}

std::string formatVersion() {
  return std::string(ToolName) + ' ' + qvAnnotationLegacy::Version::GetDescStringMajorMinorRelease(false) +
         '\n' + formatBuild();
}

}  // namespace qvannot
