#include "qvSceneGraph/qvObject.h"

namespace qv {

qvRtti const qvController::TYPE("qvCore.qvController", &qvObject::TYPE);

qvController::qvController() = default;

qvController::~qvController() = default;

qvRtti const& qvController::GetType() const {
  return TYPE;
}

}  // namespace qv
