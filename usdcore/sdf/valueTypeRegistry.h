#pragma once

// The table behind SdfValueTypeName. Internal to sdf/.

#include "usdcore/pxr.h"
#include "usdcore/sdf/valueTypeName.h"

#include <vector>

PXR_NAMESPACE_OPEN_SCOPE

class Sdf_ValueTypeRegistry
{
public:
    static SdfValueTypeName FindByName(const TfToken& name);
    static SdfValueTypeName FindByValue(const VtValue& value, const TfToken& role);
    static std::vector<SdfValueTypeName> GetAll();
};

PXR_NAMESPACE_CLOSE_SCOPE
