#include "usdcore/sdf/data.h"
#include "usdcore/sdf/dataDiff.h"
#include "usdcore/sdf/schema.h"
#include "usdcore/tf/diagnostic.h"
#include "usdcore/vt/types.h"

#include <gtest/gtest.h>

PXR_NAMESPACE_USING_DIRECTIVE

namespace {

const SdfPath kRoot = SdfPath::AbsoluteRootPath();
const SdfPath kWorld("/World");
const SdfPath kSize("/World.size");

// A pseudo-root with a defaultPrim, a prim "World" and its attribute "size".
SdfData MakeSmallLayer()
{
    SdfData data;
    data.CreateSpec(kRoot, SdfSpecTypePseudoRoot);
    data.Set(kRoot, SdfFieldKeys->DefaultPrim, VtValue(TfToken("World")));
    data.CreateSpec(kWorld, SdfSpecTypePrim);
    data.Set(kWorld, SdfFieldKeys->Specifier, VtValue(SdfSpecifierDef));
    data.Set(kWorld, SdfFieldKeys->TypeName, VtValue(TfToken("Xform")));
    data.CreateSpec(kSize, SdfSpecTypeAttribute);
    data.Set(kSize, SdfFieldKeys->Default, VtValue(2.0));
    return data;
}

} // namespace

TEST(SdfData, SpecsAndTheirTypes)
{
    SdfData data = MakeSmallLayer();
    EXPECT_EQ(data.GetSpecCount(), 3u);
    EXPECT_TRUE(data.HasSpec(kWorld));
    EXPECT_EQ(data.GetSpecType(kSize), SdfSpecTypeAttribute);
    EXPECT_EQ(data.GetSpecType(SdfPath("/Nothing")), SdfSpecTypeUnknown);

    data.MoveSpec(kSize, SdfPath("/World.width"));
    EXPECT_FALSE(data.HasSpec(kSize));
    EXPECT_EQ(data.Get(SdfPath("/World.width"), SdfFieldKeys->Default), VtValue(2.0));

    data.EraseSpec(kWorld);
    EXPECT_FALSE(data.HasSpec(kWorld));
    EXPECT_EQ(data.GetSpecCount(), 2u);
}

TEST(SdfData, FieldsKeepTheOrderTheyWereFirstSet)
{
    SdfData data = MakeSmallLayer();
    data.Set(kWorld, SdfFieldKeys->Specifier, VtValue(SdfSpecifierOver));
    data.Set(kWorld, SdfFieldKeys->Active, VtValue(false));
    EXPECT_EQ(data.List(kWorld), (std::vector<TfToken>{SdfFieldKeys->Specifier,
                                                        SdfFieldKeys->TypeName,
                                                        SdfFieldKeys->Active}));
    SdfSpecifier specifier = SdfSpecifierDef;
    EXPECT_TRUE(data.Has(kWorld, SdfFieldKeys->Specifier, &specifier));
    EXPECT_EQ(specifier, SdfSpecifierOver);

    data.Erase(kWorld, SdfFieldKeys->TypeName);
    data.Set(kWorld, SdfFieldKeys->Active, VtValue());
    EXPECT_EQ(data.List(kWorld), std::vector<TfToken>{SdfFieldKeys->Specifier});
    EXPECT_TRUE(data.List(SdfPath("/Nothing")).empty());
}

TEST(SdfData, TypedAndUntypedFieldReads)
{
    const SdfData data = MakeSmallLayer();
    VtValue value;
    EXPECT_TRUE(data.Has(kSize, SdfFieldKeys->Default, &value));
    EXPECT_EQ(value, VtValue(2.0));
    float wrongType = 0.0f;
    EXPECT_FALSE(data.Has(kSize, SdfFieldKeys->Default, &wrongType));
    EXPECT_FALSE(data.Has(kSize, SdfFieldKeys->TimeSamples));
    EXPECT_TRUE(data.Get(kSize, SdfFieldKeys->Custom).IsEmpty());
    SdfSpecType specType = SdfSpecTypeUnknown;
    EXPECT_TRUE(data.HasSpecAndField(kWorld, SdfFieldKeys->TypeName, nullptr, &specType));
    EXPECT_EQ(specType, SdfSpecTypePrim);
    EXPECT_FALSE(data.HasSpecAndField(SdfPath("/No"), SdfFieldKeys->TypeName, nullptr, &specType));
    EXPECT_EQ(specType, SdfSpecTypeUnknown);
}

TEST(SdfData, SettingOnAMissingSpecIsACodingError)
{
    SdfData data;
    TfDiagnosticCapture capture;
    data.Set(kWorld, SdfFieldKeys->Active, VtValue(true));
    data.CreateSpec(SdfPath(), SdfSpecTypePrim);
    data.EraseSpec(kWorld);
    EXPECT_EQ(capture.Count(TF_DIAGNOSTIC_CODING_ERROR_TYPE), 3u);
    EXPECT_TRUE(data.IsEmpty());
}

TEST(SdfData, DictionaryKeys)
{
    SdfData data = MakeSmallLayer();
    VtDictionary inner{{"b", VtValue(7)}};
    data.Set(kWorld, SdfFieldKeys->CustomData, VtValue(VtDictionary{{"a", VtValue(inner)}}));
    EXPECT_EQ(data.GetDictValueByKey(kWorld, SdfFieldKeys->CustomData, TfToken("a:b")), VtValue(7));
    EXPECT_FALSE(data.HasDictKey(kWorld, SdfFieldKeys->CustomData, TfToken("a:c")));
    EXPECT_FALSE(data.HasDictKey(kSize, SdfFieldKeys->Default, TfToken("a")));
}

TEST(SdfData, TimeSamplesAndBracketing)
{
    SdfData data = MakeSmallLayer();
    data.Set(kSize, SdfFieldKeys->TimeSamples,
             VtValue(SdfTimeSampleMap{{1.0, VtValue(10.0)}, {5.0, VtValue(50.0)}}));
    EXPECT_EQ(data.ListTimeSamplesForPath(kSize), (std::set<double>{1.0, 5.0}));
    EXPECT_EQ(data.GetNumTimeSamplesForPath(kSize), 2u);
    EXPECT_EQ(data.GetNumTimeSamplesForPath(kWorld), 0u);

    double lower = 0.0;
    double upper = 0.0;
    ASSERT_TRUE(data.GetBracketingTimeSamplesForPath(kSize, 3.0, &lower, &upper));
    EXPECT_EQ(lower, 1.0);
    EXPECT_EQ(upper, 5.0);
    ASSERT_TRUE(data.GetBracketingTimeSamplesForPath(kSize, 5.0, &lower, &upper));
    EXPECT_EQ(lower, 5.0);
    EXPECT_EQ(upper, 5.0);
    ASSERT_TRUE(data.GetBracketingTimeSamplesForPath(kSize, -2.0, &lower, &upper));
    EXPECT_EQ(lower, 1.0);
    EXPECT_EQ(upper, 1.0);
    ASSERT_TRUE(data.GetBracketingTimeSamplesForPath(kSize, 9.0, &lower, &upper));
    EXPECT_EQ(lower, 5.0);
    EXPECT_EQ(upper, 5.0);
    EXPECT_FALSE(data.GetBracketingTimeSamplesForPath(kWorld, 1.0, &lower, &upper));

    VtValue sample;
    EXPECT_TRUE(data.QueryTimeSample(kSize, 5.0, &sample));
    EXPECT_EQ(sample, VtValue(50.0));
    EXPECT_FALSE(data.QueryTimeSample(kSize, 4.0));
}

TEST(SdfData, VisitingSeesEverySpecUntilStopped)
{
    struct Counter : SdfAbstractDataSpecVisitor {
        size_t limit = 0;
        size_t seen = 0;
        bool done = false;
        bool VisitSpec(const SdfAbstractData&, const SdfPath&) override { return ++seen < limit; }
        void Done(const SdfAbstractData&) override { done = true; }
    };
    const SdfData data = MakeSmallLayer();
    Counter all;
    all.limit = 100;
    data.VisitSpecs(&all);
    EXPECT_EQ(all.seen, 3u);
    EXPECT_TRUE(all.done);
    Counter first;
    first.limit = 1;
    data.VisitSpecs(&first);
    EXPECT_EQ(first.seen, 1u);
}

TEST(SdfDataEqual, EqualIgnoresFieldOrder)
{
    SdfData a = MakeSmallLayer();
    SdfData b;
    b.CreateSpec(kSize, SdfSpecTypeAttribute);
    b.Set(kSize, SdfFieldKeys->Default, VtValue(2.0));
    b.CreateSpec(kWorld, SdfSpecTypePrim);
    b.Set(kWorld, SdfFieldKeys->TypeName, VtValue(TfToken("Xform")));
    b.Set(kWorld, SdfFieldKeys->Specifier, VtValue(SdfSpecifierDef));
    b.CreateSpec(kRoot, SdfSpecTypePseudoRoot);
    b.Set(kRoot, SdfFieldKeys->DefaultPrim, VtValue(TfToken("World")));
    std::string difference;
    EXPECT_TRUE(SdfDataEqual(a, b, &difference)) << difference;
    EXPECT_TRUE(difference.empty());
}

TEST(SdfDataEqual, NamesTheFirstDifference)
{
    const SdfData a = MakeSmallLayer();
    std::string difference;

    SdfData value = MakeSmallLayer();
    value.Set(kSize, SdfFieldKeys->Default, VtValue(2.0000000001));
    EXPECT_FALSE(SdfDataEqual(a, value, &difference));
    EXPECT_EQ(difference.substr(0, 30), "</World.size> field 'default':");

    SdfData type = MakeSmallLayer();
    type.Set(kSize, SdfFieldKeys->Default, VtValue(2.0f));
    EXPECT_FALSE(SdfDataEqual(a, type, &difference));

    SdfData extraField = MakeSmallLayer();
    extraField.Set(kWorld, SdfFieldKeys->Kind, VtValue(TfToken("group")));
    EXPECT_FALSE(SdfDataEqual(a, extraField, &difference));
    EXPECT_EQ(difference, "</World> field 'kind': only in the second");

    SdfData extraSpec = MakeSmallLayer();
    extraSpec.CreateSpec(SdfPath("/Other"), SdfSpecTypePrim);
    EXPECT_FALSE(SdfDataEqual(a, extraSpec, &difference));
    EXPECT_EQ(difference, "</Other> is a spec only in the second");

    SdfData specType = MakeSmallLayer();
    specType.CreateSpec(kSize, SdfSpecTypeRelationship);
    EXPECT_FALSE(SdfDataEqual(a, specType, &difference));
    EXPECT_EQ(difference, "</World.size> spec type: SdfSpecTypeAttribute vs SdfSpecTypeRelationship");
}

TEST(SdfData, MovesWithoutCopyingSpecs)
{
    SdfData source = MakeSmallLayer();
    SdfData moved = std::move(source);
    EXPECT_EQ(moved.GetSpecCount(), 3u);
    EXPECT_TRUE(SdfDataEqual(moved, MakeSmallLayer()));
}
