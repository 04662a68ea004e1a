#pragma once

/// Where the platform declares what the library's life cycle calls.

#include <qvAnnotation/qvAnnotationLibrary.h>
#include <qvSceneGraph/qvSceneGraphLibrary.h>
#include <qvSystem/libInitCounter.h>
#include <qvSystem/qvSystemLibrary.h>

namespace qvLegacy::ports {

/// How much of the system library is asked for; the number is fixed, its name is not.
inline constexpr auto SYSTEM_INIT_TYPE = static_cast<qv::InitType>(2);

}  // namespace qvLegacy::ports
