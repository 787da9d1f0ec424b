#pragma once

#include "usdcore/pxr.h"
#include "usdcore/sdf/data.h"

#include <string>

PXR_NAMESPACE_OPEN_SCOPE

/// True when \p a and \p b hold the same specs with the same types and the
/// same fields, values compared with their own operator== (so doubles
/// exactly); field order does not matter. Otherwise \p difference, if
/// given, names the first difference in path order, e.g.
/// "</World.size> field 'default': 2 vs 3".
bool SdfDataEqual(const SdfData& a, const SdfData& b, std::string* difference = nullptr);

PXR_NAMESPACE_CLOSE_SCOPE
