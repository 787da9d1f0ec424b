// Read -> write -> read gives equal layer data: for hand-made layers with
// numbers at the edges of their types, and for every text layer of the
// corpus.

#include "usdaTestUtils.h"

#include "usdcore/sdf/dataDiff.h"
#include "usdcore/sdf/usda/usdaWriter.h"
#include "usdcore/vt/types.h"

#include <cfloat>
#include <filesystem>
#include <fstream>
#include <sstream>

using namespace usdaTest;

namespace {

// Writes \p data, reads the text back and compares.
void ExpectRoundTrip(const SdfData& data, const std::string& name)
{
    std::string text;
    ASSERT_TRUE(SdfUsdaWriteData(data, &text));
    TfDiagnosticCapture capture;
    SdfData reread;
    ASSERT_TRUE(SdfUsdaReadData(text, name + " (written)", &reread)) << text;
    std::string difference;
    EXPECT_TRUE(SdfDataEqual(data, reread, &difference)) << name << ": " << difference << "\n" << text;
}

std::string ReadFile(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    std::ostringstream contents;
    contents << file.rdbuf();
    return contents.str();
}

} // namespace

TEST(UsdaWriter, SmallLayerIsWrittenAsExpected)
{
    const SdfData data = Read(R"(#usda 1.0
(
    defaultPrim = "A"
)
def Xform "A" (
    kind = "component"
)
{
    uniform token[] xformOpOrder = ["xformOp:translate"]
    float f = 0.1
    rel r = </A>
}
)");
    std::string text;
    ASSERT_TRUE(SdfUsdaWriteData(data, &text));
    EXPECT_EQ(text, R"(#usda 1.0
(
    defaultPrim = "A"
)

def Xform "A" (
    kind = "component"
)
{
    uniform token[] xformOpOrder = ["xformOp:translate"]
    float f = 0.1
    rel r = </A>
}
)");
}

TEST(UsdaWriter, PropertiesAreDeclaredOnlyWhereTheDeclarationCarriesSomething)
{
    // Each statement as OpenUSD's own text writer lays it out: no bare
    // declaration before samples or list edits, one target bare and several
    // one per line, 'custom' kept on a line of its own.
    const std::string layer = R"(#usda 1.0

def "A"
{
    double x.timeSamples = {
        1: 2,
    }
    double y = 3
    double y.timeSamples = {
        1: 4,
    }
    uniform float u.connect = [
        </A.x>,
        </A.y>,
    ]
    prepend float v.connect = </A.x>
    rel many = [
        </A>,
        </B>,
    ]
    rel none = None
    custom rel edited
    delete rel edited = </B>
    prepend rel edited = </A>
    varying rel moving
}
)";
    std::string text;
    ASSERT_TRUE(SdfUsdaWriteData(Read(layer), &text));
    EXPECT_EQ(text, layer);
}

TEST(UsdaRoundTrip, NumbersAtTheEdgesOfTheirTypesComeBackExactly)
{
    const SdfData data = Read(R"(#usda 1.0
def "N"
{
    double[] d = [0.1, -0, 1e-300, 5e-324, 1.7976931348623157e308, inf, -inf, 0.30000000000000004]
    float[] f = [0.1, 3.4028235e38, 1e-45, 16777217, -2.5]
    half[] h = [0.1, 65504, 0.000061035156, -3]
    int64 i = -9223372036854775808
    uint64 u = 18446744073709551615
    timecode t = 24.000000000000004
    quatd q = (0.7071067811865476, 0, 0.7071067811865475, 0)
}
)");
    ExpectRoundTrip(data, "numbers");
}

TEST(UsdaRoundTrip, StringsPathsAndEveryMetadataShape)
{
    const SdfData data = Read(R"(#usda 1.0
(
    "comment with \"quotes\" and \\ backslash"
    subLayers = [@a@ (offset = 1.5; scale = 2), @b@]
    unknownThing = { int x = 1 }
    otherThing = (1, <a>, "s")
    relocates = { </A/x> : </A/y>, </A/z> : <> }
)
def "A" (
    relocates = { <In> : <Out> }
    prepend references = [@r.usda@</X> (offset = 2; customData = { int k = 1 }), </I>]
    delete payload = @p@
    append inherits = </C>
    specializes = None
    variants = { string v = "a" }
    prepend variantSets = "v"
    prepend apiSchemas = ["X"]
    customData = { dictionary d = { string s = "tab\there" } }
    permission = private
)
{
    string s = "line\nbreak 'and' \"quotes\" \x01"
    asset p = @@@has@at@@@
    string[] list = ["a", ""]
    float x.timeSamples = { 0: 1, 1: None }
    prepend float x.connect = </A.y>
    delete float x.connect = </A.z>
    rel r = None
    add rel q = [</A>, </B>]
    variantSet "v" = {
        "a" ( doc = "d" ) { int z = 1 }
        "b" { def "In" { rel w = </A> } }
    }
    reorder nameChildren = ["In"]
}
)");
    ExpectRoundTrip(data, "metadata");
}

TEST(UsdaRoundTrip, EveryTextLayerOfTheCorpus)
{
    const std::filesystem::path corpus = TAVRIN_CORPUS_DIR;
    if (!std::filesystem::is_directory(corpus)) {
        GTEST_SKIP() << "no corpus at " << corpus;
    }
    size_t textLayers = 0;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(corpus)) {
        const std::string extension = entry.path().extension().string();
        if (!entry.is_regular_file() || (extension != ".usda" && extension != ".usd")) continue;
        const std::string text = ReadFile(entry.path());
        if (text.rfind("#usda", 0) != 0) continue;
        ++textLayers;
        TfDiagnosticCapture capture;
        SdfData data;
        const bool read = SdfUsdaReadData(text, entry.path().string(), &data);
        ASSERT_TRUE(read) << entry.path() << ": "
                          << (capture.GetDiagnostics().empty() ? "" : capture.GetDiagnostics()[0].GetCommentary());
        ExpectRoundTrip(data, entry.path().string());
    }
    EXPECT_GT(textLayers, 0u);
}
