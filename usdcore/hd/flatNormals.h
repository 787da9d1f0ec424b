#pragma once

#include "usdcore/gf/vec3d.h"
#include "usdcore/gf/vec3f.h"
#include "usdcore/pxr.h"
#include "usdcore/vt/array.h"

PXR_NAMESPACE_OPEN_SCOPE

class HdMeshTopology;

/// Per-face normals of a polygon mesh as imaging shades it flat: the sum
/// of the cross products over the face's fan from its first corner,
/// normalised, turned for a left-handed winding.
class Hd_FlatNormals final
{
public:
    /// One normal per face. The points must cover every index the faces
    /// name.
    static VtArray<GfVec3f> ComputeFlatNormals(const HdMeshTopology* topology, const GfVec3f* pointsPtr);
    static VtArray<GfVec3d> ComputeFlatNormals(const HdMeshTopology* topology, const GfVec3d* pointsPtr);
};

PXR_NAMESPACE_CLOSE_SCOPE
