#pragma once

#include "usdcore/gf/matrix4d.h"
#include "usdcore/pxr.h"
#include "usdcore/usd/relationship.h"
#include "usdcore/usdGeom/boundable.h"
#include "usdcore/vt/types.h"

#include <vector>

PXR_NAMESPACE_OPEN_SCOPE

/// Copies of prototype subtrees placed at points: instance i is the
/// prototype protoIndices[i] scaled, oriented and moved to positions[i].
class UsdGeomPointInstancer : public UsdGeomBoundable
{
public:
    explicit UsdGeomPointInstancer(const UsdPrim& prim = UsdPrim()) : UsdGeomBoundable(prim) {}
    explicit UsdGeomPointInstancer(const UsdSchemaBase& schemaObj) : UsdGeomBoundable(schemaObj) {}

    static UsdGeomPointInstancer Get(const UsdStagePtr& stage, const SdfPath& path)
    {
        return UsdGeomPointInstancer(Usd_SchemaGetPrim(stage, path));
    }
    static const TfToken& _GetStaticTypeName();

    enum ProtoXformInclusion { IncludeProtoXform, ExcludeProtoXform };
    enum MaskApplication { ApplyMask, IgnoreMask };

    /// int[] protoIndices: each instance's index into the prototypes.
    UsdAttribute GetProtoIndicesAttr() const { return GetPrim().GetAttribute(UsdGeomTokens->protoIndices); }
    /// int64[] ids: each instance's id, when not its index.
    UsdAttribute GetIdsAttr() const { return GetPrim().GetAttribute(UsdGeomTokens->ids); }
    /// point3f[] positions.
    UsdAttribute GetPositionsAttr() const { return GetPrim().GetAttribute(UsdGeomTokens->positions); }
    /// quath[] orientations.
    UsdAttribute GetOrientationsAttr() const { return GetPrim().GetAttribute(UsdGeomTokens->orientations); }
    /// float3[] scales.
    UsdAttribute GetScalesAttr() const { return GetPrim().GetAttribute(UsdGeomTokens->scales); }
    /// int64[] invisibleIds: the ids (or indices) of hidden instances.
    UsdAttribute GetInvisibleIdsAttr() const { return GetPrim().GetAttribute(UsdGeomTokens->invisibleIds); }
    /// rel prototypes: the roots of the prototype subtrees, in index order.
    UsdRelationship GetPrototypesRel() const { return GetPrim().GetRelationship(UsdGeomTokens->prototypes); }

    /// Per instance, whether it is shown at \p time: not listed in
    /// invisibleIds nor in the inactiveIds metadata. Empty when every
    /// instance is shown. \p ids, when given, are the ids already read.
    std::vector<bool> ComputeMaskAtTime(UsdTimeCode time, const VtInt64Array* ids = nullptr) const;

    /// Each instance's transform at \p time (scale, then orientation, then
    /// position), after its prototype root's own transform with
    /// IncludeProtoXform; shown instances only with ApplyMask. False, with
    /// a warning, when the arrays do not agree in length or an index names
    /// no prototype. Velocities are not extrapolated: \p baseTime is the
    /// time the positions are read at.
    bool ComputeInstanceTransformsAtTime(VtMatrix4dArray* xforms, UsdTimeCode time, UsdTimeCode baseTime,
                                         ProtoXformInclusion doProtoXforms = IncludeProtoXform,
                                         MaskApplication applyMask = ApplyMask) const;

protected:
    const TfToken& _GetSchemaTypeName() const override { return _GetStaticTypeName(); }
};

PXR_NAMESPACE_CLOSE_SCOPE
