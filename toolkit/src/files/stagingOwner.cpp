#include "files/stagingOwner.h"

#include <unistd.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <fstream>
#include <iterator>
#include <sstream>
#include <vector>

namespace qvToolkit {

namespace {

constexpr std::string_view Prefix = ".qvannot";
constexpr std::size_t MaxHostBytes = 64;
constexpr std::size_t BootDigits = 16;

bool isPlain(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '.' || c == '_';
}

std::string getHost() {
  std::array<char, 256> name{};
  if (gethostname(name.data(), name.size() - 1) != 0) return "_";
  std::string host = std::string(name.data()).substr(0, MaxHostBytes);
  std::ranges::replace_if(
      host, [](char c) { return !isPlain(c); }, '_');
  return host.empty() ? "_" : host;
}

std::string getBoot() {
  std::string text;
  std::ifstream("/proc/sys/kernel/random/boot_id") >> text;
  std::erase(text, '-');
  text.resize(BootDigits, '0');
  return text;
}

/// 0 where there is no such process, or the system does not tell. One that has ended is none, though nobody
/// may have waited for it.
std::uint64_t getStart(int process) {
  std::ifstream file("/proc/" + std::to_string(process) + "/stat");
  std::string const text{std::istreambuf_iterator<char>(file), {}};
  // The program's name stands in brackets, and may hold anything.
  std::size_t const name = text.rfind(')');
  if (name == std::string::npos) return 0;
  std::istringstream fields(text.substr(name + 1));
  char state = 0;
  fields >> state;
  if (state == 'Z' || state == 'X') return 0;
  constexpr int FieldsBetween = 18;
  std::string skipped;
  for (int i = 0; i < FieldsBetween; ++i) fields >> skipped;
  std::uint64_t start = 0;
  fields >> start;
  return start;
}

std::vector<std::string_view> split(std::string_view text) {
  std::vector<std::string_view> parts;
  for (std::size_t begin = 0; begin <= text.size();) {
    std::size_t const end = std::min(text.find('-', begin), text.size());
    parts.push_back(text.substr(begin, end - begin));
    begin = end + 1;
  }
  return parts;
}

template <class Number>
bool readNumber(std::string_view text, Number& number) {
  auto const end = text.data() + text.size();
  auto const read = std::from_chars(text.data(), end, number);
  return read.ec == std::errc() && read.ptr == end;
}

}  // namespace

StagingOwner getStagingOwner() {
  return {getHost(), getBoot(), getpid(), getStart(getpid())};
}

std::string makeStagingName(StagingOwner const& owner, std::uint64_t number) {
  std::string name(Prefix);
  for (std::string const& part : {owner.m_host, owner.m_boot, std::to_string(owner.m_process),
                                  std::to_string(owner.m_start), std::to_string(number)})
    name += '-' + part;
  return name;
}

std::optional<StagingOwner> parseStagingName(std::string_view name) {
  constexpr std::size_t Parts = 6;
  auto const parts = split(name);
  if (parts.size() != Parts || parts[0] != Prefix) return std::nullopt;
  StagingOwner owner{std::string(parts[1]), std::string(parts[2]), 0, 0};
  std::uint64_t number = 0;
  bool const isName = readNumber(parts[3], owner.m_process) && readNumber(parts[4], owner.m_start) &&
                      readNumber(parts[5], number);
  return isName ? std::optional(owner) : std::nullopt;
}

OwnerState findOwnerState(StagingOwner const& owner) {
  if (owner.m_host != getHost()) return OwnerState::Unknown;
  bool const isRunning =
      owner.m_boot == getBoot() && owner.m_start != 0 && getStart(owner.m_process) == owner.m_start;
  return isRunning ? OwnerState::Alive : OwnerState::Dead;
}

}  // namespace qvToolkit
