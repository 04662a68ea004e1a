#pragma once

#include <optional>
#include <span>
#include <string>

#include "optionNumbers.h"
#include "qvToolkit/outcome/limits.h"

namespace qvannot {

/// An option that sets one limit, or lifts all of them.
struct LimitOption {
  char const* m_name;
  std::optional<qvToolkit::Limit> m_limit;  ///< none for the option that lifts all
  char const* m_word;                       ///< what it takes, as the help shows it
  CountRange m_range;
  char const* m_help;
  char const* m_default;  ///< as the help shows it; empty for none
};

/// In the order of the help.
std::span<LimitOption const> listLimitOptions();

/// Does what the option's word asks for. Returns what is wrong with the word; empty when nothing is.
std::string setLimit(LimitOption const& option, std::string const& text, qvToolkit::Limits& limits);

}  // namespace qvannot
