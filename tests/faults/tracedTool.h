#pragma once

#include <cstdint>
#include <ostream>
#include <string>
#include <vector>

namespace qvFaults {

/// What happens to the tool at one of its system calls that leave something behind: writing, synchronising,
/// creating, naming and removing files.
struct SystemCallFault {
  enum class Kind : std::uint8_t {
    None,
    Kill,    ///< the process that makes the call is killed in front of it
    Error,   ///< the call fails with the error number
    Short,   ///< a write takes only half of its bytes
    Signal,  ///< the tool gets the signal in front of the call
  };

  Kind m_kind = Kind::None;
  int m_number = 0;        ///< error number or signal
  std::uint32_t m_at = 0;  ///< calls of all processes of the tool before it
};

inline void PrintTo(SystemCallFault const& fault, std::ostream* out) {
  *out << "fault " << static_cast<int>(fault.m_kind) << ", " << fault.m_number;
}

/// What one run of the tool left.
struct TracedRun {
  int m_exitCode = -1;         ///< -1 when a signal ended the tool
  int m_signal = 0;            ///< that ended the tool itself
  std::uint32_t m_calls = 0;   ///< that could have been hit
  std::uint32_t m_killed = 0;  ///< processes that the fault killed
  std::string m_output;
  std::string m_errors;

  bool wasHit(SystemCallFault const& fault) const { return m_calls > fault.m_at; }
};

/// Runs the tool in the folder, with the fault. Its temporary folder is "tmp" there, standard output and
/// error go to files beside it. The tool and each process that it starts are traced, so that no call is
/// missed, the standard library's own included.
TracedRun runTraced(std::vector<std::string> const& arguments, std::string const& folder,
                    SystemCallFault const& fault = {});

/// How often the tool and each process that it starts make one system call, whatever becomes of it.
std::uint32_t countCalls(long number, std::vector<std::string> const& arguments, std::string const& folder);

}  // namespace qvFaults
