#pragma once

#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "files/fileDescriptor.h"

namespace qvToolkit {

/// What a frame is.
enum class FrameKind : std::uint32_t {
  Request = 1,  ///< to the worker program: what is to be done with each input, once and first
  Ready = 2,    ///< from it: inputs may come
  Refused = 3,  ///< from it: why it cannot do what is asked; a finding
  Task = 4,     ///< to it: one input, with its files
  Ended = 5,    ///< from it: how the process of a task ended
  Text = 6,     ///< in an answer: a piece of what the action prints
  Outcome = 7,  ///< in an answer, as its end: what became of the input
  Warm = 8,     ///< to the worker program: look for fonts now, since several inputs will want them
};

/// The least that passes between processes: a kind, bytes, and open files beside them. On the wire three
/// 32-bit numbers stand in front of the bytes, little-endian: kind, number of files, number of bytes.
struct Frame {
  FrameKind m_kind = FrameKind::Request;
  std::string m_bytes;
  std::vector<FileDescriptor> m_files;
};

/// A frame's bytes may not be more than that: 1 GiB.
constexpr std::uint32_t MaxFrameBytes = std::uint32_t{1} << 30;
/// Nor may its files.
constexpr std::size_t MaxFrameFiles = 8;
constexpr std::size_t FrameHeadBytes = 12;

/// What stands in front of a frame's bytes.
struct FrameHead {
  std::uint32_t m_kind = 0;
  std::uint32_t m_files = 0;
  std::uint32_t m_bytes = 0;
};
std::string formatFrameHead(FrameHead const& head);
/// Of at least `FrameHeadBytes` bytes.
FrameHead parseFrameHead(std::string_view bytes);

/// Sends a frame with duplicates of the files over a connected local socket. False with errno set when the
/// other side is gone, or the system refuses.
[[nodiscard]] bool sendFrame(int channel, FrameKind kind, std::string_view bytes,
                             std::vector<int> const& files = {});

/// Puts frames together from what comes in pieces.
class FrameReader {
 public:
  /// Takes what has come, without waiting when nothing has. False when the other side is gone, or when what
  /// it sends is no frame; complete frames before that may be taken still.
  [[nodiscard]] bool receive(int channel);
  /// The next frame that is complete.
  std::optional<Frame> take();
  /// What waits is frames, each with its files, of which the last one may be on its way.
  bool isSound() const;

 private:
  std::string m_bytes;
  std::deque<FileDescriptor> m_files;
};

}  // namespace qvToolkit
