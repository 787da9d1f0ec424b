#pragma once

#include "usdcore/pxr.h"
#include "usdcore/sdf/path.h"
#include "usdcore/tf/token.h"
#include "usdcore/usd/attribute.h"
#include "usdcore/usd/prim.h"
#include "usdcore/usd/typed.h"
#include "usdcore/usdShade/connectableAPI.h"
#include "usdcore/usdShade/input.h"
#include "usdcore/usdShade/output.h"

#include <vector>

PXR_NAMESPACE_OPEN_SCOPE

/// One node of a shading network: an identifier ("UsdPreviewSurface"),
/// inputs with values or connections, and outputs. True for prims of type
/// "Shader" and of types derived from it.
class UsdShadeShader : public UsdTyped
{
public:
    explicit UsdShadeShader(const UsdPrim& prim = UsdPrim()) : UsdTyped(prim) {}
    explicit UsdShadeShader(const UsdSchemaBase& schemaObj) : UsdTyped(schemaObj) {}
    /// The shader of a connectable view (valid when its prim is one).
    UsdShadeShader(const UsdShadeConnectableAPI& connectable) : UsdTyped(connectable.GetPrim()) {}

    static UsdShadeShader Get(const UsdStagePtr& stage, const SdfPath& path)
    {
        return UsdShadeShader(Usd_SchemaGetPrim(stage, path));
    }
    static const TfToken& _GetStaticTypeName();

    UsdShadeConnectableAPI ConnectableAPI() const { return UsdShadeConnectableAPI(GetPrim()); }
    operator UsdShadeConnectableAPI() const { return ConnectableAPI(); }

    /// "info:implementationSource": "id" (the fallback), "sourceAsset" or
    /// "sourceCode".
    UsdAttribute GetImplementationSourceAttr() const;
    TfToken GetImplementationSource() const;
    /// "info:id", the shader's identifier.
    UsdAttribute GetIdAttr() const;
    /// The identifier, when the implementation source is "id" and one is
    /// authored.
    bool GetShaderId(TfToken* id) const;

    UsdShadeOutput GetOutput(const TfToken& name) const { return ConnectableAPI().GetOutput(name); }
    std::vector<UsdShadeOutput> GetOutputs(bool onlyAuthored = true) const
    {
        return ConnectableAPI().GetOutputs(onlyAuthored);
    }
    UsdShadeInput GetInput(const TfToken& name) const { return ConnectableAPI().GetInput(name); }
    /// The inputs in the prim's property order: dictionary order of the
    /// names, so "clearcoatRoughness" comes before "roughness".
    std::vector<UsdShadeInput> GetInputs(bool onlyAuthored = true) const
    {
        return ConnectableAPI().GetInputs(onlyAuthored);
    }

protected:
    const TfToken& _GetSchemaTypeName() const override { return _GetStaticTypeName(); }
};

PXR_NAMESPACE_CLOSE_SCOPE
