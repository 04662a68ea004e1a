#include "qvSystem/qvFileStream.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <memory>
#include <system_error>

namespace qv {

namespace {

constexpr std::size_t chunkSize = 65536;

struct CloseFile {
  void operator()(std::FILE* file) const noexcept { std::fclose(file); }
};

std::string describeError(int number) {
  return std::generic_category().message(number);
}

/// Appends the file's bytes up to its end, but stops once there are more than `maxBytes`.
std::string appendAll(std::FILE* file, std::uint64_t maxBytes, std::vector<std::byte>& content) {
  for (;;) {
    auto const before = content.size();
    content.resize(before + chunkSize);
    auto const delivered = std::fread(content.data() + before, 1, chunkSize, file);
    content.resize(before + delivered);
    if (content.size() > maxBytes) return "larger than " + std::to_string(maxBytes) + " bytes";
    if (delivered < chunkSize) return std::ferror(file) != 0 ? describeError(errno) : std::string();
  }
}

}  // namespace

std::string ReadWholeFile(std::string const& path, std::uint64_t maxBytes, std::vector<std::byte>& content) {
  content.clear();
  std::unique_ptr<std::FILE, CloseFile> const file(std::fopen(path.c_str(), "rbe"));
  if (file == nullptr) return describeError(errno);
  std::string problem = appendAll(file.get(), maxBytes, content);
  if (!problem.empty()) content.clear();
  return problem;
}

qvFileStream::qvFileStream(std::string const& path, std::uint32_t version, std::uint64_t maxBytes)
    : qvMemoryStream({}, version), m_problem(ReadWholeFile(path, maxBytes, m_content)) {
  SetBytes(m_content);
  if (!m_problem.empty()) setStreamError();
}

qvFileStream::~qvFileStream() = default;

}  // namespace qv
