#pragma once

#include <unistd.h>

#include <utility>

namespace qvToolkit {

/// Owns an open file descriptor; -1 is none.
class FileDescriptor {
 public:
  FileDescriptor() = default;
  explicit FileDescriptor(int number) noexcept : m_number(number) {}
  FileDescriptor(FileDescriptor&& other) noexcept : m_number(std::exchange(other.m_number, -1)) {}
  FileDescriptor& operator=(FileDescriptor&& other) noexcept {
    std::swap(m_number, other.m_number);
    return *this;
  }
  ~FileDescriptor() { reset(); }

  int get() const noexcept { return m_number; }
  bool isOpen() const noexcept { return m_number >= 0; }
  /// Closes; false with errno set when the system reports a late write error.
  bool reset() noexcept { return m_number < 0 || ::close(std::exchange(m_number, -1)) == 0; }

 private:
  int m_number = -1;
};

}  // namespace qvToolkit
