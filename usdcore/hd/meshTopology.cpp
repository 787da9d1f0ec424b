#include "usdcore/hd/meshTopology.h"

#include <algorithm>
#include <cstdint>
#include <limits>

PXR_NAMESPACE_OPEN_SCOPE

HdMeshTopology::HdMeshTopology(const HdMeshTopology& src, int refineLevel)
    : HdMeshTopology(src)
{
    _refineLevel = refineLevel;
}

HdMeshTopology::HdMeshTopology(const PxOsdMeshTopology& topology, int refineLevel)
    : HdMeshTopology(topology.GetScheme(), topology.GetOrientation(), topology.GetFaceVertexCounts(),
                     topology.GetFaceVertexIndices(), topology.GetHoleIndices(), refineLevel)
{
}

HdMeshTopology::HdMeshTopology(const TfToken& scheme, const TfToken& orientation,
                               const VtIntArray& faceVertexCounts,
                               const VtIntArray& faceVertexIndices, int refineLevel)
    : _scheme(scheme), _orientation(orientation), _faceVertexCounts(faceVertexCounts),
      _faceVertexIndices(faceVertexIndices), _refineLevel(refineLevel)
{
}

HdMeshTopology::HdMeshTopology(const TfToken& scheme, const TfToken& orientation,
                               const VtIntArray& faceVertexCounts,
                               const VtIntArray& faceVertexIndices,
                               const VtIntArray& holeIndices, int refineLevel)
    : _scheme(scheme), _orientation(orientation), _faceVertexCounts(faceVertexCounts),
      _faceVertexIndices(faceVertexIndices), _holeIndices(holeIndices),
      _refineLevel(refineLevel)
{
}

int HdMeshTopology::GetNumPoints() const
{
    const int* begin = _faceVertexIndices.cdata();
    const int* end = begin + _faceVertexIndices.size();
    if (begin == end) {
        return 0;
    }
    // In 64 bits: a hostile index of INT_MAX must not overflow.
    const int64_t count = static_cast<int64_t>(*std::max_element(begin, end)) + 1;
    return static_cast<int>(std::clamp<int64_t>(count, 0, std::numeric_limits<int>::max()));
}

bool HdMeshTopology::operator==(const HdMeshTopology& other) const
{
    return _scheme == other._scheme && _orientation == other._orientation &&
           _faceVertexCounts == other._faceVertexCounts &&
           _faceVertexIndices == other._faceVertexIndices &&
           _holeIndices == other._holeIndices && _refineLevel == other._refineLevel;
}

PXR_NAMESPACE_CLOSE_SCOPE
