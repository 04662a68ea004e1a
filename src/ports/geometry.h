#pragma once

/// Where the platform keeps the vectors, matrices and lines of its geometry library.

#include <wm4/intrLine2Line2.h>
#include <wm4/line2.h>
#include <wm4/math.h>
#include <wm4/matrix3.h>
#include <wm4/vector2.h>
#include <wm4/vector3.h>
