// The per-mesh routine: display colour and opacity, the material found on
// the mesh or on one of its geometry subsets, and the geometry.
#include <gtest/gtest.h>

#include "MeshScene.h"
#include "host/CTavrinMaterial.h"

using namespace MeshTest;
using Tavrin::enumMaterialValue;
PXR_NAMESPACE_USING_DIRECTIVE

namespace {

const char* kTriangle = "point3f[] points = [(0, 0, 0), (1, 0, 0), (0, 1, 0)]\n"
                        "int[] faceVertexCounts = [3]\nint[] faceVertexIndices = [0, 1, 2]\n";

// A material whose preview surface sets only the diffuse colour.
std::string MaterialText(const std::string& name, const std::string& color)
{
    return "def Material \"" + name + "\" {\n"
           " token outputs:surface.connect = </Looks/" + name + "/Surface.outputs:surface>\n"
           " def Shader \"Surface\" {\n"
           "  uniform token info:id = \"UsdPreviewSurface\"\n"
           "  color3f inputs:diffuseColor = " + color + "\n"
           "  token outputs:surface\n"
           " }\n"
           "}\n";
}

Tavrin::CTavrin3DObject* ConvertObject(MeshScene& scene, const std::string& path)
{
    Tavrin::CTavrin3DObject* object = Tavrin::CTavrin3DObject::Create(scene.Document());
    scene.Handler().ReadMeshObject(UsdGeomMesh::Get(scene.Handler().stage, SdfPath(path)), object);
    return object;
}

const Tavrin::CTavrinMaterialValues& ValuesOf(const Tavrin::CTavrin3DObject* object)
{
    return object->Material()->BasicMaterial()->Values();
}

} // namespace

TEST(MeshDisplayColor, FirstAuthoredColorAndOpacityWithoutMaterial)
{
    MeshScene scene("def Mesh \"Mesh\" {\n" + std::string(kTriangle) +
                    "color3f[] primvars:displayColor = [(1, 0, 0), (0, 1, 0)] (\n interpolation = \"vertex\"\n)\n"
                    "float[] primvars:displayOpacity = [0.5, 0.25]\n}\n");
    const Tavrin::CTavrin3DObject* object = ConvertObject(scene, "/Mesh");
    ASSERT_NE(object->Material(), nullptr);
    EXPECT_TRUE(ValuesOf(object).WasAssigned(enumMaterialValue::Color));
    EXPECT_EQ(ValuesOf(object).Value(enumMaterialValue::Color), (std::array<double, 3>{1, 0, 0}));
    EXPECT_TRUE(ValuesOf(object).WasAssigned(enumMaterialValue::Alpha));
    EXPECT_EQ(ValuesOf(object).Value(enumMaterialValue::Alpha)[0], 0.5);
    EXPECT_EQ(object->Material()->Name(), Tavrin::CTavrinString(""));
}

TEST(MeshDisplayColor, EmptyMissingOrMistypedValuesSetNothing)
{
    for (const char* primvars : {"color3f[] primvars:displayColor = []\nfloat[] primvars:displayOpacity = []",
                                 "",
                                 "float[] primvars:displayColor = [1, 0, 0]\ndouble primvars:displayOpacity = 0.5"}) {
        MeshScene scene("def Mesh \"Mesh\" {\n" + std::string(kTriangle) + primvars + "\n}\n");
        const Tavrin::CTavrin3DObject* object = ConvertObject(scene, "/Mesh");
        EXPECT_FALSE(ValuesOf(object).WasAssigned(enumMaterialValue::Color)) << primvars;
        EXPECT_FALSE(ValuesOf(object).WasAssigned(enumMaterialValue::Alpha)) << primvars;
    }
}

TEST(MeshDisplayColor, BoundMaterialOverridesTheDisplayColor)
{
    MeshScene scene("def Scope \"Looks\" {\n" + MaterialText("Red", "(1, 0, 0)") + "}\n"
                    "def Mesh \"Mesh\" (\n prepend apiSchemas = [\"MaterialBindingAPI\"]\n) {\n" +
                    kTriangle +
                    "color3f[] primvars:displayColor = [(0, 0, 1)]\n"
                    "rel material:binding = </Looks/Red>\n}\n");
    const Tavrin::CTavrin3DObject* object = ConvertObject(scene, "/Mesh");
    EXPECT_EQ(ValuesOf(object).Value(enumMaterialValue::Color), (std::array<double, 3>{1, 0, 0}));
    EXPECT_EQ(object->Material()->Name(), Tavrin::CTavrinString("Red"));
}

TEST(MeshSubsets, FirstBoundSubsetLendsItsMaterialToTheWholeMesh)
{
    MeshScene scene("def Scope \"Looks\" {\n" + MaterialText("Green", "(0, 1, 0)") + MaterialText("Blue", "(0, 0, 1)") +
                    "}\n"
                    "def Mesh \"Mesh\" {\n" + kTriangle +
                    " def GeomSubset \"Unbound\" {\n  uniform token elementType = \"face\"\n  int[] indices = [0]\n }\n"
                    " def Mesh \"ChildMesh\" {\n  rel material:binding = </Looks/Blue>\n }\n"
                    " def GeomSubset \"Second\" (\n  prepend apiSchemas = [\"MaterialBindingAPI\"]\n ) {\n"
                    "  uniform token elementType = \"face\"\n  int[] indices = [0]\n"
                    "  rel material:binding = </Looks/Green>\n }\n"
                    " def GeomSubset \"Third\" {\n  uniform token elementType = \"face\"\n  int[] indices = [0]\n"
                    "  rel material:binding = </Looks/Blue>\n }\n"
                    "}\n");
    const Tavrin::CTavrin3DObject* object = ConvertObject(scene, "/Mesh");
    EXPECT_EQ(ValuesOf(object).Value(enumMaterialValue::Color), (std::array<double, 3>{0, 1, 0}));
    EXPECT_EQ(object->Material()->Name(), Tavrin::CTavrinString("Green"));
    // The mesh is not split by subset.
    EXPECT_EQ(Triangles(object), (std::vector<Triangle>{{0, 1, 2}}));
}

TEST(MeshSubsets, ChildMeshIsNotASubset)
{
    MeshScene scene("def Scope \"Looks\" {\n" + MaterialText("Blue", "(0, 0, 1)") + "}\n"
                    "def Mesh \"Mesh\" {\n" + kTriangle +
                    " def Mesh \"ChildMesh\" {\n  rel material:binding = </Looks/Blue>\n }\n}\n");
    const Tavrin::CTavrin3DObject* object = ConvertObject(scene, "/Mesh");
    EXPECT_FALSE(ValuesOf(object).WasAssigned(enumMaterialValue::Color));
    EXPECT_EQ(object->Material()->Name(), Tavrin::CTavrinString(""));
}

TEST(MeshObject, GeometryIsAttachedAndTheCoordinateNameDoesNotCarryOver)
{
    MeshScene scene("def Mesh \"First\" {\n" + std::string(kTriangle) +
                    "texCoord2f[] primvars:st = [(0, 0), (1, 0), (0, 1)] (\n interpolation = \"vertex\"\n)\n}\n"
                    "def Mesh \"Second\" {\n" + kTriangle +
                    "texCoord2f[] primvars:uv = [(0, 0), (1, 0), (0, 1)] (\n interpolation = \"vertex\"\n)\n}\n");
    const Tavrin::CTavrin3DObject* first = ConvertObject(scene, "/First");
    EXPECT_TRUE(scene.Handler().stPrimvarName.IsEmpty());
    EXPECT_EQ(Coordinates(first).size(), 3u);
    const Tavrin::CTavrin3DObject* second = ConvertObject(scene, "/Second");
    EXPECT_EQ(second->TextureCoordinatesTable(), nullptr);
    EXPECT_EQ(Vertices(second).size(), 3u);
}

TEST(MeshObject, MeshWithoutPointsStillGetsItsMaterialAndAnEmptyGeometry)
{
    MeshScene scene("def Mesh \"Mesh\" {\n color3f[] primvars:displayColor = [(0, 1, 0)]\n}\n");
    const Tavrin::CTavrin3DObject* object = ConvertObject(scene, "/Mesh");
    ASSERT_NE(object->Material(), nullptr);
    ASSERT_NE(object->Geometry(), nullptr);
    EXPECT_EQ(object->Geometry()->VerticiesTable(), nullptr);
}
