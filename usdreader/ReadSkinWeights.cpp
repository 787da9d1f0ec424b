#include <algorithm>

#include "host/CTavrinGeometry.h"
#include "host/CTavrinSceneNode.h"
#include "host/CTavrinTables.h"
#include "usdreader/CTavrinUSDReaderHandler.h"
#include "usdreader/MeshValues.h"

PXR_NAMESPACE_USING_DIRECTIVE

namespace Tavrin {

// Weights go in as authored: neither normalised nor sorted nor limited in
// number; only exact zeros are left out. A joint index means a position in
// the bound skeleton's joint list; one that names no converted joint is
// dropped.
CTavrinRigGeometryTable* CTavrinUSDReaderHandler::ReadSkinWeights(const UsdGeomMesh& mesh, CTavrinGeometry* geometry,
                                                                  CTavrin3DObject* object, std::size_t pointCount)
{
    const UsdGeomPrimvarsAPI primvars(mesh.GetPrim());
    const UsdGeomPrimvar indicesPrimvar = primvars.GetPrimvar(UsdSkelTokens->primvarsSkelJointIndices);
    const UsdTimeCode skinTime = FirstSampleTime(indicesPrimvar);
    VtIntArray jointIndices;
    VtFloatArray jointWeights;
    if (!indicesPrimvar.Get(&jointIndices, skinTime) ||
        !primvars.GetPrimvar(UsdSkelTokens->primvarsSkelJointWeights).Get(&jointWeights, skinTime))
        return nullptr;

    CTavrinRigGeometryTable* rigTable = CTavrinRigGeometryTable::Create(document);
    // The bind transform replaces the prim's own transform, and no root
    // correction goes onto it: the joints place a skinned mesh.
    GfMatrix4d geomBindTransform;
    if (primvars.GetPrimvar(UsdSkelTokens->primvarsSkelGeomBindTransform)
            .Get(&geomBindTransform, UsdTimeCode::Default()))
        object->SetLocalMatrix(ConvertMatrix(geomBindTransform));

    // Per point, elementSize influences in a row. A constant primvar holds
    // one row that binds the whole mesh rigidly, so every point reads it;
    // otherwise arrays shorter than their points leave the trailing points
    // without influences. Arrays of a row per point are read per point
    // whatever their interpolation says: exporters often leave it out, and
    // the fallback (constant) would pin every point to point 0.
    const auto elementSize = static_cast<std::size_t>(std::max(indicesPrimvar.GetElementSize(), 0));
    const std::size_t available = std::min(jointIndices.size(), jointWeights.size());
    const bool rigid = indicesPrimvar.GetInterpolation() == UsdGeomTokens->constant &&
                       available / std::max<std::size_t>(elementSize, 1) < pointCount;
    for (std::size_t point = 0; point < pointCount; ++point) {
        const std::size_t start = rigid ? 0 : point * elementSize;
        if (start >= available)
            break;
        const std::size_t end = std::min(start + elementSize, available);
        for (std::size_t n = start; n < end; ++n) {
            const float weight = jointWeights[n];
            if (weight == 0.0f)
                continue;
            const auto joint = jointsByIndex.find(jointIndices[n]);
            if (joint != jointsByIndex.end() && joint->second)
                rigTable->SetSkeletonJointData(joint->second, static_cast<unsigned>(point), weight);
        }
    }
    geometry->SetRigGeometryTable(rigTable);
    return rigTable;
}

} // namespace Tavrin
