#pragma once

#include "usdcore/pxr.h"
#include "usdcore/tf/token.h"
#include "usdcore/vt/types.h"

PXR_NAMESPACE_OPEN_SCOPE

/// The connectivity of a polygon mesh as the mesh generators hand it to
/// imaging: scheme, winding, face-vertex counts and indices, hole faces.
class PxOsdMeshTopology
{
public:
    PxOsdMeshTopology() = default;
    PxOsdMeshTopology(const TfToken& scheme, const TfToken& orientation,
                      const VtIntArray& faceVertexCounts, const VtIntArray& faceVertexIndices)
        : _scheme(scheme), _orientation(orientation), _faceVertexCounts(faceVertexCounts),
          _faceVertexIndices(faceVertexIndices)
    {
    }
    PxOsdMeshTopology(const TfToken& scheme, const TfToken& orientation,
                      const VtIntArray& faceVertexCounts, const VtIntArray& faceVertexIndices,
                      const VtIntArray& holeIndices)
        : _scheme(scheme), _orientation(orientation), _faceVertexCounts(faceVertexCounts),
          _faceVertexIndices(faceVertexIndices), _holeIndices(holeIndices)
    {
    }

    const TfToken& GetScheme() const { return _scheme; }
    const TfToken& GetOrientation() const { return _orientation; }
    const VtIntArray& GetFaceVertexCounts() const { return _faceVertexCounts; }
    const VtIntArray& GetFaceVertexIndices() const { return _faceVertexIndices; }
    const VtIntArray& GetHoleIndices() const { return _holeIndices; }

    bool operator==(const PxOsdMeshTopology& other) const
    {
        return _scheme == other._scheme && _orientation == other._orientation &&
               _faceVertexCounts == other._faceVertexCounts &&
               _faceVertexIndices == other._faceVertexIndices && _holeIndices == other._holeIndices;
    }
    bool operator!=(const PxOsdMeshTopology& other) const { return !(*this == other); }

private:
    TfToken _scheme;
    TfToken _orientation;
    VtIntArray _faceVertexCounts;
    VtIntArray _faceVertexIndices;
    VtIntArray _holeIndices;
};

PXR_NAMESPACE_CLOSE_SCOPE
