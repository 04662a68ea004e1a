#pragma once

#include <span>
#include <string_view>

namespace qvannot {

/// The schema of one kind of JSON document, as docs/schemas has it.
struct Schema {
  std::string_view m_name;  ///< such as "outcome"
  std::string_view m_text;  ///< JSON, ends with a line feed
};

/// All of them, in the order of the build.
std::span<Schema const> listSchemas();

}  // namespace qvannot
