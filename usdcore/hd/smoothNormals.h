#pragma once

#include "usdcore/gf/vec3d.h"
#include "usdcore/gf/vec3f.h"
#include "usdcore/pxr.h"
#include "usdcore/vt/array.h"

PXR_NAMESPACE_OPEN_SCOPE

class Hd_VertexAdjacency;

/// Per-point normals of a polygon mesh as imaging shades it smoothly: at
/// each point the sum, over the face corners there, of the cross product
/// of the edges to the next and to the previous neighbour, normalised. Each
/// corner weighs in by the parallelogram its edges span. A point whose
/// corners all lie on degenerate edges gets the zero vector.
class Hd_SmoothNormals final
{
public:
    /// One normal per point, for the first min(numPoints, the adjacency's
    /// point count) points.
    static VtArray<GfVec3f> ComputeSmoothNormals(const Hd_VertexAdjacency* adjacency, int numPoints,
                                                 const GfVec3f* pointsPtr);
    static VtArray<GfVec3d> ComputeSmoothNormals(const Hd_VertexAdjacency* adjacency, int numPoints,
                                                 const GfVec3d* pointsPtr);
};

PXR_NAMESPACE_CLOSE_SCOPE
