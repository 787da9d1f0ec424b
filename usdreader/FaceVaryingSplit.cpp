#include "usdreader/FaceVaryingSplit.h"

#include <array>
#include <climits>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <unordered_map>

namespace Tavrin {

namespace {

// Up to this many copies a vertex's chain is scanned; a scan over a few
// short keys beats hashing. Longer chains go through the grid.
constexpr int kLongChain = 8;

// The longest key the grid indexes: a normal and a coordinate.
constexpr int kMaxGridKeyLength = 5;

// Cells twice the tolerance wide: the values within tolerance of a query lie
// in two neighbouring cells per component (three when the query sits within
// a rounding error of a cell's middle).
constexpr double kCellSize = 2.0 * static_cast<double>(kFaceVaryingKeyTolerance);

// From 2^24 on, neighbouring floats are at least 1 apart, so a value there
// matches only itself (and no value below it): its bits are its cell.
constexpr float kExactRange = 16777216.0f;

// Below kExactRange, value / kCellSize stays under 2^31, whose rounding
// error is far smaller than this margin.
constexpr double kCellMargin = 1e-4;

// Tags exact cells apart from grid cells, which stay within +-2^31.
constexpr std::int64_t kExactCellTag = std::int64_t(1) << 40;

std::uint64_t SplitMix(std::uint64_t x)
{
    x += 0x9e3779b97f4a7c15ull;
    x = (x ^ (x >> 30)) * 0xbf58476d1ce4e5b9ull;
    x = (x ^ (x >> 27)) * 0x94d049bb133111ebull;
    return x ^ (x >> 31);
}

std::int64_t ExactCell(float value)
{
    std::uint32_t bits = 0;
    std::memcpy(&bits, &value, sizeof bits);
    return kExactCellTag | static_cast<std::int64_t>(bits);
}

std::int64_t CellOf(float value)
{
    if (std::fabs(value) >= kExactRange)
        return ExactCell(value);
    return static_cast<std::int64_t>(std::floor(value / kCellSize));
}

bool AllFinite(const CTavrinCornerKeys& keys, std::size_t corner)
{
    for (int i = 0; i < keys.Length(); ++i) {
        if (!std::isfinite(keys.Component(corner, i)))
            return false;
    }
    return true;
}

// The walk's state, with each vertex's copies linked into a chain of their
// own instead of one list of every copy of the mesh.
class CFaceVaryingSplitter {
public:
    CFaceVaryingSplitter(int vertexCount, const CTavrinCornerKeys& keys, CTavrinFaceVaryingSplit& split)
        : m_vertexCount(vertexCount), m_keys(keys), m_keyLength(keys.Length()), m_split(split),
          m_chains(static_cast<std::size_t>(vertexCount))
    {
        m_split.keyCornerOfVertex.assign(static_cast<std::size_t>(vertexCount), -1);
    }

    // The vertex or copy that the corner goes to.
    int Resolve(int vertex, int corner)
    {
        int& keyCorner = m_split.keyCornerOfVertex[static_cast<std::size_t>(vertex)];
        if (keyCorner < 0) {
            keyCorner = corner;
            return vertex;
        }
        const std::size_t key = static_cast<std::size_t>(corner);
        const Chain& chain = m_chains[static_cast<std::size_t>(vertex)];
        if (chain.length == 0) {
            if (m_keys.Match(KeyOf(vertex), key))
                return vertex;
        } else {
            const int found =
                chain.length > kLongChain ? SearchGrid(vertex, key) : ScanChain(chain.first, key);
            if (found >= 0)
                return found;
        }
        return AddCopy(vertex, corner);
    }

private:
    struct Chain {
        int first = -1;
        int last = -1;
        int length = 0;
    };

    // The corner whose key a vertex or copy carries.
    std::size_t KeyOf(int index) const
    {
        const int corner = index < m_vertexCount
                               ? m_split.keyCornerOfVertex[static_cast<std::size_t>(index)]
                               : m_split.copies[CopySlot(index)].corner;
        return static_cast<std::size_t>(corner);
    }

    std::size_t CopySlot(int index) const { return static_cast<std::size_t>(index - m_vertexCount); }

    int ScanChain(int copy, std::size_t key) const
    {
        for (; copy >= 0; copy = m_nextCopy[CopySlot(copy)]) {
            if (m_keys.Match(KeyOf(copy), key))
                return copy;
        }
        return -1;
    }

    int AddCopy(int vertex, int corner)
    {
        Chain& chain = m_chains[static_cast<std::size_t>(vertex)];
        const int index = m_vertexCount + static_cast<int>(m_split.copies.size());
        m_split.copies.push_back({chain.length == 0 ? vertex : chain.last, corner});
        m_nextCopy.push_back(-1);
        m_ownerOfCopy.push_back(vertex);
        if (chain.length == 0)
            chain.first = index;
        else
            m_nextCopy[CopySlot(chain.last)] = index;
        chain.last = index;
        ++chain.length;
        if (chain.length == kLongChain + 1) {
            for (int copy = chain.first; copy >= 0; copy = m_nextCopy[CopySlot(copy)])
                InsertIntoGrid(vertex, copy);
        } else if (chain.length > kLongChain) {
            InsertIntoGrid(vertex, index);
        }
        return index;
    }

    std::uint64_t CellHash(int vertex, const std::int64_t* cells) const
    {
        std::uint64_t hash = SplitMix(static_cast<std::uint32_t>(vertex));
        for (int i = 0; i < m_keyLength; ++i)
            hash = SplitMix(hash ^ static_cast<std::uint64_t>(cells[i]));
        return hash;
    }

    // Keys with an infinite or NaN component never match: not indexed.
    void InsertIntoGrid(int vertex, int copy)
    {
        const std::size_t key = KeyOf(copy);
        if (!AllFinite(m_keys, key))
            return;
        std::array<std::int64_t, kMaxGridKeyLength> cells{};
        for (int i = 0; i < m_keyLength; ++i)
            cells[static_cast<std::size_t>(i)] = CellOf(m_keys.Component(key, i));
        m_grid[CellHash(vertex, cells.data())].push_back(copy);
    }

    // The first copy in chain order (the lowest index) that matches, among
    // the copies in the cells around the key. Hash collisions only add
    // candidates, which the owner and match tests weed out.
    int SearchGrid(int vertex, std::size_t key) const
    {
        if (!AllFinite(m_keys, key))
            return -1;
        std::array<std::int64_t, kMaxGridKeyLength> lowest{};
        std::array<std::int64_t, kMaxGridKeyLength> highest{};
        for (int i = 0; i < m_keyLength; ++i) {
            const auto slot = static_cast<std::size_t>(i);
            const float value = m_keys.Component(key, i);
            if (std::fabs(value) >= kExactRange) {
                lowest[slot] = highest[slot] = ExactCell(value);
            } else {
                const double position = value / kCellSize;
                lowest[slot] = static_cast<std::int64_t>(std::floor(position - 0.5 - kCellMargin));
                highest[slot] = static_cast<std::int64_t>(std::floor(position + 0.5 + kCellMargin));
            }
        }
        int best = -1;
        std::array<std::int64_t, kMaxGridKeyLength> cells = lowest;
        for (;;) {
            const auto bucket = m_grid.find(CellHash(vertex, cells.data()));
            if (bucket != m_grid.end()) {
                for (const int copy : bucket->second) {
                    if ((best < 0 || copy < best) && m_ownerOfCopy[CopySlot(copy)] == vertex &&
                        m_keys.Match(KeyOf(copy), key))
                        best = copy;
                }
            }
            // Next combination of cells, the first component fastest.
            int i = 0;
            for (; i < m_keyLength; ++i) {
                const auto slot = static_cast<std::size_t>(i);
                if (cells[slot] < highest[slot]) {
                    ++cells[slot];
                    break;
                }
                cells[slot] = lowest[slot];
            }
            if (i == m_keyLength)
                return best;
        }
    }

    int m_vertexCount;
    const CTavrinCornerKeys& m_keys;
    int m_keyLength;
    CTavrinFaceVaryingSplit& m_split;
    std::vector<Chain> m_chains;   // per vertex
    std::vector<int> m_nextCopy;   // per copy: the next copy of its chain
    std::vector<int> m_ownerOfCopy; // per copy: the vertex it belongs to
    std::unordered_map<std::uint64_t, std::vector<int>> m_grid;
};

} // namespace

bool FaceVaryingKeysMatch(const float* a, const float* b, int keyLength)
{
    for (int i = 0; i < keyLength; ++i) {
        // Written so that NaN fails the test.
        if (!(std::fabs(a[i] - b[i]) < kFaceVaryingKeyTolerance))
            return false;
    }
    return true;
}

bool CTavrinCornerKeys::Match(std::size_t cornerA, std::size_t cornerB) const
{
    return (!normals || FaceVaryingKeysMatch(normals + cornerA * 3, normals + cornerB * 3, 3)) &&
           (!coordinates ||
            FaceVaryingKeysMatch(coordinates + cornerA * 2, coordinates + cornerB * 2, 2));
}

CTavrinFaceVaryingSplit SplitFaceVaryingCorners(int vertexCount, int* cornerVertices,
                                                std::size_t cornerCount,
                                                const CTavrinCornerKeys& keys)
{
    CTavrinFaceVaryingSplit split;
    // Copies are numbered as int after every vertex: a corner count that
    // could number past INT_MAX (or a nonsensical argument) splits nothing.
    if (vertexCount < 0 ||
        cornerCount > static_cast<std::size_t>(INT_MAX - vertexCount))
        return split;
    CFaceVaryingSplitter splitter(vertexCount, keys, split);
    for (std::size_t corner = 0; corner < cornerCount; ++corner) {
        const int vertex = cornerVertices[corner];
        if (vertex < 0 || vertex >= vertexCount)
            continue;
        cornerVertices[corner] = splitter.Resolve(vertex, static_cast<int>(corner));
    }
    return split;
}

} // namespace Tavrin
