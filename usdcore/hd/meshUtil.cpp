#include "usdcore/hd/meshUtil.h"

#include "usdcore/hd/tokens.h"
#include "usdcore/tf/diagnostic.h"

#include <algorithm>
#include <cstdint>

PXR_NAMESPACE_OPEN_SCOPE

namespace {

// Walks the faces in order, calling visit(face, offset, vertexCount) for each
// face that is triangulated: at least three vertices and not a hole. Every
// face, triangulated or not, uses up its count of indices; a negative
// count (only in broken files) uses up none. Holes are matched in increasing
// order. Returns true if a face of fewer than three vertices was seen.
template <class Visit>
bool ForEachTriangulatedFace(const VtIntArray& faceVertexCounts, const VtIntArray& holeIndices,
                             Visit&& visit)
{
    const int* counts = faceVertexCounts.cdata();
    const int* holes = holeIndices.cdata();
    const size_t faceCount = faceVertexCounts.size();
    const size_t holeCount = holeIndices.size();
    size_t nextHole = 0;
    bool sawDegenerate = false;
    int64_t offset = 0;
    for (size_t face = 0; face < faceCount; ++face) {
        const int vertexCount = counts[face];
        if (vertexCount < 3) {
            sawDegenerate = true;
        } else if (nextHole < holeCount && holes[nextHole] == static_cast<int64_t>(face)) {
            ++nextHole;
        } else {
            visit(face, offset, vertexCount);
        }
        offset += std::max(vertexCount, 0);
    }
    return sawDegenerate;
}

int64_t CountTriangles(const VtIntArray& faceVertexCounts, const VtIntArray& holeIndices,
                       bool* sawDegenerate)
{
    int64_t triangles = 0;
    *sawDegenerate = ForEachTriangulatedFace(
        faceVertexCounts, holeIndices,
        [&triangles](size_t, int64_t, int vertexCount) { triangles += vertexCount - 2; });
    return triangles;
}

/// The number of triangles, or -1 (with a warning) when the counts ask for
/// more triangles than there are face-vertex indices. A consistent topology
/// never does (a face of n indices gives n - 2 triangles), so this only
/// refuses counts that would make us allocate far beyond the input.
int64_t PlanTriangles(const HdMeshTopology& topology, const VtIntArray& holeIndices,
                      const SdfPath& id)
{
    bool sawDegenerate = false;
    const int64_t triangles =
        CountTriangles(topology.GetFaceVertexCounts(), holeIndices, &sawDegenerate);
    if (sawDegenerate) {
        TF_WARN("Mesh <%s> has faces of fewer than three vertices; they give no triangles",
                id.GetText());
    }
    const int64_t indexCount = static_cast<int64_t>(topology.GetFaceVertexIndices().size());
    if (triangles > indexCount) {
        TF_WARN("Mesh <%s>: face-vertex counts ask for %lld triangles from %lld face-vertex "
                "indices; the mesh is not triangulated",
                id.GetText(), static_cast<long long>(triangles),
                static_cast<long long>(indexCount));
        return -1;
    }
    return triangles;
}

void WarnOverrun(const SdfPath& id, const char* what)
{
    TF_WARN("Mesh <%s>: face-vertex counts run past the %s; those triangles are (0, 0, 0)",
            id.GetText(), what);
}

bool IsFlipped(const HdMeshTopology& topology)
{
    return topology.GetOrientation() != HdTokens->rightHanded;
}

// Fan triangle j of the face whose values start at \p offset, wound the
// other way when flipped; false (and zeros) if it reads past \p size values.
template <class T, class Out>
bool FanTriangle(const T* values, int64_t size, int64_t offset, int j, bool flip, Out* corners)
{
    if (offset + j + 2 >= size) {
        corners[0] = corners[1] = corners[2] = Out(0);
        return false;
    }
    corners[0] = values[offset];
    corners[1] = values[offset + j + (flip ? 2 : 1)];
    corners[2] = values[offset + j + (flip ? 1 : 2)];
    return true;
}

template <class T>
void TriangulateFaceVarying(const HdMeshTopology& topology, const VtIntArray& holeIndices,
                            int64_t triangleCount, const SdfPath& id, const void* source,
                            int numElements, VtValue* triangulated)
{
    const T* values = static_cast<const T*>(source);
    const int64_t size = values ? std::max(numElements, 0) : 0;
    const bool flip = IsFlipped(topology);
    VtArray<T> result(static_cast<size_t>(triangleCount) * 3);
    T* out = result.data();
    bool overrun = false;
    // A topology refused by the plan (-1, given here as 0) gives no values.
    if (triangleCount > 0) {
        ForEachTriangulatedFace(topology.GetFaceVertexCounts(), holeIndices,
                                [&](size_t, int64_t offset, int vertexCount) {
                                    for (int j = 0; j < vertexCount - 2; ++j, out += 3) {
                                        overrun |= !FanTriangle(values, size, offset, j, flip, out);
                                    }
                                });
    }
    if (overrun) {
        WarnOverrun(id, "face-varying values");
    }
    *triangulated = VtValue(std::move(result));
}

} // namespace

void HdMeshUtil::ComputeTriangleIndices(VtVec3iArray* indices, VtIntArray* primitiveParams,
                                        VtIntArray* edgeIndices) const
{
    if (!_topology || !indices || !primitiveParams) {
        TF_CODING_ERROR("Triangulation of <%s> needs a topology and output arrays",
                        _id.GetText());
        return;
    }
    const int64_t triangleCount = PlanTriangles(*_topology, _topology->GetHoleIndices(), _id);
    const size_t outputSize = triangleCount < 0 ? 0 : static_cast<size_t>(triangleCount);
    indices->resize(outputSize);
    primitiveParams->resize(outputSize);
    if (edgeIndices) {
        edgeIndices->resize(outputSize);
    }
    if (outputSize == 0) {
        return;
    }

    const VtIntArray& faceVertexIndices = _topology->GetFaceVertexIndices();
    const int* vertices = faceVertexIndices.cdata();
    const int64_t vertexIndexCount = static_cast<int64_t>(faceVertexIndices.size());
    const bool flip = IsFlipped(*_topology);
    GfVec3i* triangles = indices->data();
    int* params = primitiveParams->data();
    int* edges = edgeIndices ? edgeIndices->data() : nullptr;
    size_t t = 0;
    bool overrun = false;
    ForEachTriangulatedFace(
        _topology->GetFaceVertexCounts(), _topology->GetHoleIndices(),
        [&](size_t face, int64_t offset, int vertexCount) {
            // Authored edges are numbered by face-vertex position; a fan
            // triangle of a polygon is tagged one past its face's first.
            int edgeIndex = static_cast<int>(offset);
            for (int j = 0; j < vertexCount - 2; ++j, ++t) {
                int corners[3];
                overrun |= !FanTriangle(vertices, vertexIndexCount, offset, j, flip, corners);
                triangles[t] = GfVec3i(corners[0], corners[1], corners[2]);
                // Which of the triangle's edges lie inside the polygon.
                int edgeFlag = 0;
                if (vertexCount > 3) {
                    edgeFlag = j == 0 ? 1 : (j == vertexCount - 3 ? 2 : 3);
                    ++edgeIndex;
                }
                params[t] = EncodeCoarseFaceParam(static_cast<int>(face), edgeFlag);
                if (edges) {
                    edges[t] = edgeIndex;
                }
            }
        });
    if (overrun) {
        WarnOverrun(_id, "face-vertex indices");
    }
}

bool HdMeshUtil::ComputeTriangulatedFaceVaryingPrimvar(const void* source, int numElements,
                                                       HdType dataType,
                                                       VtValue* triangulated) const
{
    if (!_topology || !triangulated) {
        TF_CODING_ERROR("Face-varying triangulation of <%s> needs a topology and an output",
                        _id.GetText());
        return false;
    }
    // Refined meshes keep their holes in the refinement, not here.
    const VtIntArray noHoles;
    const VtIntArray& holeIndices =
        _topology->GetRefineLevel() > 0 ? noHoles : _topology->GetHoleIndices();
    const int64_t planned = PlanTriangles(*_topology, holeIndices, _id);
    const int64_t triangleCount = std::max<int64_t>(planned, 0);
    switch (dataType) {
#define HD_TRIANGULATE_CASE_(hdType, cppType)                                 \
    case hdType:                                                              \
        TriangulateFaceVarying<cppType>(*_topology, holeIndices, triangleCount, _id, source, \
                                        numElements, triangulated);          \
        return true;
        HD_TRIANGULATE_CASE_(HdTypeFloat, float)
        HD_TRIANGULATE_CASE_(HdTypeFloatVec2, GfVec2f)
        HD_TRIANGULATE_CASE_(HdTypeFloatVec3, GfVec3f)
        HD_TRIANGULATE_CASE_(HdTypeFloatVec4, GfVec4f)
        HD_TRIANGULATE_CASE_(HdTypeDouble, double)
        HD_TRIANGULATE_CASE_(HdTypeDoubleVec2, GfVec2d)
        HD_TRIANGULATE_CASE_(HdTypeDoubleVec3, GfVec3d)
        HD_TRIANGULATE_CASE_(HdTypeDoubleVec4, GfVec4d)
#undef HD_TRIANGULATE_CASE_
    default:
        TF_CODING_ERROR("Face-varying triangulation of <%s>: unsupported value type %d",
                        _id.GetText(), static_cast<int>(dataType));
        return false;
    }
}

PXR_NAMESPACE_CLOSE_SCOPE

