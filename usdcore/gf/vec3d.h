#pragma once

#include "usdcore/gf/vec.h"

PXR_NAMESPACE_OPEN_SCOPE

using GfVec3d = Gf_Vec<double, 3>;

PXR_NAMESPACE_CLOSE_SCOPE
