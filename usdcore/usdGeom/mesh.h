#pragma once

#include "usdcore/pxr.h"
#include "usdcore/usdGeom/pointBased.h"

PXR_NAMESPACE_OPEN_SCOPE

/// A polygon mesh, possibly a subdivision surface.
class UsdGeomMesh : public UsdGeomPointBased
{
public:
    explicit UsdGeomMesh(const UsdPrim& prim = UsdPrim()) : UsdGeomPointBased(prim) {}
    explicit UsdGeomMesh(const UsdSchemaBase& schemaObj) : UsdGeomPointBased(schemaObj) {}

    static UsdGeomMesh Get(const UsdStagePtr& stage, const SdfPath& path)
    {
        return UsdGeomMesh(Usd_SchemaGetPrim(stage, path));
    }
    static const TfToken& _GetStaticTypeName();

    /// A sharpness at or above this value is infinitely sharp.
    static const float SHARPNESS_INFINITE;

    /// int[] faceVertexIndices.
    UsdAttribute GetFaceVertexIndicesAttr() const { return _Attr(UsdGeomTokens->faceVertexIndices); }
    /// int[] faceVertexCounts.
    UsdAttribute GetFaceVertexCountsAttr() const { return _Attr(UsdGeomTokens->faceVertexCounts); }
    /// uniform token subdivisionScheme = "catmullClark" ("catmullClark",
    /// "loop", "bilinear", "none").
    UsdAttribute GetSubdivisionSchemeAttr() const { return _Attr(UsdGeomTokens->subdivisionScheme); }
    /// token interpolateBoundary = "edgeAndCorner".
    UsdAttribute GetInterpolateBoundaryAttr() const { return _Attr(UsdGeomTokens->interpolateBoundary); }
    /// token faceVaryingLinearInterpolation = "cornersPlus1".
    UsdAttribute GetFaceVaryingLinearInterpolationAttr() const
    {
        return _Attr(UsdGeomTokens->faceVaryingLinearInterpolation);
    }
    /// token triangleSubdivisionRule = "catmullClark".
    UsdAttribute GetTriangleSubdivisionRuleAttr() const { return _Attr(UsdGeomTokens->triangleSubdivisionRule); }
    /// int[] holeIndices = [].
    UsdAttribute GetHoleIndicesAttr() const { return _Attr(UsdGeomTokens->holeIndices); }
    /// int[] cornerIndices = [].
    UsdAttribute GetCornerIndicesAttr() const { return _Attr(UsdGeomTokens->cornerIndices); }
    /// float[] cornerSharpnesses = [].
    UsdAttribute GetCornerSharpnessesAttr() const { return _Attr(UsdGeomTokens->cornerSharpnesses); }
    /// int[] creaseIndices = [].
    UsdAttribute GetCreaseIndicesAttr() const { return _Attr(UsdGeomTokens->creaseIndices); }
    /// int[] creaseLengths = [].
    UsdAttribute GetCreaseLengthsAttr() const { return _Attr(UsdGeomTokens->creaseLengths); }
    /// float[] creaseSharpnesses = [].
    UsdAttribute GetCreaseSharpnessesAttr() const { return _Attr(UsdGeomTokens->creaseSharpnesses); }

protected:
    const TfToken& _GetSchemaTypeName() const override { return _GetStaticTypeName(); }

private:
    UsdAttribute _Attr(const TfToken& name) const { return GetPrim().GetAttribute(name); }
};

PXR_NAMESPACE_CLOSE_SCOPE
