#pragma once

#include "qvToolkit/outcome/request.h"
#include "qvToolkit/work/session.h"
#include "qvToolkit/work/steps.h"
#include "work/taskOrder.h"

namespace qvToolkit {

/// Does what is asked with the input of a task, and leaves the answer in its file. False when the file takes
/// no more.
[[nodiscard]] bool workOnTask(Session& session, Request const& request, TaskOrder const& order,
                              MemoryHooks const& hooks);

/// Whether the action lays out text, for which it takes fonts.
bool drawsText(Action action);

}  // namespace qvToolkit
