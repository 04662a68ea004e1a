#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "qvSystem/export.h"
#include "qvSystem/qvMemoryStream.h"

namespace qv {

/// An object stream over a file. The whole file is read into memory at construction and never mapped: a file
/// that shrinks meanwhile must not harm the reader.
class QV_EXPORT qvFileStream : public qvMemoryStream {
 public:
  /// A file of more than `maxBytes` is not read. When the file cannot be read, the stream is empty and in
  /// error, and `GetProblem` tells why.
  qvFileStream(std::string const& path, std::uint32_t version, std::uint64_t maxBytes);
  ~qvFileStream() override;

  /// Why the file could not be read; empty when it was.
  std::string const& GetProblem() const noexcept { return m_problem; }

 private:
  std::vector<std::byte> m_content;
  std::string m_problem;
};

/// Reads a file (or pipe) to its end into `content`; returns why it cannot be done, or the empty string. A
/// file of more than `maxBytes` is a problem. `content` is empty then.
[[nodiscard]] QV_EXPORT std::string ReadWholeFile(std::string const& path, std::uint64_t maxBytes,
                                                  std::vector<std::byte>& content);

}  // namespace qv
