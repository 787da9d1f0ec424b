#pragma once

#include "usdcore/geomUtil/meshGeneratorBase.h"

PXR_NAMESPACE_OPEN_SCOPE

/// A sphere centred on the origin: numAxial - 1 rings of latitude, evenly
/// spaced in angle between the poles at -Z and +Z, each of numRadial points
/// evenly spaced in longitude from +X toward +Y; triangle fans at the
/// poles, quads between the rings.
class GeomUtilSphereMeshGenerator final : public GeomUtilMeshGeneratorBase
{
public:
    static constexpr size_t minNumRadial = 3;
    static constexpr size_t minNumAxial = 2;

    /// 0 when either count is below its minimum.
    static size_t ComputeNumPoints(size_t numRadial, size_t numAxial);
    /// Empty when either count is below its minimum.
    static PxOsdMeshTopology GenerateTopology(size_t numRadial, size_t numAxial);

    template <class PointIterType, class ScalarType>
    static void GeneratePoints(PointIterType iter, size_t numRadial, size_t numAxial, ScalarType radius,
                               const GfMatrix4d* framePtr = nullptr)
    {
        _GeneratePoints(numRadial, numAxial, double(radius), _PointWriter(iter, framePtr));
    }

private:
    static void _GeneratePoints(size_t numRadial, size_t numAxial, double radius, const _PointWriter& writer);
};

PXR_NAMESPACE_CLOSE_SCOPE
