#pragma once

#include "usdcore/gf/vec.h"

PXR_NAMESPACE_OPEN_SCOPE

using GfVec3i = Gf_Vec<int, 3>;

PXR_NAMESPACE_CLOSE_SCOPE
