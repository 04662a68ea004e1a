#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "files/fileDescriptor.h"
#include "qvToolkit/work/task.h"
#include "work/frame.h"

namespace qvToolkit {

/// A task as it goes from a client to the worker program: what is to be known of the input, and open files,
/// -1 where there is none.
struct TaskOrder {
  std::uint64_t m_number = 0;           ///< by which its end is told
  Task m_task;                          ///< its input is the first of the files
  std::string m_place;                  ///< where messages say that its files are written
  int m_answer = -1;                    ///< takes what it prints and what became of it
  int m_errors = -1;                    ///< takes what libraries print
  int m_staging = -1;                   ///< a folder for its files; none where it makes no file
  std::vector<FileDescriptor> m_owned;  ///< the files, on the side that has received them
};

/// Sends it; the files stay open on this side. False with errno set when the other side is gone.
[[nodiscard]] bool sendTask(int channel, TaskOrder const& order);
/// The task of a frame; nothing when the frame is no proper one.
std::optional<TaskOrder> takeTask(Frame frame);

}  // namespace qvToolkit
