// The only place where the transformation is compiled, for both precisions.

#include "transform/qvGenericTransformation.h"

#include "transform/application.h"
#include "transform/composition.h"
#include "transform/homogeneous.h"
#include "transform/state.h"

namespace qv {

template class qvGenericTransformation<float>;
template class qvGenericTransformation<double>;

}  // namespace qv
