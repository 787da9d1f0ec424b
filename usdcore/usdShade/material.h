#pragma once

#include "usdcore/pxr.h"
#include "usdcore/sdf/path.h"
#include "usdcore/tf/token.h"
#include "usdcore/usd/prim.h"
#include "usdcore/usdShade/nodeGraph.h"
#include "usdcore/usdShade/output.h"
#include "usdcore/usdShade/tokens.h"
#include "usdcore/usdShade/types.h"

PXR_NAMESPACE_OPEN_SCOPE

class UsdShadeShader;

/// A node graph that geometry binds to: its terminal outputs ("surface",
/// "displacement", "volume") name the shaders that render it. True for
/// prims of type "Material" and of types derived from it.
class UsdShadeMaterial : public UsdShadeNodeGraph
{
public:
    explicit UsdShadeMaterial(const UsdPrim& prim = UsdPrim()) : UsdShadeNodeGraph(prim) {}
    explicit UsdShadeMaterial(const UsdSchemaBase& schemaObj) : UsdShadeNodeGraph(schemaObj) {}

    static UsdShadeMaterial Get(const UsdStagePtr& stage, const SdfPath& path)
    {
        return UsdShadeMaterial(Usd_SchemaGetPrim(stage, path));
    }
    static const TfToken& _GetStaticTypeName();

    /// The terminal output of \p renderContext: "outputs:surface" for the
    /// universal context, "outputs:<renderContext>:surface" otherwise.
    UsdShadeOutput GetSurfaceOutput(const TfToken& renderContext = UsdShadeTokens->universalRenderContext) const
    {
        return _GetTerminal(renderContext, UsdShadeTokens->surface);
    }
    UsdShadeOutput GetDisplacementOutput(
        const TfToken& renderContext = UsdShadeTokens->universalRenderContext) const
    {
        return _GetTerminal(renderContext, UsdShadeTokens->displacement);
    }
    UsdShadeOutput GetVolumeOutput(const TfToken& renderContext = UsdShadeTokens->universalRenderContext) const
    {
        return _GetTerminal(renderContext, UsdShadeTokens->volume);
    }

    /// The shader connected to the surface output of \p renderContext, or of
    /// the universal context when that one has none.
    UsdShadeShader ComputeSurfaceSource(const TfToken& renderContext = UsdShadeTokens->universalRenderContext,
                                        TfToken* sourceName = nullptr,
                                        UsdShadeAttributeType* sourceType = nullptr) const;

protected:
    const TfToken& _GetSchemaTypeName() const override { return _GetStaticTypeName(); }

private:
    UsdShadeOutput _GetTerminal(const TfToken& renderContext, const TfToken& terminal) const;
};

PXR_NAMESPACE_CLOSE_SCOPE
