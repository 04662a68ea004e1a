#include "files/inputFingerprint.h"

#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <string_view>

#include "files/wholeIo.h"
#include "text/sha256.h"

namespace qvToolkit {

std::optional<InputFingerprint> takeFingerprint(int file, std::uint64_t maxBytes) {
  struct stat status {};
  if (::fstat(file, &status) != 0 || !S_ISREG(status.st_mode)) return std::nullopt;
  InputFingerprint print;
  Sha256 hash;
  std::array<char, 65536> piece;
  for (;;) {
    auto const place = static_cast<off_t>(print.m_size);
    ssize_t const count = repeatInterrupted([&] { return ::pread(file, piece.data(), piece.size(), place); });
    if (count < 0 || print.m_size > maxBytes) return std::nullopt;
    if (count == 0) break;
    hash.add(std::string_view(piece.data(), static_cast<std::size_t>(count)));
    print.m_size += static_cast<std::uint64_t>(count);
  }
  print.m_sha256 = hash.takeText();
  return print;
}

}  // namespace qvToolkit
