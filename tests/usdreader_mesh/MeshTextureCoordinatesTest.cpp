// Texture coordinates: which primvar, per-vertex and face-varying values,
// indexed primvars, and the seams that split vertices.
#include <gtest/gtest.h>

#include "MeshScene.h"
#include "usdcore/tf/diagnostic.h"

using namespace MeshTest;
PXR_NAMESPACE_USING_DIRECTIVE

namespace {

std::string MeshText(const std::string& body)
{
    return "def Mesh \"Mesh\" {\n"
           "point3f[] points = [(0, 0, 0), (1, 0, 0), (1, 1, 0), (0, 1, 0)]\n"
           "int[] faceVertexCounts = [3, 3]\nint[] faceVertexIndices = [0, 1, 2, 0, 2, 3]\n" +
           body + "\n}\n";
}

const char* kVertexCoordinates = "(\n interpolation = \"vertex\"\n)";

} // namespace

TEST(MeshCoordinatePrimvar, FirstPrimvarStartingWithStIsChosen)
{
    MeshScene scene(MeshText("texCoord2f[] primvars:uvmap = [(9, 9), (9, 9), (9, 9), (9, 9)] (\n interpolation = \"vertex\"\n)\n"
                             "texCoord2f[] primvars:st_map = [(0, 0), (1, 0), (1, 1), (0, 1)] (\n interpolation = \"vertex\"\n)"));
    const Tavrin::CTavrin3DObject* object = scene.ConvertGeometry("/Mesh");
    EXPECT_EQ(scene.Handler().stPrimvarName, TfToken("st_map"));
    EXPECT_EQ(Coordinates(object), (std::vector<Coordinate>{{0, 0}, {1, 0}, {1, 1}, {0, 1}}));
}

TEST(MeshCoordinatePrimvar, PrefixAloneDecides)
{
    MeshScene scene(MeshText("float2[] primvars:stretch = [(0.5, 0.5)] (\n interpolation = \"constant\"\n)"));
    const Tavrin::CTavrin3DObject* object = scene.ConvertGeometry("/Mesh");
    EXPECT_EQ(scene.Handler().stPrimvarName, TfToken("stretch"));
    EXPECT_EQ(Coordinates(object), (std::vector<Coordinate>{{0.5, 0.5}, {0, 0}, {0, 0}, {0, 0}}));
}

TEST(MeshCoordinatePrimvar, NameIsCaseSensitiveAndWithoutAMatchThereIsNoTable)
{
    MeshScene scene(MeshText("texCoord2f[] primvars:ST = [(0, 0), (1, 0), (1, 1), (0, 1)] (\n interpolation = \"vertex\"\n)\n"
                             "texCoord2f[] primvars:uv = [(0, 0), (1, 0), (1, 1), (0, 1)] (\n interpolation = \"vertex\"\n)"));
    const Tavrin::CTavrin3DObject* object = scene.ConvertGeometry("/Mesh");
    EXPECT_TRUE(scene.Handler().stPrimvarName.IsEmpty());
    EXPECT_EQ(object->TextureCoordinatesTable(), nullptr);
}

TEST(MeshCoordinatePrimvar, NameGivenByTheMaterialWins)
{
    MeshScene scene(MeshText("texCoord2f[] primvars:st = [(9, 9), (9, 9), (9, 9), (9, 9)] (\n interpolation = \"vertex\"\n)\n"
                             "texCoord2f[] primvars:uvmap = [(0, 0), (1, 0), (1, 1), (0, 1)] (\n interpolation = \"vertex\"\n)"));
    scene.Handler().stPrimvarName = TfToken("uvmap");
    const Tavrin::CTavrin3DObject* object = scene.ConvertGeometry("/Mesh");
    EXPECT_EQ(Coordinates(object), (std::vector<Coordinate>{{0, 0}, {1, 0}, {1, 1}, {0, 1}}));
}

TEST(MeshCoordinatePrimvar, NamedPrimvarThatDoesNotExistGivesNoTable)
{
    MeshScene scene(MeshText("texCoord2f[] primvars:st = [(0, 0), (1, 0), (1, 1), (0, 1)] (\n interpolation = \"vertex\"\n)"));
    scene.Handler().stPrimvarName = TfToken("missing");
    EXPECT_EQ(scene.ConvertGeometry("/Mesh")->TextureCoordinatesTable(), nullptr);
}

TEST(MeshVertexCoordinates, ValuesReachTheHostAsAuthored)
{
    MeshScene scene(MeshText(std::string("texCoord2f[] primvars:st = [(0.25, 0.75), (1, 0), (1, 1), (0, -1)] ") +
                             kVertexCoordinates));
    EXPECT_EQ(Coordinates(scene.ConvertGeometry("/Mesh")),
              (std::vector<Coordinate>{{0.25, 0.75}, {1, 0}, {1, 1}, {0, -1}}));
}

TEST(MeshVertexCoordinates, IndexedPrimvarIsExpanded)
{
    MeshScene scene(MeshText(std::string("texCoord2f[] primvars:st = [(0, 0), (1, 1)] ") + kVertexCoordinates +
                             "\nint[] primvars:st:indices = [1, 0, 1, 0]"));
    EXPECT_EQ(Coordinates(scene.ConvertGeometry("/Mesh")),
              (std::vector<Coordinate>{{1, 1}, {0, 0}, {1, 1}, {0, 0}}));
}

TEST(MeshVertexCoordinates, IndicesOutOfRangeGiveNoTable)
{
    TfDiagnosticCapture capture;
    MeshScene scene(MeshText(std::string("texCoord2f[] primvars:st = [(0, 0), (1, 1)] ") + kVertexCoordinates +
                             "\nint[] primvars:st:indices = [0, 1, 2, -7]"));
    EXPECT_EQ(scene.ConvertGeometry("/Mesh")->TextureCoordinatesTable(), nullptr);
}

TEST(MeshVertexCoordinates, UniformCoordinatesCoverOnlyTheFirstVertices)
{
    MeshScene scene(MeshText("texCoord2f[] primvars:st = [(0.5, 0), (0, 0.5)] (\n interpolation = \"uniform\"\n)"));
    EXPECT_EQ(Coordinates(scene.ConvertGeometry("/Mesh")),
              (std::vector<Coordinate>{{0.5, 0}, {0, 0.5}, {0, 0}, {0, 0}}));
}

TEST(MeshVertexCoordinates, EmptyArrayGivesAnAttachedEmptyTable)
{
    MeshScene scene(MeshText(std::string("texCoord2f[] primvars:st = [] ") + kVertexCoordinates));
    const Tavrin::CTavrin3DObject* object = scene.ConvertGeometry("/Mesh");
    ASSERT_NE(object->TextureCoordinatesTable(), nullptr);
    EXPECT_EQ(object->TextureCoordinatesTable()->GetCount(), 0);
}

TEST(MeshVertexCoordinates, MistypedPrimvarGivesNoTable)
{
    TfDiagnosticCapture capture;
    MeshScene scene(MeshText(std::string("float3[] primvars:st = [(0, 0, 0), (1, 0, 0), (1, 1, 0), (0, 1, 0)] ") +
                             kVertexCoordinates));
    EXPECT_EQ(scene.ConvertGeometry("/Mesh")->TextureCoordinatesTable(), nullptr);
}

TEST(MeshVertexCoordinates, EarliestTimeSampleIsRead)
{
    MeshScene scene(MeshText(std::string("texCoord2f[] primvars:st ") + kVertexCoordinates +
                             "\ntexCoord2f[] primvars:st.timeSamples = {\n"
                             " 3: [(3, 3), (3, 3), (3, 3), (3, 3)],\n -1: [(1, 1), (1, 1), (1, 1), (1, 1)]\n}"));
    EXPECT_EQ(Coordinates(scene.ConvertGeometry("/Mesh")), std::vector<Coordinate>(4, Coordinate{1, 1}));
}

TEST(MeshFaceVaryingCoordinates, NoSeamKeepsFourVertices)
{
    MeshScene scene(MeshText("texCoord2f[] primvars:st = [(0, 0), (1, 0), (1, 1), (0, 0), (1, 1), (0, 1)] (\n"
                             " interpolation = \"faceVarying\"\n)"));
    const Tavrin::CTavrin3DObject* object = scene.ConvertGeometry("/Mesh");
    EXPECT_EQ(Coordinates(object), (std::vector<Coordinate>{{0, 0}, {1, 0}, {1, 1}, {0, 1}}));
    EXPECT_EQ(Triangles(object), (std::vector<Triangle>{{0, 1, 2}, {0, 2, 3}}));
}

TEST(MeshFaceVaryingCoordinates, SeamSplitsAndCopiesTheNormal)
{
    // Point 0 is met at (0, 0) and then at (2, 0): its copy 4 takes the
    // coordinate of its corner and the position and normal of point 0.
    MeshScene scene(MeshText("normal3f[] normals = [(0, 0, 1), (0, 1, 0), (1, 0, 0), (0, 0, -1)] (\n"
                             " interpolation = \"vertex\"\n)\n"
                             "texCoord2f[] primvars:st = [(0, 0), (1, 0), (1, 1), (2, 0), (1, 1), (0, 1)] (\n"
                             " interpolation = \"faceVarying\"\n)"));
    const Tavrin::CTavrin3DObject* object = scene.ConvertGeometry("/Mesh");
    EXPECT_EQ(Triangles(object), (std::vector<Triangle>{{0, 1, 2}, {4, 2, 3}}));
    EXPECT_EQ(Coordinates(object), (std::vector<Coordinate>{{0, 0}, {1, 0}, {1, 1}, {0, 1}, {2, 0}}));
    EXPECT_EQ(Normals(object), (std::vector<Vector3>{{0, 0, 1}, {0, 1, 0}, {1, 0, 0}, {0, 0, -1}, {0, 0, 1}}));
    EXPECT_EQ(Vertices(object).back(), (Vector3{0, 0, 0}));
}

TEST(MeshFaceVaryingCoordinates, IndexedValuesAreExpandedBeforeTriangulation)
{
    MeshScene scene(MeshText("texCoord2f[] primvars:st = [(0, 0), (1, 0), (1, 1), (0, 1)] (\n"
                             " interpolation = \"faceVarying\"\n)\n"
                             "int[] primvars:st:indices = [0, 1, 2, 0, 2, 3]"));
    const Tavrin::CTavrin3DObject* object = scene.ConvertGeometry("/Mesh");
    EXPECT_EQ(Coordinates(object), (std::vector<Coordinate>{{0, 0}, {1, 0}, {1, 1}, {0, 1}}));
    EXPECT_EQ(Vertices(object).size(), 4u);
}

TEST(MeshFaceVaryingCoordinates, FaceVaryingNormalsCopyPerVertexCoordinates)
{
    // Normals split point 0 and point 2; the copies take the per-vertex
    // coordinates of the points they came from.
    MeshScene scene(MeshText("normal3f[] normals = [(0, 0, 1), (0, 0, 1), (0, 0, 1), (1, 0, 0), (1, 0, 0), (1, 0, 0)] (\n"
                             " interpolation = \"faceVarying\"\n)\n"
                             "texCoord2f[] primvars:st = [(0.1, 0), (0.2, 0), (0.3, 0), (0.4, 0)] (\n"
                             " interpolation = \"vertex\"\n)"));
    const Tavrin::CTavrin3DObject* object = scene.ConvertGeometry("/Mesh");
    EXPECT_EQ(Triangles(object), (std::vector<Triangle>{{0, 1, 2}, {4, 5, 3}}));
    const auto coordinates = Coordinates(object);
    ASSERT_EQ(coordinates.size(), 6u);
    EXPECT_FLOAT_EQ(coordinates[4][0], 0.1f);
    EXPECT_FLOAT_EQ(coordinates[5][0], 0.3f);
}

TEST(MeshFaceVaryingCoordinates, NormalAndCoordinateTogetherDecideTheSplit)
{
    // Same normal everywhere; corner 3 (point 0) differs only by its
    // coordinate, corner 4 (point 2) only by its normal.
    MeshScene scene(MeshText("normal3f[] normals = [(0, 0, 1), (0, 0, 1), (0, 0, 1), (0, 0, 1), (0, 1, 0), (0, 0, 1)] (\n"
                             " interpolation = \"faceVarying\"\n)\n"
                             "texCoord2f[] primvars:st = [(0, 0), (1, 0), (1, 1), (0.5, 0), (1, 1), (0, 1)] (\n"
                             " interpolation = \"faceVarying\"\n)"));
    const Tavrin::CTavrin3DObject* object = scene.ConvertGeometry("/Mesh");
    EXPECT_EQ(Triangles(object), (std::vector<Triangle>{{0, 1, 2}, {4, 5, 3}}));
    EXPECT_EQ(Normals(object)[4], (Vector3{0, 0, 1}));
    EXPECT_EQ(Normals(object)[5], (Vector3{0, 1, 0}));
    EXPECT_EQ(Coordinates(object)[4], (Coordinate{0.5, 0}));
    EXPECT_EQ(Coordinates(object)[5], (Coordinate{1, 1}));
}
