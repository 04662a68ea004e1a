#pragma once

#include <span>
#include <string>
#include <string_view>

namespace qv::text {

/// The form in which family names are compared: without blanks, ASCII letters small.
std::string foldName(std::string_view name);

/// Families with the same advance widths, best first, among them the one with the folded name; empty when
/// there are none.
std::span<std::string_view const> findMetricClass(std::string_view foldedName);

}  // namespace qv::text
