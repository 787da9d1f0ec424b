#pragma once

#include <cstddef>
#include <vector>

namespace Tavrin {

// The host keeps one normal and one texture coordinate per vertex, while a
// USD mesh may carry one per face corner. Each triangle corner gets a key
// (its face-varying normal and/or coordinate, as floats); a vertex whose
// corners disagree is split into copies, one per distinct key.
//
// The numbering is the one of an ordered walk over the corners:
// - the first corner that reaches a vertex gives the vertex its key;
// - a later corner goes to the first copy (in creation order) whose key
//   matches its own; only while the vertex has no copies is the vertex's
//   own key compared;
// - failing that, a new copy of the chain's last member (the vertex itself
//   when it has none) is made, numbered after every vertex and copy so far.
// Two keys match when every component differs by less than
// kFaceVaryingKeyTolerance (single precision); NaN never matches.
//
// The walk as written compares every corner with every copy made so far;
// here each vertex keeps its own chain of copies, short chains are scanned,
// and long ones (a hub vertex with many distinct keys) are looked up in a
// hash grid of tolerance-sized cells: expected linear time overall.
constexpr float kFaceVaryingKeyTolerance = 0.005f;

// The key of every corner, read in place from the face-varying arrays: a
// normal (3 floats per corner) and/or a texture coordinate (2 floats per
// corner), in that order. Without either, every key is empty and all match.
struct CTavrinCornerKeys {
    const float* normals = nullptr;
    const float* coordinates = nullptr;

    int NormalLength() const { return normals ? 3 : 0; }
    int Length() const { return NormalLength() + (coordinates ? 2 : 0); }
    float Component(std::size_t corner, int i) const
    {
        return i < NormalLength() ? normals[corner * 3 + static_cast<std::size_t>(i)]
                                  : coordinates[corner * 2 + static_cast<std::size_t>(i - NormalLength())];
    }
    bool Match(std::size_t cornerA, std::size_t cornerB) const;
};

struct CTavrinFaceVaryingSplit {
    struct Copy {
        int source; // the vertex or copy that the copy was split from
        int corner; // the corner whose key the copy carries
    };

    // Per vertex, the corner whose key the vertex carries; -1 when no corner
    // reaches the vertex.
    std::vector<int> keyCornerOfVertex;
    // Copy i is vertex vertexCount + i.
    std::vector<Copy> copies;
};

// cornerVertices: cornerCount vertex indices, each in [0, vertexCount),
// re-pointed in place to the copies; keys: one per corner.
// Corners naming a vertex outside the range are left alone and make no key.
CTavrinFaceVaryingSplit SplitFaceVaryingCorners(int vertexCount, int* cornerVertices,
                                                std::size_t cornerCount,
                                                const CTavrinCornerKeys& keys);

// The match of two keys of keyLength floats.
bool FaceVaryingKeysMatch(const float* a, const float* b, int keyLength);

} // namespace Tavrin
