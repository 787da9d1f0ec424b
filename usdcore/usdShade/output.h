#pragma once

#include "usdcore/pxr.h"
#include "usdcore/sdf/path.h"
#include "usdcore/sdf/valueTypeName.h"
#include "usdcore/tf/token.h"
#include "usdcore/usd/attribute.h"
#include "usdcore/usd/prim.h"
#include "usdcore/usdShade/types.h"

#include <vector>

PXR_NAMESPACE_OPEN_SCOPE

class UsdShadeConnectableAPI;

/// A shading output: an attribute in the "outputs:" namespace. A shader's
/// outputs are what inputs connect to; the outputs of a node graph or
/// material are in turn connected to outputs of the shaders inside it.
class UsdShadeOutput
{
public:
    UsdShadeOutput() = default;
    /// Wraps \p attr whatever its name; IsDefined tells whether it is one.
    explicit UsdShadeOutput(const UsdAttribute& attr) : _attr(attr) {}

    /// "outputs:surface".
    const TfToken& GetFullName() const { return _attr.GetName(); }
    /// "surface": the full name without "outputs:".
    TfToken GetBaseName() const;
    UsdPrim GetPrim() const { return _attr.GetPrim(); }
    SdfValueTypeName GetTypeName() const { return _attr.GetTypeName(); }

    const UsdAttribute& GetAttr() const { return _attr; }
    /// So that an output passes wherever an attribute is expected.
    operator const UsdAttribute&() const { return _attr; }

    /// A defined attribute in the "outputs:" namespace.
    static bool IsOutput(const UsdAttribute& attr);

    /// See UsdShadeConnectableAPI::GetConnectedSource.
    bool GetConnectedSource(UsdShadeConnectableAPI* source, TfToken* sourceName,
                            UsdShadeAttributeType* sourceType) const;
    /// See UsdShadeConnectableAPI::GetRawConnectedSourcePaths.
    bool GetRawConnectedSourcePaths(SdfPathVector* sourcePaths) const;
    bool HasConnectedSource() const;

    bool IsDefined() const { return IsOutput(_attr); }
    explicit operator bool() const { return IsDefined(); }

    bool operator==(const UsdShadeOutput& o) const { return _attr == o._attr; }
    bool operator!=(const UsdShadeOutput& o) const { return !(*this == o); }

private:
    UsdAttribute _attr;
};

PXR_NAMESPACE_CLOSE_SCOPE
