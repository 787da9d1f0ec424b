#include "usdcore/geomUtil/sphereMeshGenerator.h"

#include <cmath>

PXR_NAMESPACE_OPEN_SCOPE

size_t GeomUtilSphereMeshGenerator::ComputeNumPoints(size_t numRadial, size_t numAxial)
{
    if (numRadial < minNumRadial || numAxial < minNumAxial)
        return 0;
    return (numAxial - 1) * numRadial + 2;
}

PxOsdMeshTopology GeomUtilSphereMeshGenerator::GenerateTopology(size_t numRadial, size_t numAxial)
{
    if (numRadial < minNumRadial || numAxial < minNumAxial)
        return PxOsdMeshTopology();
    // The pole fans share the outermost rings: the surface is smooth
    // across them.
    return _GenerateCappedQuadTopology(numRadial, numAxial - 2, CapStyleSharedEdge, CapStyleSharedEdge);
}

void GeomUtilSphereMeshGenerator::_GeneratePoints(size_t numRadial, size_t numAxial, double radius,
                                                  const _PointWriter& writer)
{
    if (numRadial < minNumRadial || numAxial < minNumAxial)
        return;
    writer.Write(GfVec3d(0.0, 0.0, -radius));
    for (size_t ring = 1; ring < numAxial; ++ring) {
        const double latitude = (double(ring) / double(numAxial) - 0.5) * M_PI;
        const double ringRadius = radius * std::cos(latitude);
        const double z = radius * std::sin(latitude);
        for (size_t segment = 0; segment < numRadial; ++segment) {
            const double longitude = 2.0 * M_PI * double(segment) / double(numRadial);
            writer.Write(GfVec3d(ringRadius * std::cos(longitude), ringRadius * std::sin(longitude), z));
        }
    }
    writer.Write(GfVec3d(0.0, 0.0, radius));
}

PXR_NAMESPACE_CLOSE_SCOPE
