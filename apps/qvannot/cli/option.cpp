#include "qvannot/cli/option.h"

#include <algorithm>
#include <utility>

#include "qvannot/cli/nearestNames.h"
#include "qvannot/cli/textColumns.h"

namespace qvannot {

std::vector<std::string_view> splitNames(std::string_view names) {
  std::vector<std::string_view> spellings;
  while (!names.empty()) {
    std::size_t const end = std::min(names.find(','), names.size());
    spellings.push_back(names.substr(0, end));
    names.remove_prefix(std::min(end + 1, names.size()));
  }
  return spellings;
}

std::vector<std::string_view> listSpellings(Options const& options) {
  std::vector<std::string_view> spellings;
  for (Option const& option : options) {
    if (isOperand(option)) continue;
    for (std::string_view const name : splitNames(option.m_names)) spellings.push_back(name);
  }
  return spellings;
}

std::string_view getLongName(Option const& option) {
  return splitNames(option.m_names).back();
}

bool isOperand(Option const& option) {
  return !option.m_names.starts_with('-');
}

bool isFlag(Option const& option) {
  return !isOperand(option) && option.m_value.m_word.empty() && option.m_value.m_choices.empty();
}

std::string formatValue(Option const& option) {
  if (!option.m_value.m_word.empty() || option.m_value.m_choices.empty()) return option.m_value.m_word;
  std::string const words = joinWords(option.m_value.m_choices, ",");
  return option.m_value.m_choices.size() == 1 ? words : '{' + words + '}';
}

std::string describeOption(Option const& option) {
  std::string text = option.m_help;
  if (option.m_repeats && !isOperand(option)) text += "; may be repeated";
  if (!option.m_default.empty()) text.append(" (default ").append(option.m_default).append(")");
  if (option.m_presence == Presence::Required && !isOperand(option)) text += " (required)";
  return text;
}

Option makeFlag(std::string_view names, std::string help, bool& isSet) {
  auto const set = [&isSet](std::span<std::string const>) {
    isSet = true;
    return std::string();
  };
  return {.m_names = names, .m_help = std::move(help), .m_read = set};
}

std::string refuseChoice(std::string_view text, std::span<std::string_view const> choices) {
  return "'" + std::string(text) + "' is none of " + joinWords(choices, ", ") + suggestName(text, choices);
}

}  // namespace qvannot
