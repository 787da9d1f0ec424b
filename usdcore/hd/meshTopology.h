#pragma once

#include "usdcore/pxOsd/meshTopology.h"
#include "usdcore/pxr.h"
#include "usdcore/tf/token.h"
#include "usdcore/vt/types.h"

PXR_NAMESPACE_OPEN_SCOPE

/// A polygon mesh's connectivity as authored: for each face its vertex
/// count, all faces' vertex indices in one list, the winding orientation,
/// the subdivision scheme (carried along, never applied here) and the
/// faces marked as holes.
class HdMeshTopology
{
public:
    HdMeshTopology() = default;
    HdMeshTopology(const HdMeshTopology& src, int refineLevel);
    /// The mesh generators' topology, as imaging takes it.
    HdMeshTopology(const PxOsdMeshTopology& topology, int refineLevel = 0);
    HdMeshTopology(const TfToken& scheme, const TfToken& orientation,
                   const VtIntArray& faceVertexCounts, const VtIntArray& faceVertexIndices,
                   int refineLevel = 0);
    HdMeshTopology(const TfToken& scheme, const TfToken& orientation,
                   const VtIntArray& faceVertexCounts, const VtIntArray& faceVertexIndices,
                   const VtIntArray& holeIndices, int refineLevel = 0);

    const TfToken& GetScheme() const { return _scheme; }
    const TfToken& GetOrientation() const { return _orientation; }
    const VtIntArray& GetFaceVertexCounts() const { return _faceVertexCounts; }
    const VtIntArray& GetFaceVertexIndices() const { return _faceVertexIndices; }
    /// Face numbers in increasing order.
    const VtIntArray& GetHoleIndices() const { return _holeIndices; }
    void SetHoleIndices(const VtIntArray& holeIndices) { _holeIndices = holeIndices; }
    int GetRefineLevel() const { return _refineLevel; }

    int GetNumFaces() const { return static_cast<int>(_faceVertexCounts.size()); }
    int GetNumFaceVaryings() const { return static_cast<int>(_faceVertexIndices.size()); }
    /// One more than the largest vertex index (0 without indices).
    int GetNumPoints() const;

    bool operator==(const HdMeshTopology& other) const;
    bool operator!=(const HdMeshTopology& other) const { return !(*this == other); }

private:
    TfToken _scheme;
    TfToken _orientation;
    VtIntArray _faceVertexCounts;
    VtIntArray _faceVertexIndices;
    VtIntArray _holeIndices;
    int _refineLevel = 0;
};

PXR_NAMESPACE_CLOSE_SCOPE
