#pragma once

#include "usdcore/gf/quat.h"

PXR_NAMESPACE_OPEN_SCOPE

using GfQuatd = Gf_Quat<double>;

PXR_NAMESPACE_CLOSE_SCOPE
