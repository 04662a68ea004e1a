#pragma once

#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstddef>
#include <string_view>

namespace qvToolkit {

/// Makes a system call, and makes it anew as long as a signal interrupts it.
template <class Call>
auto repeatInterrupted(Call call) {
  auto result = call();
  while (result < 0 && errno == EINTR) result = call();
  return result;
}

/// Reads a file to its end, piece by piece: `take(std::string_view)` returns false to end there. False with
/// errno set when the system reports an error.
template <class Take>
[[nodiscard]] bool readPieces(int file, Take take) {
  std::array<char, 65536> piece;
  for (;;) {
    ssize_t const count = repeatInterrupted([&] { return ::read(file, piece.data(), piece.size()); });
    if (count <= 0) return count == 0;
    if (!take(std::string_view(piece.data(), static_cast<std::size_t>(count)))) return true;
  }
}

/// Writes all of the bytes, however few the system takes at once. False with errno set when it reports an
/// error.
[[nodiscard]] inline bool writeAll(int file, std::string_view bytes) {
  while (!bytes.empty()) {
    ssize_t const count = repeatInterrupted([&] { return ::write(file, bytes.data(), bytes.size()); });
    if (count < 0) return false;
    bytes.remove_prefix(static_cast<std::size_t>(count));
  }
  return true;
}

}  // namespace qvToolkit
