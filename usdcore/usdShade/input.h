#pragma once

#include "usdcore/pxr.h"
#include "usdcore/sdf/path.h"
#include "usdcore/sdf/valueTypeName.h"
#include "usdcore/tf/token.h"
#include "usdcore/usd/attribute.h"
#include "usdcore/usd/prim.h"
#include "usdcore/usd/timeCode.h"
#include "usdcore/usdShade/types.h"
#include "usdcore/vt/value.h"

#include <string>
#include <vector>

PXR_NAMESPACE_OPEN_SCOPE

class UsdShadeConnectableAPI;

/// A shading input: an attribute in the "inputs:" namespace of a shader,
/// node graph or material, holding a value or connected to another
/// input or output.
class UsdShadeInput
{
public:
    UsdShadeInput() = default;
    /// Wraps \p attr whatever its name; IsDefined tells whether it is one.
    explicit UsdShadeInput(const UsdAttribute& attr) : _attr(attr) {}

    /// "inputs:diffuseColor".
    const TfToken& GetFullName() const { return _attr.GetName(); }
    /// "diffuseColor": the full name without "inputs:".
    TfToken GetBaseName() const;
    UsdPrim GetPrim() const { return _attr.GetPrim(); }
    SdfValueTypeName GetTypeName() const { return _attr.GetTypeName(); }

    bool Get(VtValue* value, UsdTimeCode time = UsdTimeCode::Default()) const;
    template <class T>
    bool Get(T* value, UsdTimeCode time = UsdTimeCode::Default()) const
    {
        return _attr && _attr.Get(value, time);
    }

    const UsdAttribute& GetAttr() const { return _attr; }
    /// So that an input passes wherever an attribute is expected.
    operator const UsdAttribute&() const { return _attr; }

    /// A defined attribute in the "inputs:" namespace.
    static bool IsInput(const UsdAttribute& attr);
    /// True for names in the "inputs:" namespace.
    static bool IsInterfaceInputName(const std::string& name);

    /// See UsdShadeConnectableAPI::GetConnectedSource.
    bool GetConnectedSource(UsdShadeConnectableAPI* source, TfToken* sourceName,
                            UsdShadeAttributeType* sourceType) const;
    /// See UsdShadeConnectableAPI::GetRawConnectedSourcePaths.
    bool GetRawConnectedSourcePaths(SdfPathVector* sourcePaths) const;
    bool HasConnectedSource() const;

    bool IsDefined() const { return IsInput(_attr); }
    explicit operator bool() const { return IsDefined(); }

    bool operator==(const UsdShadeInput& o) const { return _attr == o._attr; }
    bool operator!=(const UsdShadeInput& o) const { return !(*this == o); }

private:
    UsdAttribute _attr;
};

PXR_NAMESPACE_CLOSE_SCOPE
