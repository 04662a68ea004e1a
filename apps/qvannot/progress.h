#pragma once

#include <cstddef>
#include <string>

namespace qvannot {

/// Shows on a terminal which input is being worked on; elsewhere, and for a single input, nothing.
class Progress {
 public:
  explicit Progress(std::size_t total);
  ~Progress();
  Progress(Progress const&) = delete;
  Progress& operator=(Progress const&) = delete;
  void show(std::size_t index, std::string const& path) const;
  /// To be called before anything else is written.
  void clear() const;

 private:
  std::size_t m_total;
  bool m_isShown;
};

}  // namespace qvannot
