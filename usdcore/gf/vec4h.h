#pragma once

#include "usdcore/gf/vec.h"

PXR_NAMESPACE_OPEN_SCOPE

using GfVec4h = Gf_Vec<GfHalf, 4>;

PXR_NAMESPACE_CLOSE_SCOPE
