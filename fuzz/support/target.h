#pragma once

#include <string_view>

#include "inputCursor.h"
#include "memoryFaults.h"

namespace qvFuzz {

/// What a target does with one input: each target defines it. Only `std::bad_alloc` may leave it, and no
/// object may be left behind.
void runTarget(InputCursor& input);

/// Ends the process with the text when an invariant does not hold.
void require(bool holds, std::string_view text);
/// Ends the process with both texts unless the first one, which tells what is wrong, is empty.
void requireNone(std::string_view problem, std::string_view text);
/// Ends the process unless the text is safe for a terminal: no control character but LF.
void requirePrintable(std::string_view text);

}  // namespace qvFuzz
