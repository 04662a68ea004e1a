#pragma once

#include <string>
#include <vector>

#include "qvSystem/qvLog.h"

namespace qvTest {

/// Keeps every record that is written to it.
class RecordingLog : public qv::qvLog {
 public:
  struct Record {
    LogEntry entry;
    bool flush;
  };

  void Write(LogEntry& entry, bool flush) override { records.push_back({entry, flush}); }
  std::vector<std::string> texts() const {
    std::vector<std::string> result;
    for (Record const& record : records) result.push_back(record.entry.m_text);
    return result;
  }

  std::vector<Record> records;
};

}  // namespace qvTest
