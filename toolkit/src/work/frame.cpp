#include "work/frame.h"

#include <sys/socket.h>
#include <sys/uio.h>

#include <array>
#include <cerrno>
#include <cstring>

#include "files/wholeIo.h"

namespace qvToolkit {

namespace {

constexpr std::size_t NumberBytes = 4;

void appendNumber(std::string& bytes, std::uint32_t number) {
  for (std::size_t i = 0; i < NumberBytes; ++i) bytes += static_cast<char>(number >> (8 * i) & 0xFFU);
}

std::uint32_t readNumber(std::string_view bytes, std::size_t index) {
  std::uint32_t number = 0;
  for (std::size_t i = NumberBytes; i-- > 0;)
    number = number << 8 | static_cast<unsigned char>(bytes[index * NumberBytes + i]);
  return number;
}

/// Room for the files that travel beside the bytes.
union FilesBeside {
  cmsghdr m_aligned;
  std::array<char, CMSG_SPACE(MaxFrameFiles * sizeof(int))> m_bytes;
};

/// The first bytes take the files along.
ssize_t sendWithFiles(int channel, std::string_view bytes, std::vector<int> const& files) {
  FilesBeside beside{};
  iovec piece{const_cast<char*>(bytes.data()), bytes.size()};
  msghdr message{};
  message.msg_iov = &piece;
  message.msg_iovlen = 1;
  if (!files.empty()) {
    std::size_t const size = files.size() * sizeof(int);
    message.msg_control = beside.m_bytes.data();
    message.msg_controllen = CMSG_SPACE(size);
    cmsghdr* const head = CMSG_FIRSTHDR(&message);
    head->cmsg_level = SOL_SOCKET;
    head->cmsg_type = SCM_RIGHTS;
    head->cmsg_len = CMSG_LEN(size);
    std::memcpy(CMSG_DATA(head), files.data(), size);
  }
  return repeatInterrupted([&] { return sendmsg(channel, &message, MSG_NOSIGNAL); });
}

void takeFiles(msghdr& message, std::deque<FileDescriptor>& files) {
  for (cmsghdr* head = CMSG_FIRSTHDR(&message); head != nullptr; head = CMSG_NXTHDR(&message, head)) {
    if (head->cmsg_level != SOL_SOCKET || head->cmsg_type != SCM_RIGHTS) continue;
    std::size_t const count = (head->cmsg_len - CMSG_LEN(0)) / sizeof(int);
    for (std::size_t i = 0; i < count; ++i) {
      int file = -1;
      std::memcpy(&file, CMSG_DATA(head) + i * sizeof(int), sizeof file);
      files.emplace_back(file);
    }
  }
}

bool isFrame(FrameHead const& head) {
  return head.m_kind >= static_cast<std::uint32_t>(FrameKind::Request) &&
         head.m_kind <= static_cast<std::uint32_t>(FrameKind::Warm) && head.m_files <= MaxFrameFiles &&
         head.m_bytes <= MaxFrameBytes;
}

}  // namespace

std::string formatFrameHead(FrameHead const& head) {
  std::string bytes;
  for (std::uint32_t const number : {head.m_kind, head.m_files, head.m_bytes}) appendNumber(bytes, number);
  return bytes;
}

FrameHead parseFrameHead(std::string_view bytes) {
  return {readNumber(bytes, 0), readNumber(bytes, 1), readNumber(bytes, 2)};
}

bool sendFrame(int channel, FrameKind kind, std::string_view bytes, std::vector<int> const& files) {
  std::string frame =
      formatFrameHead({static_cast<std::uint32_t>(kind), static_cast<std::uint32_t>(files.size()),
                       static_cast<std::uint32_t>(bytes.size())});
  frame += bytes;
  std::string_view left = frame;
  ssize_t const first = sendWithFiles(channel, left, files);
  if (first < 0) return false;
  left.remove_prefix(static_cast<std::size_t>(first));
  while (!left.empty()) {
    ssize_t const count = sendWithFiles(channel, left, {});
    if (count < 0) return false;
    left.remove_prefix(static_cast<std::size_t>(count));
  }
  return true;
}

bool FrameReader::receive(int channel) {
  std::array<char, 65536> bytes;
  FilesBeside beside{};
  iovec piece{bytes.data(), bytes.size()};
  msghdr message{};
  message.msg_iov = &piece;
  message.msg_iovlen = 1;
  message.msg_control = beside.m_bytes.data();
  message.msg_controllen = beside.m_bytes.size();
  ssize_t const count =
      repeatInterrupted([&] { return recvmsg(channel, &message, MSG_DONTWAIT | MSG_CMSG_CLOEXEC); });
  if (count < 0) return errno == EAGAIN;
  takeFiles(message, m_files);
  m_bytes.append(bytes.data(), static_cast<std::size_t>(count));
  return count > 0 && isSound();
}

bool FrameReader::isSound() const {
  std::size_t files = 0;
  std::string_view left = m_bytes;
  while (left.size() >= FrameHeadBytes) {
    FrameHead const head = parseFrameHead(left);
    files += head.m_files;
    // Files come with the first bytes of their frame.
    if (!isFrame(head) || files > m_files.size()) return false;
    if (left.size() - FrameHeadBytes < head.m_bytes) return files == m_files.size();
    left.remove_prefix(FrameHeadBytes + head.m_bytes);
  }
  return !left.empty() || files == m_files.size();
}

std::optional<Frame> FrameReader::take() {
  if (m_bytes.size() < FrameHeadBytes) return std::nullopt;
  FrameHead const head = parseFrameHead(m_bytes);
  if (!isFrame(head) || m_bytes.size() - FrameHeadBytes < head.m_bytes || m_files.size() < head.m_files)
    return std::nullopt;
  Frame frame{static_cast<FrameKind>(head.m_kind), m_bytes.substr(FrameHeadBytes, head.m_bytes), {}};
  m_bytes.erase(0, FrameHeadBytes + head.m_bytes);
  for (std::uint32_t i = 0; i < head.m_files; ++i) {
    frame.m_files.push_back(std::move(m_files.front()));
    m_files.pop_front();
  }
  return frame;
}

}  // namespace qvToolkit
