#pragma once

#include <string_view>

#include "reporter.h"
#include "spool.h"

namespace qvannot {

/// Joins {"files": [...]} of single documents, each made by a worker of its own, into one.
class JsonList {
 public:
  explicit JsonList(Reporter& reporter) : m_reporter(reporter) {}

  /// False when that is no such list of one entry; nothing of it is taken then.
  [[nodiscard]] bool add(std::string_view list);
  [[nodiscard]] bool add(Spool const& list);
  /// Prints the end; to be called once.
  void finish();

 private:
  void beginEntry();

  Reporter& m_reporter;
  bool m_isEmpty = true;
};

}  // namespace qvannot
