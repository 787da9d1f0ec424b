#pragma once

#include "usdcore/gf/quat.h"

PXR_NAMESPACE_OPEN_SCOPE

using GfQuatf = Gf_Quat<float>;

PXR_NAMESPACE_CLOSE_SCOPE
