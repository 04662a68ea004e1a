#pragma once

#include "qvSystem/export.h"

namespace qv {

/// Counted initialisation of the scene-graph library; the system library must be initialised.
QV_EXPORT void initializeQvSceneGraph();
QV_EXPORT void terminateQvSceneGraph();

}  // namespace qv
