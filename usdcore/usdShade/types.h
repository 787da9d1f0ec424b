#pragma once

#include "usdcore/pxr.h"

PXR_NAMESPACE_OPEN_SCOPE

/// The kind of shading attribute a name denotes, from its namespace.
enum class UsdShadeAttributeType {
    Invalid,
    Input,
    Output,
};

PXR_NAMESPACE_CLOSE_SCOPE
