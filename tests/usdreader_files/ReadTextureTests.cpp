#include <gtest/gtest.h>

#include <filesystem>

#include "../utilities/ScopedEnvironment.h"
#include "ScratchFolder.h"
#include "TestZip.h"
#include "usdreader/CTavrinUSDReaderHandler.h"

PXR_NAMESPACE_USING_DIRECTIVE
using namespace Tavrin;

namespace {

// One material of texture readers in every shape the conversion meets. The
// package is "unpacked" by hand into scratch/unpack; the layer itself lies
// in scratch, where no texture is.
const char* const Scene = R"(#usda 1.0
def Material "M"
{
    def Shader "Reader"
    {
        uniform token info:id = "UsdPrimvarReader_float2"
        token inputs:varname = "uvA"
        float2 outputs:result
    }
    def Shader "OtherReader"
    {
        token inputs:varname = "uvB"
        float2 outputs:result
    }
    def Shader "StringReader"
    {
        string inputs:varname = "uvS"
        float2 outputs:result
    }
    def NodeGraph "Graph"
    {
        float2 outputs:st
    }
    def Shader "Wood"
    {
        uniform token info:id = "UsdUVTexture"
        asset inputs:file = @textures/wood.png@
        float2 inputs:st.connect = </M/Reader.outputs:result>
        float3 outputs:rgb
    }
    def Shader "Stone"
    {
        asset inputs:file = @textures\stone.png@
        float2 inputs:st.connect = </M/OtherReader.outputs:result>
    }
    def Shader "ViaString"
    {
        asset inputs:file = @./textures/wood.png@
        float2 inputs:st.connect = </M/StringReader.outputs:result>
    }
    def Shader "ViaGraph"
    {
        asset inputs:file = @textures/wood.png@
        float2 inputs:st.connect = </M/Graph.outputs:st>
    }
    def Shader "A" { asset inputs:file = @a/base.png@ }
    def Shader "B" { asset inputs:file = @b/base.png@ }
    def Shader "C" { asset inputs:file = @c/Base.png@ }
    def Shader "Missing" { asset inputs:file = @textures/missing.png@ }
    def Shader "Folder" { asset inputs:file = @textures/@ }
    def Shader "NoFile" { token inputs:varname = "uvC" }
    def Shader "FileAsString" { string inputs:file = "textures/wood.png" }
    def Shader "FileNotAnInput" { asset file = @textures/wood.png@ }
    def Shader "FileOnlySampled" { asset inputs:file.timeSamples = { 1: @textures/wood.png@ } }
}
)";

// Textures go to scratch/out, which does not exist beforehand; packages
// other than the imported one are unpacked under scratch/temp.
struct ReadTexture : ::testing::Test {
    ScopedEnvironment environment;
    ScratchFolder scratch;
    CTavrinUSDReaderHandler handler;

    void SetUp() override
    {
        ASSERT_FALSE(scratch.path.empty());
        environment.Set("TAVRIN_TEMP_DIR", scratch / "temp/");
        WriteFile(scratch / "scene.usda", Scene);
        WriteFile(scratch / "unpack/textures/wood.png", "wood bytes");
        WriteFile(scratch / "unpack/textures/stone.png", "stone bytes");
        WriteFile(scratch / "unpack/a/base.png", "A");
        WriteFile(scratch / "unpack/b/base.png", "B");
        WriteFile(scratch / "unpack/c/Base.png", "C");
        // A folder where "textures/" resolves beside the layer.
        WriteFile(scratch / "textures/readme.txt", "not a texture");
        Open(scratch / "scene.usda");
        handler.unpackFolder = Text(scratch / "unpack/");
        handler.textureFolder = Text(scratch / "out/");
    }
    void Open(const std::string& path)
    {
        handler.stage = UsdStage::Open(path);
        ASSERT_TRUE(handler.stage) << path;
    }
    CTavrinTexture ReadAt(const std::string& shaderPath)
    {
        return handler.ReadTexture(UsdShadeShader::Get(handler.stage, SdfPath(shaderPath)));
    }
    CTavrinTexture Read(const char* shader) { return ReadAt(std::string("/M/") + shader); }
    CTavrinTexture Texture(const std::string& name) { return CTavrinTexture(Text(scratch / "out/" + name)); }
    std::set<std::string> Copied() const
    {
        std::set<std::string> copied;
        for (const std::string& file : scratch.Files()) {
            if (file.rfind("out/", 0) == 0)
                copied.insert(file.substr(4));
        }
        return copied;
    }
};

// The zip bytes of a package whose entries are stored, as a usdz holds them.
std::string PackageBytes(const ScratchFolder& scratch, const std::vector<TestZipEntry>& entries)
{
    const std::string path = scratch / "package-bytes.zip";
    EXPECT_TRUE(WriteTestZip(path, entries));
    const std::string bytes = ReadFile(path);
    std::filesystem::remove(path);
    return bytes;
}

} // namespace

TEST_F(ReadTexture, PackageTextureIsCopiedFlatAndReferredTo)
{
    EXPECT_EQ(Read("Wood"), Texture("wood.png"));
    EXPECT_EQ(ReadFile(scratch / "out/wood.png"), "wood bytes");
    EXPECT_EQ(Copied(), (std::set<std::string>{"wood.png"}));
}

TEST_F(ReadTexture, BackslashesInTheAssetPathSeparateFolders)
{
    EXPECT_EQ(Read("Stone"), Texture("stone.png"));
    EXPECT_EQ(ReadFile(scratch / "out/stone.png"), "stone bytes");
}

// The copy is edited after the first read: a second copy would undo that.
TEST_F(ReadTexture, OneSourceNamedAgainIsCopiedOnceAndReferredToAgain)
{
    ASSERT_EQ(Read("Wood"), Texture("wood.png"));
    WriteFile(scratch / "out/wood.png", "edited");
    for (const char* shader : {"Wood", "ViaString", "ViaGraph"})
        EXPECT_EQ(Read(shader), Texture("wood.png")) << shader;
    EXPECT_EQ(ReadFile(scratch / "out/wood.png"), "edited");
    EXPECT_EQ(Copied(), (std::set<std::string>{"wood.png"}));
}

// Names that differ only in case are one file where the file system ignores
// case, so they are told apart too.
TEST_F(ReadTexture, SourcesOfOneNameStayDistinctFiles)
{
    const struct {
        const char* shader;
        const char* copy;
        const char* bytes;
    } reads[] = {
        {"A", "base.png", "A"},
        {"B", "base_1.png", "B"},
        {"C", "Base_2.png", "C"},
        {"A", "base.png", "A"},
        {"B", "base_1.png", "B"},
    };
    for (const auto& read : reads) {
        EXPECT_EQ(Read(read.shader), Texture(read.copy)) << read.shader;
        EXPECT_EQ(ReadFile(scratch / "out/" + read.copy), read.bytes) << read.copy;
    }
    EXPECT_EQ(Copied(), (std::set<std::string>{"base.png", "base_1.png", "Base_2.png"}));
}

TEST_F(ReadTexture, AFileLeftByAnEarlierImportIsReplaced)
{
    WriteFile(scratch / "out/wood.png", "stale");
    EXPECT_EQ(Read("Wood"), Texture("wood.png"));
    EXPECT_EQ(ReadFile(scratch / "out/wood.png"), "wood bytes");
}

// Neither under the unpack folder nor beside the layer; "textures/" names a
// folder in both.
TEST_F(ReadTexture, AnAssetFoundNowhereGivesAnEmptyTextureAndOneWarning)
{
    for (const char* shader : {"Missing", "Folder"}) {
        TfDiagnosticCapture diagnostics;
        EXPECT_TRUE(Read(shader).IsEmpty()) << shader;
        EXPECT_TRUE(Read(shader).IsEmpty()) << shader;
        ASSERT_EQ(diagnostics.GetDiagnostics().size(), 1u) << shader;
        EXPECT_EQ(diagnostics.Count(TF_DIAGNOSTIC_WARNING_TYPE), 1u) << shader;
        const std::string warning = diagnostics.GetDiagnostics().front().GetCommentary();
        UsdShadeInput file = UsdShadeShader::Get(handler.stage, SdfPath(std::string("/M/") + shader))
                                 .GetInput(TfToken("file"));
        SdfAssetPath asset;
        ASSERT_TRUE(file.Get(&asset));
        EXPECT_NE(warning.find("'" + asset.GetAssetPath() + "'"), std::string::npos) << warning;
        EXPECT_NE(warning.find(std::string("</M/") + shader + ">"), std::string::npos) << warning;
    }
    EXPECT_TRUE(Copied().empty());
}

TEST_F(ReadTexture, NoUsableFileGivesAnEmptyTextureSilently)
{
    TfDiagnosticCapture diagnostics;
    for (const char* shader : {"NoFile", "FileAsString", "FileNotAnInput", "FileOnlySampled", "Reader"})
        EXPECT_TRUE(Read(shader).IsEmpty()) << shader;
    EXPECT_TRUE(handler.ReadTexture(UsdShadeShader()).IsEmpty());
    EXPECT_TRUE(Copied().empty());
    EXPECT_TRUE(handler.stPrimvarName.IsEmpty());
    EXPECT_EQ(diagnostics.Count(TF_DIAGNOSTIC_WARNING_TYPE), 0u);
}

TEST_F(ReadTexture, PrimvarReaderVarnameIsTakenWhileEmptyAndTheFirstWins)
{
    Read("Wood");
    EXPECT_EQ(handler.stPrimvarName, TfToken("uvA"));
    Read("Stone");
    EXPECT_EQ(handler.stPrimvarName, TfToken("uvA"));

    handler.stPrimvarName = TfToken();
    Read("Stone");
    EXPECT_EQ(handler.stPrimvarName, TfToken("uvB"));
}

TEST_F(ReadTexture, VarnameOfAnotherTypeOrFromANonShaderSetsNothing)
{
    EXPECT_EQ(Read("ViaString"), Texture("wood.png"));
    EXPECT_TRUE(handler.stPrimvarName.IsEmpty());
    EXPECT_EQ(Read("ViaGraph"), Texture("wood.png"));
    EXPECT_TRUE(handler.stPrimvarName.IsEmpty());
}

// A plain layer with nothing unpacked: every texture is found relative to
// the layer that names it, whichever folder composition found that layer
// in, packages it references included. The two rough.png are different
// files of one name.
TEST_F(ReadTexture, PlainLayerTexturesAreFoundWhereTheirLayerPutsThem)
{
    const std::string absolute = scratch / "elsewhere/abs.png";
    WriteFile(scratch / "scene/root.usda", R"(#usda 1.0
(
    subLayers = [@../looks/looks.usda@]
)
def Scope "Root"
{
    def Shader "Beside" { asset inputs:file = @./textures/wood.png@ }
    def Shader "Absolute" { asset inputs:file = @)" + absolute + R"(@ }
}
def "Model" (references = @../library/model.usda@</Model>) {}
def "Packed" (references = @../packs/other.usdz@) {}
def "Nested" (references = @../packs/outer.usdz@) {}
)");
    WriteFile(scratch / "looks/looks.usda", R"(#usda 1.0
over "Root"
{
    def Shader "FromSublayer" { asset inputs:file = @./maps/rough.png@ }
}
)");
    WriteFile(scratch / "library/model.usda", R"(#usda 1.0
def "Model"
{
    def Shader "FromReference" { asset inputs:file = @./maps/rough.png@ }
}
)");
    WriteFile(scratch / "scene/textures/wood.png", "beside");
    WriteFile(scratch / "looks/maps/rough.png", "sublayer rough");
    WriteFile(scratch / "library/maps/rough.png", "reference rough");
    WriteFile(absolute, "absolute");
    std::filesystem::create_directories(scratch / "packs");
    ASSERT_TRUE(WriteTestZip(scratch / "packs/other.usdz",
                             {{"other.usda", "#usda 1.0\n(\n defaultPrim = \"Other\"\n)\n"
                                             "def \"Other\" { def Shader \"InPackage\" "
                                             "{ asset inputs:file = @./tex/t.png@ } }\n", false},
                              {"tex/t.png", "packaged", false}}));
    const std::string inner = PackageBytes(scratch, {{"inner.usda", "#usda 1.0\n", false},
                                                     {"n.png", "nested", false}});
    ASSERT_TRUE(WriteTestZip(scratch / "packs/outer.usdz",
                             {{"outer.usda", "#usda 1.0\n(\n defaultPrim = \"Outer\"\n)\n"
                                             "def \"Outer\" { def Shader \"Deep\" "
                                             "{ asset inputs:file = @inner.usdz[n.png]@ } }\n", false},
                              {"inner.usdz", inner, false}}));
    Open(scratch / "scene/root.usda");
    handler.unpackFolder = Text(scratch / "never-made/");

    const struct {
        const char* shader;
        const char* copy;
        const char* bytes;
    } reads[] = {
        {"/Root/Beside", "wood.png", "beside"},
        {"/Root/FromSublayer", "rough.png", "sublayer rough"},
        {"/Model/FromReference", "rough_1.png", "reference rough"},
        {"/Packed/InPackage", "t.png", "packaged"},
        {"/Nested/Deep", "n.png", "nested"}, // a package inside the package
        {"/Root/Absolute", "abs.png", "absolute"},
    };
    TfDiagnosticCapture diagnostics;
    for (const auto& read : reads) {
        EXPECT_EQ(ReadAt(read.shader), Texture(read.copy)) << read.shader;
        EXPECT_EQ(ReadFile(scratch / "out/" + read.copy), read.bytes) << read.shader;
    }
    EXPECT_TRUE(diagnostics.GetDiagnostics().empty());
    EXPECT_EQ(Copied().size(), std::size(reads));
}

// Inside a package, a path that climbs out of it or is absolute is refused,
// although a file is there: under the unpack folder's parent, beside the
// package and at the absolute path.
TEST_F(ReadTexture, PathsLeavingAPackageAreRefused)
{
    const std::string absolute = scratch / "outside.png";
    WriteFile(absolute, "outside");
    WriteFile(scratch / "temp/outside.png", "outside");
    const std::string package = scratch / "pack.usdz";
    ASSERT_TRUE(WriteTestZip(package, {{"scene.usda", R"(#usda 1.0
def Scope "P"
{
    def Shader "Inside" { asset inputs:file = @textures/in.png@ }
    def Shader "Escaping" { asset inputs:file = @../outside.png@ }
    def Shader "DeepEscaping" { asset inputs:file = @textures/../../outside.png@ }
    def Shader "Absolute" { asset inputs:file = @)" + absolute + R"(@ }
}
)", false},
                                       {"textures/in.png", "inside", false}}));
    Open(package);
    handler.UnpackToTemporaryFolder(Text(package));

    EXPECT_EQ(ReadAt("/P/Inside"), Texture("in.png"));
    TfDiagnosticCapture diagnostics;
    for (const char* shader : {"/P/Escaping", "/P/DeepEscaping", "/P/Absolute"})
        EXPECT_TRUE(ReadAt(shader).IsEmpty()) << shader;
    EXPECT_EQ(diagnostics.Count(TF_DIAGNOSTIC_WARNING_TYPE), 3u);
    EXPECT_EQ(Copied(), (std::set<std::string>{"in.png"}));
}
