// The geometry library lives in its headers; this compiles every member once for both precisions.

#include "wm4/intrLine2Line2.h"
#include "wm4/line2.h"
#include "wm4/matrix3.h"
#include "wm4/matrix4.h"
#include "wm4/plane3.h"
#include "wm4/vector2.h"
#include "wm4/vector3.h"

namespace Wm4 {

template class __attribute__((visibility("default"))) Vector2<float>;
template class __attribute__((visibility("default"))) Vector2<double>;
template class __attribute__((visibility("default"))) Vector3<float>;
template class __attribute__((visibility("default"))) Vector3<double>;
template class __attribute__((visibility("default"))) Matrix3<float>;
template class __attribute__((visibility("default"))) Matrix3<double>;
template class __attribute__((visibility("default"))) Matrix4<float>;
template class __attribute__((visibility("default"))) Matrix4<double>;
template class __attribute__((visibility("default"))) Plane3<float>;
template class __attribute__((visibility("default"))) Plane3<double>;
template class __attribute__((visibility("default"))) Line2<float>;
template class __attribute__((visibility("default"))) Line2<double>;
template class __attribute__((visibility("default"))) IntrLine2Line2<float>;
template class __attribute__((visibility("default"))) IntrLine2Line2<double>;

}  // namespace Wm4
