#include "usdcore/hd/meshUtil.h"
#include "usdcore/hd/tokens.h"
#include "usdcore/tf/diagnostic.h"

#include <gtest/gtest.h>

#include <vector>

PXR_NAMESPACE_USING_DIRECTIVE

namespace {

const TfToken kCatmullClark("catmullClark");
const TfToken kNone("none");
const SdfPath kMeshPath("/World/Mesh");

struct Triangulation {
    std::vector<GfVec3i> triangles;
    std::vector<int> faces;
    std::vector<int> edgeFlags;
    std::vector<int> edgeIndices;
};

Triangulation Triangulate(const HdMeshTopology& topology)
{
    VtVec3iArray triangles;
    VtIntArray params;
    VtIntArray edges;
    HdMeshUtil(&topology, kMeshPath).ComputeTriangleIndices(&triangles, &params, &edges);
    Triangulation result;
    result.triangles.assign(triangles.cbegin(), triangles.cend());
    for (int param : params) {
        result.faces.push_back(HdMeshUtil::DecodeFaceIndexFromCoarseFaceParam(param));
        result.edgeFlags.push_back(HdMeshUtil::DecodeEdgeFlagFromCoarseFaceParam(param));
    }
    result.edgeIndices.assign(edges.cbegin(), edges.cend());
    return result;
}

HdMeshTopology Mesh(const TfToken& orientation, VtIntArray counts, VtIntArray indices,
                    const TfToken& scheme = kCatmullClark)
{
    return HdMeshTopology(scheme, orientation, counts, indices, 0);
}

using Tris = std::vector<GfVec3i>;

} // namespace

TEST(HdTriangulation, QuadIsAFanFromItsFirstVertex)
{
    const Triangulation right = Triangulate(Mesh(HdTokens->rightHanded, {4}, {0, 1, 2, 3}));
    EXPECT_EQ(right.triangles, (Tris{GfVec3i(0, 1, 2), GfVec3i(0, 2, 3)}));
    const Triangulation left = Triangulate(Mesh(HdTokens->leftHanded, {4}, {0, 1, 2, 3}));
    EXPECT_EQ(left.triangles, (Tris{GfVec3i(0, 2, 1), GfVec3i(0, 3, 2)}));
}

TEST(HdTriangulation, AnyOrientationButRightHandedFlips)
{
    const Triangulation unset = Triangulate(Mesh(TfToken(), {3}, {4, 5, 6}));
    EXPECT_EQ(unset.triangles, (Tris{GfVec3i(4, 6, 5)}));
}

TEST(HdTriangulation, PentagonGivesThreeTrianglesSharingItsFirstVertex)
{
    const Triangulation result = Triangulate(Mesh(HdTokens->rightHanded, {5}, {7, 8, 9, 10, 11}));
    EXPECT_EQ(result.triangles,
              (Tris{GfVec3i(7, 8, 9), GfVec3i(7, 9, 10), GfVec3i(7, 10, 11)}));
    EXPECT_EQ(result.faces, (std::vector<int>{0, 0, 0}));
    // First, middle and last fan triangle of a polygon.
    EXPECT_EQ(result.edgeFlags, (std::vector<int>{1, 3, 2}));
}

TEST(HdTriangulation, PrimitiveParamsNameTheFaceAndEdges)
{
    const Triangulation result =
        Triangulate(Mesh(HdTokens->rightHanded, {4, 3}, {0, 1, 2, 3, 4, 5, 6}));
    EXPECT_EQ(result.faces, (std::vector<int>{0, 0, 1}));
    EXPECT_EQ(result.edgeFlags, (std::vector<int>{1, 2, 0}));
    // The quad's edges start at 0 and its triangles are tagged 1, 2; the
    // triangle's edges start at face-vertex 4.
    EXPECT_EQ(result.edgeIndices, (std::vector<int>{1, 2, 4}));
}

TEST(HdTriangulation, FaceOfTwoVerticesIsSkippedWithoutShiftingTheRest)
{
    TfDiagnosticCapture capture;
    const Triangulation result = Triangulate(
        Mesh(HdTokens->rightHanded, {3, 2, 3}, {0, 1, 2, 3, 4, 5, 6, 7}));
    EXPECT_EQ(result.triangles, (Tris{GfVec3i(0, 1, 2), GfVec3i(5, 6, 7)}));
    EXPECT_EQ(result.faces, (std::vector<int>{0, 2}));
    EXPECT_TRUE(capture.Contains(TF_DIAGNOSTIC_WARNING_TYPE, "/World/Mesh"));
}

TEST(HdTriangulation, NegativeCountsUseUpNoIndices)
{
    TfDiagnosticCapture capture;
    const Triangulation result =
        Triangulate(Mesh(HdTokens->rightHanded, {3, -5, 3}, {0, 1, 2, 3, 4, 5}));
    EXPECT_EQ(result.triangles, (Tris{GfVec3i(0, 1, 2), GfVec3i(3, 4, 5)}));
    EXPECT_EQ(capture.Count(TF_DIAGNOSTIC_WARNING_TYPE), 1u);
}

TEST(HdTriangulation, TrianglesPastTheIndicesAreZero)
{
    TfDiagnosticCapture capture;
    const Triangulation result =
        Triangulate(Mesh(HdTokens->rightHanded, {3, 4}, {0, 1, 2, 3, 4, 5}));
    // The quad starts at index 3: (3, 4, 5) fits, its second triangle would
    // need index 6.
    EXPECT_EQ(result.triangles, (Tris{GfVec3i(0, 1, 2), GfVec3i(3, 4, 5), GfVec3i(0, 0, 0)}));
    EXPECT_EQ(result.faces, (std::vector<int>{0, 1, 1}));
    EXPECT_TRUE(capture.Contains(TF_DIAGNOSTIC_WARNING_TYPE, "run past"));
}

TEST(HdTriangulation, CountsFarBeyondTheIndicesAreRefused)
{
    TfDiagnosticCapture capture;
    const Triangulation result =
        Triangulate(Mesh(HdTokens->rightHanded, {2000000000, 2000000000}, {0, 1, 2}));
    EXPECT_TRUE(result.triangles.empty());
    EXPECT_TRUE(result.faces.empty());
    EXPECT_TRUE(capture.Contains(TF_DIAGNOSTIC_WARNING_TYPE, "not triangulated"));
}

TEST(HdTriangulation, SchemeChangesNothing)
{
    const VtIntArray counts{4, 3};
    const VtIntArray indices{0, 1, 2, 3, 2, 1, 4};
    EXPECT_EQ(Triangulate(Mesh(HdTokens->rightHanded, counts, indices, kCatmullClark)).triangles,
              Triangulate(Mesh(HdTokens->rightHanded, counts, indices, kNone)).triangles);
}

TEST(HdTriangulation, HoleFacesGiveNoTriangles)
{
    const HdMeshTopology topology(kNone, HdTokens->rightHanded, VtIntArray{3, 3, 3},
                                  VtIntArray{0, 1, 2, 3, 4, 5, 6, 7, 8}, VtIntArray{1});
    const Triangulation result = Triangulate(topology);
    EXPECT_EQ(result.triangles, (Tris{GfVec3i(0, 1, 2), GfVec3i(6, 7, 8)}));
    EXPECT_EQ(result.faces, (std::vector<int>{0, 2}));
}

TEST(HdTriangulation, EmptyTopologyGivesNoTriangles)
{
    TfDiagnosticCapture capture;
    EXPECT_TRUE(Triangulate(Mesh(HdTokens->rightHanded, {}, {})).triangles.empty());
    EXPECT_EQ(capture.GetDiagnostics().size(), 0u);
}

TEST(HdTriangulation, MissingOutputsAreACodingError)
{
    const HdMeshTopology topology = Mesh(HdTokens->rightHanded, {3}, {0, 1, 2});
    TfDiagnosticCapture capture;
    VtVec3iArray triangles;
    HdMeshUtil(&topology, kMeshPath).ComputeTriangleIndices(&triangles, nullptr);
    EXPECT_EQ(capture.Count(TF_DIAGNOSTIC_CODING_ERROR_TYPE), 1u);
}

TEST(HdFaceVaryingTriangulation, FollowsTheSameFanAndFlip)
{
    // One value per face-vertex of a left-handed mesh: a quad, a face of two
    // vertices (its values are skipped) and a triangle.
    const HdMeshTopology topology =
        Mesh(HdTokens->leftHanded, {4, 2, 3}, {0, 1, 2, 3, 4, 5, 6, 7, 8});
    const std::vector<GfVec2f> uvs{{0, 0}, {1, 0}, {1, 1}, {0, 1}, {9, 9},
                                   {9, 8}, {5, 0}, {6, 0}, {7, 0}};
    VtValue triangulated;
    TfDiagnosticCapture capture;
    ASSERT_TRUE(HdMeshUtil(&topology, kMeshPath)
                    .ComputeTriangulatedFaceVaryingPrimvar(uvs.data(), 9, HdTypeFloatVec2,
                                                           &triangulated));
    ASSERT_TRUE(triangulated.IsHolding<VtVec2fArray>());
    const VtVec2fArray& values = triangulated.UncheckedGet<VtVec2fArray>();
    // Corners of (0, 2, 1), (0, 3, 2), then the triangle's (6, 8, 7).
    const std::vector<GfVec2f> expected{{0, 0}, {1, 1}, {1, 0}, {0, 0}, {0, 1},
                                        {1, 1}, {5, 0}, {7, 0}, {6, 0}};
    EXPECT_EQ(std::vector<GfVec2f>(values.cbegin(), values.cend()), expected);

    // Corner k of triangle t is value 3t + k.
    VtVec3iArray triangles;
    VtIntArray params;
    HdMeshUtil(&topology, kMeshPath).ComputeTriangleIndices(&triangles, &params);
    ASSERT_EQ(values.size(), 3 * triangles.size());
    for (size_t t = 0; t < triangles.size(); ++t) {
        for (int k = 0; k < 3; ++k) {
            EXPECT_EQ(values[3 * t + k], uvs[triangles[t][k]]);
        }
    }
}

TEST(HdFaceVaryingTriangulation, TooFewValuesGiveZeros)
{
    const HdMeshTopology topology = Mesh(HdTokens->rightHanded, {4}, {0, 1, 2, 3});
    const std::vector<GfVec3f> normals{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}};
    VtValue triangulated;
    TfDiagnosticCapture capture;
    ASSERT_TRUE(HdMeshUtil(&topology, kMeshPath)
                    .ComputeTriangulatedFaceVaryingPrimvar(normals.data(), 3, HdTypeFloatVec3,
                                                           &triangulated));
    const VtVec3fArray& values = triangulated.UncheckedGet<VtVec3fArray>();
    const std::vector<GfVec3f> expected{{1, 0, 0}, {0, 1, 0}, {0, 0, 1},
                                        {0, 0, 0}, {0, 0, 0}, {0, 0, 0}};
    EXPECT_EQ(std::vector<GfVec3f>(values.cbegin(), values.cend()), expected);
    EXPECT_TRUE(capture.Contains(TF_DIAGNOSTIC_WARNING_TYPE, "face-varying"));
}

TEST(HdFaceVaryingTriangulation, RefusedTopologyGivesNoValues)
{
    // The counts ask for more triangles than there are indices: nothing may
    // be written, whatever the values.
    const HdMeshTopology topology = Mesh(HdTokens->rightHanded, {2000000, 5}, {0, 1, 2});
    const std::vector<GfVec3f> normals(3, GfVec3f(0, 0, 1));
    VtValue triangulated;
    TfDiagnosticCapture capture;
    ASSERT_TRUE(HdMeshUtil(&topology, kMeshPath)
                    .ComputeTriangulatedFaceVaryingPrimvar(normals.data(), 3, HdTypeFloatVec3,
                                                           &triangulated));
    EXPECT_TRUE(triangulated.UncheckedGet<VtVec3fArray>().empty());
    EXPECT_TRUE(capture.Contains(TF_DIAGNOSTIC_WARNING_TYPE, "not triangulated"));
}

TEST(HdFaceVaryingTriangulation, ScalarDoublesAndUnsupportedTypes)
{
    const HdMeshTopology topology = Mesh(HdTokens->rightHanded, {3}, {0, 1, 2});
    const double weights[] = {0.5, 0.25, 0.125};
    VtValue triangulated;
    ASSERT_TRUE(HdMeshUtil(&topology, kMeshPath)
                    .ComputeTriangulatedFaceVaryingPrimvar(weights, 3, HdTypeDouble,
                                                           &triangulated));
    EXPECT_EQ(triangulated, VtValue(VtDoubleArray{0.5, 0.25, 0.125}));

    TfDiagnosticCapture capture;
    const int ids[] = {1, 2, 3};
    EXPECT_FALSE(HdMeshUtil(&topology, kMeshPath)
                     .ComputeTriangulatedFaceVaryingPrimvar(ids, 3, HdTypeInt32, &triangulated));
    EXPECT_EQ(capture.Count(TF_DIAGNOSTIC_CODING_ERROR_TYPE), 1u);
}

TEST(HdMeshTopology, CountsAndEquality)
{
    const HdMeshTopology topology = Mesh(HdTokens->rightHanded, {4, 3}, {0, 1, 5, 3, 2, 1, 4});
    EXPECT_EQ(topology.GetNumFaces(), 2);
    EXPECT_EQ(topology.GetNumFaceVaryings(), 7);
    EXPECT_EQ(topology.GetNumPoints(), 6);
    EXPECT_EQ(topology.GetScheme(), kCatmullClark);
    EXPECT_EQ(HdMeshTopology(topology, 2).GetRefineLevel(), 2);
    EXPECT_NE(HdMeshTopology(topology, 2), topology);
    EXPECT_EQ(Mesh(HdTokens->rightHanded, {3}, {0, 1, 2}),
              Mesh(HdTokens->rightHanded, {3}, {0, 1, 2}));
}
