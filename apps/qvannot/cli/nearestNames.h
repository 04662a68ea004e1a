#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace qvannot {

/// How many slips make one text of the other: a character added, left out or replaced, or two neighbours that
/// changed places; none is moved again by another slip. Costs the product of both lengths.
std::size_t countSlips(std::string_view a, std::string_view b);

/// The names from the nearest to the farthest; those that are equally near stay in their order. Of a text
/// that is longer than any name could be only the beginning is compared.
std::vector<std::string_view> sortByNearness(std::string_view text, std::span<std::string_view const> names);

/// "; did you mean 'NAME'?" with the name that a slip or two lead to, or else the only one that begins with
/// the text; empty when there is none.
std::string suggestName(std::string_view text, std::span<std::string_view const> names);

}  // namespace qvannot
