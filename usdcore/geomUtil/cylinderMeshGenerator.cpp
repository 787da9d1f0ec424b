#include "usdcore/geomUtil/cylinderMeshGenerator.h"

#include <cmath>

PXR_NAMESPACE_OPEN_SCOPE

size_t GeomUtilCylinderMeshGenerator::ComputeNumPoints(size_t numRadial)
{
    if (numRadial < minNumRadial)
        return 0;
    return 4 * numRadial + 2;
}

PxOsdMeshTopology GeomUtilCylinderMeshGenerator::GenerateTopology(size_t numRadial)
{
    if (numRadial < minNumRadial)
        return PxOsdMeshTopology();
    return _GenerateCappedQuadTopology(numRadial, 1, CapStyleSeparateEdge, CapStyleSeparateEdge);
}

void GeomUtilCylinderMeshGenerator::_GeneratePoints(size_t numRadial, double radius, double height,
                                                    const _PointWriter& writer)
{
    if (numRadial < minNumRadial)
        return;
    const double top = 0.5 * height;
    const double bottom = -top;
    const auto writeRing = [&](double z) {
        for (size_t segment = 0; segment < numRadial; ++segment) {
            const double longitude = 2.0 * M_PI * double(segment) / double(numRadial);
            writer.Write(GfVec3d(radius * std::cos(longitude), radius * std::sin(longitude), z));
        }
    };
    writer.Write(GfVec3d(0.0, 0.0, bottom));
    // The cap's ring, then the side's, at the same places.
    writeRing(bottom);
    writeRing(bottom);
    writeRing(top);
    writeRing(top);
    writer.Write(GfVec3d(0.0, 0.0, top));
}

PXR_NAMESPACE_CLOSE_SCOPE
