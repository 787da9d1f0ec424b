#pragma once

#include "usdcore/geomUtil/meshGeneratorBase.h"

PXR_NAMESPACE_OPEN_SCOPE

/// A box centred on the origin with the given lengths along X, Y and Z: 8
/// points and 6 quads under the bilinear scheme, so that imaging shades
/// each face flat.
class GeomUtilCuboidMeshGenerator final : public GeomUtilMeshGeneratorBase
{
public:
    static size_t ComputeNumPoints();
    static PxOsdMeshTopology GenerateTopology();

    template <class PointIterType, class ScalarType>
    static void GeneratePoints(PointIterType iter, ScalarType xLength, ScalarType yLength, ScalarType zLength,
                               const GfMatrix4d* framePtr = nullptr)
    {
        _GeneratePoints(double(xLength), double(yLength), double(zLength), _PointWriter(iter, framePtr));
    }

private:
    static void _GeneratePoints(double xLength, double yLength, double zLength, const _PointWriter& writer);
};

PXR_NAMESPACE_CLOSE_SCOPE
