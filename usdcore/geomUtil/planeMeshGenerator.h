#pragma once

#include "usdcore/geomUtil/meshGeneratorBase.h"

PXR_NAMESPACE_OPEN_SCOPE

/// A rectangle in the XY plane centred on the origin, facing +Z: one quad
/// under the bilinear scheme, its corners counter-clockwise from (+X, +Y).
class GeomUtilPlaneMeshGenerator final : public GeomUtilMeshGeneratorBase
{
public:
    static size_t ComputeNumPoints();
    static PxOsdMeshTopology GenerateTopology();

    template <class PointIterType, class ScalarType>
    static void GeneratePoints(PointIterType iter, ScalarType xLength, ScalarType yLength,
                               const GfMatrix4d* framePtr = nullptr)
    {
        _GeneratePoints(double(xLength), double(yLength), _PointWriter(iter, framePtr));
    }

private:
    static void _GeneratePoints(double xLength, double yLength, const _PointWriter& writer);
};

PXR_NAMESPACE_CLOSE_SCOPE
