#pragma once

#include <optional>
#include <string>

#include "ports/text.h"

namespace migrationTest {

/// What the last call of the text converter was given.
struct ConverterCall {
  qv::text::TextArea area;
  std::optional<std::string> nodeFill;
  bool nodeWasEmpty = false;
  bool hadSizeOutput = false;
  std::string name;
};

/// The last call; none before the first one.
std::optional<ConverterCall>& lastConverterCall();

}  // namespace migrationTest
