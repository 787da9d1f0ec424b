// Attribute values as written in text: every number, string and asset path
// form, tuples, matrices, quaternions, arrays, blocks and time samples.

#include "usdaTestUtils.h"

#include "usdcore/gf/half.h"
#include "usdcore/gf/matrix2d.h"
#include "usdcore/gf/matrix4d.h"
#include "usdcore/gf/quatf.h"
#include "usdcore/gf/vec2i.h"
#include "usdcore/gf/vec3d.h"
#include "usdcore/gf/vec3f.h"
#include "usdcore/gf/vec4h.h"
#include "usdcore/sdf/types.h"
#include "usdcore/vt/types.h"

#include <cmath>

using namespace usdaTest;

namespace {

// One prim "/P" holding the attribute line \p attribute.
SdfData ReadAttribute(const std::string& attribute)
{
    return Read("#usda 1.0\ndef \"P\"\n{\n    " + attribute + "\n}\n");
}

template <class T>
T DefaultOf(const std::string& attribute, const char* name = "/P.a")
{
    return Field<T>(ReadAttribute(attribute), name, SdfFieldKeys->Default);
}

} // namespace

TEST(UsdaNumbers, IntegersKeepTheirWidthAndSign)
{
    EXPECT_EQ(DefaultOf<int>("int a = -42"), -42);
    EXPECT_EQ(DefaultOf<unsigned int>("uint a = 4294967295"), 4294967295u);
    EXPECT_EQ(DefaultOf<int64_t>("int64 a = -9223372036854775808"), INT64_MIN);
    EXPECT_EQ(DefaultOf<uint64_t>("uint64 a = 18446744073709551615"), UINT64_MAX);
    EXPECT_EQ(DefaultOf<unsigned char>("uchar a = 255"), 255);
}

// OpenUSD takes any finite number for an integer, truncated toward zero.
TEST(UsdaNumbers, RealNumbersForIntegersAreTruncatedWhenInRange)
{
    EXPECT_EQ(DefaultOf<int>("int a = 0.0"), 0);
    EXPECT_EQ(DefaultOf<int>("int a = -2.7"), -2);
    EXPECT_EQ(DefaultOf<unsigned int>("uint a = 3.9e2"), 390u);
    EXPECT_EQ(DefaultOf<unsigned char>("uchar a = 255.99"), 255);
    EXPECT_EQ(DefaultOf<int64_t>("int64 a = -9.2e18"), int64_t(-9.2e18));
    EXPECT_EQ(Field<VtArray<int>>(ReadAttribute("int[] a = [1.5, -0.5, 2e1]"), "/P.a", SdfFieldKeys->Default),
              (VtArray<int>{1, 0, 20}));
}

TEST(UsdaNumbers, FloatingPointFormsIncludingScientificAndSpecials)
{
    EXPECT_EQ(DefaultOf<double>("double a = 1.5e3"), 1500.0);
    EXPECT_EQ(DefaultOf<double>("double a = -2.5E-2"), -0.025);
    EXPECT_EQ(DefaultOf<double>("double a = .5"), 0.5);
    EXPECT_EQ(DefaultOf<double>("double a = 7"), 7.0);
    EXPECT_EQ(DefaultOf<double>("double a = -.25"), -0.25);
    EXPECT_EQ(DefaultOf<double>("double a = +2"), 2.0);
    EXPECT_EQ(DefaultOf<double>("double a = 1e5"), 100000.0);
    EXPECT_TRUE(std::isinf(DefaultOf<double>("double a = inf")));
    EXPECT_EQ(DefaultOf<double>("double a = -inf"), -INFINITY);
    EXPECT_TRUE(std::isnan(DefaultOf<double>("double a = nan")));
    // 0.1 rounds once, from the double nearest 0.1 to the float nearest it.
    EXPECT_EQ(DefaultOf<float>("float a = 0.1"), 0.1f);
    EXPECT_EQ(float(DefaultOf<GfHalf>("half a = 0.5")), 0.5f);
}

TEST(UsdaNumbers, BoolsAreWordsOrDigits)
{
    EXPECT_TRUE(DefaultOf<bool>("bool a = true"));
    EXPECT_FALSE(DefaultOf<bool>("bool a = 0"));
    EXPECT_TRUE(DefaultOf<bool>("bool a = 1"));
    // Older writers capitalise; any case, yes/no and quoted words count too.
    EXPECT_TRUE(DefaultOf<bool>("bool a = True"));
    EXPECT_FALSE(DefaultOf<bool>("bool a = False"));
    EXPECT_FALSE(DefaultOf<bool>("bool a = NO"));
    EXPECT_TRUE(DefaultOf<bool>("bool a = \"yes\""));
    EXPECT_TRUE(DefaultOf<bool>("bool a = 2.5"));
    EXPECT_EQ(Field<VtArray<bool>>(ReadAttribute("bool[] a = [True, false, 0, \"1\"]"), "/P.a", SdfFieldKeys->Default),
              (VtArray<bool>{true, false, false, true}));
}

TEST(UsdaStrings, QuotesTriplesAndEscapes)
{
    EXPECT_EQ(DefaultOf<std::string>("string a = \"say \\\"hi\\\"\""), "say \"hi\"");
    EXPECT_EQ(DefaultOf<std::string>("string a = 'single \"quoted\"'"), "single \"quoted\"");
    EXPECT_EQ(DefaultOf<std::string>("string a = \"\"\"two\nlines \"q\" \"\"\""), "two\nlines \"q\" ");
    EXPECT_EQ(DefaultOf<std::string>("string a = \"tab\\tnl\\n\\x41\\101\""), "tab\tnl\nAA");
    EXPECT_EQ(DefaultOf<std::string>("string a = \"\""), "");
    EXPECT_EQ(DefaultOf<TfToken>("token a = \"vertex\""), TfToken("vertex"));
}

TEST(UsdaStrings, AssetPathsSingleAndTripleAt)
{
    EXPECT_EQ(DefaultOf<SdfAssetPath>("asset a = @./tex/a b.png@").GetAssetPath(), "./tex/a b.png");
    EXPECT_EQ(DefaultOf<SdfAssetPath>("asset a = @@@mail@host.png@@@").GetAssetPath(), "mail@host.png");
    EXPECT_EQ(DefaultOf<SdfAssetPath>("asset a = @@@x\\@@@y@@@").GetAssetPath(), "x@@@y");
}

TEST(UsdaTuples, VectorsMatricesAndQuaternions)
{
    EXPECT_EQ(DefaultOf<GfVec3f>("float3 a = (1, -2.5, 3e1)"), GfVec3f(1.f, -2.5f, 30.f));
    EXPECT_EQ(DefaultOf<GfVec3f>("color3f a = (0.5, 0.25, 0)"), GfVec3f(0.5f, 0.25f, 0.f));
    EXPECT_EQ(DefaultOf<GfVec2i>("int2 a = (7, -8)"), GfVec2i(7, -8));
    EXPECT_EQ(DefaultOf<GfVec4h>("half4 a = (1, 2, 0.5, -1)")[2], GfHalf(0.5f));
    const GfMatrix4d m = DefaultOf<GfMatrix4d>(
        "matrix4d a = ( (1, 0, 0, 0), (0, 2, 0, 0), (0, 0, 3, 0), (10, 20, 30, 1) )");
    EXPECT_EQ(m[1][1], 2.0);
    EXPECT_EQ(m[3][0], 10.0);
    EXPECT_EQ(m[3][2], 30.0);
    EXPECT_EQ(DefaultOf<GfMatrix2d>("matrix2d a = ((1, 2), (3, 4))")[1][0], 3.0);
    // Written real part first.
    const GfQuatf q = DefaultOf<GfQuatf>("quatf a = (0.5, 1, 2, 3)");
    EXPECT_EQ(q.GetReal(), 0.5f);
    EXPECT_EQ(q.GetImaginary(), GfVec3f(1, 2, 3));
}

TEST(UsdaArrays, ElementsTrailingCommaAndEmpty)
{
    const VtIntArray ints = DefaultOf<VtIntArray>("int[] a = [0, 1, 2, 3,]");
    ASSERT_EQ(ints.size(), 4u);
    EXPECT_EQ(ints[3], 3);
    EXPECT_TRUE(DefaultOf<VtFloatArray>("float[] a = []").empty());
    const VtVec3fArray points = DefaultOf<VtVec3fArray>("point3f[] a = [(0, 0, 0), (1, 2, 3)]");
    ASSERT_EQ(points.size(), 2u);
    EXPECT_EQ(points[1], GfVec3f(1, 2, 3));
    const VtTokenArray tokens = DefaultOf<VtTokenArray>("token[] a = [\"x\", 'y']");
    ASSERT_EQ(tokens.size(), 2u);
    EXPECT_EQ(tokens[1], TfToken("y"));
}

TEST(UsdaAttributes, TypeNameVariabilityAndCustomAreFields)
{
    const SdfData data = ReadAttribute("custom uniform token[] a = [\"q\"]");
    EXPECT_EQ(Field<TfToken>(data, "/P.a", SdfFieldKeys->TypeName), TfToken("token[]"));
    EXPECT_EQ(Field<SdfVariability>(data, "/P.a", SdfFieldKeys->Variability), SdfVariabilityUniform);
    EXPECT_TRUE(Field<bool>(data, "/P.a", SdfFieldKeys->Custom));
    // Unwritten keywords leave their fields unauthored.
    const SdfData plain = ReadAttribute("float a");
    EXPECT_FALSE(plain.Has(SdfPath("/P.a"), SdfFieldKeys->Custom));
    EXPECT_FALSE(plain.Has(SdfPath("/P.a"), SdfFieldKeys->Variability));
    EXPECT_FALSE(plain.Has(SdfPath("/P.a"), SdfFieldKeys->Default));
    EXPECT_EQ(Field<SdfVariability>(ReadAttribute("varying float a"), "/P.a", SdfFieldKeys->Variability),
              SdfVariabilityVarying);
}

TEST(UsdaAttributes, OlderTypeNamesReadAsTheirTypesAndAreKept)
{
    const struct {
        const char* attribute;
        VtValue expected;
    } cases[] = {
        {"Vec3f a = (2.5, 0, 0)", VtValue(GfVec3f(2.5f, 0.f, 0.f))},
        {"Vec2i a = (1, -2)", VtValue(GfVec2i(1, -2))},
        {"Vec4h[] a = [(1, 2, 0.5, -1)]", VtValue(VtArray<GfVec4h>{GfVec4h(1.f, 2.f, 0.5f, -1.f)})},
        {"Point a = (1, 2, 3)", VtValue(GfVec3d(1, 2, 3))},
        {"PointFloat[] a = [(1, 2, 3), (4, 5, 6)]", VtValue(VtVec3fArray{GfVec3f(1, 2, 3), GfVec3f(4, 5, 6)})},
        {"NormalFloat a = (0, 1, 0)", VtValue(GfVec3f(0, 1, 0))},
        {"Color a = (0.5, 0.25, 1)", VtValue(GfVec3d(0.5, 0.25, 1))},
        {"Quatf a = (0.5, 1, 2, 3)", VtValue(GfQuatf(0.5f, 1.f, 2.f, 3.f))},
        {"Matrix2d a = ((1, 2), (3, 4))", VtValue(GfMatrix2d(1, 2, 3, 4))},
        {"Transform a = ((2, 0, 0, 0), (0, 2, 0, 0), (0, 0, 2, 0), (1, 2, 3, 1))",
         VtValue(GfMatrix4d(2, 0, 0, 0, 0, 2, 0, 0, 0, 0, 2, 0, 1, 2, 3, 1))},
        {"PointIndex a = 7", VtValue(7)},
        {"FaceIndex[] a = [0, 3]", VtValue(VtIntArray{0, 3})},
    };
    for (const auto& c : cases) {
        TfDiagnosticCapture capture;
        const SdfData data = ReadAttribute(c.attribute);
        EXPECT_TRUE(capture.GetDiagnostics().empty()) << c.attribute;
        EXPECT_EQ(data.Get(SdfPath("/P.a"), SdfFieldKeys->Default), c.expected) << c.attribute;
        // The layer keeps the name as written, as OpenUSD's reader does.
        const std::string written(c.attribute);
        EXPECT_EQ(Field<TfToken>(data, "/P.a", SdfFieldKeys->TypeName), TfToken(written.substr(0, written.find(' '))));
    }
    const SdfData samples = ReadAttribute("Vec3d a.timeSamples = { 1: (1, 2, 3) }");
    EXPECT_EQ(Field<SdfTimeSampleMap>(samples, "/P.a", SdfFieldKeys->TimeSamples).at(1.0), VtValue(GfVec3d(1, 2, 3)));
}

TEST(UsdaAttributes, NoneIsAValueBlock)
{
    EXPECT_TRUE(ReadAttribute("float a = None").Get(SdfPath("/P.a"), SdfFieldKeys->Default).IsHolding<SdfValueBlock>());
}

TEST(UsdaAttributes, AnUnknownTypeNameKeepsTheAttributeWithItsValuesAsText)
{
    TfDiagnosticCapture capture;
    SdfData data;
    ASSERT_TRUE(SdfUsdaReadData(R"(#usda 1.0
def "P" {
    flaot[] w = [0.5, (1, "x"), @a.png@, </P>, -inf] (
        interpolation = "vertex"
    )
    Vec5f t.timeSamples = { 1: (0, 0, 1), 2: None }
    float after = 2
}
)",
                                "test.usda", &data));
    // One warning per unknown name, saying where; no error.
    EXPECT_EQ(capture.GetErrorCount(), 0u);
    ASSERT_EQ(capture.GetDiagnostics().size(), 2u);
    EXPECT_NE(capture.GetDiagnostics()[0].GetCommentary().find("test.usda:3:5"), std::string::npos);

    EXPECT_EQ(Field<TfToken>(data, "/P.w", SdfFieldKeys->TypeName), TfToken("flaot[]"));
    EXPECT_EQ(Field<SdfUnregisteredValue>(data, "/P.w", SdfFieldKeys->Default).GetValue(),
              VtValue(std::string("[0.5, (1, \"x\"), @a.png@, </P>, -inf]")));
    EXPECT_EQ(Field<TfToken>(data, "/P.w", TfToken("interpolation")), TfToken("vertex"));
    const auto samples = Field<SdfTimeSampleMap>(data, "/P.t", SdfFieldKeys->TimeSamples);
    ASSERT_EQ(samples.size(), 2u);
    EXPECT_EQ(samples.at(1.0), VtValue(SdfUnregisteredValue(std::string("(0, 0, 1)"))));
    EXPECT_TRUE(samples.at(2.0).IsHolding<SdfValueBlock>());
    EXPECT_EQ(Field<float>(data, "/P.after", SdfFieldKeys->Default), 2.0f);
}

TEST(UsdaTimeSamples, SamplesByTimeWithBlocks)
{
    const SdfData data = ReadAttribute(
        "double3 xformOp:translate.timeSamples = {\n  0: (0, 0, 0),\n  12.5: (1, 2, 3),\n  -1: None,\n}");
    const auto samples = Field<SdfTimeSampleMap>(data, "/P.xformOp:translate", SdfFieldKeys->TimeSamples);
    ASSERT_EQ(samples.size(), 3u);
    EXPECT_EQ(samples.at(12.5), VtValue(GfVec3d(1, 2, 3)));
    EXPECT_TRUE(samples.at(-1.0).IsHolding<SdfValueBlock>());
    EXPECT_EQ(samples.begin()->first, -1.0);
}

TEST(UsdaTimeSamples, DefaultAndSamplesOnSeparateLinesShareOneAttribute)
{
    const SdfData data = ReadAttribute("float a = 1\n    float a.timeSamples = { 2: 3 }");
    EXPECT_EQ(Field<float>(data, "/P.a", SdfFieldKeys->Default), 1.0f);
    EXPECT_EQ(Field<SdfTimeSampleMap>(data, "/P.a", SdfFieldKeys->TimeSamples).at(2.0), VtValue(3.0f));
    EXPECT_EQ(Field<std::vector<TfToken>>(data, "/P", SdfChildrenKeys->PropertyChildren).size(), 1u);
}

TEST(UsdaDictionaries, NestedTypedEntries)
{
    const SdfData data = Read(R"(#usda 1.0
def "P" (
    customData = {
        int count = 3
        string "odd key" = "v"
        dictionary inner = {
            double3[] values = [(1, 2, 3)]
            token t = "x"
        }
    }
)
{
}
)");
    const auto dictionary = Field<VtDictionary>(data, "/P", SdfFieldKeys->CustomData);
    EXPECT_EQ(Entry(dictionary, "count"), VtValue(3));
    EXPECT_EQ(Entry(dictionary, "odd key"), VtValue(std::string("v")));
    const VtDictionary inner = Entry(dictionary, "inner").Get<VtDictionary>();
    EXPECT_EQ(Entry(inner, "t"), VtValue(TfToken("x")));
    EXPECT_EQ(Entry(inner, "values").Get<VtVec3dArray>()[0], GfVec3d(1, 2, 3));
}
