#include "usdcore/geomUtil/capsuleMeshGenerator.h"

#include <cmath>

PXR_NAMESPACE_OPEN_SCOPE

size_t GeomUtilCapsuleMeshGenerator::ComputeNumPoints(size_t numRadial, size_t numCapAxial)
{
    if (numRadial < minNumRadial || numCapAxial < minNumCapAxial)
        return 0;
    return 2 * numCapAxial * numRadial + 2;
}

PxOsdMeshTopology GeomUtilCapsuleMeshGenerator::GenerateTopology(size_t numRadial, size_t numCapAxial)
{
    if (numRadial < minNumRadial || numCapAxial < minNumCapAxial)
        return PxOsdMeshTopology();
    // numCapAxial - 1 strips in each hemisphere and the cylinder between.
    return _GenerateCappedQuadTopology(numRadial, 2 * (numCapAxial - 1) + 1, CapStyleSharedEdge,
                                       CapStyleSharedEdge);
}

void GeomUtilCapsuleMeshGenerator::_GeneratePoints(size_t numRadial, size_t numCapAxial, double radius,
                                                   double height, const _PointWriter& writer)
{
    if (numRadial < minNumRadial || numCapAxial < minNumCapAxial)
        return;
    const double halfHeight = 0.5 * height;
    const auto writeRing = [&](double latitude, double centre) {
        const double ringRadius = radius * std::cos(latitude);
        const double z = centre + radius * std::sin(latitude);
        for (size_t segment = 0; segment < numRadial; ++segment) {
            const double longitude = 2.0 * M_PI * double(segment) / double(numRadial);
            writer.Write(GfVec3d(ringRadius * std::cos(longitude), ringRadius * std::sin(longitude), z));
        }
    };
    writer.Write(GfVec3d(0.0, 0.0, -(halfHeight + radius)));
    // Latitudes above the bottom pole up to the equator, then from the
    // upper equator up to below the top pole.
    for (size_t ring = 1; ring <= numCapAxial; ++ring)
        writeRing(-0.5 * M_PI * (1.0 - double(ring) / double(numCapAxial)), -halfHeight);
    for (size_t ring = 0; ring < numCapAxial; ++ring)
        writeRing(0.5 * M_PI * double(ring) / double(numCapAxial), halfHeight);
    writer.Write(GfVec3d(0.0, 0.0, halfHeight + radius));
}

PXR_NAMESPACE_CLOSE_SCOPE
