// Points, topology, triangulation and the polygons table.
#include <gtest/gtest.h>

#include "MeshScene.h"
#include "usdcore/tf/diagnostic.h"

using namespace MeshTest;
PXR_NAMESPACE_USING_DIRECTIVE

namespace {

// A mesh prim named Mesh under /World with the given body.
std::string MeshText(const std::string& body)
{
    return "def Xform \"World\" {\n def Mesh \"Mesh\" {\n" + body + "\n }\n}\n";
}

const char* kFourPoints = "point3f[] points = [(0, 0, 0), (1, 0, 0), (1, 1, 0), (0, 1, 0)]\n";
const char* kFivePoints = "point3f[] points = [(0, 0, 0), (1, 0, 0), (2, 1, 0), (1, 2, 0), (0, 1, 0)]\n";

std::vector<Triangle> TrianglesOf(const std::string& body)
{
    MeshScene scene(MeshText(body));
    return Triangles(scene.ConvertGeometry("/World/Mesh"));
}

} // namespace

TEST(MeshTriangulation, QuadFansFromItsFirstVertex)
{
    EXPECT_EQ(TrianglesOf(std::string(kFourPoints) +
                          "int[] faceVertexCounts = [4]\nint[] faceVertexIndices = [0, 1, 2, 3]"),
              (std::vector<Triangle>{{0, 1, 2}, {0, 2, 3}}));
}

TEST(MeshTriangulation, LeftHandedReversesEachFanTriangle)
{
    EXPECT_EQ(TrianglesOf(std::string(kFourPoints) +
                          "uniform token orientation = \"leftHanded\"\n"
                          "int[] faceVertexCounts = [4]\nint[] faceVertexIndices = [0, 1, 2, 3]"),
              (std::vector<Triangle>{{0, 2, 1}, {0, 3, 2}}));
}

TEST(MeshTriangulation, PentagonGivesThreeTrianglesSharingItsFirstVertex)
{
    EXPECT_EQ(TrianglesOf(std::string(kFivePoints) +
                          "int[] faceVertexCounts = [5]\nint[] faceVertexIndices = [4, 0, 1, 2, 3]"),
              (std::vector<Triangle>{{4, 0, 1}, {4, 1, 2}, {4, 2, 3}}));
}

TEST(MeshTriangulation, SubdivisionSchemeChangesNothing)
{
    const std::string topology = "int[] faceVertexCounts = [4]\nint[] faceVertexIndices = [0, 1, 2, 3]\n";
    const auto catmullClark = TrianglesOf(std::string(kFourPoints) + topology +
                                          "uniform token subdivisionScheme = \"catmullClark\"");
    const auto none = TrianglesOf(std::string(kFourPoints) + topology + "uniform token subdivisionScheme = \"none\"");
    EXPECT_EQ(catmullClark, none);
    EXPECT_EQ(none.size(), 2u);
}

TEST(MeshTriangulation, FaceOfTwoVerticesGivesNoTriangleButUsesItsIndices)
{
    TfDiagnosticCapture capture;
    EXPECT_EQ(TrianglesOf(std::string(kFivePoints) + "int[] faceVertexCounts = [3, 2, 3]\n"
                                                     "int[] faceVertexIndices = [0, 1, 2, 0, 1, 2, 3, 4]"),
              (std::vector<Triangle>{{0, 1, 2}, {2, 3, 4}}));
}

TEST(MeshTriangulation, FacesFromTheFirstThatRunsPastTheIndicesAreDropped)
{
    struct Case {
        const char* topology;
        std::vector<Triangle> triangles;
    };
    const Case cases[] = {
        // The quad has only three of its four indices: no partial fan of it
        // and no (0, 0, 0) filler.
        {"int[] faceVertexCounts = [3, 4]\nint[] faceVertexIndices = [0, 1, 2, 1, 2, 3]", {{0, 1, 2}}},
        // A triangle after the overrunning face would fit the indices left,
        // but face order decides which indices are whose: it goes too.
        {"int[] faceVertexCounts = [3, 5, 3]\nint[] faceVertexIndices = [0, 1, 2, 1, 2, 3, 0]", {{0, 1, 2}}},
        // Counts that ask for far more than there is keep the faces that fit.
        {"int[] faceVertexCounts = [4, 1000000000]\nint[] faceVertexIndices = [0, 1, 2, 3]", {{0, 1, 2}, {0, 2, 3}}},
    };
    for (const Case& c : cases) {
        TfDiagnosticCapture capture;
        EXPECT_EQ(TrianglesOf(std::string(kFourPoints) + c.topology), c.triangles) << c.topology;
        EXPECT_TRUE(capture.Contains("runs past")) << c.topology;
    }
}

TEST(MeshTriangulation, TrianglesNamingMissingPointsAreDroppedWithAWarning)
{
    TfDiagnosticCapture capture;
    EXPECT_EQ(TrianglesOf(std::string(kFourPoints) + "int[] faceVertexCounts = [3, 3, 3]\n"
                                                     "int[] faceVertexIndices = [0, 1, 4, 0, 2, 3, -1, 1, 2]"),
              (std::vector<Triangle>{{0, 2, 3}}));
    EXPECT_TRUE(capture.Contains("outside"));
}

TEST(MeshTriangulation, HostileCountsNeverCrash)
{
    TfDiagnosticCapture capture;
    for (const char* counts : {"[2147483647]", "[-5, 3]", "[3, -2147483648, 3]", "[0, 0, 0]", "[1000000000, 1000000000]"}) {
        const auto triangles = TrianglesOf(std::string(kFourPoints) + "int[] faceVertexCounts = " + counts +
                                           "\nint[] faceVertexIndices = [0, 1, 2, 0, 2, 3]");
        for (const Triangle& triangle : triangles) {
            for (const int vertex : triangle) {
                EXPECT_GE(vertex, 0) << counts;
                EXPECT_LT(vertex, 4) << counts;
            }
        }
    }
}

TEST(MeshPoints, PointsReachTheVertexTableUnchanged)
{
    // A Y-up stage in centimetres: the correction goes on root nodes only.
    MeshScene scene("(\n upAxis = \"Y\"\n metersPerUnit = 0.01\n)\n" +
                    MeshText("point3f[] points = [(1, 2, 3), (-4, 5.5, 6)]\n"
                             "int[] faceVertexCounts = []\nint[] faceVertexIndices = []"));
    const Tavrin::CTavrin3DObject* object = scene.ConvertGeometry("/World/Mesh");
    EXPECT_EQ(Vertices(object), (std::vector<Vector3>{{1, 2, 3}, {-4, 5.5, 6}}));
}

TEST(MeshPoints, EmptyTopologyKeepsPointsZeroNormalsAndAnEmptyPolygonsTable)
{
    MeshScene scene(MeshText(std::string(kFourPoints) + "int[] faceVertexCounts = []\nint[] faceVertexIndices = []"));
    const Tavrin::CTavrin3DObject* object = scene.ConvertGeometry("/World/Mesh");
    EXPECT_EQ(Vertices(object).size(), 4u);
    EXPECT_EQ(Normals(object), std::vector<Vector3>(4, Vector3{0, 0, 0}));
    ASSERT_NE(object->Geometry()->PolygonsTable(), nullptr);
    EXPECT_EQ(object->Geometry()->PolygonsTable()->GetCount(), 0);
}

TEST(MeshPoints, EarliestTimeSampleIsRead)
{
    MeshScene scene(MeshText("point3f[] points.timeSamples = {\n"
                             " 5: [(5, 5, 5)],\n 2: [(2, 2, 2)],\n 9: [(9, 9, 9)]\n}\n"
                             "int[] faceVertexCounts = []\nint[] faceVertexIndices = []"));
    EXPECT_EQ(Vertices(scene.ConvertGeometry("/World/Mesh")), (std::vector<Vector3>{{2, 2, 2}}));
}

// A mesh whose topology and normals change over time is converted as it
// stands at each attribute's earliest sample: the quad at 2, not the two
// triangles at 5, and the normals at 3.
TEST(MeshPoints, TopologyAndNormalsAreReadAtTheirEarliestSample)
{
    MeshScene scene(MeshText(std::string(kFourPoints) +
                             "int[] faceVertexCounts.timeSamples = { 5: [3, 3], 2: [4] }\n"
                             "int[] faceVertexIndices.timeSamples = { 5: [0, 1, 2, 0, 2, 3], 2: [3, 0, 1, 2] }\n"
                             "normal3f[] normals (\n    interpolation = \"vertex\"\n)\n"
                             "normal3f[] normals.timeSamples = { 9: [(0, 1, 0), (0, 1, 0), (0, 1, 0), (0, 1, 0)],\n"
                             "                                   3: [(0, 0, 1), (0, 0, 1), (0, 0, 1), (0, 0, 1)] }"));
    const Tavrin::CTavrin3DObject* object = scene.ConvertGeometry("/World/Mesh");
    EXPECT_EQ(Triangles(object), (std::vector<Triangle>{{3, 0, 1}, {3, 1, 2}}));
    EXPECT_EQ(Normals(object), std::vector<Vector3>(4, Vector3{0, 0, 1}));
}

TEST(MeshPoints, MissingOrMistypedPointsLeaveTheGeometryEmpty)
{
    TfDiagnosticCapture capture;
    for (const char* points : {"", "int[] points = [1, 2, 3]\n", "point3f points = (1, 2, 3)\n"}) {
        MeshScene scene(MeshText(std::string(points) + "int[] faceVertexCounts = [3]\nint[] faceVertexIndices = [0, 1, 2]"));
        const Tavrin::CTavrin3DObject* object = scene.ConvertGeometry("/World/Mesh");
        EXPECT_EQ(object->Geometry()->VerticiesTable(), nullptr) << points;
        EXPECT_EQ(object->Geometry()->VerticiesNormalsTable(), nullptr) << points;
        EXPECT_EQ(object->Geometry()->PolygonsTable(), nullptr) << points;
        EXPECT_EQ(object->TextureCoordinatesTable(), nullptr) << points;
    }
}

TEST(MeshPoints, MissingTopologyKeepsTheVerticesOnly)
{
    TfDiagnosticCapture capture;
    for (const char* topology : {"int[] faceVertexCounts = [3]", "int[] faceVertexIndices = [0, 1, 2]",
                                 "float[] faceVertexCounts = [3]\nint[] faceVertexIndices = [0, 1, 2]"}) {
        MeshScene scene(MeshText(std::string(kFourPoints) + topology));
        const Tavrin::CTavrin3DObject* object = scene.ConvertGeometry("/World/Mesh");
        EXPECT_EQ(Vertices(object).size(), 4u) << topology;
        EXPECT_EQ(object->Geometry()->VerticiesNormalsTable(), nullptr) << topology;
        EXPECT_EQ(object->Geometry()->PolygonsTable(), nullptr) << topology;
    }
}
