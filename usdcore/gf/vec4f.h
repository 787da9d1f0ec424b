#pragma once

#include "usdcore/gf/vec.h"

PXR_NAMESPACE_OPEN_SCOPE

using GfVec4f = Gf_Vec<float, 4>;

PXR_NAMESPACE_CLOSE_SCOPE
