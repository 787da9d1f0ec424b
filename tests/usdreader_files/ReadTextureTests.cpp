#include <gtest/gtest.h>

#include <filesystem>

#include "ScratchFolder.h"
#include "usdreader/CTavrinUSDReaderHandler.h"

PXR_NAMESPACE_USING_DIRECTIVE
using namespace Tavrin;

namespace {

// One material of texture readers in every shape the conversion meets. The
// package is "unpacked" by hand into scratch/unpack, and textures go to
// scratch/textures, which does not exist beforehand.
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
        asset inputs:file = @textures/wood.png@
        float2 inputs:st.connect = </M/StringReader.outputs:result>
    }
    def Shader "ViaGraph"
    {
        asset inputs:file = @textures/wood.png@
        float2 inputs:st.connect = </M/Graph.outputs:st>
    }
    def Shader "A" { asset inputs:file = @a/base.png@ }
    def Shader "B" { asset inputs:file = @b/base.png@ }
    def Shader "Missing" { asset inputs:file = @textures/missing.png@ }
    def Shader "Escaping" { asset inputs:file = @../outside.png@ }
    def Shader "DeepEscaping" { asset inputs:file = @textures/../../outside.png@ }
    def Shader "Folder" { asset inputs:file = @textures/@ }
    def Shader "NoFile" { token inputs:varname = "uvC" }
    def Shader "FileAsString" { string inputs:file = "textures/wood.png" }
    def Shader "FileNotAnInput" { asset file = @textures/wood.png@ }
    def Shader "FileOnlySampled" { asset inputs:file.timeSamples = { 1: @textures/wood.png@ } }
}
)";

struct ReadTexture : ::testing::Test {
    ScratchFolder scratch;
    CTavrinUSDReaderHandler handler;

    void SetUp() override
    {
        ASSERT_FALSE(scratch.path.empty());
        WriteFile(scratch / "scene.usda", Scene);
        WriteFile(scratch / "unpack/textures/wood.png", "wood bytes");
        WriteFile(scratch / "unpack/textures/stone.png", "stone bytes");
        WriteFile(scratch / "unpack/a/base.png", "A");
        WriteFile(scratch / "unpack/b/base.png", "B");
        WriteFile(scratch / "outside.png", "outside");
        handler.stage = UsdStage::Open(scratch / "scene.usda");
        ASSERT_TRUE(handler.stage);
        handler.unpackFolder = Text(scratch / "unpack/");
        handler.textureFolder = Text(scratch / "textures/");
    }
    CTavrinTexture Read(const char* shader)
    {
        return handler.ReadTexture(UsdShadeShader::Get(handler.stage, SdfPath(std::string("/M/") + shader)));
    }
    CTavrinTexture Texture(const std::string& name) { return CTavrinTexture(Text(scratch / "textures/" + name)); }
    std::set<std::string> Copied() const
    {
        std::set<std::string> copied;
        for (const std::string& file : scratch.Files()) {
            if (file.rfind("textures/", 0) == 0)
                copied.insert(file.substr(9));
        }
        return copied;
    }
};

} // namespace

TEST_F(ReadTexture, PackageTextureIsCopiedFlatAndReferredTo)
{
    EXPECT_EQ(Read("Wood"), Texture("wood.png"));
    EXPECT_EQ(ReadFile(scratch / "textures/wood.png"), "wood bytes");
    EXPECT_EQ(Copied(), (std::set<std::string>{"wood.png"}));
}

TEST_F(ReadTexture, BackslashesInTheAssetPathSeparateFolders)
{
    EXPECT_EQ(Read("Stone"), Texture("stone.png"));
    EXPECT_EQ(ReadFile(scratch / "textures/stone.png"), "stone bytes");
}

TEST_F(ReadTexture, SameFileNameFromTwoFoldersOverwritesAndBothReferToIt)
{
    EXPECT_EQ(Read("A"), Texture("base.png"));
    EXPECT_EQ(ReadFile(scratch / "textures/base.png"), "A");
    EXPECT_EQ(Read("B"), Texture("base.png"));
    EXPECT_EQ(ReadFile(scratch / "textures/base.png"), "B");
}

TEST_F(ReadTexture, SharedTextureIsCopiedAgainOverAnOlderCopy)
{
    WriteFile(scratch / "textures/wood.png", "stale");
    EXPECT_EQ(Read("Wood"), Texture("wood.png"));
    EXPECT_EQ(ReadFile(scratch / "textures/wood.png"), "wood bytes");
}

TEST_F(ReadTexture, MissingFileIsStillReferredTo)
{
    EXPECT_EQ(Read("Missing"), Texture("missing.png"));
    EXPECT_TRUE(Copied().empty());
}

TEST_F(ReadTexture, PlainLayerWithNothingUnpackedRefersToAFileThatIsNotThere)
{
    handler.unpackFolder = Text(scratch / "never-made/");
    EXPECT_EQ(Read("Wood"), Texture("wood.png"));
    EXPECT_TRUE(Copied().empty());
}

TEST_F(ReadTexture, PathsLeavingTheUnpackFolderAreNotCopied)
{
    EXPECT_EQ(Read("Escaping"), Texture("outside.png"));
    EXPECT_EQ(Read("DeepEscaping"), Texture("outside.png"));
    EXPECT_TRUE(Copied().empty());
}

// The file exists both where the path points and, appended to the unpack
// folder, inside it: neither is copied.
TEST_F(ReadTexture, AbsolutePathsAreNotCopied)
{
    const std::string absolute = scratch / "elsewhere/abs.png";
    WriteFile(absolute, "abs");
    WriteFile(scratch / "unpack" + absolute, "abs");
    WriteFile(scratch / "absolute.usda", "#usda 1.0\ndef Shader \"Abs\" { asset inputs:file = @" + absolute + "@ }\n");
    handler.stage = UsdStage::Open(scratch / "absolute.usda");
    ASSERT_TRUE(handler.stage);
    EXPECT_EQ(handler.ReadTexture(UsdShadeShader::Get(handler.stage, SdfPath("/Abs"))), Texture("abs.png"));
    EXPECT_TRUE(Copied().empty());
}

TEST_F(ReadTexture, AssetPathNamingAFolderCopiesNothing)
{
    EXPECT_EQ(Read("Folder"), CTavrinTexture(Text(scratch / "textures/")));
    EXPECT_TRUE(Copied().empty());
}

TEST_F(ReadTexture, NoUsableFileGivesAnEmptyTexture)
{
    for (const char* shader : {"NoFile", "FileAsString", "FileNotAnInput", "FileOnlySampled", "Reader"})
        EXPECT_TRUE(Read(shader).IsEmpty()) << shader;
    EXPECT_TRUE(handler.ReadTexture(UsdShadeShader()).IsEmpty());
    EXPECT_TRUE(Copied().empty());
    EXPECT_TRUE(handler.stPrimvarName.IsEmpty());
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
