#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>

#include "qvToolkit/files/outputSink.h"

namespace qvTest {

/// Keeps what is written; fails after `limit` calls.
class StringSink : public qvToolkit::OutputSink {
 public:
  explicit StringSink(std::size_t limit = static_cast<std::size_t>(-1)) : m_limit(limit) {}
  bool write(std::string_view bytes) override {
    ++m_calls;
    if (m_calls > m_limit) return false;
    m_text += bytes;
    m_longest = std::max(m_longest, bytes.size());
    return true;
  }
  std::string m_text;
  std::size_t m_calls = 0;
  std::size_t m_longest = 0;

 private:
  std::size_t m_limit;
};

}  // namespace qvTest
