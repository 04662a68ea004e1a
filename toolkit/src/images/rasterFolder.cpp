#include "qvToolkit/images/rasterFolder.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <memory>
#include <string_view>
#include <system_error>
#include <utility>

#include "files/fileDescriptor.h"
#include "files/openBeneath.h"
#include "files/wholeIo.h"

namespace qvToolkit {

namespace {

constexpr std::array<char const*, 6> Extensions = {"", ".png", ".jpg", ".jpeg", ".gif", ".webp"};

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

Raster refuse(std::string problem) {
  return {nullptr, std::move(problem)};
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

Raster RasterFolder::find(std::string const& name) const {
  if (m_folder < 0) return refuse("no folder of images was given");
  if (std::string_view const problem = findNameProblem(name); !problem.empty())
    return refuse(std::string(problem));
  FileDescriptor const file(openWithExtension(m_folder, name));
  if (file.isOpen()) return read(file.get());
  return refuse(errno == ELOOP ? "a symbolic link is not followed" : describeError(errno));
}

Raster RasterFolder::read(int file) const {
  struct stat status {};
  if (fstat(file, &status) != 0) return refuse(describeError(errno));
  if (!S_ISREG(status.st_mode)) return refuse("it is no regular file");
  std::string bytes;
  bool const isTooLarge = static_cast<std::uint64_t>(status.st_size) > m_maxFileBytes;
  if (!isTooLarge && readAll(file, bytes, m_maxFileBytes))
    return {std::make_shared<Image const>(std::move(bytes)), {}};
  if (!isTooLarge && errno != EFBIG) return refuse(describeError(errno));
  return {nullptr, "it is larger than the limit of " + std::to_string(m_maxFileBytes) + " bytes", true};
}

}  // namespace qvToolkit
