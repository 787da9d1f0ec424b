#pragma once

#include "usdcore/gf/range3.h"
#include "usdcore/gf/vec3d.h"

PXR_NAMESPACE_OPEN_SCOPE

using GfRange3d = Gf_Range3<double>;

PXR_NAMESPACE_CLOSE_SCOPE
