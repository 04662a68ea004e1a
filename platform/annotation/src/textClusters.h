#pragma once

#include <hb.h>

#include <cstddef>
#include <string_view>

namespace qv::text {

/// The first combining mark; characters below it are clusters of their own and of the Latin script or of
/// none.
constexpr char32_t FIRST_MARK = 0x0300;

/// HarfBuzz's knowledge of characters. Throws `std::bad_alloc` when it could not be made: HarfBuzz then knows
/// nothing of any character, for good.
hb_unicode_funcs_t* getUnicode();

/// True for characters without a picture of their own, which need no glyph: joiners, direction marks,
/// variation selectors, ...
bool isIgnorable(char32_t character);

/// The precomposed character of a base and a mark, 0 when there is none.
char32_t compose(char32_t base, char32_t mark);

/// Length of the cluster that begins at `start`: a character with the marks and ignorable characters that
/// follow it, and what a zero-width joiner ties to them.
std::size_t getClusterLength(std::u32string_view text, std::size_t start);

/// The character's script; `HB_SCRIPT_COMMON` for characters that belong to none of their own.
hb_script_t getScript(char32_t character);

}  // namespace qv::text
