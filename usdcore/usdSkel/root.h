#pragma once

#include "usdcore/pxr.h"
#include "usdcore/sdf/path.h"
#include "usdcore/tf/token.h"
#include "usdcore/usd/prim.h"
#include "usdcore/usdGeom/boundable.h"

PXR_NAMESPACE_OPEN_SCOPE

/// The root of a skinned hierarchy: skeletons and the meshes they deform
/// live below it. True for prims of type "SkelRoot" and derived types.
class UsdSkelRoot : public UsdGeomBoundable
{
public:
    explicit UsdSkelRoot(const UsdPrim& prim = UsdPrim()) : UsdGeomBoundable(prim) {}
    explicit UsdSkelRoot(const UsdSchemaBase& schemaObj) : UsdGeomBoundable(schemaObj) {}

    static UsdSkelRoot Get(const UsdStagePtr& stage, const SdfPath& path)
    {
        return UsdSkelRoot(Usd_SchemaGetPrim(stage, path));
    }
    static const TfToken& _GetStaticTypeName();

    /// The nearest SkelRoot at or above \p prim; invalid when there is none.
    static UsdSkelRoot Find(const UsdPrim& prim);

protected:
    const TfToken& _GetSchemaTypeName() const override { return _GetStaticTypeName(); }
};

PXR_NAMESPACE_CLOSE_SCOPE
