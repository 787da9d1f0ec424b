// Relationship targets and connections composed across layers and arcs;
// property listings and applied schemas.

#include "usdTestUtils.h"

#include <gmock/gmock.h>

using namespace usdtest;
using ::testing::ElementsAre;

TEST(Targets, ListEditsComposeFromWeakToStrong)
{
    // Weak: [A, B]; strong: prepend C, delete A.
    const UsdStageRefPtr stage = OpenStage("targets_root.usda");
    ASSERT_TRUE(stage);
    SdfPathVector targets;
    const UsdRelationship material = stage->GetPrimAtPath(SdfPath("/M")).GetRelationship(TfToken("material"));
    ASSERT_TRUE(material);
    EXPECT_TRUE(material.GetTargets(&targets));
    EXPECT_THAT(Paths(targets), ElementsAre("/M/C", "/M/B"));
}

TEST(Targets, MappedThroughReferences)
{
    const UsdStageRefPtr stage = OpenStage("targets_root.usda");
    SdfPathVector targets;
    EXPECT_TRUE(stage->GetPrimAtPath(SdfPath("/Ref")).GetRelationship(TfToken("binding")).GetTargets(&targets));
    EXPECT_THAT(Paths(targets), ElementsAre("/Ref/Mat"));

    SdfPathVector sources;
    const UsdAttribute tint = Attribute(stage, "/Ref/Mat", "inputs:tint");
    EXPECT_TRUE(tint.HasAuthoredConnections());
    EXPECT_TRUE(tint.GetConnections(&sources));
    EXPECT_THAT(Paths(sources), ElementsAre("/Ref/Mat/Tex.outputs:rgb"));
}

TEST(Targets, TargetOutsideAReferencedModelIsDropped)
{
    TfDiagnosticCapture capture;
    const UsdStageRefPtr stage = OpenStage("targets_root.usda");
    SdfPathVector targets{SdfPath("/Stale")};
    EXPECT_FALSE(stage->GetPrimAtPath(SdfPath("/Ref")).GetRelationship(TfToken("escapes")).GetTargets(&targets));
    EXPECT_TRUE(targets.empty());
    EXPECT_TRUE(capture.Contains("/Elsewhere"));
}

// A variant references an asset whose body is a nested reference; the body
// binds its geometry (itself referenced) to its own materials, over weaker
// bindings the geometry's file made to paths it does not bring along.
TEST(Targets, MappedThroughVariantsAndNestedReferences)
{
    TfDiagnosticCapture capture;
    const UsdStageRefPtr stage = OpenStage("targets_vehicle.usda");
    ASSERT_TRUE(stage);
    const auto binding = [&stage](const char* mesh) {
        return stage->GetPrimAtPath(SdfPath(std::string("/Vehicle/Tractor/body/geo/") + mesh))
            .GetRelationship(TfToken("material:binding"));
    };
    // An explicit list replaces the weaker one, unmappable paths and all.
    SdfPathVector targets;
    EXPECT_TRUE(binding("Shell").GetTargets(&targets));
    EXPECT_THAT(Paths(targets), ElementsAre("/Vehicle/Tractor/body/materials/Paint"));
    EXPECT_FALSE(capture.Contains("shellMax"));
    // A prepend keeps the weaker path, which cannot be mapped: the mapped
    // target is still given, but the composition reports the error.
    EXPECT_FALSE(binding("Lamp").GetTargets(&targets));
    EXPECT_THAT(Paths(targets), ElementsAre("/Vehicle/Tractor/body/materials/Glass"));
    EXPECT_TRUE(capture.Contains("lampMax"));
}

TEST(Targets, WithinTheSameModelAcrossTheDefaultPrim)
{
    const UsdStageRefPtr stage = OpenStage("references.usda");
    SdfPathVector targets;
    EXPECT_TRUE(stage->GetPrimAtPath(SdfPath("/ByDefaultPrim")).GetRelationship(TfToken("target")).GetTargets(&targets));
    EXPECT_THAT(Paths(targets), ElementsAre("/ByDefaultPrim/Geom"));
}

TEST(Targets, UnauthoredRelationship)
{
    const UsdStageRefPtr stage = OpenStage("properties.usda");
    const UsdPrim prim = stage->GetPrimAtPath(SdfPath("/P"));
    SdfPathVector targets;
    const UsdRelationship declared = prim.GetRelationship(TfToken("r"));
    EXPECT_TRUE(declared);
    EXPECT_FALSE(declared.GetTargets(&targets));
    EXPECT_TRUE(targets.empty());
    EXPECT_FALSE(prim.GetRelationship(TfToken("none")));
    // An attribute is not a relationship, nor the other way round.
    EXPECT_FALSE(prim.GetRelationship(TfToken("a2")));
    EXPECT_FALSE(prim.GetAttribute(TfToken("r")));
}

TEST(Properties, NamesInDictionaryOrderAcrossLayers)
{
    const UsdStageRefPtr stage = OpenStage("properties.usda");
    const UsdPrim prim = stage->GetPrimAtPath(SdfPath("/P"));
    EXPECT_THAT(Names(prim.GetPropertyNames()), ElementsAre("a2", "a10", "B", "b", "r", "Zed", "_x"));
    std::vector<std::string> attributes;
    for (const UsdAttribute& attribute : prim.GetAttributes()) attributes.push_back(attribute.GetName().GetString());
    EXPECT_THAT(attributes, ElementsAre("a2", "a10", "B", "b", "Zed", "_x"));
    ASSERT_EQ(prim.GetRelationships().size(), 1u);
    EXPECT_EQ(prim.GetRelationships()[0].GetPath(), SdfPath("/P.r"));
    EXPECT_EQ(prim.GetAuthoredProperties().size(), 7u);
}

TEST(Properties, NamespacedNames)
{
    const UsdStageRefPtr stage = OpenStage("targets_root.usda");
    const UsdAttribute tint = Attribute(stage, "/Ref/Mat", "inputs:tint");
    EXPECT_EQ(tint.GetBaseName(), TfToken("tint"));
    EXPECT_EQ(tint.GetNamespace(), TfToken("inputs"));
}

TEST(Properties, AppliedSchemasComposeAcrossLayers)
{
    const UsdStageRefPtr stage = OpenStage("properties.usda");
    const UsdPrim prim = stage->GetPrimAtPath(SdfPath("/P"));
    EXPECT_THAT(Names(prim.GetAppliedSchemas()), ElementsAre("MaterialBindingAPI", "SkelBindingAPI"));
    EXPECT_TRUE(prim.HasAPI(TfToken("SkelBindingAPI")));
    EXPECT_FALSE(prim.HasAPI(TfToken("CollectionAPI")));
}
