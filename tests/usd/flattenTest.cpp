// Flattening a stage into one layer: what composition decided is written as
// plain opinions (sublayer and reference offsets applied to samples, variant
// and class opinions folded in, targets mapped), no arcs are left, and the
// flattened layer composes to the same scene.

#include "usdTestUtils.h"

#include "usdcore/sdf/assetPath.h"
#include "usdcore/sdf/listOp.h"
#include "usdcore/sdf/schema.h"
#include "usdcore/gf/vec3f.h"
#include "usdcore/vt/dictionary.h"
#include "usdcore/vt/types.h"

#include <gmock/gmock.h>

#include <fstream>
#include <sstream>

using namespace usdtest;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::StartsWith;

namespace {

const SdfData& FlatData(const SdfLayerRefPtr& layer) { return layer->GetData(); }

SdfLayerRefPtr FlattenRoot(bool addSourceFileComment = true)
{
    const UsdStageRefPtr stage = OpenStage("flatten_root.usda");
    if (!stage) return SdfLayerRefPtr();
    return stage->Flatten(addSourceFileComment);
}

std::vector<double> SampleTimes(const SdfData& data, const std::string& path)
{
    std::vector<double> times;
    for (const double time : data.ListTimeSamplesForPath(SdfPath(path))) times.push_back(time);
    return times;
}

template <class T>
T Field(const SdfData& data, const std::string& path, const TfToken& field)
{
    T value{};
    EXPECT_TRUE(data.Has(SdfPath(path), field, &value)) << path << " " << field.GetString();
    return value;
}

std::vector<std::string> ExplicitPaths(const SdfData& data, const std::string& path, const TfToken& field)
{
    const SdfPathListOp listOp = Field<SdfPathListOp>(data, path, field);
    EXPECT_TRUE(listOp.IsExplicit()) << path;
    return Paths(listOp.GetExplicitItems());
}

// Asset paths as written: where they are found depends on the file that
// holds them, which flattening moves.
void KeepAuthoredAssetPaths(VtValue* value)
{
    if (value->IsHolding<SdfAssetPath>()) {
        *value = SdfAssetPath(value->UncheckedGet<SdfAssetPath>().GetAssetPath());
    } else if (value->IsHolding<VtArray<SdfAssetPath>>()) {
        VtArray<SdfAssetPath> paths = value->UncheckedGet<VtArray<SdfAssetPath>>();
        for (SdfAssetPath& path : paths) path = SdfAssetPath(path.GetAssetPath());
        *value = paths;
    }
}

// A value read from both stages at one time: both absent, or equal.
void ExpectSameValue(const UsdAttribute& expected, const UsdAttribute& actual, UsdTimeCode time)
{
    VtValue expectedValue;
    VtValue actualValue;
    const bool hasExpected = expected.Get(&expectedValue, time);
    ASSERT_EQ(hasExpected, actual.Get(&actualValue, time)) << expected.GetPath().GetString();
    if (!hasExpected) return;
    KeepAuthoredAssetPaths(&expectedValue);
    KeepAuthoredAssetPaths(&actualValue);
    if (expectedValue.GetTypeName() == actualValue.GetTypeName()) {
        EXPECT_EQ(expectedValue, actualValue) << expected.GetPath().GetString() << " at " << time.GetValue();
        return;
    }
    // A file may hold a value of another type than it declares (an int for
    // a float attribute); read back as text, it takes the declared type.
    EXPECT_EQ(actual.GetTypeName().GetDefaultValue().GetTypeName(), actualValue.GetTypeName())
        << expected.GetPath().GetString();
    std::ostringstream expectedText;
    std::ostringstream actualText;
    expectedText << expectedValue;
    actualText << actualValue;
    EXPECT_EQ(expectedText.str(), actualText.str()) << expected.GetPath().GetString();
}

void ExpectSameProperties(const UsdPrim& expected, const UsdPrim& actual)
{
    for (const UsdProperty& property : expected.GetAuthoredProperties()) {
        const TfToken& name = property.GetName();
        if (const UsdAttribute attribute = expected.GetAttribute(name)) {
            if (!attribute.GetTypeName()) continue;   // left out, with a warning
            const UsdAttribute flat = actual.GetAttribute(name);
            ASSERT_TRUE(flat) << attribute.GetPath().GetString();
            EXPECT_EQ(attribute.GetTypeName(), flat.GetTypeName());
            EXPECT_EQ(attribute.GetVariability(), flat.GetVariability());
            std::vector<double> times;
            std::vector<double> flatTimes;
            attribute.GetTimeSamples(&times);
            flat.GetTimeSamples(&flatTimes);
            EXPECT_EQ(times, flatTimes) << attribute.GetPath().GetString();
            ExpectSameValue(attribute, flat, UsdTimeCode::Default());
            for (const double time : times) ExpectSameValue(attribute, flat, time);
            SdfPathVector sources;
            SdfPathVector flatSources;
            attribute.GetConnections(&sources);
            flat.GetConnections(&flatSources);
            EXPECT_EQ(sources, flatSources) << attribute.GetPath().GetString();
        } else if (const UsdRelationship relationship = expected.GetRelationship(name)) {
            const UsdRelationship flat = actual.GetRelationship(name);
            ASSERT_TRUE(flat) << relationship.GetPath().GetString();
            SdfPathVector targets;
            SdfPathVector flatTargets;
            relationship.GetTargets(&targets);
            flat.GetTargets(&flatTargets);
            EXPECT_EQ(targets, flatTargets) << relationship.GetPath().GetString();
        }
    }
}

// Every active prim of \p expected is on \p actual with the same type,
// specifier, metadata that matters to readers, and properties; inactive
// prims are gone.
void ExpectSameScene(const UsdStageRefPtr& expected, const UsdStageRefPtr& actual)
{
    for (const UsdPrim& prim : expected->TraverseAll()) {
        const UsdPrim flat = actual->GetPrimAtPath(prim.GetPath());
        if (!prim.IsActive()) {
            EXPECT_FALSE(flat) << prim.GetPath().GetString();
            continue;
        }
        ASSERT_TRUE(flat) << prim.GetPath().GetString();
        EXPECT_EQ(prim.GetTypeName(), flat.GetTypeName()) << prim.GetPath().GetString();
        EXPECT_EQ(prim.GetSpecifier(), flat.GetSpecifier()) << prim.GetPath().GetString();
        EXPECT_EQ(prim.IsAbstract(), flat.IsAbstract()) << prim.GetPath().GetString();
        EXPECT_EQ(prim.GetAppliedSchemas(), flat.GetAppliedSchemas()) << prim.GetPath().GetString();
        TfToken kind;
        TfToken flatKind;
        prim.GetMetadata(SdfFieldKeys->Kind, &kind);
        flat.GetMetadata(SdfFieldKeys->Kind, &flatKind);
        EXPECT_EQ(kind, flatKind) << prim.GetPath().GetString();
        ExpectSameProperties(prim, flat);
    }
}

} // namespace

TEST(Flatten, SamplesOfOffsetLayersMoveOntoTheStageTimeLine)
{
    const SdfLayerRefPtr layer = FlattenRoot();
    ASSERT_TRUE(layer);
    const SdfData& data = FlatData(layer);
    // The sublayer sits 5 later: its samples at 0 and 10 land on 5 and 15.
    EXPECT_THAT(SampleTimes(data, "/World/Ball.weight"), ElementsAre(5.0, 15.0));
    VtValue value;
    EXPECT_TRUE(data.QueryTimeSample(SdfPath("/World/Ball.weight"), 15.0, &value));
    EXPECT_EQ(value, VtValue(10.0));
    // The reference maps t to 100 + 2t: samples at 1 and 2 land on 102 and 104.
    EXPECT_THAT(SampleTimes(data, "/World/Chair.size"), ElementsAre(102.0, 104.0));
    EXPECT_TRUE(data.QueryTimeSample(SdfPath("/World/Chair.size"), 104.0, &value));
    EXPECT_EQ(value, VtValue(2.5f));
    // Without an offset the samples stay where they were written.
    EXPECT_THAT(SampleTimes(data, "/World/Stool.size"), ElementsAre(1.0, 2.0));
}

TEST(Flatten, StrongerDefaultHidesWeakerSamplesAndBlocksStayBlocked)
{
    const SdfLayerRefPtr layer = FlattenRoot();
    ASSERT_TRUE(layer);
    const SdfData& data = FlatData(layer);
    EXPECT_EQ(data.Get(SdfPath("/World/Ball.hidden"), SdfFieldKeys->Default), VtValue(7.0));
    EXPECT_FALSE(data.Has(SdfPath("/World/Ball.hidden"), SdfFieldKeys->TimeSamples));
    EXPECT_TRUE(data.Get(SdfPath("/World/Ball.blocked"), SdfFieldKeys->Default).IsHolding<SdfValueBlock>());
    // Samples alone: no default is made up.
    EXPECT_FALSE(data.Has(SdfPath("/World/Ball.weight"), SdfFieldKeys->Default));
}

TEST(Flatten, VariantsAndClassesAreFoldedInAndNoArcRemains)
{
    const SdfLayerRefPtr layer = FlattenRoot();
    ASSERT_TRUE(layer);
    const SdfData& data = FlatData(layer);
    // The root layer selects "blue" over the model's "red"; the instance
    // keeps the model's own selection.
    EXPECT_EQ(data.Get(SdfPath("/World/Chair.displayColor"), SdfFieldKeys->Default),
              VtValue(GfVec3f(0, 0, 1)));
    EXPECT_EQ(data.Get(SdfPath("/World/Stool.displayColor"), SdfFieldKeys->Default),
              VtValue(GfVec3f(1, 0, 0)));
    // Inherited from the class, custom as the class wrote it.
    EXPECT_EQ(data.Get(SdfPath("/World/Ball.tag"), SdfFieldKeys->Default), VtValue(std::string("base")));
    EXPECT_EQ(Field<bool>(data, "/World/Ball.tag", SdfFieldKeys->Custom), true);

    const TfToken arcFields[] = {SdfFieldKeys->References, SdfFieldKeys->InheritPaths, SdfFieldKeys->Payload,
                                 SdfFieldKeys->Specializes, SdfFieldKeys->VariantSelection,
                                 SdfFieldKeys->VariantSetNames, SdfFieldKeys->SubLayers,
                                 SdfFieldKeys->SubLayerOffsets, SdfChildrenKeys->VariantSetChildren};
    for (const std::string path : {"/", "/World", "/World/Ball", "/World/Chair", "/World/Stool"}) {
        for (const TfToken& field : arcFields) {
            EXPECT_FALSE(data.Has(SdfPath(path), field)) << path << " " << field.GetString();
        }
    }
}

TEST(Flatten, PrimsKeepComposedSpecifierTypeAndMetadata)
{
    const SdfLayerRefPtr layer = FlattenRoot();
    ASSERT_TRUE(layer);
    const SdfData& data = FlatData(layer);
    EXPECT_EQ(Field<SdfSpecifier>(data, "/_Base", SdfFieldKeys->Specifier), SdfSpecifierClass);
    // The sublayer's "over" is weaker than the root layer's "def".
    EXPECT_EQ(Field<SdfSpecifier>(data, "/World", SdfFieldKeys->Specifier), SdfSpecifierDef);
    EXPECT_EQ(Field<TfToken>(data, "/World/Ball", SdfFieldKeys->TypeName), TfToken("Sphere"));
    // The type comes through the reference.
    EXPECT_EQ(Field<TfToken>(data, "/World/Chair", SdfFieldKeys->TypeName), TfToken("Xform"));
    EXPECT_EQ(Field<TfToken>(data, "/World/Chair", SdfFieldKeys->Kind), TfToken("component"));
    EXPECT_EQ(Field<bool>(data, "/World/Stool", SdfFieldKeys->Instanceable), true);

    // Dictionaries merge key by key, the stronger layer winning.
    const VtDictionary customData = Field<VtDictionary>(data, "/World", SdfFieldKeys->CustomData);
    EXPECT_EQ(customData.size(), 2u);
    EXPECT_EQ(*customData.GetValueAtPath("shared"), VtValue(std::string("strong")));
    EXPECT_EQ(*customData.GetValueAtPath("fromSub"), VtValue(std::string("sub")));

    const SdfTokenListOp schemas = Field<SdfTokenListOp>(data, "/World/Chair/Geo", TfToken("apiSchemas"));
    EXPECT_TRUE(schemas.IsExplicit());
    EXPECT_THAT(Names(schemas.GetExplicitItems()), ElementsAre("MaterialBindingAPI"));

    // Composed child order; the inactive prim and what is below it are gone.
    EXPECT_THAT(Names(Field<std::vector<TfToken>>(data, "/World", SdfChildrenKeys->PrimChildren)),
                ElementsAre("Ball", "Chair", "Stool"));
    EXPECT_FALSE(data.HasSpec(SdfPath("/World/Off")));
    EXPECT_FALSE(data.HasSpec(SdfPath("/World/Off/Kid")));
}

TEST(Flatten, TargetsAndConnectionsAreExplicitAndInStageNamespace)
{
    const SdfLayerRefPtr layer = FlattenRoot();
    ASSERT_TRUE(layer);
    const SdfData& data = FlatData(layer);
    EXPECT_EQ(data.GetSpecType(SdfPath("/World/Chair.look")), SdfSpecTypeRelationship);
    EXPECT_THAT(ExplicitPaths(data, "/World/Chair.look", SdfFieldKeys->TargetPaths),
                ElementsAre("/World/Chair/Geo"));
    EXPECT_THAT(ExplicitPaths(data, "/World/Chair/Geo.inputs:tint", SdfFieldKeys->ConnectionPaths),
                ElementsAre("/World/Chair/Shader.outputs:rgb"));
    EXPECT_THAT(ExplicitPaths(data, "/World/Stool.look", SdfFieldKeys->TargetPaths),
                ElementsAre("/World/Stool/Geo"));
}

TEST(Flatten, InstancesAreWrittenWithTheirComposedContent)
{
    const UsdStageRefPtr stage = OpenStage("flatten_root.usda");
    ASSERT_TRUE(stage);
    ASSERT_TRUE(stage->GetPrimAtPath(SdfPath("/World/Stool")).IsInstance());
    // Reached by path, the instanced content is there as instance proxies.
    EXPECT_TRUE(stage->GetPrimAtPath(SdfPath("/World/Stool/Geo")).IsInstanceProxy());

    const UsdStageRefPtr flat = UsdStage::Open(SdfLayerHandle(stage->Flatten()));
    ASSERT_TRUE(flat);
    // Instanceable without arcs of its own is no instance: its children
    // are ordinary prims now.
    EXPECT_FALSE(flat->GetPrimAtPath(SdfPath("/World/Stool")).IsInstance());
    EXPECT_EQ(flat->GetPrimAtPath(SdfPath("/World/Stool/Geo")).GetTypeName(), TfToken("Mesh"));
    VtIntArray counts;
    EXPECT_TRUE(Attribute(flat, "/World/Stool/Geo", "faceVertexCounts").Get(&counts));
    EXPECT_EQ(counts, VtIntArray({3}));
}

TEST(Flatten, LayerMetadataIsTheRootLayersWithASourceNote)
{
    const SdfLayerRefPtr layer = FlattenRoot();
    ASSERT_TRUE(layer);
    EXPECT_TRUE(layer->IsAnonymous());
    const SdfData& data = FlatData(layer);
    // The sublayer's weaker upAxis does not count.
    EXPECT_EQ(Field<TfToken>(data, "/", TfToken("upAxis")), TfToken("Z"));
    EXPECT_EQ(Field<double>(data, "/", TfToken("metersPerUnit")), 0.01);
    EXPECT_EQ(Field<double>(data, "/", SdfFieldKeys->EndTimeCode), 120.0);
    EXPECT_EQ(layer->GetDefaultPrim(), TfToken("World"));
    const VtDictionary layerData = Field<VtDictionary>(data, "/", SdfFieldKeys->CustomLayerData);
    ASSERT_TRUE(layerData.GetValueAtPath("note"));
    EXPECT_EQ(*layerData.GetValueAtPath("note"), VtValue(std::string("flatten")));
    EXPECT_THAT(Field<std::string>(data, "/", SdfFieldKeys->Documentation),
                StartsWith("Generated from Composed Stage of root layer "));
    EXPECT_THAT(Field<std::string>(data, "/", SdfFieldKeys->Documentation), HasSubstr("flatten_root.usda"));

    EXPECT_FALSE(FlattenRoot(false)->GetData().Has(SdfPath::AbsoluteRootPath(), SdfFieldKeys->Documentation));
}

TEST(Flatten, SourceNoteFollowsAuthoredDocumentation)
{
    const SdfLayerRefPtr root = SdfLayer::OpenFromString("#usda 1.0\n(\n    doc = \"Hello\"\n)\ndef \"A\" {}\n");
    ASSERT_TRUE(root);
    const SdfLayerRefPtr flat = UsdStage::Open(SdfLayerHandle(root))->Flatten();
    std::string documentation;
    EXPECT_TRUE(flat->GetData().Has(SdfPath::AbsoluteRootPath(), SdfFieldKeys->Documentation, &documentation));
    EXPECT_THAT(documentation, StartsWith("Hello\n\nGenerated from Composed Stage of root layer "));
}

TEST(Flatten, FlattenedLayerComposesToTheSameScene)
{
    const UsdStageRefPtr stage = OpenStage("flatten_root.usda");
    ASSERT_TRUE(stage);
    const SdfLayerRefPtr flat = stage->Flatten();
    // Straight from the layer, and through its text.
    ExpectSameScene(stage, UsdStage::Open(SdfLayerHandle(flat)));
    std::string text;
    ASSERT_TRUE(flat->ExportToString(&text));
    const SdfLayerRefPtr reread = SdfLayer::OpenFromString(text, "flattened.usda");
    ASSERT_TRUE(reread);
    const UsdStageRefPtr rereadStage = UsdStage::Open(SdfLayerHandle(reread));
    ExpectSameScene(stage, rereadStage);
    EXPECT_EQ(DoubleAt(rereadStage, "/World/Ball", "weight", 10.0), 5.0);
    EXPECT_EQ(rereadStage->GetEndTimeCode(), 120.0);
}

TEST(Flatten, EveryCorpusSceneFlattensAndReadsBack)
{
    const std::string corpus = TAVRIN_CORPUS_DIR;
    std::ifstream manifest(corpus + "/MANIFEST.tsv");
    if (!manifest) GTEST_SKIP() << "no corpus at " << corpus;
    int flattened = 0;
    std::string line;
    while (std::getline(manifest, line)) {
        std::vector<std::string> columns;
        std::stringstream row(line);
        for (std::string column; std::getline(row, column, '\t');) columns.push_back(column);
        if (columns.size() < 8) continue;
        const std::string& format = columns[7];
        if (format != "usda" && format != "usdc" && format != "usdz") continue;
        SCOPED_TRACE(columns[0]);
        TfDiagnosticCapture quiet;   // malformed corpus files are expected to warn
        const UsdStageRefPtr stage = UsdStage::Open(corpus + "/" + columns[0]);
        if (!stage) continue;
        const SdfLayerRefPtr flat = stage->Flatten();
        ASSERT_TRUE(flat);
        std::string text;
        ASSERT_TRUE(flat->ExportToString(&text));
        const SdfLayerRefPtr reread = SdfLayer::OpenFromString(text, columns[0] + ".flat.usda");
        ASSERT_TRUE(reread);
        ExpectSameScene(stage, UsdStage::Open(SdfLayerHandle(reread)));
        ++flattened;
    }
    EXPECT_GT(flattened, 100);
}
