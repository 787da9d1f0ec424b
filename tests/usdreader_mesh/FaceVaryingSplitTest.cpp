#include "usdreader/FaceVaryingSplit.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>
#include <map>
#include <random>
#include <vector>

using Tavrin::CTavrinFaceVaryingSplit;
using Tavrin::SplitFaceVaryingCorners;

namespace {

// The numbering walk done the plain way, kept here as the reference: one list
// of every split link, walked in ascending copy order for every corner, and
// stored keys in an ordered map.
struct ReferenceWalk {
    std::vector<int> corners;
    std::map<int, std::vector<float>> storedKeys;
    std::map<int, int> sourceOfCopy;
};

bool ReferenceMatch(const std::vector<float>& a, const std::vector<float>& b)
{
    for (std::size_t i = 0; i < a.size(); ++i) {
        const float difference = std::fabs(a[i] - b[i]);
        if (!(difference < 0.005f))
            return false;
    }
    return true;
}

ReferenceWalk WalkReference(int vertexCount, std::vector<int> corners, const std::vector<float>& keys,
                            int keyLength)
{
    ReferenceWalk walk;
    int nextIndex = vertexCount;
    for (std::size_t corner = 0; corner < corners.size(); ++corner) {
        const int vertex = corners[corner];
        const std::vector<float> key(keys.begin() + static_cast<long>(corner) * keyLength,
                                     keys.begin() + static_cast<long>(corner + 1) * keyLength);
        int current = vertex;
        bool matched = false;
        for (const auto& [copy, source] : walk.sourceOfCopy) {
            if (source != current)
                continue;
            current = copy;
            if (ReferenceMatch(walk.storedKeys[current], key)) {
                corners[corner] = current;
                matched = true;
                break;
            }
        }
        if (matched)
            continue;
        const auto stored = walk.storedKeys.find(current);
        if (stored == walk.storedKeys.end()) {
            walk.storedKeys[current] = key;
        } else if (!ReferenceMatch(stored->second, key)) {
            walk.storedKeys[nextIndex] = key;
            walk.sourceOfCopy[nextIndex] = current;
            corners[corner] = nextIndex;
            ++nextIndex;
        }
    }
    walk.corners = std::move(corners);
    return walk;
}

struct FastSplit {
    std::vector<int> corners;
    CTavrinFaceVaryingSplit split;
};

// Keys of length 2 are coordinates, 3 normals, 5 a normal and a coordinate.
FastSplit Split(int vertexCount, std::vector<int> corners, const std::vector<float>& keys, int keyLength)
{
    std::vector<float> normals;
    std::vector<float> coordinates;
    const int normalLength = keyLength >= 3 ? 3 : 0;
    for (std::size_t corner = 0; corner < corners.size(); ++corner) {
        const auto key = keys.begin() + static_cast<long>(corner) * keyLength;
        normals.insert(normals.end(), key, key + normalLength);
        coordinates.insert(coordinates.end(), key + normalLength, key + keyLength);
    }
    Tavrin::CTavrinCornerKeys cornerKeys;
    if (normalLength > 0)
        cornerKeys.normals = normals.data();
    if (keyLength != normalLength)
        cornerKeys.coordinates = coordinates.data();
    FastSplit result;
    result.split = SplitFaceVaryingCorners(vertexCount, corners.data(), corners.size(), cornerKeys);
    result.corners = std::move(corners);
    return result;
}

bool SameBits(const float* a, const float* b, int count)
{
    return count == 0 || std::memcmp(a, b, sizeof(float) * static_cast<std::size_t>(count)) == 0;
}

// The fast split and the reference agree on every corner, every copy's
// source and every key a vertex or copy carries.
void ExpectSameAsReference(int vertexCount, const std::vector<int>& corners, const std::vector<float>& keys,
                           int keyLength)
{
    const ReferenceWalk reference = WalkReference(vertexCount, corners, keys, keyLength);
    const FastSplit fast = Split(vertexCount, corners, keys, keyLength);

    ASSERT_EQ(fast.corners, reference.corners);
    ASSERT_EQ(fast.split.copies.size(), reference.sourceOfCopy.size());
    for (std::size_t i = 0; i < fast.split.copies.size(); ++i) {
        const int index = vertexCount + static_cast<int>(i);
        ASSERT_EQ(fast.split.copies[i].source, reference.sourceOfCopy.at(index));
        const int corner = fast.split.copies[i].corner;
        ASSERT_TRUE(SameBits(keys.data() + corner * keyLength,
                             reference.storedKeys.at(index).data(), keyLength));
    }
    ASSERT_EQ(fast.split.keyCornerOfVertex.size(), static_cast<std::size_t>(vertexCount));
    for (int vertex = 0; vertex < vertexCount; ++vertex) {
        const int corner = fast.split.keyCornerOfVertex[static_cast<std::size_t>(vertex)];
        const auto stored = reference.storedKeys.find(vertex);
        ASSERT_EQ(corner >= 0, stored != reference.storedKeys.end()) << "vertex " << vertex;
        if (corner >= 0) {
            ASSERT_TRUE(SameBits(keys.data() + corner * keyLength, stored->second.data(),
                                 keyLength));
        }
    }
}

// Kinds of key values: all distinct; drawn from a few values 0.003 apart so
// that exact repeats and near misses on both sides of the tolerance are
// common; jittered around such values; and the same with NaNs and
// infinities mixed in.
enum class Values { Distinct, Palette, Jittered, Hostile };

float DrawValue(Values kind, std::mt19937& random)
{
    std::uniform_int_distribution<int> paletteEntry(0, 4);
    std::uniform_real_distribution<float> unit(-1.0f, 1.0f);
    std::uniform_int_distribution<int> percent(0, 99);
    switch (kind) {
    case Values::Distinct:
        return unit(random);
    case Values::Palette:
        return 0.003f * static_cast<float>(paletteEntry(random));
    case Values::Jittered:
        return 0.003f * static_cast<float>(paletteEntry(random)) + 0.002f * unit(random);
    case Values::Hostile: {
        const int roll = percent(random);
        if (roll < 3)
            return std::numeric_limits<float>::quiet_NaN();
        if (roll < 5)
            return std::numeric_limits<float>::infinity();
        if (roll < 8)
            return 3.0e7f; // beyond the range where neighbouring floats are close
        return 0.003f * static_cast<float>(paletteEntry(random));
    }
    }
    return 0.0f;
}

void RunRandomCase(unsigned seed, int vertexCount, int cornerCount, int keyLength, Values kind)
{
    std::mt19937 random(seed);
    std::uniform_int_distribution<int> vertex(0, vertexCount - 1);
    std::vector<int> corners(static_cast<std::size_t>(cornerCount));
    for (int& corner : corners)
        corner = vertex(random);
    std::vector<float> keys(static_cast<std::size_t>(cornerCount * keyLength));
    for (float& value : keys)
        value = DrawValue(kind, random);
    SCOPED_TRACE(::testing::Message() << "seed " << seed << ", " << vertexCount << " vertices, "
                                      << cornerCount << " corners, key length " << keyLength);
    ExpectSameAsReference(vertexCount, corners, keys, keyLength);
}

} // namespace

// ---------------------------------------------------------------------------
// Hand-worked numbering

TEST(FaceVaryingSplitNumbering, FirstCornerKeepsTheVertexAndCopiesFollowInCornerOrder)
{
    // Two vertices, coordinate keys: vertex 0 sees A, B, A; vertex 1 sees C, C.
    const std::vector<float> keys = {1, 0, 5, 0, 2, 0, 5, 0, 1, 0};
    const FastSplit fast = Split(2, {0, 1, 0, 1, 0}, keys, 2);
    // The third key of vertex 0 equals its own, but it has a copy by then,
    // so only the copy is compared: a second copy.
    EXPECT_EQ(fast.corners, (std::vector<int>{0, 1, 2, 1, 3}));
    ASSERT_EQ(fast.split.copies.size(), 2u);
    EXPECT_EQ(fast.split.copies[0].source, 0);
    EXPECT_EQ(fast.split.copies[0].corner, 2);
    // A copy is split from the last member of the chain.
    EXPECT_EQ(fast.split.copies[1].source, 2);
    EXPECT_EQ(fast.split.copies[1].corner, 4);
    EXPECT_EQ(fast.split.keyCornerOfVertex, (std::vector<int>{0, 1}));
}

TEST(FaceVaryingSplitNumbering, ACornerGoesToTheFirstMatchingCopy)
{
    // Copies carry U = 0 and U = 0.006; U = 0.003 is within tolerance of
    // both and goes to the older one.
    const std::vector<float> keys = {1, 0, 0, 0, 0.006f, 0, 0.003f, 0};
    const FastSplit fast = Split(1, {0, 0, 0, 0}, keys, 2);
    EXPECT_EQ(fast.corners, (std::vector<int>{0, 1, 2, 1}));
}

TEST(FaceVaryingSplitNumbering, ToleranceIsStrictlyBelowFiveThousandths)
{
    const FastSplit near = Split(1, {0, 0}, {0, 0, 0, 0, 0.004f, 0}, 3);
    EXPECT_EQ(near.corners, (std::vector<int>{0, 0}));
    EXPECT_TRUE(near.split.copies.empty());

    const FastSplit far = Split(1, {0, 0}, {0, 0, 0, 0, 0.005f, 0}, 3);
    EXPECT_EQ(far.corners, (std::vector<int>{0, 1}));
}

TEST(FaceVaryingSplitNumbering, EveryComponentMustBeWithinTolerance)
{
    // Normal (0, 0, 1) + coordinate (0.5, 0.5), then the same normal with
    // the coordinate 0.01 off in V.
    const std::vector<float> keys = {0, 0, 1, 0.5f, 0.5f, 0, 0, 1, 0.5f, 0.51f};
    const FastSplit fast = Split(1, {0, 0}, keys, 5);
    EXPECT_EQ(fast.corners, (std::vector<int>{0, 1}));
}

TEST(FaceVaryingSplitNumbering, NaNNeverMatchesItself)
{
    const float nan = std::numeric_limits<float>::quiet_NaN();
    const FastSplit fast = Split(1, {0, 0, 0}, {nan, 0, nan, 0, nan, 0}, 2);
    EXPECT_EQ(fast.corners, (std::vector<int>{0, 1, 2}));
}

TEST(FaceVaryingSplitNumbering, EmptyKeysAllMatch)
{
    const FastSplit fast = Split(2, {0, 1, 0, 1}, {}, 0);
    EXPECT_EQ(fast.corners, (std::vector<int>{0, 1, 0, 1}));
    EXPECT_TRUE(fast.split.copies.empty());
}

TEST(FaceVaryingSplitNumbering, CubeWithOneNormalPerFaceBecomesTwentyFourVertices)
{
    // 8 points, 6 quads fanned into 12 triangles; every corner of a face
    // carries the face's normal.
    const int quads[6][4] = {{0, 1, 3, 2}, {2, 3, 5, 4}, {4, 5, 7, 6},
                             {6, 7, 1, 0}, {1, 7, 5, 3}, {6, 0, 2, 4}};
    const float normals[6][3] = {{0, 0, 1}, {0, 1, 0}, {0, 0, -1}, {0, -1, 0}, {1, 0, 0}, {-1, 0, 0}};
    std::vector<int> corners;
    std::vector<float> keys;
    for (int face = 0; face < 6; ++face) {
        for (const int k : {0, 1, 2, 0, 2, 3}) {
            corners.push_back(quads[face][k]);
            keys.insert(keys.end(), normals[face], normals[face] + 3);
        }
    }
    const FastSplit fast = Split(8, corners, keys, 3);
    ASSERT_EQ(fast.split.copies.size(), 16u);
    // Face 0 reaches 0, 1, 3, 2 first; face 1 copies 2 and 3 (in corner
    // order 2, 3) and reaches 5, 4 first.
    EXPECT_EQ(std::vector<int>(fast.corners.begin(), fast.corners.begin() + 12),
              (std::vector<int>{0, 1, 3, 0, 3, 2, 8, 9, 5, 8, 5, 4}));
    EXPECT_EQ(fast.split.copies[0].source, 2);
    EXPECT_EQ(fast.split.copies[1].source, 3);
    // Each point ends up on three vertices: itself and two copies.
    std::map<int, int> verticesOfPoint;
    for (int index = 0; index < 24; ++index) {
        int point = index;
        while (point >= 8)
            point = fast.split.copies[static_cast<std::size_t>(point - 8)].source;
        ++verticesOfPoint[point];
    }
    for (int point = 0; point < 8; ++point)
        EXPECT_EQ(verticesOfPoint[point], 3) << "point " << point;
}

TEST(FaceVaryingSplitNumbering, CornersOutsideTheVerticesAreLeftAlone)
{
    const FastSplit fast = Split(2, {-1, 0, 7, 0}, {1, 0, 1, 0, 2, 0, 2, 0}, 2);
    EXPECT_EQ(fast.corners, (std::vector<int>{-1, 0, 7, 2}));
}

// ---------------------------------------------------------------------------
// Randomised agreement with the reference walk

TEST(FaceVaryingSplitAgreesWithTheWalk, ManySeedsSizesAndKeyLengths)
{
    const int vertexCounts[] = {1, 3, 40, 300};
    const int cornerCounts[] = {0, 3, 60, 900};
    const int keyLengths[] = {0, 2, 3, 5};
    const Values kinds[] = {Values::Distinct, Values::Palette, Values::Jittered, Values::Hostile};
    unsigned seed = 1;
    for (const int vertexCount : vertexCounts)
        for (const int cornerCount : cornerCounts)
            for (const int keyLength : keyLengths)
                for (const Values kind : kinds)
                    for (int repeat = 0; repeat < 3; ++repeat)
                        RunRandomCase(seed++, vertexCount, cornerCount, keyLength, kind);
}

TEST(FaceVaryingSplitAgreesWithTheWalk, HubVerticesWithLongChains)
{
    // Few vertices, many corners: chains grow far past the length at which
    // they are looked up through the grid.
    for (unsigned seed = 100; seed < 160; ++seed) {
        for (const int keyLength : {2, 3, 5})
            for (const Values kind : {Values::Distinct, Values::Palette, Values::Jittered, Values::Hostile})
                RunRandomCase(seed, 1 + static_cast<int>(seed % 3), 600, keyLength, kind);
    }
}

TEST(FaceVaryingSplitAgreesWithTheWalk, WideSpreadOfNearbyKeysAtOneVertex)
{
    // Keys on a fine lattice (0.002 apart) so that many fall within the
    // tolerance of several copies and cell borders are crossed often.
    for (unsigned seed = 200; seed < 230; ++seed) {
        std::mt19937 random(seed);
        std::uniform_int_distribution<int> step(-20, 20);
        const int cornerCount = 1500;
        for (const int keyLength : {2, 3}) {
            std::vector<int> corners(static_cast<std::size_t>(cornerCount), 0);
            std::vector<float> keys(static_cast<std::size_t>(cornerCount * keyLength));
            for (float& value : keys)
                value = 0.002f * static_cast<float>(step(random));
            SCOPED_TRACE(::testing::Message() << "seed " << seed << " key length " << keyLength);
            ExpectSameAsReference(1, corners, keys, keyLength);
        }
    }
}
