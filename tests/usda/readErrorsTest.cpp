// Malformed text: a runtime error that names the file, line and column,
// a false result, and never a crash, a hang or unbounded recursion.

#include "usdaTestUtils.h"

using namespace usdaTest;

namespace {

// Reads \p text expecting failure; returns the error's text.
std::string ReadError(const std::string& text)
{
    TfDiagnosticCapture capture;
    SdfData data;
    EXPECT_FALSE(SdfUsdaReadData(text, "bad.usda", &data)) << text;
    const auto diagnostics = capture.GetDiagnostics();
    EXPECT_EQ(capture.Count(TF_DIAGNOSTIC_RUNTIME_ERROR_TYPE), 1u);
    return diagnostics.empty() ? std::string() : diagnostics.front().GetCommentary();
}

const char kRichLayer[] = R"(#usda 1.0
(
    defaultPrim = "W"
    subLayers = [@a.usda@ (offset = 1)]
)
def Xform "W" (
    prepend references = @r.usda@</X> (offset = 2; customData = { int k = 1 })
    variants = { string v = "a" }
)
{
    float3[] extent = [(-1, -1, -1), (1, 1, 1)] ( interpolation = "constant" )
    double a.timeSamples = { 1: 2.5, 3: None }
    rel r = [</W>, <../W>]
    string s = """multi
line"""
    asset t = @@@x@y@@@
    variantSet "v" = { "a" { def "C" { matrix4d m = ((1,0,0,0),(0,1,0,0),(0,0,1,0),(0,0,0,1)) } } }
}
)";

} // namespace

TEST(UsdaErrors, HeaderIsRequired)
{
    EXPECT_NE(ReadError("def \"A\" {}").find("bad.usda:1:1"), std::string::npos);
    EXPECT_NE(ReadError("#usda 2.0\n").find("version"), std::string::npos);
}

TEST(UsdaErrors, LineAndColumnOfTheFault)
{
    // Line 3, column 15 is where the value should start.
    const std::string error = ReadError("#usda 1.0\ndef \"A\" {\n    float a = \"x\"\n}\n");
    EXPECT_NE(error.find("bad.usda:3:15"), std::string::npos) << error;
}

TEST(UsdaErrors, MalformedValues)
{
    // A value of an unknown type must still have a value's shape.
    ReadError("#usda 1.0\ndef \"A\" { flaot a = (1, 2 }");
    ReadError("#usda 1.0\ndef \"A\" { flaot a = = }");
    EXPECT_NE(ReadError("#usda 1.0\ndef \"A\" { int a = 1e10 }").find("bad.usda:2:19"), std::string::npos);
    EXPECT_NE(ReadError("#usda 1.0\ndef \"A\" { uint a = -1.5 }").find("in range"), std::string::npos);
    ReadError("#usda 1.0\ndef \"A\" { int64 a = 9.3e18 }");
    ReadError("#usda 1.0\ndef \"A\" { int a = nan }");
    EXPECT_NE(ReadError("#usda 1.0\ndef \"A\" { bool a = maybe }").find("expected a boolean"), std::string::npos);
    EXPECT_NE(ReadError("#usda 1.0\ndef \"A\" { uchar a = 256 }").find("out of range"), std::string::npos);
    ReadError("#usda 1.0\ndef \"A\" { float a = 1x }");
    ReadError("#usda 1.0\ndef \"A\" { float a = 2.5.3 }");
    ReadError("#usda 1.0\ndef \"A\" { float a = 1e }");
    ReadError("#usda 1.0\ndef \"A\" { float a = infinity }");
}

TEST(UsdaErrors, UnterminatedThings)
{
    ReadError("#usda 1.0\ndef \"A\" { string a = \"open\n}");
    ReadError("#usda 1.0\ndef \"A\" { asset a = @open\n}");
    ReadError("#usda 1.0\ndef \"A\" { rel r = </open\n}");
    ReadError("#usda 1.0\n/* never closed");
    ReadError("#usda 1.0\ndef \"A\" {");
    ReadError("#usda 1.0\ndef \"A\" { int[] a = [1, 2");
}

TEST(UsdaErrors, StructuralMistakes)
{
    EXPECT_NE(ReadError("#usda 1.0\ndef \"A\" {}\ndef \"A\" {}").find("duplicate prim"), std::string::npos);
    EXPECT_NE(ReadError("#usda 1.0\ndef \"1bad\" {}").find("not a valid prim name"), std::string::npos);
    ReadError("#usda 1.0\ndef \"A\" { float x\n rel x }");
    ReadError("#usda 1.0\ndef \"A\" ( subLayers = [] ) {}");
    ReadError("#usda 1.0\ndef \"A\" ( prepend kind = \"x\" ) {}");
    ReadError("#usda 1.0\ndef \"A\" { float x.bogus = 1 }");
}

TEST(UsdaErrors, DeepNestingIsRefusedNotRecursedInto)
{
    std::string prims = "#usda 1.0\n";
    std::string dictionary = "#usda 1.0\ndef \"A\" ( customData = ";
    for (int i = 0; i < 5000; ++i) {
        prims += "def \"P\" {";
        dictionary += "{ dictionary d = ";
    }
    EXPECT_NE(ReadError(prims).find("nested too deeply"), std::string::npos);
    EXPECT_NE(ReadError(dictionary).find("nested too deeply"), std::string::npos);
    std::string brackets = "#usda 1.0\n(\n    unknownKey = ";
    brackets.append(5000, '[');
    EXPECT_NE(ReadError(brackets).find("nested too deeply"), std::string::npos);
}

TEST(UsdaErrors, EveryTruncationAndByteFlipFailsCleanlyOrReads)
{
    const std::string layer = kRichLayer;
    {
        TfDiagnosticCapture capture;
        SdfData data;
        ASSERT_TRUE(SdfUsdaReadData(layer, "rich.usda", &data));
    }
    for (size_t size = 0; size < layer.size(); ++size) {
        TfDiagnosticCapture capture;
        SdfData data;
        const bool read = SdfUsdaReadData(std::string_view(layer).substr(0, size), "cut.usda", &data);
        // A failure always says why.
        EXPECT_TRUE(read || capture.GetErrorCount() == 1u) << size;
    }
    const char replacements[] = {'\0', '"', '@', '<', '[', '(', '{', '}', ')', ']', '\n', '\\', '-'};
    for (size_t at = 0; at < layer.size(); ++at) {
        for (char replacement : replacements) {
            std::string flipped = layer;
            flipped[at] = replacement;
            TfDiagnosticCapture capture;
            SdfData data;
            SdfUsdaReadData(flipped, "flipped.usda", &data);
        }
    }
}
