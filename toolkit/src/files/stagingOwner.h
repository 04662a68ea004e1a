#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace qvToolkit {

/// The process that a staging folder belongs to. Its name tells, so that whoever finds the folder later can
/// decide whether somebody still works in it.
struct StagingOwner {
  std::string m_host;         ///< letters, digits, dots and "_" of ASCII
  std::string m_boot;         ///< hexadecimal digits; of the time since the host was started
  int m_process = 0;          ///< its number
  std::uint64_t m_start = 0;  ///< when it was started, in the host's clock ticks: numbers are used again

  bool operator==(StagingOwner const&) const = default;
};

/// This process.
StagingOwner getStagingOwner();

/// ".qvannot-HOST-BOOT-PROCESS-START-NUMBER": the name of an owner's folder, of which it may have several.
std::string makeStagingName(StagingOwner const& owner, std::uint64_t number);

/// The owner that a folder's name tells; nothing for any other name.
std::optional<StagingOwner> parseStagingName(std::string_view name);

/// What this process can say of an owner.
enum class OwnerState : std::uint8_t {
  Alive,    ///< it runs on this host
  Dead,     ///< the host was started anew, or the process is not there any more
  Unknown,  ///< of another host
};
OwnerState findOwnerState(StagingOwner const& owner);

}  // namespace qvToolkit
