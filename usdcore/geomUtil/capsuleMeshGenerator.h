#pragma once

#include "usdcore/geomUtil/meshGeneratorBase.h"

PXR_NAMESPACE_OPEN_SCOPE

/// A capsule centred on the origin along Z: a cylinder of the given radius
/// and height closed by two hemispheres of that radius, so that it reaches
/// height/2 + radius either way. Each hemisphere has numCapAxial rings
/// evenly spaced in latitude, the last at its equator, and a pole; the
/// whole surface is smooth.
class GeomUtilCapsuleMeshGenerator final : public GeomUtilMeshGeneratorBase
{
public:
    static constexpr size_t minNumRadial = 3;
    static constexpr size_t minNumCapAxial = 1;

    /// 0 when either count is below its minimum.
    static size_t ComputeNumPoints(size_t numRadial, size_t numCapAxial);
    /// Empty when either count is below its minimum.
    static PxOsdMeshTopology GenerateTopology(size_t numRadial, size_t numCapAxial);

    template <class PointIterType, class ScalarType>
    static void GeneratePoints(PointIterType iter, size_t numRadial, size_t numCapAxial, ScalarType radius,
                               ScalarType height, const GfMatrix4d* framePtr = nullptr)
    {
        _GeneratePoints(numRadial, numCapAxial, double(radius), double(height), _PointWriter(iter, framePtr));
    }

private:
    static void _GeneratePoints(size_t numRadial, size_t numCapAxial, double radius, double height,
                                const _PointWriter& writer);
};

PXR_NAMESPACE_CLOSE_SCOPE
