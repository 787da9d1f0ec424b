#include "usdcore/tf/diagnostic.h"
#include "usdcore/sdf/types.h"
#include "usdcore/vt/dictionary.h"
#include "usdcore/vt/types.h"
#include "usdcore/vt/value.h"

#include <gtest/gtest.h>

#include <sstream>

PXR_NAMESPACE_USING_DIRECTIVE

TEST(VtValue, HoldsExactlyOneType)
{
    VtValue v(3.0f);
    EXPECT_TRUE(v.IsHolding<float>());
    EXPECT_FALSE(v.IsHolding<double>());
    EXPECT_EQ(v.UncheckedGet<float>(), 3.0f);
    EXPECT_EQ(v.GetType(), typeid(float));
    EXPECT_EQ(v.GetTypeName(), "float");
    EXPECT_FALSE(v.IsEmpty());
    EXPECT_TRUE(VtValue().IsEmpty());
    EXPECT_EQ(VtValue().GetType(), typeid(void));
}

TEST(VtValue, GetOfTheWrongTypeReportsAndFallsBack)
{
    TfDiagnosticCapture capture;
    VtValue v(TfToken("catmullClark"));
    EXPECT_EQ(v.Get<int>(), 0);
    EXPECT_TRUE(capture.Contains(TF_DIAGNOSTIC_CODING_ERROR_TYPE, "'int'"));
    EXPECT_TRUE(capture.Contains("'TfToken'"));
    EXPECT_EQ(v.GetWithDefault<int>(7), 7);
    EXPECT_EQ(v.GetWithDefault<TfToken>(), TfToken("catmullClark"));
}

TEST(VtValue, CStringsAreHeldAsStdString)
{
    VtValue v("rightHanded");
    ASSERT_TRUE(v.IsHolding<std::string>());
    EXPECT_EQ(v.UncheckedGet<std::string>(), "rightHanded");
    EXPECT_TRUE(v == std::string("rightHanded"));
    EXPECT_TRUE(v == "rightHanded");
}

TEST(VtValue, EqualityNeedsTheSameTypeAndValue)
{
    EXPECT_EQ(VtValue(1), VtValue(1));
    EXPECT_NE(VtValue(1), VtValue(2));
    EXPECT_NE(VtValue(1), VtValue(1.0)); // int vs double
    EXPECT_EQ(VtValue(), VtValue());
    EXPECT_NE(VtValue(), VtValue(0));
    EXPECT_EQ(VtValue(GfMatrix4d(1)), VtValue(GfMatrix4d(1)));
    EXPECT_TRUE(VtValue(GfVec3f(1, 2, 3)) == GfVec3f(1, 2, 3));
    EXPECT_FALSE(VtValue(GfVec3f(1, 2, 3)) == GfVec3d(1, 2, 3));
}

TEST(VtValue, ArraysReportTheirSizeAndCopyCheaply)
{
    VtVec3fArray points(1000);
    VtValue v(points);
    EXPECT_TRUE(v.IsArrayValued());
    EXPECT_EQ(v.GetArraySize(), 1000u);
    EXPECT_EQ(v.GetTypeName(), "VtArray<GfVec3f>");
    VtValue copy = v;
    EXPECT_EQ(copy.UncheckedGet<VtVec3fArray>().cdata(), points.cdata());
    EXPECT_FALSE(VtValue(1.0).IsArrayValued());
    EXPECT_EQ(VtValue(1.0).GetArraySize(), 0u);
}

TEST(VtValue, HeapHeldValuesAreCopiedBeforeModification)
{
    // A matrix does not fit inline; copies share it until one is changed.
    VtValue a(GfMatrix4d(2));
    VtValue b = a;
    GfMatrix4d replacement(5);
    b.Swap(replacement);
    EXPECT_EQ(replacement, GfMatrix4d(2));
    EXPECT_EQ(b.UncheckedGet<GfMatrix4d>(), GfMatrix4d(5));
    EXPECT_EQ(a.UncheckedGet<GfMatrix4d>(), GfMatrix4d(2));
}

TEST(VtValue, RemoveTakeAndSwap)
{
    VtValue v(std::string("long enough not to fit in any small string buffer"));
    const std::string taken = v.Remove<std::string>();
    EXPECT_EQ(taken, "long enough not to fit in any small string buffer");
    EXPECT_TRUE(v.IsEmpty());

    VtIntArray ints = {4, 5};
    VtValue t = VtValue::Take(ints);
    EXPECT_TRUE(ints.empty());
    EXPECT_EQ(t.UncheckedGet<VtIntArray>(), (VtIntArray{4, 5}));

    VtValue x(1), y(TfToken("y"));
    x.Swap(y);
    EXPECT_EQ(x, VtValue(TfToken("y")));
    EXPECT_EQ(y, VtValue(1));

    VtValue wrong(2.5);
    EXPECT_EQ(wrong.Remove<int>(), 0);
    EXPECT_TRUE(wrong.IsEmpty());
}

TEST(VtValue, AssignmentReplacesTypeAndValue)
{
    VtValue v(1);
    v = GfQuatf(1, 0, 0, 0);
    EXPECT_TRUE(v.IsHolding<GfQuatf>());
    v = VtValue();
    EXPECT_TRUE(v.IsEmpty());
    VtValue self(std::string("s"));
    self = self;
    EXPECT_EQ(self, VtValue("s"));
}

TEST(VtDictionary, OrderedNestedLookup)
{
    VtDictionary inner{{"b", VtValue(2)}};
    VtDictionary outer{{"z", VtValue(1)}, {"a", VtValue(inner)}};
    EXPECT_EQ(outer.begin()->first, "a"); // ordered by key
    const VtValue* found = outer.GetValueAtPath("a:b");
    ASSERT_NE(found, nullptr);
    EXPECT_EQ(*found, VtValue(2));
    EXPECT_EQ(outer.GetValueAtPath("a:c"), nullptr);
    EXPECT_EQ(outer.GetValueAtPath("z:b"), nullptr);
    EXPECT_EQ(VtValue(outer), VtValue(VtDictionary(outer)));
    EXPECT_TRUE(VtGetEmptyDictionary().empty());
}

TEST(VtValue, StreamsTheHeldValue)
{
    struct NoPrinter {
        bool operator==(const NoPrinter&) const { return true; }
    };
    std::ostringstream out;
    out << VtValue(GfVec3f(1, 2, 3)) << ' ' << VtValue(VtIntArray{4, 5}) << ' ' << VtValue()
        << '|' << VtValue(TfToken("tok")) << ' ' << VtValue(NoPrinter());
    EXPECT_EQ(out.str().substr(0, 30), "(1, 2, 3) [4, 5] |tok <VtValue");
}

// A held map or vector of VtValues prints element by element. Printing
// once went through the VtValue converting constructor and recursed until
// the stack ran out.
TEST(VtValue, StreamsMapsAndVectorsOfValues)
{
    SdfTimeSampleMap samples;
    samples[0.0] = VtValue(1.5);
    samples[10.0] = VtValue(TfToken("b"));
    std::ostringstream out;
    out << VtValue(samples);
    EXPECT_EQ(out.str(), "{0: 1.5, 10: b}");

    std::ostringstream direct;
    Vt_StreamValue(direct, samples);
    EXPECT_EQ(direct.str(), "{0: 1.5, 10: b}");

    VtDictionary inner;
    inner["n"] = VtValue(2);
    VtDictionary outer;
    outer["inner"] = VtValue(inner);
    outer["list"] = VtValue(std::vector<VtValue>{VtValue(1), VtValue(std::string("x"))});
    std::ostringstream nested;
    nested << VtValue(outer);
    EXPECT_EQ(nested.str(), "{inner: {n: 2}, list: [1, x]}");
}

// A printable-looking argument must not reach VtValue's operator<< through
// the converting constructor.
static_assert(!Vt_IsStreamable<SdfTimeSampleMap>::value, "a map of values has no operator<< of its own");
static_assert(!Vt_IsStreamable<std::vector<VtValue>>::value, "nor has a vector of values");
static_assert(Vt_IsStreamable<VtValue>::value, "a VtValue prints");

TEST(VtValue, ComparesWithAHeldTypeEitherWayRound)
{
    const VtValue token(TfToken("a"));
    EXPECT_TRUE(token == TfToken("a"));
    EXPECT_TRUE(TfToken("a") == token);
    EXPECT_TRUE(TfToken("b") != token);
    EXPECT_FALSE(token != TfToken("a"));
    EXPECT_TRUE(VtValue(2.0) == 2.0);
    EXPECT_TRUE(2.0 == VtValue(2.0));
    // Same number, other type: not equal, as the held types differ.
    EXPECT_FALSE(VtValue(2) == 2.0);
    EXPECT_TRUE(GfVec3f(1, 2, 3) == VtValue(GfVec3f(1, 2, 3)));
    EXPECT_TRUE((VtIntArray{1, 2} == VtValue(VtIntArray{1, 2})));
    EXPECT_TRUE(VtValue(std::string("s")) == "s");
    EXPECT_TRUE("s" == VtValue(std::string("s")));

    SdfTimeSampleMap samples;
    samples[1.0] = VtValue(1.0);
    SdfTimeSampleMap same = samples;
    EXPECT_TRUE(samples == same);
    EXPECT_TRUE(VtValue(samples) == samples);
    EXPECT_TRUE(samples == VtValue(same));
}

namespace {
struct Incomparable {};
} // namespace

// The comparisons with a T stay out of overload resolution for types that
// do not compare with what the VtValue would hold.
static_assert(!Vt_IsEqualityComparable<Incomparable, Incomparable>::value, "nothing to compare");
static_assert(Vt_IsEqualityComparable<TfToken, VtValue>::value, "token == value");
static_assert(Vt_IsEqualityComparable<VtValue, TfToken>::value, "value == token");
