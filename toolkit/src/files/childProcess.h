#pragma once

#include <cstdint>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

namespace qvToolkit {

/// A program to run: found in the PATH, started without a shell.
struct ChildCommand {
  static constexpr std::uint64_t Unlimited = std::numeric_limits<std::uint64_t>::max();

  std::vector<std::string> m_words;        ///< program and arguments
  std::vector<std::string> m_environment;  ///< "NAME=VALUE", instead of or beside what this process has
  std::uint64_t m_maxMemory = Unlimited;   ///< bytes that it may allocate
};

/// What a program left.
struct ChildRun {
  std::string m_output;
  std::string m_errors;
  int m_exitCode = 0;  ///< valid when neither of the others is set
  int m_signal = 0;    ///< the signal that ended it
  int m_problem = 0;   ///< the system's error number when it could not be started; ENOENT: there is none
};

/// Runs the program to its end with `input` as its standard input. Input and outputs lie in memory, so that
/// neither side ever waits for the other. Throws `std::bad_alloc` only.
ChildRun runChild(ChildCommand const& command, std::string_view input);

}  // namespace qvToolkit
