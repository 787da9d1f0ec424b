#pragma once

#include "usdcore/geomUtil/meshGeneratorBase.h"

PXR_NAMESPACE_OPEN_SCOPE

/// A closed cylinder centred on the origin along Z: flat caps at -height/2
/// and +height/2, each a fan about its centre over a ring of its own, and
/// one strip of quads between two further rings at the same places, so
/// that the caps meet the side at a crease.
class GeomUtilCylinderMeshGenerator final : public GeomUtilMeshGeneratorBase
{
public:
    static constexpr size_t minNumRadial = 3;

    /// 0 below the minimum.
    static size_t ComputeNumPoints(size_t numRadial);
    /// Empty below the minimum.
    static PxOsdMeshTopology GenerateTopology(size_t numRadial);

    template <class PointIterType, class ScalarType>
    static void GeneratePoints(PointIterType iter, size_t numRadial, ScalarType radius, ScalarType height,
                               const GfMatrix4d* framePtr = nullptr)
    {
        _GeneratePoints(numRadial, double(radius), double(height), _PointWriter(iter, framePtr));
    }

private:
    static void _GeneratePoints(size_t numRadial, double radius, double height, const _PointWriter& writer);
};

PXR_NAMESPACE_CLOSE_SCOPE
