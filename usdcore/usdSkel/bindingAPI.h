#pragma once

#include "usdcore/pxr.h"
#include "usdcore/sdf/path.h"
#include "usdcore/tf/token.h"
#include "usdcore/usd/apiSchemaBase.h"
#include "usdcore/usd/attribute.h"
#include "usdcore/usd/prim.h"
#include "usdcore/usd/relationship.h"
#include "usdcore/usdGeom/primvar.h"
#include "usdcore/usdSkel/skeleton.h"

PXR_NAMESPACE_OPEN_SCOPE

/// How a skinned prim names its skeleton and animation, and the per-point
/// joint influences of a mesh ("SkelBindingAPI").
class UsdSkelBindingAPI : public UsdAPISchemaBase
{
public:
    explicit UsdSkelBindingAPI(const UsdPrim& prim = UsdPrim()) : UsdAPISchemaBase(prim) {}
    explicit UsdSkelBindingAPI(const UsdSchemaBase& schemaObj) : UsdAPISchemaBase(schemaObj) {}

    static UsdSkelBindingAPI Get(const UsdStagePtr& stage, const SdfPath& path)
    {
        return UsdSkelBindingAPI(Usd_SchemaGetPrim(stage, path));
    }

    /// rel skel:skeleton: the Skeleton that binds this prim and its
    /// descendants.
    UsdRelationship GetSkeletonRel() const;
    /// rel skel:animationSource: the SkelAnimation that drives the skeleton.
    UsdRelationship GetAnimationSourceRel() const;
    /// rel skel:blendShapeTargets: the BlendShape prims, in the order of
    /// skel:blendShapes.
    UsdRelationship GetBlendShapeTargetsRel() const;

    /// uniform token[] skel:joints: the subset and order of the skeleton's
    /// joints that the joint indices refer to, when not all of them.
    UsdAttribute GetJointsAttr() const;
    /// int[] primvars:skel:jointIndices: elementSize influences per point.
    UsdAttribute GetJointIndicesAttr() const;
    /// float[] primvars:skel:jointWeights, laid out as the indices.
    UsdAttribute GetJointWeightsAttr() const;
    /// matrix4d primvars:skel:geomBindTransform: the prim's world transform
    /// at bind time.
    UsdAttribute GetGeomBindTransformAttr() const;
    /// uniform token[] skel:blendShapes.
    UsdAttribute GetBlendShapesAttr() const;

    /// The joint indices and weights as primvars, for their interpolation,
    /// element size (influences per point) and time samples.
    UsdGeomPrimvar GetJointIndicesPrimvar() const { return UsdGeomPrimvar(GetJointIndicesAttr()); }
    UsdGeomPrimvar GetJointWeightsPrimvar() const { return UsdGeomPrimvar(GetJointWeightsAttr()); }

    /// The Skeleton that skel:skeleton targets first. True when the
    /// relationship has targets or is authored empty (\p skel is then the
    /// view of whatever the first target names, which may be invalid);
    /// false, with an invalid view, otherwise.
    bool GetSkeleton(UsdSkelSkeleton* skel) const;
    /// The SkelAnimation that skel:animationSource targets first, in the same
    /// way; a target of another type gives an invalid prim.
    bool GetAnimationSource(UsdPrim* prim) const;
    /// The skeleton bound here or on the nearest ancestor that binds one.
    /// Only prims with SkelBindingAPI applied take part, and an authored
    /// empty binding ends the search with no skeleton.
    UsdSkelSkeleton GetInheritedSkeleton() const;
    /// The animation source found the same way.
    UsdPrim GetInheritedAnimationSource() const;
};

PXR_NAMESPACE_CLOSE_SCOPE
