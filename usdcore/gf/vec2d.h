#pragma once

#include "usdcore/gf/vec.h"

PXR_NAMESPACE_OPEN_SCOPE

using GfVec2d = Gf_Vec<double, 2>;

PXR_NAMESPACE_CLOSE_SCOPE
