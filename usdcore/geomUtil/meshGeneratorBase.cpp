#include "usdcore/geomUtil/meshGeneratorBase.h"

#include "usdcore/pxOsd/tokens.h"
#include "usdcore/tf/diagnostic.h"

PXR_NAMESPACE_OPEN_SCOPE

PxOsdMeshTopology GeomUtilMeshGeneratorBase::_GenerateCappedQuadTopology(size_t numRadial, size_t numQuadStrips,
                                                                         _CapStyle bottomCapStyle,
                                                                         _CapStyle topCapStyle)
{
    if (numRadial < 3) {
        TF_CODING_ERROR("A ring of %zu segments has no surface", numRadial);
        return PxOsdMeshTopology();
    }
    const size_t fanCount = (bottomCapStyle != CapStyleNone ? 1 : 0) + (topCapStyle != CapStyleNone ? 1 : 0);
    const size_t triangleCount = fanCount * numRadial;
    const size_t quadCount = numQuadStrips * numRadial;
    VtIntArray faceVertexCounts(triangleCount + quadCount);
    VtIntArray faceVertexIndices(3 * triangleCount + 4 * quadCount);
    int* count = faceVertexCounts.data();
    int* index = faceVertexIndices.data();
    const auto next = [numRadial](size_t segment) { return (segment + 1) % numRadial; };

    // ringStart is the first point of the ring the next faces stand on.
    size_t ringStart = 0;
    if (bottomCapStyle != CapStyleNone) {
        const size_t pole = ringStart++;
        for (size_t segment = 0; segment < numRadial; ++segment) {
            *count++ = 3;
            // Reversed along the ring, so that the fan faces down, away
            // from the tube.
            *index++ = static_cast<int>(ringStart + next(segment));
            *index++ = static_cast<int>(ringStart + segment);
            *index++ = static_cast<int>(pole);
        }
        if (bottomCapStyle == CapStyleSeparateEdge)
            ringStart += numRadial;
    }
    for (size_t strip = 0; strip < numQuadStrips; ++strip) {
        const size_t upper = ringStart + numRadial;
        for (size_t segment = 0; segment < numRadial; ++segment) {
            *count++ = 4;
            *index++ = static_cast<int>(ringStart + segment);
            *index++ = static_cast<int>(ringStart + next(segment));
            *index++ = static_cast<int>(upper + next(segment));
            *index++ = static_cast<int>(upper + segment);
        }
        ringStart = upper;
    }
    if (topCapStyle != CapStyleNone) {
        if (topCapStyle == CapStyleSeparateEdge)
            ringStart += numRadial;
        const size_t pole = ringStart + numRadial;
        for (size_t segment = 0; segment < numRadial; ++segment) {
            *count++ = 3;
            *index++ = static_cast<int>(ringStart + segment);
            *index++ = static_cast<int>(ringStart + next(segment));
            *index++ = static_cast<int>(pole);
        }
    }
    return PxOsdMeshTopology(PxOsdOpenSubdivTokens->catmullClark, PxOsdOpenSubdivTokens->rightHanded,
                             faceVertexCounts, faceVertexIndices);
}

PXR_NAMESPACE_CLOSE_SCOPE
