#pragma once

#include "usdcore/gf/range3.h"
#include "usdcore/gf/vec3f.h"

PXR_NAMESPACE_OPEN_SCOPE

using GfRange3f = Gf_Range3<float>;

PXR_NAMESPACE_CLOSE_SCOPE
