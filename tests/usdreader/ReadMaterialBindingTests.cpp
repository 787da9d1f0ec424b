// The direct material binding of one prim, and how a mesh's material is
// resolved over its own binding and its subsets' bindings.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/CTavrinGeometry.h"
#include "tests/usdreader/MaterialSupport.h"

PXR_NAMESPACE_USING_DIRECTIVE

using namespace Tavrin;
using namespace TavrinReaderTests;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Values = std::map<std::string, std::vector<double>>;

namespace {

const char* const twoMaterials = R"(#usda 1.0
def Material "Red" {
    token outputs:surface.connect = </Red/Surface.outputs:surface>
    def Shader "Surface" {
        color3f inputs:diffuseColor = (1, 0, 0)
        float inputs:opacity = 0.5
    }
}
def Material "Blue" {
    token outputs:surface.connect = </Blue/Surface.outputs:surface>
    def Shader "Surface" { color3f inputs:diffuseColor = (0, 0, 1) }
}
def Xform "NotAMaterial" {}
def Xform "Parent" (prepend apiSchemas = ["MaterialBindingAPI"]) {
    rel material:binding = </Red>
    def Mesh "Child" {}
}
def Mesh "Unbound" {}
def Mesh "Empty" { rel material:binding }
def Mesh "Dangling" { rel material:binding = [</Nowhere>, </Red.outputs:surface>, </Red/Surface>] }
def Mesh "SkipsNonMaterial" { rel material:binding = [</NotAMaterial>, </Blue>] }
def Mesh "Both" { rel material:binding = [</Red>, </Blue>] }
def Mesh "PurposeOnly" { rel material:binding:preview = </Red> }
)";

TEST(ReadMaterialBinding, APrimWithoutTargetsFindsNothingAndKeepsTheName)
{
    const auto scene = OpenScene(twoMaterials);
    for (const char* path : {"/Unbound", "/Empty", "/Dangling", "/Parent/Child", "/PurposeOnly"}) {
        const BindingResult binding = ReadBinding(scene->handler, path);
        EXPECT_FALSE(binding.found) << path;
        EXPECT_EQ(binding.name, CTavrinString("before")) << path;
        EXPECT_THAT(AssignedValues(*binding.material), IsEmpty()) << path;
    }
}

TEST(ReadMaterialBinding, TargetsThatAreNotMaterialsAreSkipped)
{
    const auto scene = OpenScene(twoMaterials);
    const BindingResult binding = ReadBinding(scene->handler, "/SkipsNonMaterial");
    EXPECT_TRUE(binding.found);
    EXPECT_EQ(binding.name, CTavrinString("Blue"));
    EXPECT_EQ(AssignedValues(*binding.material), (Values{{"Color", {0, 0, 1}}}));
}

TEST(ReadMaterialBinding, EveryMaterialTargetIsConvertedInOrderAndTheLastNamesIt)
{
    const auto scene = OpenScene(twoMaterials);
    const BindingResult binding = ReadBinding(scene->handler, "/Both");
    EXPECT_TRUE(binding.found);
    EXPECT_EQ(binding.name, CTavrinString("Blue"));
    EXPECT_EQ(AssignedValues(*binding.material), (Values{{"Alpha", {0.5}}, {"Color", {0, 0, 1}}}));
}

TEST(ReadMaterialBinding, ABindingOnTheParentBindsOnlyTheParent)
{
    const auto scene = OpenScene(twoMaterials);
    const BindingResult binding = ReadBinding(scene->handler, "/Parent");
    EXPECT_TRUE(binding.found);
    EXPECT_EQ(binding.name, CTavrinString("Red"));
}

// Through a whole import: which binding a mesh's one material comes from.
const char* const subsetScene = R"(#usda 1.0
def Material "Red" {
    token outputs:surface.connect = </Red/Surface.outputs:surface>
    def Shader "Surface" { color3f inputs:diffuseColor = (1, 0, 0) }
}
def Material "Blue" {
    token outputs:surface.connect = </Blue/Surface.outputs:surface>
    def Shader "Surface" { color3f inputs:diffuseColor = (0, 0, 1) }
}
def Mesh "OwnBinding" {
    rel material:binding = </Red>
    int[] faceVertexCounts = [3, 3]
    int[] faceVertexIndices = [0, 1, 2, 0, 2, 3]
    point3f[] points = [(0, 0, 0), (1, 0, 0), (1, 1, 0), (0, 1, 0)]
    def GeomSubset "Second" {
        uniform token elementType = "face"
        int[] indices = [1]
        rel material:binding = </Blue>
    }
}
def Mesh "SubsetsOnly" {
    int[] faceVertexCounts = [3, 3]
    int[] faceVertexIndices = [0, 1, 2, 0, 2, 3]
    point3f[] points = [(0, 0, 0), (1, 0, 0), (1, 1, 0), (0, 1, 0)]
    def GeomSubset "Unbound" { uniform token elementType = "face"
        int[] indices = [0] }
    def Mesh "NotASubset" { rel material:binding = </Red> }
    def GeomSubset "Blue" { uniform token elementType = "face"
        int[] indices = [1]
        rel material:binding = </Blue> }
    def GeomSubset "RedToo" { uniform token elementType = "face"
        int[] indices = [0]
        rel material:binding = </Red> }
}
def Xform "Bound" {
    rel material:binding = </Red>
    def Mesh "Inside" {
        int[] faceVertexCounts = [3]
        int[] faceVertexIndices = [0, 1, 2]
        point3f[] points = [(0, 0, 0), (1, 0, 0), (1, 1, 0)]
    }
}
)";

TEST(MeshMaterialResolution, TheMeshsOwnBindingBeatsItsSubsets)
{
    const ImportResult result = ImportText(subsetScene);
    const CTavrinJson material = NodeNamed(result.json, "OwnBinding").at("material");
    EXPECT_EQ(material.at("name"), "Red");
    EXPECT_EQ(material.at("set").at("Color"), CTavrinJson::parse("[1, 0, 0]"));
}

TEST(MeshMaterialResolution, TheFirstBoundSubsetGivesTheWholeMeshItsMaterial)
{
    const ImportResult result = ImportText(subsetScene);
    const CTavrinJson material = NodeNamed(result.json, "SubsetsOnly").at("material");
    EXPECT_EQ(material.at("name"), "Blue");
    EXPECT_EQ(material.at("set").at("Color"), CTavrinJson::parse("[0, 0, 1]"));
}

TEST(MeshMaterialResolution, AMaterialBoundOnlyToTheParentLeavesTheMeshUnnamed)
{
    const ImportResult result = ImportText(subsetScene);
    const CTavrinJson material = NodeNamed(result.json, "Inside").at("material");
    EXPECT_EQ(material.at("name"), "");
    EXPECT_FALSE(material.at("set").contains("Color"));
}

TEST(MeshMaterialResolution, OneUSDMaterialGivesEachMeshItsOwnHostMaterial)
{
    const ImportResult result = ImportText(subsetScene);
    EXPECT_EQ(NodeNamed(result.json, "OwnBinding").at("material").at("name"), "Red");
    EXPECT_EQ(NodeNamed(result.json, "NotASubset").at("material").at("name"), "Red");
    const auto* first = static_cast<const CTavrin3DObject*>(result.document->SceneNodes()[0]);
    const auto* second = static_cast<const CTavrin3DObject*>(result.document->SceneNodes()[2]);
    EXPECT_NE(first->Material(), second->Material());
}

} // namespace
