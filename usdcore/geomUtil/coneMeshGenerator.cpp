#include "usdcore/geomUtil/coneMeshGenerator.h"

#include <cmath>

PXR_NAMESPACE_OPEN_SCOPE

size_t GeomUtilConeMeshGenerator::ComputeNumPoints(size_t numRadial)
{
    if (numRadial < minNumRadial)
        return 0;
    return 3 * numRadial + 1;
}

PxOsdMeshTopology GeomUtilConeMeshGenerator::GenerateTopology(size_t numRadial)
{
    if (numRadial < minNumRadial)
        return PxOsdMeshTopology();
    return _GenerateCappedQuadTopology(numRadial, 1, CapStyleSeparateEdge, CapStyleNone);
}

void GeomUtilConeMeshGenerator::_GeneratePoints(size_t numRadial, double radius, double height,
                                                const _PointWriter& writer)
{
    if (numRadial < minNumRadial)
        return;
    const double apex = 0.5 * height;
    const double base = -apex;
    writer.Write(GfVec3d(0.0, 0.0, base));
    for (int ring = 0; ring < 2; ++ring) {
        for (size_t segment = 0; segment < numRadial; ++segment) {
            const double longitude = 2.0 * M_PI * double(segment) / double(numRadial);
            writer.Write(GfVec3d(radius * std::cos(longitude), radius * std::sin(longitude), base));
        }
    }
    for (size_t segment = 0; segment < numRadial; ++segment)
        writer.Write(GfVec3d(0.0, 0.0, apex));
}

PXR_NAMESPACE_CLOSE_SCOPE
