// Value representations, one hand-built crate file per behaviour. Type
// numbers and layouts are worked out by hand in each test.

#include "crateBuilder.h"

#include "usdcore/gf/half.h"
#include "usdcore/gf/matrix2d.h"
#include "usdcore/gf/matrix4d.h"
#include "usdcore/gf/quatf.h"
#include "usdcore/gf/vec3f.h"
#include "usdcore/gf/vec3h.h"
#include "usdcore/sdf/assetPath.h"
#include "usdcore/sdf/crate/crateReader.h"
#include "usdcore/sdf/data.h"
#include "usdcore/sdf/listOp.h"
#include "usdcore/sdf/payload.h"
#include "usdcore/sdf/reference.h"
#include "usdcore/sdf/layer.h"
#include "usdcore/sdf/layerOffset.h"
#include "usdcore/sdf/timeCode.h"
#include "usdcore/sdf/types.h"
#include "usdcore/tf/diagnostic.h"
#include "usdcore/vt/array.h"
#include "usdcore/vt/dictionary.h"
#include "usdcore/usd/stage.h"
#include "usdcore/usdGeom/xformable.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

PXR_NAMESPACE_USING_DIRECTIVE

namespace {

using B = CrateFileBuilder;

enum : uint8_t {
    kBool = 1, kInt = 3, kInt64 = 5, kHalf = 7, kFloat = 8, kDouble = 9, kString = 10,
    kToken = 11, kAssetPath = 12, kMatrix2d = 13, kMatrix4d = 15, kQuatf = 17, kVec3f = 24, kVec3h = 25,
    kDictionary = 31, kTokenListOp = 32, kReferenceListOp = 35, kTokenVector = 41, kSpecifier = 42, kVariability = 44,
    kVariantSelectionMap = 45, kTimeSamples = 46, kPayload = 47, kDoubleVector = 48,
    kValue = 52, kTimeCode = 56, kRelocates = 58,
};

struct Layer {
    bool ok = false;
    SdfData data;
    std::string diagnostics;

    VtValue Field(const char* name) const
    {
        return data.Get(SdfPath::AbsoluteRootPath(), TfToken(name));
    }
};

Layer Read(const CrateFileBuilder& builder)
{
    Layer layer;
    TfDiagnosticCapture capture;
    layer.ok = SdfCrateReadData(builder.Build(), "test.usdc", &layer.data);
    for (const TfDiagnostic& diagnostic : capture.GetDiagnostics()) {
        layer.diagnostics += diagnostic.GetCommentary() + "\n";
    }
    return layer;
}

// Reads a file expected to be read whole.
Layer ReadOk(const CrateFileBuilder& builder)
{
    Layer layer = Read(builder);
    EXPECT_TRUE(layer.ok) << layer.diagnostics;
    return layer;
}

// Reads a file expected to fail with a diagnostic saying expected.
void ExpectRefused(const CrateFileBuilder& builder, const std::string& expected)
{
    const Layer layer = Read(builder);
    EXPECT_FALSE(layer.ok) << expected;
    EXPECT_NE(layer.diagnostics.find(expected), std::string::npos) << layer.diagnostics;
}

// ---- Values inlined in the representation.

TEST(CrateInlinedValues, SmallScalarsLiveInThePayload)
{
    B b;
    b.AddField("int", B::Rep(kInt, 0xFFFFFFFB, true));      // -5
    b.AddField("half", B::Rep(kHalf, 0x3C00, true));        // 1.0
    b.AddField("bool", B::Rep(kBool, 1, true));
    b.AddField("double", B::Rep(kDouble, 0x3E800000, true)); // 0.25f widened
    b.AddField("int64", B::Rep(kInt64, 0xFFFFFFF9, true));  // -7 sign-extended
    const Layer layer = ReadOk(b);
    EXPECT_EQ(layer.Field("int").Get<int>(), -5);
    EXPECT_EQ(float(layer.Field("half").Get<GfHalf>()), 1.0f);
    EXPECT_TRUE(layer.Field("bool").Get<bool>());
    EXPECT_EQ(layer.Field("double").Get<double>(), 0.25);
    EXPECT_EQ(layer.Field("int64").Get<int64_t>(), -7);
}

TEST(CrateInlinedValues, VectorsAndDiagonalMatricesOfSmallIntegers)
{
    B b;
    b.AddField("vec", B::Rep(kVec3h, 0x0003FE01, true));       // int8s 1, -2, 3
    b.AddField("matrix", B::Rep(kMatrix4d, 0x01040302, true)); // diagonal 2, 3, 4, 1
    const Layer layer = ReadOk(b);
    const GfVec3h vec = layer.Field("vec").Get<GfVec3h>();
    EXPECT_EQ(float(vec[0]), 1.0f);
    EXPECT_EQ(float(vec[1]), -2.0f);
    EXPECT_EQ(float(vec[2]), 3.0f);
    const GfMatrix4d matrix = layer.Field("matrix").Get<GfMatrix4d>();
    EXPECT_EQ(matrix[0][0], 2.0);
    EXPECT_EQ(matrix[1][1], 3.0);
    EXPECT_EQ(matrix[2][2], 4.0);
    EXPECT_EQ(matrix[3][3], 1.0);
    EXPECT_EQ(matrix[0][1], 0.0);
}

TEST(CrateInlinedValues, TableIndicesNameTokensStringsAndAssetPaths)
{
    B b;
    b.AddField("token", B::Rep(kToken, b.Token("Mesh"), true));
    b.AddField("string", B::Rep(kString, b.String("hello"), true));
    // Inlined asset paths index the token table.
    b.AddField("asset", B::Rep(kAssetPath, b.Token("tex.png"), true));
    const Layer layer = ReadOk(b);
    EXPECT_EQ(layer.Field("token").Get<TfToken>(), TfToken("Mesh"));
    EXPECT_EQ(layer.Field("string").Get<std::string>(), "hello");
    EXPECT_EQ(layer.Field("asset").Get<SdfAssetPath>().GetAssetPath(), "tex.png");
}

TEST(CrateInlinedValues, EnumsIncludingTheLegacyConfigVariability)
{
    B b;
    b.AddField("specifier", B::Rep(kSpecifier, 2, true));
    b.AddField("variability", B::Rep(kVariability, 2, true));
    const Layer layer = ReadOk(b);
    EXPECT_EQ(layer.Field("specifier").Get<SdfSpecifier>(), SdfSpecifierClass);
    EXPECT_EQ(layer.Field("variability").Get<SdfVariability>(), SdfVariabilityUniform);
}

// ---- Values stored at a file offset.

TEST(CrateStoredValues, QuaternionsStoreTheImaginaryPartFirst)
{
    B b;
    const uint64_t at = b.Append(B::Raw(1.0f) + B::Raw(2.0f) + B::Raw(3.0f) + B::Raw(4.0f));
    b.AddField("quat", B::Rep(kQuatf, at));
    const Layer layer = ReadOk(b);
    const GfQuatf quat = layer.Field("quat").Get<GfQuatf>();
    EXPECT_EQ(quat.GetReal(), 4.0f);
    EXPECT_EQ(quat.GetImaginary(), GfVec3f(1, 2, 3));
}

TEST(CrateStoredValues, MatricesAreRowMajor)
{
    B b;
    const uint64_t at = b.Append(B::Raw(1.0) + B::Raw(2.0) + B::Raw(3.0) + B::Raw(4.0));
    b.AddField("matrix", B::Rep(kMatrix2d, at));
    const Layer layer = ReadOk(b);
    const GfMatrix2d matrix = layer.Field("matrix").Get<GfMatrix2d>();
    EXPECT_EQ(matrix[0][1], 2.0);
    EXPECT_EQ(matrix[1][0], 3.0);
}

TEST(CrateStoredValues, DictionariesHoldNestedValuesBehindJumps)
{
    B b;
    // {a = 1, b = {}}: each value is a jump (8: the rep follows at once) and
    // a representation.
    const uint64_t at = b.Append(B::Raw(uint64_t(2)) + B::Raw(b.String("a")) + B::Raw(int64_t(8)) +
                                 B::Raw(B::Rep(kInt, 1, true)) + B::Raw(b.String("b")) +
                                 B::Raw(int64_t(8)) + B::Raw(B::Rep(kDictionary, 0, true)));
    b.AddField("customData", B::Rep(kDictionary, at));
    const Layer layer = ReadOk(b);
    const VtDictionary dict = layer.Field("customData").Get<VtDictionary>();
    ASSERT_EQ(dict.size(), 2u);
    EXPECT_EQ(dict.find("a")->second.Get<int>(), 1);
    EXPECT_TRUE(dict.find("b")->second.Get<VtDictionary>().empty());
}

TEST(CrateStoredValues, ListOpsReadTheirItemVectorsInFileOrder)
{
    B b;
    // Header 0x28: prepended (32) and deleted (8) items, prepended first.
    const uint64_t at = b.Append(std::string(1, '\x28') + B::Raw(uint64_t(2)) +
                                 B::Raw(b.Token("a")) + B::Raw(b.Token("b")) +
                                 B::Raw(uint64_t(1)) + B::Raw(b.Token("c")));
    b.AddField("apiSchemas", B::Rep(kTokenListOp, at));
    const Layer layer = ReadOk(b);
    const SdfTokenListOp op = layer.Field("apiSchemas").Get<SdfTokenListOp>();
    EXPECT_FALSE(op.IsExplicit());
    EXPECT_EQ(op.GetPrependedItems(), (std::vector<TfToken>{TfToken("a"), TfToken("b")}));
    EXPECT_EQ(op.GetDeletedItems(), (std::vector<TfToken>{TfToken("c")}));
    EXPECT_TRUE(op.GetAppendedItems().empty());
}

TEST(CrateStoredValues, VectorsMapsAndTimeCodes)
{
    B b;
    const uint64_t tokens =
        b.Append(B::Raw(uint64_t(2)) + B::Raw(b.Token("x")) + B::Raw(b.Token("y")));
    const uint64_t selections =
        b.Append(B::Raw(uint64_t(1)) + B::Raw(b.String("shading")) + B::Raw(b.String("red")));
    const uint64_t time = b.Append(B::Raw(24.0));
    b.AddField("primChildren", B::Rep(kTokenVector, tokens));
    b.AddField("variantSelection", B::Rep(kVariantSelectionMap, selections));
    b.AddField("time", B::Rep(kTimeCode, time));
    const Layer layer = ReadOk(b);
    EXPECT_EQ(layer.Field("primChildren").Get<std::vector<TfToken>>(),
              (std::vector<TfToken>{TfToken("x"), TfToken("y")}));
    EXPECT_EQ(layer.Field("variantSelection").Get<SdfVariantSelectionMap>().at("shading"), "red");
    EXPECT_EQ(double(layer.Field("time").Get<SdfTimeCode>()), 24.0);
}

TEST(CrateStoredValues, OlderTypeNamesNameTheTypesOfTheValuesTheyHold)
{
    // def Xform "P" { Vec3f xformOp:translate = (2.5, 0, 0); PointFloat[] p = [(1, 2, 3)] }
    B b;
    b.AddField("primChildren", B::Rep(kTokenVector, b.Append(B::Raw(uint64_t(1)) + B::Raw(b.Token("P")))));
    b.AddPrimSpec("P");
    b.AddField("specifier", B::Rep(kSpecifier, 0, true));
    b.AddField("typeName", B::Rep(kToken, b.Token("Xform"), true));
    b.AddField("properties", B::Rep(kTokenVector, b.Append(B::Raw(uint64_t(3)) +
                                                           B::Raw(b.Token("xformOp:translate")) +
                                                           B::Raw(b.Token("p")) + B::Raw(b.Token("xformOpOrder")))));
    b.AddAttributeSpec("xformOp:translate");
    b.AddField("typeName", B::Rep(kToken, b.Token("Vec3f"), true));
    b.AddField("default", B::Rep(kVec3f, b.Append(B::Raw(2.5f) + B::Raw(0.f) + B::Raw(0.f))));
    b.AddAttributeSpec("p");
    b.AddField("typeName", B::Rep(kToken, b.Token("PointFloat[]"), true));
    b.AddField("default", B::Rep(kVec3f, b.Append(B::Raw(uint64_t(1)) + B::Raw(1.f) + B::Raw(2.f) + B::Raw(3.f)),
                                 false, true));
    b.AddAttributeSpec("xformOpOrder");
    b.AddField("typeName", B::Rep(kToken, b.Token("token[]"), true));
    b.AddField("variability", B::Rep(kVariability, 1, true));
    b.AddField("default", B::Rep(kToken, b.Append(B::Raw(uint64_t(1)) + B::Raw(b.Token("xformOp:translate"))),
                                 false, true));
    Layer layer = ReadOk(b);
    const UsdStageRefPtr stage = UsdStage::Open(SdfLayerHandle(SdfLayer::CreateAnonymous("crate", layer.data)));
    const UsdPrim prim = stage->GetPrimAtPath(SdfPath("/P"));
    ASSERT_TRUE(prim);

    const UsdAttribute translate = prim.GetAttribute(TfToken("xformOp:translate"));
    EXPECT_EQ(translate.GetTypeName(), SdfValueTypeNames->Float3);
    GfMatrix4d matrix;
    bool resets = false;
    EXPECT_TRUE(UsdGeomXformable(prim).GetLocalTransformation(&matrix, &resets));
    EXPECT_EQ(matrix.ExtractTranslation(), GfVec3d(2.5, 0, 0));

    const UsdAttribute points = prim.GetAttribute(TfToken("p"));
    EXPECT_EQ(points.GetTypeName(), SdfValueTypeNames->Point3fArray);
    EXPECT_EQ(points.GetRoleName(), SdfValueRoleNames->Point);
    VtVec3fArray values;
    EXPECT_TRUE(points.Get(&values));
    EXPECT_EQ(values, VtVec3fArray{GfVec3f(1, 2, 3)});
}

TEST(CrateStoredValues, ReferencesCarryPathOffsetAndCustomData)
{
    B b;
    // Explicit list op (1 | 2) of one reference: asset string, prim path 0,
    // offset 10 and scale 2, then an empty custom-data dictionary.
    const uint64_t at = b.Append(std::string(1, '\x03') + B::Raw(uint64_t(1)) +
                                 B::Raw(b.String("ref.usd")) + B::Raw(uint32_t(0)) +
                                 B::Raw(10.0) + B::Raw(2.0) + B::Raw(uint64_t(0)));
    b.AddField("references", B::Rep(kReferenceListOp, at));
    const Layer layer = ReadOk(b);
    const SdfReferenceListOp op = layer.Field("references").Get<SdfReferenceListOp>();
    EXPECT_TRUE(op.IsExplicit());
    ASSERT_EQ(op.GetExplicitItems().size(), 1u);
    const SdfReference& reference = op.GetExplicitItems()[0];
    EXPECT_EQ(reference.GetAssetPath(), "ref.usd");
    EXPECT_EQ(reference.GetLayerOffset(), SdfLayerOffset(10, 2));
    EXPECT_TRUE(reference.GetCustomData().empty());
}

TEST(CrateStoredValues, RelocatesPairSourceAndTargetPaths)
{
    B b(11);
    // The builder's only path is the root, index 0: one relocate </> -> </>.
    const uint64_t at = b.Append(B::Raw(uint64_t(1)) + B::Raw(uint32_t(0)) + B::Raw(uint32_t(0)));
    b.AddField("layerRelocates", B::Rep(kRelocates, at));
    const Layer layer = ReadOk(b);
    const SdfRelocates relocates = layer.Field("layerRelocates").Get<SdfRelocates>();
    ASSERT_EQ(relocates.size(), 1u);
    EXPECT_EQ(relocates[0].first, SdfPath::AbsoluteRootPath());
    EXPECT_EQ(relocates[0].second, SdfPath::AbsoluteRootPath());
}

TEST(CrateStoredValues, SinglePayloadOfOldFilesBecomesAnExplicitListOp)
{
    B b(7); // before 0.8.0 a payload has no layer offset
    const uint64_t at = b.Append(B::Raw(b.String("model.usd")) + B::Raw(uint32_t(0)));
    b.AddField("payload", B::Rep(kPayload, at));
    const Layer layer = ReadOk(b);
    const SdfPayloadListOp op = layer.Field("payload").Get<SdfPayloadListOp>();
    EXPECT_TRUE(op.IsExplicit());
    ASSERT_EQ(op.GetExplicitItems().size(), 1u);
    EXPECT_EQ(op.GetExplicitItems()[0].GetAssetPath(), "model.usd");
    EXPECT_EQ(op.GetExplicitItems()[0].GetPrimPath(), SdfPath::AbsoluteRootPath());
}

// Time samples: at the payload a jump to the times' rep, then after it a jump
// to the count and the value reps.
uint64_t AppendTimeSamples(B& b, uint64_t count, const std::vector<uint64_t>& valueReps)
{
    const uint64_t times = b.Append(B::Raw(uint64_t(2)) + B::Raw(1.0) + B::Raw(2.0));
    std::string samples = B::Raw(int64_t(8)) + B::Raw(B::Rep(kDoubleVector, times)) +
                          B::Raw(int64_t(8)) + B::Raw(count);
    for (uint64_t rep : valueReps) {
        samples += B::Raw(rep);
    }
    return b.Append(samples);
}

TEST(CrateStoredValues, TimeSamplesPairSharedTimesWithValues)
{
    B b;
    const uint64_t at = AppendTimeSamples(
        b, 2, {B::Rep(kFloat, 0x3FC00000, true), B::Rep(kFloat, 0x40200000, true)}); // 1.5, 2.5
    b.AddField("timeSamples", B::Rep(kTimeSamples, at));
    const Layer layer = ReadOk(b);
    const SdfTimeSampleMap samples = layer.Field("timeSamples").Get<SdfTimeSampleMap>();
    ASSERT_EQ(samples.size(), 2u);
    EXPECT_EQ(samples.at(1.0).Get<float>(), 1.5f);
    EXPECT_EQ(samples.at(2.0).Get<float>(), 2.5f);
}

TEST(CrateStoredValues, MoreSampleValuesThanTimesAreRefused)
{
    B b;
    const uint64_t at = AppendTimeSamples(
        b, 3, {B::Rep(kInt, 1, true), B::Rep(kInt, 2, true), B::Rep(kInt, 3, true)});
    b.AddField("timeSamples", B::Rep(kTimeSamples, at));
    ExpectRefused(b, "2 sample times but 3 sample values");
}

// ---- Arrays.

TEST(CrateArrays, IntegerArraysOf16OrMoreAreCompressed)
{
    B b;
    std::vector<int64_t> squares;
    for (int i = 0; i != 20; ++i) {
        squares.push_back(i * i);
    }
    const uint64_t at = b.Append(B::Raw(uint64_t(20)) + B::CompressedInts(squares));
    const uint64_t small = b.Append(B::Raw(uint64_t(3)) + B::Raw(7) + B::Raw(-8) + B::Raw(9));
    b.AddField("compressed", B::Rep(kInt, at, false, true, true));
    b.AddField("small", B::Rep(kInt, small, false, true, true));
    b.AddField("empty", B::Rep(kInt, 0, false, true));
    const Layer layer = ReadOk(b);
    const VtArray<int> values = layer.Field("compressed").Get<VtArray<int>>();
    ASSERT_EQ(values.size(), 20u);
    EXPECT_EQ(values[0], 0);
    EXPECT_EQ(values[7], 49);
    EXPECT_EQ(values[19], 361);
    EXPECT_EQ(layer.Field("small").Get<VtArray<int>>(), (VtArray<int>{7, -8, 9}));
    EXPECT_TRUE(layer.Field("empty").Get<VtArray<int>>().empty());
}

TEST(CrateArrays, FloatArraysOfIntegralValuesAreStoredAsIntegers)
{
    B b;
    std::vector<int64_t> values;
    for (int i = -8; i != 8; ++i) {
        values.push_back(i);
    }
    const uint64_t at = b.Append(B::Raw(uint64_t(16)) + "i" + B::CompressedInts(values));
    b.AddField("floats", B::Rep(kFloat, at, false, true, true));
    const Layer layer = ReadOk(b);
    const VtArray<float> floats = layer.Field("floats").Get<VtArray<float>>();
    ASSERT_EQ(floats.size(), 16u);
    EXPECT_EQ(floats[0], -8.0f);
    EXPECT_EQ(floats[15], 7.0f);
}

std::string LookupTableArray(uint32_t badIndex)
{
    // 16 doubles alternating between the table's 0.5 and 2.5.
    std::vector<int64_t> indices;
    for (int i = 0; i != 16; ++i) {
        indices.push_back(i % 2);
    }
    indices.back() = badIndex;
    return B::Raw(uint64_t(16)) + "t" + B::Raw(uint32_t(2)) + B::Raw(0.5) + B::Raw(2.5) +
           B::CompressedInts(indices);
}

TEST(CrateArrays, FloatArraysOfFewDistinctValuesUseALookupTable)
{
    B b;
    b.AddField("doubles", B::Rep(kDouble, b.Append(LookupTableArray(1)), false, true, true));
    const Layer layer = ReadOk(b);
    const VtArray<double> doubles = layer.Field("doubles").Get<VtArray<double>>();
    ASSERT_EQ(doubles.size(), 16u);
    EXPECT_EQ(doubles[0], 0.5);
    EXPECT_EQ(doubles[1], 2.5);
    EXPECT_EQ(doubles[15], 2.5);
}

TEST(CrateArrays, LookupTableIndexPastTheTableIsRefused)
{
    B b;
    b.AddField("doubles", B::Rep(kDouble, b.Append(LookupTableArray(2)), false, true, true));
    ExpectRefused(b, "lookup table index 2 of 2");
}

TEST(CrateArrays, TableEntriesInArraysAreIndices)
{
    B b;
    // Tokens index the token table; strings and asset paths (unlike an
    // inlined asset path) index the string table.
    const uint32_t str = b.String("text");
    const uint32_t asset = b.String("a.png");
    const uint32_t token = b.Token("tok");
    b.AddField("tokens", B::Rep(kToken, b.Append(B::Raw(uint64_t(1)) + B::Raw(token)), false, true));
    b.AddField("strings", B::Rep(kString, b.Append(B::Raw(uint64_t(1)) + B::Raw(str)), false, true));
    b.AddField("assets", B::Rep(kAssetPath, b.Append(B::Raw(uint64_t(1)) + B::Raw(asset)), false, true));
    b.AddField("bools", B::Rep(kBool, b.Append(B::Raw(uint64_t(2)) + std::string("\0\2", 2)), false, true));
    const Layer layer = ReadOk(b);
    EXPECT_EQ(layer.Field("tokens").Get<VtArray<TfToken>>()[0], TfToken("tok"));
    EXPECT_EQ(layer.Field("strings").Get<VtArray<std::string>>()[0], "text");
    EXPECT_EQ(layer.Field("assets").Get<VtArray<SdfAssetPath>>()[0].GetAssetPath(), "a.png");
    EXPECT_EQ(layer.Field("bools").Get<VtArray<bool>>(), (VtArray<bool>{false, true}));
}

TEST(CrateArrays, BeforeVersion05ArraysStartWithARankAnd32BitCount)
{
    B b(4);
    const uint64_t at =
        b.Append(B::Raw(uint32_t(1)) + B::Raw(uint32_t(2)) + B::Raw(0.5f) + B::Raw(-1.5f));
    b.AddField("floats", B::Rep(kFloat, at, false, true));
    const Layer layer = ReadOk(b);
    EXPECT_EQ(layer.Field("floats").Get<VtArray<float>>(), (VtArray<float>{0.5f, -1.5f}));
}

// ---- Hostile values.

TEST(CrateHostileValues, HugeArrayCountIsRefusedBeforeAllocating)
{
    B b;
    b.AddField("floats", B::Rep(kFloat, b.Append(B::Raw(uint64_t(1) << 40)), false, true));
    ExpectRefused(b, "field 'floats'");
}

TEST(CrateHostileValues, AValueContainingItselfIsRefused)
{
    B b;
    // A dictionary whose only value is the dictionary itself.
    const uint64_t at = b.Tell();
    b.Append(B::Raw(uint64_t(1)) + B::Raw(b.String("self")) + B::Raw(int64_t(8)) +
             B::Raw(B::Rep(kDictionary, at)));
    b.AddField("customData", B::Rep(kDictionary, at));
    ExpectRefused(b, "contains itself");
}

TEST(CrateHostileValues, NestingDepthIsBounded)
{
    B b;
    // A chain of 100 values, each holding the next.
    const uint64_t first = b.Tell();
    for (int i = 0; i != 100; ++i) {
        const uint64_t next = b.Tell() + 16;
        b.Append(B::Raw(int64_t(8)) + B::Raw(B::Rep(kValue, next)));
    }
    b.Append(B::Raw(int64_t(8)) + B::Raw(B::Rep(kInt, 1, true)));
    b.AddField("deep", B::Rep(kValue, first));
    ExpectRefused(b, "nested more than 64");
}

TEST(CrateHostileValues, IndicesAndEnumeratorsOutOfRangeAreRefused)
{
    const struct {
        uint64_t rep;
        const char* expected;
    } cases[] = {
        {B::Rep(kToken, 99, true), "token index 99"},
        {B::Rep(kString, 99, true), "string index 99"},
        {B::Rep(kSpecifier, 3, true), "invalid specifier 3"},
        {B::Rep(kQuatf, 1u << 30), "past the end"},
        {B::Rep(kDictionary, 0, false, true), "cannot be an array"},
    };
    for (const auto& c : cases) {
        B b;
        b.AddField("bad", c.rep);
        ExpectRefused(b, c.expected);
    }
}

TEST(CrateHostileValues, UnknownCompressionCodeIsRefused)
{
    B b;
    std::string array = LookupTableArray(1);
    array[8] = 'x';
    b.AddField("doubles", B::Rep(kDouble, b.Append(array), false, true, true));
    ExpectRefused(b, "compressed array code 120");
}

TEST(CrateHostileValues, UnknownTypesAreSkippedWithOneWarning)
{
    B b;
    b.AddField("future", B::Rep(99, 0, true));
    b.AddField("future2", B::Rep(99, 1, true));
    b.AddField("kept", B::Rep(kInt, 3, true));
    const Layer layer = ReadOk(b);
    EXPECT_TRUE(layer.Field("future").IsEmpty());
    EXPECT_EQ(layer.Field("kept").Get<int>(), 3);
    EXPECT_NE(layer.diagnostics.find("unknown (99)"), std::string::npos) << layer.diagnostics;
    EXPECT_EQ(layer.diagnostics.find("unknown (99)"), layer.diagnostics.rfind("unknown (99)"))
        << "one warning per type";
}

} // namespace
