#include "qvToolkit/images/rasterFolder.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <charconv>
#include <system_error>
#include <utility>

#include "files/fileDescriptor.h"
#include "files/openBeneath.h"
#include "files/wholeIo.h"

namespace qvToolkit {

namespace {

constexpr std::array<char const*, 6> Extensions = {"", ".png", ".jpg", ".jpeg", ".gif", ".webp"};

/// In front of the number of an image in what the callback delivers. No image format begins so.
constexpr std::string_view TokenPrefix("\0raster ", 8);

std::string describeError(int error) {
  return std::generic_category().message(error);
}

bool hasParentPart(std::string_view name) {
  while (true) {
    std::size_t const slash = name.find('/');
    if (name.substr(0, slash) == "..") return true;
    if (slash == std::string_view::npos) return false;
    name.remove_prefix(slash + 1);
  }
}

/// Why the name may not be used as a path below the folder; empty when it may.
std::string_view findNameProblem(std::string const& name) {
  if (name.empty()) return "the raster has no name";
  if (name.size() > RasterFolder::MaxNameBytes) return "the name is longer than 4096 bytes";
  if (name.find('\0') != std::string::npos) return "the name holds a zero character";
  if (name.front() == '/') return "the name is an absolute path";
  if (hasParentPart(name)) return "the name leaves the folder";
  return {};
}

int openWithExtension(int folder, std::string const& name) {
  for (char const* extension : Extensions) {
    int const file = openBeneath(folder, name + extension);
    if (file >= 0 || errno != ENOENT) return file;
  }
  return -1;
}

/// Reads at most `limit` bytes; false with errno set on an error.
bool readAll(int file, std::string& bytes, std::uint64_t limit) {
  bool const isRead = readPieces(file, [&](std::string_view piece) {
    bytes += piece;
    return bytes.size() <= limit;
  });
  if (!isRead || bytes.size() <= limit) return isRead;
  errno = EFBIG;
  return false;
}

}  // namespace

RasterFolder::RasterFolder(std::string const& folder, std::uint64_t maxFileBytes)
    : m_maxFileBytes(maxFileBytes) {
  if (folder.empty()) return;
  m_folder = open(folder.c_str(), O_RDONLY | O_CLOEXEC | O_DIRECTORY);
  if (m_folder < 0) m_folderProblem = describeError(errno);
}

RasterFolder::~RasterFolder() {
  if (m_folder >= 0) close(m_folder);
}

bool RasterFolder::deliver(std::string const& name, std::string& data, void* folder) noexcept {
  auto& self = *static_cast<RasterFolder*>(folder);
  try {
    return self.fetch(name, data);
  } catch (...) {
    self.m_error = std::current_exception();
    return false;
  }
}

void RasterFolder::rethrowError() {
  if (m_error) std::rethrow_exception(std::exchange(m_error, nullptr));
}

std::string_view RasterFolder::resolve(std::string_view data) const {
  if (!data.starts_with(TokenPrefix)) return data;
  std::size_t image = 0;
  char const* const end = data.data() + data.size();
  auto const result = std::from_chars(data.data() + TokenPrefix.size(), end, image);
  bool const isToken = result.ec == std::errc() && result.ptr == end && image < m_images.size();
  return isToken ? std::string_view(m_images[image]) : data;
}

bool RasterFolder::isTooLarge(std::string const& name) const {
  auto const entry = m_entries.find(name);
  return entry != m_entries.end() && entry->second.m_isTooLarge;
}

std::string const* RasterFolder::findProblem(std::string const& name) const {
  auto const entry = m_entries.find(name);
  return entry == m_entries.end() || entry->second.m_problem.empty() ? nullptr : &entry->second.m_problem;
}

bool RasterFolder::fetch(std::string const& name, std::string& data) {
  auto entry = m_entries.find(name);
  if (entry == m_entries.end()) entry = m_entries.emplace(name, look(name)).first;
  if (!entry->second.m_problem.empty()) return false;
  data = TokenPrefix;
  data += std::to_string(entry->second.m_image);
  return true;
}

RasterFolder::Entry RasterFolder::look(std::string const& name) {
  if (m_folder < 0) return {0, "no folder of images was given"};
  if (std::string_view const problem = findNameProblem(name); !problem.empty())
    return {0, std::string(problem)};
  FileDescriptor const file(openWithExtension(m_folder, name));
  if (file.isOpen()) return read(file.get());
  return {0, errno == ELOOP ? "a symbolic link is not followed" : describeError(errno)};
}

RasterFolder::Entry RasterFolder::read(int file) {
  struct stat status {};
  if (fstat(file, &status) != 0) return {0, describeError(errno)};
  if (!S_ISREG(status.st_mode)) return {0, "it is no regular file"};
  std::string bytes;
  bool const isTooLarge = static_cast<std::uint64_t>(status.st_size) > m_maxFileBytes;
  if (isTooLarge || !readAll(file, bytes, m_maxFileBytes)) {
    if (isTooLarge || errno == EFBIG)
      return {0, "it is larger than the limit of " + std::to_string(m_maxFileBytes) + " bytes", true};
    return {0, describeError(errno)};
  }
  if (m_totalBytes + bytes.size() > MaxTotalBytes) {
    return {0, "the images of one document may have 512 MiB together"};
  }
  m_totalBytes += bytes.size();
  m_images.push_back(std::move(bytes));
  return {m_images.size() - 1, {}};
}

}  // namespace qvToolkit
