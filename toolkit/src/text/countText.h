#pragma once

#include <cstdint>
#include <string>

namespace qvToolkit {

/// "1 leader", "2 leaders".
inline std::string formatCount(std::uint64_t count, std::string const& noun) {
  return std::to_string(count) + " " + noun + (count == 1 ? "" : "s");
}

}  // namespace qvToolkit
