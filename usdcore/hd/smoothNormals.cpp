#include "usdcore/hd/smoothNormals.h"

#include "usdcore/hd/vertexAdjacency.h"

#include <algorithm>

PXR_NAMESPACE_OPEN_SCOPE

namespace {

template <class Vec3>
VtArray<Vec3> SmoothNormals(const Hd_VertexAdjacency* adjacency, int numPoints, const Vec3* points)
{
    if (!adjacency || !points)
        return VtArray<Vec3>();
    const int count = std::max(0, std::min(numPoints, adjacency->GetNumPoints()));
    const VtIntArray& table = adjacency->GetAdjacencyTable();
    VtArray<Vec3> normals(static_cast<size_t>(count));
    for (int point = 0; point < count; ++point) {
        const size_t offset = static_cast<size_t>(table[2 * static_cast<size_t>(point)]);
        const int corners = table[2 * static_cast<size_t>(point) + 1];
        const Vec3& here = points[point];
        Vec3 normal(0);
        for (int corner = 0; corner < corners; ++corner) {
            const Vec3& previous = points[table[offset + 2 * static_cast<size_t>(corner)]];
            const Vec3& next = points[table[offset + 2 * static_cast<size_t>(corner) + 1]];
            normal += GfCross(next - here, previous - here);
        }
        normal.Normalize();
        normals[static_cast<size_t>(point)] = normal;
    }
    return normals;
}

} // namespace

VtArray<GfVec3f> Hd_SmoothNormals::ComputeSmoothNormals(const Hd_VertexAdjacency* adjacency, int numPoints,
                                                        const GfVec3f* pointsPtr)
{
    return SmoothNormals(adjacency, numPoints, pointsPtr);
}

VtArray<GfVec3d> Hd_SmoothNormals::ComputeSmoothNormals(const Hd_VertexAdjacency* adjacency, int numPoints,
                                                        const GfVec3d* pointsPtr)
{
    return SmoothNormals(adjacency, numPoints, pointsPtr);
}

PXR_NAMESPACE_CLOSE_SCOPE
