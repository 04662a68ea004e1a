#pragma once

#include <poll.h>
#include <sys/socket.h>

#include <array>
#include <string_view>

#include "files/fileDescriptor.h"
#include "files/wholeIo.h"
#include "work/frame.h"

namespace qvTest {

/// Both ends of a connected local socket.
struct Channel {
  Channel() {
    std::array<int, 2> ends{-1, -1};
    if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()) != 0) return;
    m_near = qvToolkit::FileDescriptor(ends[0]);
    m_far = qvToolkit::FileDescriptor(ends[1]);
  }
  /// Sends bytes as they are.
  bool send(std::string_view bytes) const { return qvToolkit::writeAll(m_near.get(), bytes); }

  qvToolkit::FileDescriptor m_near;
  qvToolkit::FileDescriptor m_far;
};

/// Waits for the next frame; nothing when the other side is gone or sends no frame.
inline std::optional<qvToolkit::Frame> receiveFrame(qvToolkit::FrameReader& reader, int channel) {
  for (;;) {
    if (auto frame = reader.take()) return frame;
    pollfd event{channel, POLLIN, 0};
    poll(&event, 1, -1);
    if (!reader.receive(channel)) return reader.take();
  }
}

}  // namespace qvTest
