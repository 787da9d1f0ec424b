#include "usdcore/hd/flatNormals.h"

#include "usdcore/hd/meshTopology.h"
#include "usdcore/hd/tokens.h"

PXR_NAMESPACE_OPEN_SCOPE

namespace {

template <class Vec3>
VtArray<Vec3> FlatNormals(const HdMeshTopology* topology, const Vec3* points)
{
    if (!topology || !points)
        return VtArray<Vec3>();
    const VtIntArray& counts = topology->GetFaceVertexCounts();
    const VtIntArray& indices = topology->GetFaceVertexIndices();
    const double sign = topology->GetOrientation() != HdTokens->rightHanded ? -1.0 : 1.0;
    VtArray<Vec3> normals(counts.size());
    size_t faceStart = 0;
    for (size_t face = 0; face < counts.size(); ++face) {
        const size_t count = counts[face] > 0 ? static_cast<size_t>(counts[face]) : 0;
        // Faces from one that runs past the indices on keep the zero normal.
        if (count > indices.size() - faceStart)
            break;
        Vec3 normal(0);
        if (count >= 3) {
            const Vec3& first = points[indices[faceStart]];
            for (size_t k = 2; k < count; ++k) {
                const Vec3& a = points[indices[faceStart + k - 1]];
                const Vec3& b = points[indices[faceStart + k]];
                normal += GfCross(a - first, b - first) * sign;
            }
            normal.Normalize();
        }
        normals[face] = normal;
        faceStart += count;
    }
    return normals;
}

} // namespace

VtArray<GfVec3f> Hd_FlatNormals::ComputeFlatNormals(const HdMeshTopology* topology, const GfVec3f* pointsPtr)
{
    return FlatNormals(topology, pointsPtr);
}

VtArray<GfVec3d> Hd_FlatNormals::ComputeFlatNormals(const HdMeshTopology* topology, const GfVec3d* pointsPtr)
{
    return FlatNormals(topology, pointsPtr);
}

PXR_NAMESPACE_CLOSE_SCOPE
