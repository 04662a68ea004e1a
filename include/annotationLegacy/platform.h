#pragma once

/// The one place where the library's public headers name headers of the platform. On another platform SDK
/// only this file and `src/ports/` change.

#include <qvSceneGraph/qvMetadataInterface.h>
#include <qvSceneGraph/qvObject.h>
#include <qvSceneGraph/qvPointer.h>
#include <qvSystem/qvLog.h>
#include <qvSystem/qvStreamVersion.h>
#include <qvSystem/qvVariant.h>
#include <wm4/math.h>
#include <wm4/matrix3.h>
#include <wm4/matrix4.h>
#include <wm4/plane3.h>
#include <wm4/vector2.h>
#include <wm4/vector3.h>

namespace qv {

class qvBaseStream;
class qvCadAnnotation;
class qvCadAnnotationView;
template <class Real>
class qvGenericTransformation;

namespace svg {
class BoundingBox;
class Node;
}  // namespace svg

namespace text {
class TextSegmentToSvgConverter;
}  // namespace text

}  // namespace qv
