#pragma once

#include "usdcore/pxr.h"
#include "usdcore/sdf/path.h"
#include "usdcore/tf/token.h"
#include "usdcore/usd/apiSchemaBase.h"
#include "usdcore/usd/attribute.h"
#include "usdcore/usd/prim.h"
#include "usdcore/usdShade/input.h"
#include "usdcore/usdShade/output.h"
#include "usdcore/usdShade/types.h"

#include <vector>

PXR_NAMESPACE_OPEN_SCOPE

/// The inputs, outputs and connections of a shading prim. The view is true
/// for shaders and node graphs (materials included), but its queries work
/// on any prim.
class UsdShadeConnectableAPI : public UsdAPISchemaBase
{
public:
    explicit UsdShadeConnectableAPI(const UsdPrim& prim = UsdPrim()) : UsdAPISchemaBase(prim) {}
    explicit UsdShadeConnectableAPI(const UsdSchemaBase& schemaObj) : UsdAPISchemaBase(schemaObj) {}

    static UsdShadeConnectableAPI Get(const UsdStagePtr& stage, const SdfPath& path);

    bool IsShader() const;
    bool IsNodeGraph() const;
    /// Node graphs (materials included) hold other shading prims.
    bool IsContainer() const { return IsNodeGraph(); }

    /// The source that \p shadingAttr is connected to. True only when the
    /// attribute has exactly one connection and it names an attribute that
    /// exists on the stage: then \p source is a view of that attribute's prim
    /// (whether or not the prim is a shading prim), and \p sourceName and
    /// \p sourceType are its base name and kind ("rgb", Output for
    /// "outputs:rgb"; a name in neither namespace comes back whole, with
    /// Invalid). False for no connection, several connections, or a
    /// connection to a prim or to an attribute that does not exist; \p source
    /// is then invalid unless the single connection's prim exists.
    static bool GetConnectedSource(const UsdAttribute& shadingAttr, UsdShadeConnectableAPI* source,
                                   TfToken* sourceName, UsdShadeAttributeType* sourceType);
    static bool GetConnectedSource(const UsdShadeInput& input, UsdShadeConnectableAPI* source,
                                   TfToken* sourceName, UsdShadeAttributeType* sourceType)
    {
        return GetConnectedSource(input.GetAttr(), source, sourceName, sourceType);
    }
    static bool GetConnectedSource(const UsdShadeOutput& output, UsdShadeConnectableAPI* source,
                                   TfToken* sourceName, UsdShadeAttributeType* sourceType)
    {
        return GetConnectedSource(output.GetAttr(), source, sourceName, sourceType);
    }

    /// The connection paths as authored (composed and mapped to the stage),
    /// whether or not anything is there. True with no paths for an
    /// unconnected attribute; false for an invalid attribute, or when a
    /// path could not be mapped to the stage.
    static bool GetRawConnectedSourcePaths(const UsdAttribute& shadingAttr, SdfPathVector* sourcePaths);
    static bool GetRawConnectedSourcePaths(const UsdShadeInput& input, SdfPathVector* sourcePaths)
    {
        return GetRawConnectedSourcePaths(input.GetAttr(), sourcePaths);
    }
    static bool GetRawConnectedSourcePaths(const UsdShadeOutput& output, SdfPathVector* sourcePaths)
    {
        return GetRawConnectedSourcePaths(output.GetAttr(), sourcePaths);
    }

    /// GetConnectedSource would succeed.
    static bool HasConnectedSource(const UsdAttribute& shadingAttr);
    static bool HasConnectedSource(const UsdShadeInput& input) { return HasConnectedSource(input.GetAttr()); }
    static bool HasConnectedSource(const UsdShadeOutput& output) { return HasConnectedSource(output.GetAttr()); }

    /// The output "outputs:<name>", invalid when the prim has no such
    /// attribute.
    UsdShadeOutput GetOutput(const TfToken& name) const;
    /// The attributes in the "outputs:" namespace, in the prim's property
    /// order (dictionary order of the names).
    std::vector<UsdShadeOutput> GetOutputs(bool onlyAuthored = true) const;
    /// The input "inputs:<name>", invalid when the prim has no such
    /// attribute.
    UsdShadeInput GetInput(const TfToken& name) const;
    /// The attributes in the "inputs:" namespace, in the prim's property
    /// order (dictionary order of the names).
    std::vector<UsdShadeInput> GetInputs(bool onlyAuthored = true) const;

protected:
    bool _IsCompatible() const override { return IsShader() || IsNodeGraph(); }
};

PXR_NAMESPACE_CLOSE_SCOPE
