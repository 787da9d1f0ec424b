#pragma once

#include "usdcore/pxr.h"
#include "usdcore/sdf/path.h"
#include "usdcore/tf/token.h"
#include "usdcore/usd/prim.h"
#include "usdcore/usd/typed.h"
#include "usdcore/usdShade/connectableAPI.h"
#include "usdcore/usdShade/input.h"
#include "usdcore/usdShade/output.h"
#include "usdcore/usdShade/types.h"

#include <vector>

PXR_NAMESPACE_OPEN_SCOPE

class UsdShadeShader;

/// A container of shaders whose inputs form an interface and whose outputs
/// pass on outputs of the shaders inside it. True for prims of type
/// "NodeGraph" and of types derived from it ("Material").
class UsdShadeNodeGraph : public UsdTyped
{
public:
    explicit UsdShadeNodeGraph(const UsdPrim& prim = UsdPrim()) : UsdTyped(prim) {}
    explicit UsdShadeNodeGraph(const UsdSchemaBase& schemaObj) : UsdTyped(schemaObj) {}
    /// The node graph of a connectable view (valid when its prim is one).
    UsdShadeNodeGraph(const UsdShadeConnectableAPI& connectable) : UsdTyped(connectable.GetPrim()) {}

    static UsdShadeNodeGraph Get(const UsdStagePtr& stage, const SdfPath& path)
    {
        return UsdShadeNodeGraph(Usd_SchemaGetPrim(stage, path));
    }
    static const TfToken& _GetStaticTypeName();

    UsdShadeConnectableAPI ConnectableAPI() const { return UsdShadeConnectableAPI(GetPrim()); }
    operator UsdShadeConnectableAPI() const { return ConnectableAPI(); }

    UsdShadeOutput GetOutput(const TfToken& name) const { return ConnectableAPI().GetOutput(name); }
    std::vector<UsdShadeOutput> GetOutputs(bool onlyAuthored = true) const
    {
        return ConnectableAPI().GetOutputs(onlyAuthored);
    }
    UsdShadeInput GetInput(const TfToken& name) const { return ConnectableAPI().GetInput(name); }
    std::vector<UsdShadeInput> GetInputs(bool onlyAuthored = true) const
    {
        return ConnectableAPI().GetInputs(onlyAuthored);
    }
    /// The inputs of the node graph's interface: all its inputs.
    std::vector<UsdShadeInput> GetInterfaceInputs() const { return GetInputs(); }

    /// The shader whose output the output \p outputName finally takes its
    /// value from, following connections through the outputs of nested node
    /// graphs; invalid when the chain ends anywhere else. \p sourceName and
    /// \p sourceType, when given, receive the shader output's base name and
    /// kind.
    UsdShadeShader ComputeOutputSource(const TfToken& outputName, TfToken* sourceName = nullptr,
                                       UsdShadeAttributeType* sourceType = nullptr) const;

protected:
    const TfToken& _GetSchemaTypeName() const override { return _GetStaticTypeName(); }
};

PXR_NAMESPACE_CLOSE_SCOPE
