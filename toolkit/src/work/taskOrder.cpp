#include "work/taskOrder.h"

#include <utility>

#include "qvToolkit/json/jsonWriter.h"
#include "work/frameFields.h"

namespace qvToolkit {

namespace {

constexpr std::size_t LeastFiles = 3;
constexpr std::size_t MostFiles = LeastFiles + 1;

}  // namespace

bool sendTask(int channel, TaskOrder const& order) {
  JsonWriter json;
  json.beginObject().member("task", order.m_number).bytes("givenPath", order.m_task.m_givenPath);
  json.bytes("path", order.m_task.m_path).bytes("stem", order.m_task.m_stem).bytes("place", order.m_place);
  json.endObject();
  std::vector<int> files{order.m_task.m_input, order.m_answer, order.m_errors};
  if (order.m_staging >= 0) files.push_back(order.m_staging);
  return sendFrame(channel, FrameKind::Task, json.takeText(), files);
}

std::optional<TaskOrder> takeTask(Frame frame) {
  if (frame.m_files.size() < LeastFiles || frame.m_files.size() > MostFiles) return std::nullopt;
  TaskOrder order;
  std::string problem;
  readFields(std::move(frame.m_bytes), problem, [&order](JsonFields& fields) {
    fields.read("task", order.m_number);
    fields.readBytes("givenPath", order.m_task.m_givenPath);
    fields.readBytes("path", order.m_task.m_path);
    fields.readBytes("stem", order.m_task.m_stem);
    fields.readBytes("place", order.m_place);
  });
  if (!problem.empty()) return std::nullopt;
  order.m_owned = std::move(frame.m_files);
  order.m_task.m_input = order.m_owned[0].get();
  order.m_answer = order.m_owned[1].get();
  order.m_errors = order.m_owned[2].get();
  if (order.m_owned.size() == MostFiles) order.m_staging = order.m_owned.back().get();
  return order;
}

}  // namespace qvToolkit
