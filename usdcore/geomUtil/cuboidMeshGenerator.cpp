#include "usdcore/geomUtil/cuboidMeshGenerator.h"

#include "usdcore/pxOsd/tokens.h"

PXR_NAMESPACE_OPEN_SCOPE

size_t GeomUtilCuboidMeshGenerator::ComputeNumPoints()
{
    return 8;
}

PxOsdMeshTopology GeomUtilCuboidMeshGenerator::GenerateTopology()
{
    // Top, bottom, +Y, -Y, +X, -X; each wound outward.
    static const VtIntArray faceVertexCounts{4, 4, 4, 4, 4, 4};
    static const VtIntArray faceVertexIndices{0, 1, 2, 3, 4, 5, 6, 7, 0, 6, 5, 1,
                                              4, 7, 3, 2, 0, 3, 7, 6, 4, 2, 1, 5};
    return PxOsdMeshTopology(PxOsdOpenSubdivTokens->bilinear, PxOsdOpenSubdivTokens->rightHanded,
                             faceVertexCounts, faceVertexIndices);
}

void GeomUtilCuboidMeshGenerator::_GeneratePoints(double xLength, double yLength, double zLength,
                                                  const _PointWriter& writer)
{
    const double x = 0.5 * xLength;
    const double y = 0.5 * yLength;
    const double z = 0.5 * zLength;
    // The top face counter-clockwise from (+, +), then the bottom face's
    // corners in the order the side faces need them.
    writer.Write(GfVec3d(x, y, z));
    writer.Write(GfVec3d(-x, y, z));
    writer.Write(GfVec3d(-x, -y, z));
    writer.Write(GfVec3d(x, -y, z));
    writer.Write(GfVec3d(-x, -y, -z));
    writer.Write(GfVec3d(-x, y, -z));
    writer.Write(GfVec3d(x, y, -z));
    writer.Write(GfVec3d(x, -y, -z));
}

PXR_NAMESPACE_CLOSE_SCOPE
