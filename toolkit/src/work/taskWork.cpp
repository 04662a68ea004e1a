#include "work/taskWork.h"

#include "qvToolkit/json/jsonWriter.h"
#include "qvToolkit/outcome/outcomeJson.h"
#include "work/taskResults.h"

namespace qvToolkit {

bool workOnTask(Session& session, Request const& request, TaskOrder const& order, MemoryHooks const& hooks) {
  TaskResults results(order.m_answer, order.m_staging, order.m_place);
  Outcome const outcome = performRequest(session, request, order.m_task, results, hooks);
  JsonWriter json;
  writeOutcome(json, outcome);
  return results.getAnswer().conclude(json.takeText());
}

bool drawsText(Action action) {
  return action == Action::Migrate || action == Action::Fonts;
}

}  // namespace qvToolkit
