#include "usdcore/geomUtil/planeMeshGenerator.h"

#include "usdcore/pxOsd/tokens.h"

PXR_NAMESPACE_OPEN_SCOPE

size_t GeomUtilPlaneMeshGenerator::ComputeNumPoints()
{
    return 4;
}

PxOsdMeshTopology GeomUtilPlaneMeshGenerator::GenerateTopology()
{
    static const VtIntArray faceVertexCounts{4};
    static const VtIntArray faceVertexIndices{0, 1, 2, 3};
    return PxOsdMeshTopology(PxOsdOpenSubdivTokens->bilinear, PxOsdOpenSubdivTokens->rightHanded,
                             faceVertexCounts, faceVertexIndices);
}

void GeomUtilPlaneMeshGenerator::_GeneratePoints(double xLength, double yLength, const _PointWriter& writer)
{
    const double x = 0.5 * xLength;
    const double y = 0.5 * yLength;
    writer.Write(GfVec3d(x, y, 0.0));
    writer.Write(GfVec3d(-x, y, 0.0));
    writer.Write(GfVec3d(-x, -y, 0.0));
    writer.Write(GfVec3d(x, -y, 0.0));
}

PXR_NAMESPACE_CLOSE_SCOPE
