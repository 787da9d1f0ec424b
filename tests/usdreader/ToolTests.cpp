// tavrin-usd-import end to end on the bundled sample: exit status, summary
// and the JSON form, against values worked out from the sample's text.

#include <cmath>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <fstream>
#include <sys/wait.h>

#include "tests/usdreader/ImportSupport.h"

using namespace Tavrin;
using namespace TavrinReaderTests;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

namespace {

struct ToolRun {
    int exitStatus = -1;
    std::string output;
};

ToolRun RunTool(const std::string& arguments)
{
    ToolRun run;
    const std::string command = std::string("'") + TAVRIN_USD_IMPORT_TOOL + "' " + arguments + " 2>&1";
    FILE* pipe = popen(command.c_str(), "r");
    if (!pipe)
        return run;
    char buffer[4096];
    while (const size_t read = fread(buffer, 1, sizeof buffer, pipe))
        run.output.append(buffer, read);
    const int status = pclose(pipe);
    run.exitStatus = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    return run;
}

CTavrinJson ReadJson(const std::filesystem::path& path)
{
    std::ifstream stream(path);
    return CTavrinJson::parse(stream, nullptr, false);
}

std::vector<double> Floats(std::initializer_list<float> values)
{
    return std::vector<double>(values.begin(), values.end());
}

class SampleImport : public ::testing::Test {
protected:
    static void SetUpTestSuite()
    {
        scratch = new ScratchFolder();
        run = new ToolRun(RunTool(std::string(TAVRIN_SOURCE_DIR) + "/examples/sample_scene.usda --json '" +
                                  (scratch->Path() / "sample.json").string() + "' --folder '" +
                                  (scratch->Path() / "textures").string() + "'"));
        json = new CTavrinJson(ReadJson(scratch->Path() / "sample.json"));
    }
    static void TearDownTestSuite()
    {
        delete json;
        delete run;
        delete scratch;
    }
    static const CTavrinJson& Document() { return json->at("document"); }

    static ScratchFolder* scratch;
    static ToolRun* run;
    static CTavrinJson* json;
};

ScratchFolder* SampleImport::scratch = nullptr;
ToolRun* SampleImport::run = nullptr;
CTavrinJson* SampleImport::json = nullptr;

TEST_F(SampleImport, SucceedsAndSummarisesTheDocument)
{
    EXPECT_EQ(run->exitStatus, 0) << run->output;
    EXPECT_THAT(run->output, HasSubstr("nodes:      6\n"));
    EXPECT_THAT(run->output, HasSubstr("meshes:     4\n"));
    EXPECT_THAT(run->output, HasSubstr("triangles:  37\n"));
    EXPECT_THAT(run->output, HasSubstr("materials:  4\n"));
    EXPECT_THAT(run->output, HasSubstr("joints:     0\n"));
    EXPECT_THAT(run->output, HasSubstr("key frames: 0\n"));
    EXPECT_THAT(run->output, HasSubstr("textures:   " + (scratch->Path() / "textures").string()));
}

TEST_F(SampleImport, ReportsProgressForEachOfTheFifteenPrims)
{
    EXPECT_EQ(json->at("format"), "tavrin-document/1");
    // int(k / 15 * 96 + 2) for k = 1..15
    const CTavrinJson expected = CTavrinJson::parse(R"([["Initilizing", 1],
        ["Reading Geometries", 8], ["Reading Geometries", 14], ["Reading Geometries", 21],
        ["Reading Geometries", 27], ["Reading Geometries", 34], ["Reading Geometries", 40],
        ["Reading Geometries", 46], ["Reading Geometries", 53], ["Reading Geometries", 59],
        ["Reading Geometries", 66], ["Reading Geometries", 72], ["Reading Geometries", 78],
        ["Reading Geometries", 85], ["Reading Geometries", 91], ["Reading Geometries", 98],
        ["Finalizing", 99], ["Done", 100]])");
    EXPECT_EQ(json->at("progress"), expected);
}

TEST_F(SampleImport, MakesOneNodePerTransformAndMesh)
{
    EXPECT_THAT(NodeNames(Document()), ElementsAre("World", "Floor", "Table", "Top", "Legs", "Vase"));
    const CTavrinJson& nodes = Document().at("nodes");
    EXPECT_EQ(nodes.at(0).at("type"), "TransformNode");
    EXPECT_EQ(nodes.at(2).at("type"), "TransformNode");
    for (int mesh : {1, 3, 4, 5})
        EXPECT_EQ(nodes.at(mesh).at("type"), "3DObject");
    const std::vector<CTavrinJson> parents = {nullptr, 0, 0, 2, 2, 0};
    for (int node = 0; node < 6; ++node)
        EXPECT_EQ(nodes.at(node).at("parent"), parents[node]) << node;
    EXPECT_TRUE(Document().at("sequence").is_null());
}

TEST_F(SampleImport, TheWorldCarriesTheYUpCentimetreCorrection)
{
    const CTavrinJson& m = Document().at("nodes").at(0).at("localMatrix");
    // The quarter turn's constant, 1.57079632675, falls a little short of pi/2.
    const double c = 0.01 * std::cos(1.57079632675), s = 0.01 * std::sin(1.57079632675);
    const double expected[16] = {0.01, 0, 0, 0, 0, c, -s, 0, 0, s, c, 0, 0, 0, 0, 1};
    for (int i = 0; i < 16; ++i)
        EXPECT_NEAR(m.at(i).get<double>(), expected[i], 1e-17) << i;
}

TEST_F(SampleImport, ChildrenKeepTheirOwnMatrices)
{
    const CTavrinJson& nodes = Document().at("nodes");
    // The table turns 30 degrees about Y: cos 30 = 0.866..., sin 30 = 0.5.
    const double c = std::sqrt(3.0) / 2.0;
    const double table[16] = {c, 0, 0.5, 0, 0, 1, 0, 0, -0.5, 0, c, 0, 0, 0, 0, 1};
    for (int i = 0; i < 16; ++i)
        EXPECT_NEAR(nodes.at(2).at("localMatrix").at(i).get<double>(), table[i], 1e-7) << i;
    EXPECT_EQ(nodes.at(3).at("localMatrix"), CTavrinJson::parse("[1,0,0,0, 0,1,0,72.5, 0,0,1,0, 0,0,0,1]"));
    EXPECT_EQ(nodes.at(1).at("localMatrix"), CTavrinJson::parse("[1,0,0,0, 0,1,0,0, 0,0,1,0, 0,0,0,1]"));
}

TEST_F(SampleImport, EachMeshHasTheMaterialItsBindingsAndDisplayColourGive)
{
    const CTavrinJson& nodes = Document().at("nodes");
    // The floor is unbound: its display colour and opacity only.
    EXPECT_EQ(nodes.at(1).at("material").at("name"), "");
    EXPECT_EQ(nodes.at(1).at("material").at("set").at("Color").get<std::vector<double>>(), Floats({0.3f, 0.32f, 0.35f}));
    EXPECT_EQ(nodes.at(1).at("material").at("set").at("Alpha"), 1.0);

    const CTavrinJson& oak = nodes.at(3).at("material");
    EXPECT_EQ(oak.at("name"), "Oak");
    EXPECT_EQ(oak.at("set").at("Color").get<std::vector<double>>(), Floats({0.55f, 0.36f, 0.2f}));
    EXPECT_EQ(oak.at("set").at("Roughness"), double(0.7f));
    EXPECT_EQ(oak.at("set").at("Metalness"), 0.0);

    // The legs' display colour is overwritten by the bound material.
    const CTavrinJson& steel = nodes.at(4).at("material");
    EXPECT_EQ(steel.at("name"), "BrushedSteel");
    EXPECT_EQ(steel.at("set").at("Color").get<std::vector<double>>(), Floats({0.72f, 0.73f, 0.75f}));
    EXPECT_EQ(steel.at("set").at("Specular").get<std::vector<double>>(), Floats({0.9f, 0.9f, 0.9f}));
    EXPECT_EQ(steel.at("set").at("Metalness"), 1.0);

    // The vase has no binding of its own: its first bound subset decides.
    EXPECT_EQ(nodes.at(5).at("material").at("name"), "BrushedSteel");
}

TEST_F(SampleImport, MeshesAreTriangulated)
{
    const CTavrinJson& nodes = Document().at("nodes");
    // Quads make two triangles, the vase's pentagon three.
    EXPECT_EQ(nodes.at(1).at("geometry").at("triangles").size(), 8u);
    EXPECT_EQ(nodes.at(3).at("geometry").at("triangles").size(), 12u);
    EXPECT_EQ(nodes.at(4).at("geometry").at("triangles").size(), 4u);
    EXPECT_EQ(nodes.at(5).at("geometry").at("triangles").size(), 13u);
    // The floor's vertex normals and coordinates need no split; each corner
    // of the table top has three normals, one per face that meets there.
    EXPECT_EQ(nodes.at(1).at("geometry").at("vertices").size(), 9u);
    EXPECT_EQ(nodes.at(3).at("geometry").at("vertices").size(), 24u);
}

TEST(ToolFailures, AnUnsupportedFileExitsWithOneAndWritesANullDocument)
{
    ScratchFolder scratch;
    const std::string notes = scratch.Write("notes.txt", "hello");
    const std::filesystem::path out = scratch.Path() / "out.json";
    const ToolRun run = RunTool("'" + notes + "' --quiet --json '" + out.string() + "'");
    EXPECT_EQ(run.exitStatus, 1);
    const CTavrinJson json = ReadJson(out);
    EXPECT_EQ(json.at("source"), notes);
    EXPECT_EQ(json.at("progress"), CTavrinJson::parse(R"([["Initilizing", 1], ["This file is not supported", -1]])"));
    EXPECT_TRUE(json.at("document").is_null());
}

TEST(ToolFailures, UsageErrorsExitWithTwo)
{
    EXPECT_EQ(RunTool("--frobnicate").exitStatus, 2);
    EXPECT_EQ(RunTool("--json").exitStatus, 2);
    EXPECT_EQ(RunTool("a.usda b.usda").exitStatus, 2);
    EXPECT_EQ(RunTool("--folder x --folder y").exitStatus, 2);
    EXPECT_EQ(RunTool("--plugin").exitStatus, 2);
}

// The tool imports through the plug-in it loads: a file that is no importer
// plug-in (here, the sample scene itself) stops it before any import.
TEST(ToolFailures, AFileThatIsNoImporterPlugInExitsWithOneBeforeImporting)
{
    const std::string sample = std::string(TAVRIN_SOURCE_DIR) + "/examples/sample_scene.usda";
    const ToolRun run = RunTool("'" + sample + "' --plugin '" + sample + "'");
    EXPECT_EQ(run.exitStatus, 1);
    EXPECT_EQ(run.output.find("Initilizing"), std::string::npos) << run.output;
}

TEST(ToolFailures, WithoutAFileTheSampleIsImportedQuietly)
{
    const ToolRun run = RunTool("--quiet");
    EXPECT_EQ(run.exitStatus, 0);
    EXPECT_EQ(run.output, "");
}

// A cube imports through the plug-in as a 3D object with its material and
// transform; --no-shapes reaches the importer and leaves it out.
TEST(ToolOptions, ShapesImportUnlessLeftOut)
{
    ScratchFolder scratch;
    const std::string scene = scratch.Write("box.usda", ZUpScene(R"(
def Cube "Box" {
    double size = 4
    double3 xformOp:translate = (5, 6, 7)
    uniform token[] xformOpOrder = ["xformOp:translate"]
    rel material:binding = </Paint>
}
def Material "Paint" {
    token outputs:surface.connect = </Paint/Surface.outputs:surface>
    def Shader "Surface" {
        uniform token info:id = "UsdPreviewSurface"
        color3f inputs:diffuseColor = (0, 0, 1)
        token outputs:surface
    }
}
)"));
    const std::filesystem::path withShapes = scratch.Path() / "with.json";
    const ToolRun run = RunTool("'" + scene + "' --quiet --json '" + withShapes.string() + "'");
    EXPECT_EQ(run.exitStatus, 0) << run.output;
    const CTavrinJson box = NodeNamed(ReadJson(withShapes).at("document"), "Box");
    ASSERT_FALSE(box.is_null());
    EXPECT_EQ(box.at("type"), "3DObject");
    EXPECT_THAT(TranslationOf(box.at("localMatrix")), ElementsAre(5, 6, 7));
    EXPECT_EQ(box.at("material").at("name"), "Paint");
    EXPECT_EQ(box.at("material").at("set").at("Color"), CTavrinJson::parse("[0, 0, 1]"));
    EXPECT_EQ(box.at("geometry").at("vertices").at(0), CTavrinJson::parse("[2, 2, 2]"));

    const std::filesystem::path withoutShapes = scratch.Path() / "without.json";
    EXPECT_EQ(RunTool("'" + scene + "' --quiet --no-shapes --json '" + withoutShapes.string() + "'").exitStatus, 0);
    EXPECT_EQ(ReadJson(withoutShapes).at("document").at("nodes"), CTavrinJson::array());
}

// --no-instances reaches the importer through the plug-in.
TEST(ToolOptions, InstancedContentImportsUnlessLeftOut)
{
    ScratchFolder scratch;
    const std::string scene = scratch.Write("stools.usda", ZUpScene(R"(
class Xform "Stool" { def Xform "Leg" {} }
def Xform "One" (instanceable = true
    prepend references = </Stool>) {}
)"));
    const std::filesystem::path with = scratch.Path() / "with.json";
    const std::filesystem::path without = scratch.Path() / "without.json";
    EXPECT_EQ(RunTool("'" + scene + "' --quiet --json '" + with.string() + "'").exitStatus, 0);
    EXPECT_EQ(RunTool("'" + scene + "' --quiet --no-instances --json '" + without.string() + "'").exitStatus, 0);
    EXPECT_THAT(NodeNames(ReadJson(with).at("document")), ElementsAre("One", "Leg"));
    EXPECT_THAT(NodeNames(ReadJson(without).at("document")), ElementsAre("One"));
}

TEST(ToolProgress, PlainLinesOutsideATerminalOnePerChange)
{
    ScratchFolder scratch;
    const std::string scene = scratch.Write("two.usda", "#usda 1.0\ndef Xform \"A\" {}\ndef Xform \"B\" {}\n");
    const ToolRun run = RunTool("'" + scene + "' --folder '" + scratch.Path().string() + "'");
    EXPECT_EQ(run.exitStatus, 0);
    EXPECT_THAT(run.output, HasSubstr("Initilizing 1\nReading Geometries 50\nReading Geometries 98\nFinalizing 99\nDone 100\n"));
}

} // namespace
