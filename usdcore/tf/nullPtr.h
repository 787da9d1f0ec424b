#pragma once

#include "usdcore/pxr.h"

PXR_NAMESPACE_OPEN_SCOPE

struct TfNullPtrType {};
/// Converts to an empty TfRefPtr or TfWeakPtr of any type.
constexpr TfNullPtrType TfNullPtr{};

PXR_NAMESPACE_CLOSE_SCOPE
