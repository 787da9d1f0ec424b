// Normals: per vertex, face-varying with vertex splits, and the fallbacks of
// other interpolations.
#include <gtest/gtest.h>

#include "MeshScene.h"
#include "usdcore/tf/diagnostic.h"

using namespace MeshTest;
PXR_NAMESPACE_USING_DIRECTIVE

namespace {

std::string MeshText(const std::string& body)
{
    return "def Mesh \"Mesh\" {\n"
           "point3f[] points = [(0, 0, 0), (1, 0, 0), (1, 1, 0), (0, 1, 0)]\n" +
           body + "\n}\n";
}

// Two triangles over the unit square, sharing the edge 0-2.
const char* kTwoTriangles = "int[] faceVertexCounts = [3, 3]\nint[] faceVertexIndices = [0, 1, 2, 0, 2, 3]\n";

} // namespace

TEST(MeshVertexNormals, EachVertexGetsItsOwnNormal)
{
    MeshScene scene(MeshText(std::string(kTwoTriangles) +
                             "normal3f[] normals = [(0, 0, 1), (0, 1, 0), (1, 0, 0), (0.5, 0.5, 0)] (\n"
                             " interpolation = \"vertex\"\n)"));
    const Tavrin::CTavrin3DObject* object = scene.ConvertGeometry("/Mesh");
    EXPECT_EQ(Vertices(object).size(), 4u);
    EXPECT_EQ(Normals(object), (std::vector<Vector3>{{0, 0, 1}, {0, 1, 0}, {1, 0, 0}, {0.5, 0.5, 0}}));
    EXPECT_EQ(Triangles(object), (std::vector<Triangle>{{0, 1, 2}, {0, 2, 3}}));
}

TEST(MeshVertexNormals, WithoutNormalsEveryVertexHasAZeroNormal)
{
    MeshScene scene(MeshText(kTwoTriangles));
    EXPECT_EQ(Normals(scene.ConvertGeometry("/Mesh")), std::vector<Vector3>(4, Vector3{0, 0, 0}));
}

TEST(MeshVertexNormals, UniformAndConstantNormalsCoverOnlyTheFirstVertices)
{
    // Read per vertex: two uniform values land on vertices 0 and 1, the one
    // constant value on vertex 0; the rest keep (0, 0, 0).
    MeshScene uniform(MeshText(std::string(kTwoTriangles) +
                               "normal3f[] normals = [(0, 0, 1), (0, 0, -1)] (\n interpolation = \"uniform\"\n)"));
    EXPECT_EQ(Normals(uniform.ConvertGeometry("/Mesh")),
              (std::vector<Vector3>{{0, 0, 1}, {0, 0, -1}, {0, 0, 0}, {0, 0, 0}}));

    MeshScene constant(MeshText(std::string(kTwoTriangles) +
                                "normal3f[] normals = [(0, 1, 0)] (\n interpolation = \"constant\"\n)"));
    EXPECT_EQ(Normals(constant.ConvertGeometry("/Mesh")),
              (std::vector<Vector3>{{0, 1, 0}, {0, 0, 0}, {0, 0, 0}, {0, 0, 0}}));
}

TEST(MeshVertexNormals, WithoutInterpolationNormalsArePerVertex)
{
    MeshScene scene(MeshText(std::string(kTwoTriangles) +
                             "normal3f[] normals = [(0, 0, 1), (0, 0, 1), (0, 0, 1), (0, 0, 1)]"));
    EXPECT_EQ(Normals(scene.ConvertGeometry("/Mesh")), std::vector<Vector3>(4, Vector3{0, 0, 1}));
}

TEST(MeshVertexNormals, MistypedNormalsAreIgnored)
{
    TfDiagnosticCapture capture;
    MeshScene scene(MeshText(std::string(kTwoTriangles) + "float[] normals = [1, 2, 3, 4]"));
    EXPECT_EQ(Normals(scene.ConvertGeometry("/Mesh")), std::vector<Vector3>(4, Vector3{0, 0, 0}));
}

TEST(MeshFaceVaryingNormals, SharpEdgeSplitsItsTwoVertices)
{
    // Triangle 0 faces +Z, triangle 1 faces +X: vertices 0 and 2 are met
    // with both normals, so each gets a copy (4 and 5, in corner order).
    MeshScene scene(MeshText(std::string(kTwoTriangles) +
                             "normal3f[] normals = [(0, 0, 1), (0, 0, 1), (0, 0, 1), (1, 0, 0), (1, 0, 0), (1, 0, 0)] (\n"
                             " interpolation = \"faceVarying\"\n)"));
    const Tavrin::CTavrin3DObject* object = scene.ConvertGeometry("/Mesh");
    EXPECT_EQ(Triangles(object), (std::vector<Triangle>{{0, 1, 2}, {4, 5, 3}}));
    EXPECT_EQ(Vertices(object),
              (std::vector<Vector3>{{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0}, {0, 0, 0}, {1, 1, 0}}));
    EXPECT_EQ(Normals(object),
              (std::vector<Vector3>{{0, 0, 1}, {0, 0, 1}, {0, 0, 1}, {1, 0, 0}, {1, 0, 0}, {1, 0, 0}}));
}

TEST(MeshFaceVaryingNormals, SmoothCornersShareTheVertex)
{
    // Equal within 0.005: one vertex, carrying the first corner's normal.
    MeshScene scene(MeshText(std::string(kTwoTriangles) +
                             "normal3f[] normals = [(0, 0, 1), (0, 0, 1), (0, 0, 1), (0.004, 0, 1), (0, 0, 1), (0, 0, 1)] (\n"
                             " interpolation = \"faceVarying\"\n)"));
    const Tavrin::CTavrin3DObject* object = scene.ConvertGeometry("/Mesh");
    EXPECT_EQ(Vertices(object).size(), 4u);
    EXPECT_EQ(Normals(object), std::vector<Vector3>(4, Vector3{0, 0, 1}));
}

TEST(MeshFaceVaryingNormals, LeftHandedValuesFollowTheFlippedCorners)
{
    // One quad, one distinct normal per corner: the flip applies to the
    // values as to the indices, so every point keeps its own normal.
    MeshScene scene(MeshText("uniform token orientation = \"leftHanded\"\n"
                             "int[] faceVertexCounts = [4]\nint[] faceVertexIndices = [0, 1, 2, 3]\n"
                             "normal3f[] normals = [(1, 0, 0), (0, 1, 0), (0, 0, 1), (0, 0, -1)] (\n"
                             " interpolation = \"faceVarying\"\n)"));
    const Tavrin::CTavrin3DObject* object = scene.ConvertGeometry("/Mesh");
    EXPECT_EQ(Triangles(object), (std::vector<Triangle>{{0, 2, 1}, {0, 3, 2}}));
    EXPECT_EQ(Normals(object), (std::vector<Vector3>{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}, {0, 0, -1}}));
}

TEST(MeshFaceVaryingNormals, TooFewValuesNeverReadPastTheArray)
{
    TfDiagnosticCapture capture;
    MeshScene scene(MeshText(std::string(kTwoTriangles) +
                             "normal3f[] normals = [(0, 0, 1), (0, 0, 1)] (\n interpolation = \"faceVarying\"\n)"));
    const Tavrin::CTavrin3DObject* object = scene.ConvertGeometry("/Mesh");
    EXPECT_EQ(Normals(object).size(), Vertices(object).size());
    EXPECT_EQ(Triangles(object).size(), 2u);
}

TEST(MeshFaceVaryingNormals, DroppedTrianglesTakeTheirValuesWithThem)
{
    TfDiagnosticCapture capture;
    // The first triangle names point 9, which does not exist; the second
    // triangle's normals must stay with the second triangle.
    MeshScene scene(MeshText("int[] faceVertexCounts = [3, 3]\nint[] faceVertexIndices = [0, 1, 9, 0, 2, 3]\n"
                             "normal3f[] normals = [(1, 0, 0), (1, 0, 0), (1, 0, 0), (0, 0, 1), (0, 1, 0), (0, 0, -1)] (\n"
                             " interpolation = \"faceVarying\"\n)"));
    const Tavrin::CTavrin3DObject* object = scene.ConvertGeometry("/Mesh");
    EXPECT_EQ(Triangles(object), (std::vector<Triangle>{{0, 2, 3}}));
    EXPECT_EQ(Normals(object), (std::vector<Vector3>{{0, 0, 1}, {0, 0, 0}, {0, 1, 0}, {0, 0, -1}}));
}
