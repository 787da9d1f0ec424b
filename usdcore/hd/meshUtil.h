#pragma once

#include "usdcore/hd/meshTopology.h"
#include "usdcore/hd/types.h"
#include "usdcore/pxr.h"
#include "usdcore/sdf/path.h"
#include "usdcore/vt/types.h"
#include "usdcore/vt/value.h"

PXR_NAMESPACE_OPEN_SCOPE

/// Triangulation of a mesh topology, and of face-varying values with the
/// same triangles.
///
/// Each face of n >= 3 vertices f0..f(n-1) becomes the fan (f0, fj+1, fj+2),
/// j = 0..n-3; when the orientation is not "rightHanded" each triangle is
/// wound the other way, (f0, fj+2, fj+1). Faces of fewer than three vertices
/// and hole faces give no triangle but still use up their indices. A
/// triangle that would read past the end of the indices comes out as
/// (0, 0, 0). Both post a warning naming the mesh. Linear in the topology.
class HdMeshUtil
{
public:
    HdMeshUtil(const HdMeshTopology* topology, const SdfPath& id) : _topology(topology), _id(id)
    {
    }

    /// One triangle per fan triangle into \p indices; for each, the face
    /// it came from with edge flags into \p primitiveParams (see
    /// EncodeCoarseFaceParam) and, if asked, an authored-edge index into
    /// \p edgeIndices.
    void ComputeTriangleIndices(VtVec3iArray* indices, VtIntArray* primitiveParams,
                                VtIntArray* edgeIndices = nullptr) const;

    /// \p numElements face-varying values (one per face-vertex index) of
    /// \p dataType at \p source, as three values per triangle in the order
    /// of ComputeTriangleIndices: value 3t + k belongs to corner k of
    /// triangle t. Float and double scalars and 2-, 3-, 4-vectors are
    /// supported; false (with a coding error) for other types.
    bool ComputeTriangulatedFaceVaryingPrimvar(const void* source, int numElements,
                                               HdType dataType, VtValue* triangulated) const;

    /// A triangle's primitive parameter: its face index, and which of its
    /// edges are inside the face (0 a whole triangle; 1 first fan triangle,
    /// 2 last, 3 middle).
    static int EncodeCoarseFaceParam(int faceIndex, int edgeFlag)
    {
        // Shifted unsigned: no overflow trap for huge face numbers.
        return static_cast<int>((static_cast<unsigned>(faceIndex) << 2) |
                                static_cast<unsigned>(edgeFlag & 3));
    }
    static int DecodeFaceIndexFromCoarseFaceParam(int coarseFaceParam)
    {
        return coarseFaceParam >> 2;
    }
    static int DecodeEdgeFlagFromCoarseFaceParam(int coarseFaceParam)
    {
        return coarseFaceParam & 3;
    }

private:
    const HdMeshTopology* _topology;
    SdfPath _id;
};

PXR_NAMESPACE_CLOSE_SCOPE
