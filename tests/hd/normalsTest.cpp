// Normals as imaging makes them from a polygon mesh: flat per face, smooth
// per point from the faces around it.

#include "usdcore/hd/flatNormals.h"
#include "usdcore/hd/meshTopology.h"
#include "usdcore/hd/smoothNormals.h"
#include "usdcore/hd/tokens.h"
#include "usdcore/hd/vertexAdjacency.h"
#include "usdcore/tf/diagnostic.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

PXR_NAMESPACE_USING_DIRECTIVE

namespace {

// A cube of edge 2 about the origin, each face wound outward: top, bottom,
// +Y, -Y, +X, -X.
const std::vector<GfVec3f> kCubePoints = {GfVec3f(1, 1, 1),   GfVec3f(-1, 1, 1),  GfVec3f(-1, -1, 1),
                                          GfVec3f(1, -1, 1),  GfVec3f(-1, -1, -1), GfVec3f(-1, 1, -1),
                                          GfVec3f(1, 1, -1),  GfVec3f(1, -1, -1)};
const VtIntArray kCubeCounts{4, 4, 4, 4, 4, 4};
const VtIntArray kCubeIndices{0, 1, 2, 3, 4, 5, 6, 7, 0, 6, 5, 1, 4, 7, 3, 2, 0, 3, 7, 6, 4, 2, 1, 5};
const std::vector<GfVec3f> kFaceAxes = {GfVec3f(0, 0, 1),  GfVec3f(0, 0, -1), GfVec3f(0, 1, 0),
                                        GfVec3f(0, -1, 0), GfVec3f(1, 0, 0),  GfVec3f(-1, 0, 0)};

HdMeshTopology Cube(const TfToken& orientation)
{
    return HdMeshTopology(TfToken("catmullClark"), orientation, kCubeCounts, kCubeIndices);
}

void ExpectNear(const GfVec3f& actual, const GfVec3f& expected)
{
    for (size_t i = 0; i < 3; ++i)
        EXPECT_NEAR(actual[i], expected[i], 1e-6) << i;
}

} // namespace

TEST(HdNormals, FlatNormalsAreTheFacesOutwardAxesAndTurnWithTheWinding)
{
    const HdMeshTopology right = Cube(HdTokens->rightHanded);
    const VtArray<GfVec3f> normals = Hd_FlatNormals::ComputeFlatNormals(&right, kCubePoints.data());
    ASSERT_EQ(normals.size(), 6u);
    const HdMeshTopology left = Cube(HdTokens->leftHanded);
    const VtArray<GfVec3f> flipped = Hd_FlatNormals::ComputeFlatNormals(&left, kCubePoints.data());
    for (size_t face = 0; face < 6; ++face) {
        SCOPED_TRACE(face);
        ExpectNear(normals[face], kFaceAxes[face]);
        ExpectNear(flipped[face], -kFaceAxes[face]);
    }
}

TEST(HdNormals, SmoothNormalsOfACubesCornersPointAlongItsDiagonals)
{
    // Three square faces meet at each corner, each adding its outward axis
    // times the same area: the sum lies along the corner's diagonal.
    const HdMeshTopology right = Cube(HdTokens->rightHanded);
    Hd_VertexAdjacency adjacency;
    adjacency.BuildAdjacencyTable(&right);
    EXPECT_EQ(adjacency.GetNumPoints(), 8);
    const std::vector<GfVec3d> widePoints(kCubePoints.begin(), kCubePoints.end());
    const VtArray<GfVec3d> normals = Hd_SmoothNormals::ComputeSmoothNormals(&adjacency, 8, widePoints.data());
    ASSERT_EQ(normals.size(), 8u);
    const double third = 1.0 / std::sqrt(3.0);
    for (size_t point = 0; point < 8; ++point) {
        SCOPED_TRACE(point);
        for (size_t i = 0; i < 3; ++i)
            EXPECT_NEAR(normals[point][i], third * (kCubePoints[point][i] > 0 ? 1 : -1), 1e-12);
    }

    const HdMeshTopology left = Cube(HdTokens->leftHanded);
    adjacency.BuildAdjacencyTable(&left);
    const VtArray<GfVec3f> inward = Hd_SmoothNormals::ComputeSmoothNormals(&adjacency, 8, kCubePoints.data());
    ExpectNear(inward[0], GfVec3f(-float(third)));
}

TEST(HdNormals, APointOnDegenerateEdgesAloneHasAZeroSmoothNormal)
{
    // A quad whose last two corners coincide, as the cone's side faces end
    // at its apex: each coincident corner's edges include one of no length.
    const std::vector<GfVec3f> points = {GfVec3f(0, 0, 0), GfVec3f(1, 0, 0), GfVec3f(0, 1, 0), GfVec3f(0, 1, 0)};
    const HdMeshTopology quad(TfToken("catmullClark"), HdTokens->rightHanded, VtIntArray{4}, VtIntArray{0, 1, 2, 3});
    Hd_VertexAdjacency adjacency;
    adjacency.BuildAdjacencyTable(&quad);
    const VtArray<GfVec3f> normals = Hd_SmoothNormals::ComputeSmoothNormals(&adjacency, 4, points.data());
    ExpectNear(normals[0], GfVec3f(0, 0, 1));
    ExpectNear(normals[1], GfVec3f(0, 0, 1));
    EXPECT_EQ(normals[2], GfVec3f(0));
    EXPECT_EQ(normals[3], GfVec3f(0));
}

TEST(HdNormals, AdjacencyRefusesFacesThatDoNotFitTheirIndices)
{
    struct Case {
        const char* what;
        VtIntArray counts;
        VtIntArray indices;
    };
    const Case cases[] = {
        {"negative index", {3}, {0, -1, 2}},
        {"counts past the indices", {3, 3}, {0, 1, 2, 0}},
        {"negative count", {-3}, {0, 1, 2}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        TfDiagnosticCapture capture;
        const HdMeshTopology topology(TfToken("none"), HdTokens->rightHanded, c.counts, c.indices);
        Hd_VertexAdjacency adjacency;
        adjacency.BuildAdjacencyTable(&topology);
        EXPECT_EQ(adjacency.GetNumPoints(), 0);
        EXPECT_TRUE(adjacency.GetAdjacencyTable().empty());
        EXPECT_EQ(capture.Count(TF_DIAGNOSTIC_WARNING_TYPE), 1u);
        const std::vector<GfVec3f> points(4, GfVec3f(1));
        EXPECT_TRUE(Hd_SmoothNormals::ComputeSmoothNormals(&adjacency, 4, points.data()).empty());
    }
}
