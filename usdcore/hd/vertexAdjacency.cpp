#include "usdcore/hd/vertexAdjacency.h"

#include "usdcore/hd/meshTopology.h"
#include "usdcore/hd/tokens.h"
#include "usdcore/tf/diagnostic.h"

#include <utility>
#include <vector>

PXR_NAMESPACE_OPEN_SCOPE

void Hd_VertexAdjacency::BuildAdjacencyTable(const HdMeshTopology* topology)
{
    _numPoints = 0;
    _adjacencyTable = VtIntArray();
    if (!topology)
        return;
    const VtIntArray& counts = topology->GetFaceVertexCounts();
    const VtIntArray& indices = topology->GetFaceVertexIndices();
    const int pointCount = topology->GetNumPoints();

    // A first pass counts the corners at each point and checks that the
    // faces fit the indices, so that the second pass can trust both.
    std::vector<int> cornerCount(static_cast<size_t>(pointCount), 0);
    size_t used = 0;
    for (const int count : counts) {
        if (count < 0 || static_cast<size_t>(count) > indices.size() - used) {
            TF_WARN("Face vertex counts run past the %zu face vertex indices", indices.size());
            return;
        }
        for (int k = 0; k < count; ++k) {
            const int point = indices[used + static_cast<size_t>(k)];
            if (point < 0 || point >= pointCount) {
                TF_WARN("Vertex index %d is outside the mesh's %d points", point, pointCount);
                return;
            }
            ++cornerCount[static_cast<size_t>(point)];
        }
        used += static_cast<size_t>(count);
    }

    size_t size = 2 * static_cast<size_t>(pointCount) + 2 * used;
    VtIntArray table(size);
    size_t offset = 2 * static_cast<size_t>(pointCount);
    for (int point = 0; point < pointCount; ++point) {
        table[2 * static_cast<size_t>(point)] = static_cast<int>(offset);
        table[2 * static_cast<size_t>(point) + 1] = 0;
        offset += 2 * static_cast<size_t>(cornerCount[static_cast<size_t>(point)]);
    }
    const bool flip = topology->GetOrientation() != HdTokens->rightHanded;
    size_t faceStart = 0;
    for (const int count : counts) {
        for (int k = 0; k < count; ++k) {
            int previous = indices[faceStart + static_cast<size_t>((k + count - 1) % count)];
            const int point = indices[faceStart + static_cast<size_t>(k)];
            int next = indices[faceStart + static_cast<size_t>((k + 1) % count)];
            if (flip)
                std::swap(previous, next);
            int& filled = table[2 * static_cast<size_t>(point) + 1];
            const size_t pair = static_cast<size_t>(table[2 * static_cast<size_t>(point)]) + 2 * static_cast<size_t>(filled);
            table[pair] = previous;
            table[pair + 1] = next;
            ++filled;
        }
        faceStart += static_cast<size_t>(count);
    }
    _numPoints = pointCount;
    _adjacencyTable = std::move(table);
}

PXR_NAMESPACE_CLOSE_SCOPE
