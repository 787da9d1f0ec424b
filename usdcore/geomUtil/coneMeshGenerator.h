#pragma once

#include "usdcore/geomUtil/meshGeneratorBase.h"

PXR_NAMESPACE_OPEN_SCOPE

/// A cone centred on the origin along Z, its base of the given radius at
/// -height/2 and its apex at +height/2. The base is a fan over a ring of its
/// own; the side is one strip of quads whose upper ring is numRadial copies
/// of the apex, so that neighbouring side faces join smoothly along the
/// side while faces across the apex share no point.
class GeomUtilConeMeshGenerator final : public GeomUtilMeshGeneratorBase
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
