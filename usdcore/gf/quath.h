#pragma once

#include "usdcore/gf/quat.h"

PXR_NAMESPACE_OPEN_SCOPE

using GfQuath = Gf_Quat<GfHalf>;

PXR_NAMESPACE_CLOSE_SCOPE
