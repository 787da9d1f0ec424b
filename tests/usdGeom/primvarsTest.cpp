// Primvars: which attributes are primvars and in what order, their
// interpolation and element size, and the expansion of indexed values.

#include "geomTestUtils.h"

#include "usdcore/usdGeom/mesh.h"
#include "usdcore/usdGeom/primvarsAPI.h"
#include "usdcore/vt/types.h"

#include <gmock/gmock.h>

using namespace geomtest;
using ::testing::ElementsAre;

namespace {

const char* const kScene = R"(
def Mesh "M" {
    float2[] primvars:st = [(0, 0), (1, 0), (1, 1)] (
        interpolation = "faceVarying"
    )
    int[] primvars:st:indices = [0, 1, 2, 2, 1, 0]
    float3[] primvars:colour = [(1, 0, 0)]
    int[] primvars:skel:jointIndices = [0, 1, 1, 2] (
        elementSize = 2
        interpolation = "vertex"
    )
    float[] primvars:bad = [10, 20]
    int[] primvars:bad:indices = [1, 2, -1, 0, 5, 7, 9, 1, 3]
    float2[] primvars:animated.timeSamples = {
        0: [(0, 0)],
        10: [(1, 1)],
    }
    int[] primvars:animated:indices.timeSamples = {
        5: [0],
        10: [0, 0],
    }
    float primvars:single = 0.5
    int[] primvars:single:indices = [0]
    rel primvars:notAnAttribute
    float notAPrimvar = 1
}
def Mesh "Plain" {}
def "Untyped" {
    float primvars:size = 2
}
)";

class Primvars : public ::testing::Test
{
protected:
    void SetUp() override { ASSERT_TRUE(stage); }
    UsdGeomPrimvar Primvar(const char* name) const
    {
        return UsdGeomPrimvarsAPI(stage->GetPrimAtPath(SdfPath("/M"))).GetPrimvar(TfToken(name));
    }

    UsdStageRefPtr stage = StageFromText(kScene);
};

std::vector<std::string> PrimvarNames(const std::vector<UsdGeomPrimvar>& primvars)
{
    std::vector<std::string> names;
    for (const UsdGeomPrimvar& primvar : primvars) names.push_back(primvar.GetPrimvarName().GetString());
    return names;
}

} // namespace

TEST_F(Primvars, PrimvarsAreNamespacedAttributesInPropertyOrder)
{
    const UsdGeomPrimvarsAPI api(stage->GetPrimAtPath(SdfPath("/M")));
    // Indices attributes, relationships and attributes outside the
    // namespace are not primvars; a mesh's schema adds displayColor and
    // displayOpacity.
    EXPECT_THAT(PrimvarNames(api.GetPrimvars()), ElementsAre("animated", "bad", "colour", "displayColor",
                                                             "displayOpacity", "single", "skel:jointIndices", "st"));
    EXPECT_THAT(PrimvarNames(api.GetAuthoredPrimvars()),
                ElementsAre("animated", "bad", "colour", "single", "skel:jointIndices", "st"));
    // "animated" has no default value, only samples: it still has a value.
    EXPECT_EQ(api.GetPrimvarsWithValues().size(), 6u);
}

TEST_F(Primvars, UntypedPrimHasOnlyItsAuthoredPrimvars)
{
    const UsdGeomPrimvarsAPI untyped(stage->GetPrimAtPath(SdfPath("/Untyped")));
    EXPECT_TRUE(untyped);
    EXPECT_THAT(PrimvarNames(untyped.GetPrimvars()), ElementsAre("size"));
    EXPECT_THAT(PrimvarNames(UsdGeomPrimvarsAPI(stage->GetPrimAtPath(SdfPath("/Plain"))).GetPrimvars()),
                ElementsAre("displayColor", "displayOpacity"));
}

TEST_F(Primvars, LookupAcceptsNameWithOrWithoutNamespace)
{
    const UsdGeomPrimvarsAPI api(stage->GetPrimAtPath(SdfPath("/M")));
    EXPECT_TRUE(api.GetPrimvar(TfToken("st")));
    EXPECT_EQ(api.GetPrimvar(TfToken("primvars:st")), api.GetPrimvar(TfToken("st")));
    EXPECT_TRUE(api.HasPrimvar(TfToken("skel:jointIndices")));
    EXPECT_FALSE(api.HasPrimvar(TfToken("notAnAttribute")));
    EXPECT_FALSE(api.HasPrimvar(TfToken("missing")));
    EXPECT_FALSE(api.GetPrimvar(TfToken("missing")));
    EXPECT_FALSE(api.HasPrimvar(TfToken("st:indices")));

    TfDiagnosticCapture capture;
    EXPECT_FALSE(api.GetPrimvar(TfToken("st:indices")));
    EXPECT_EQ(capture.Count(TF_DIAGNOSTIC_CODING_ERROR_TYPE), 1u);
}

TEST_F(Primvars, NamesOfANamespacedPrimvar)
{
    const UsdGeomPrimvar joints = Primvar("skel:jointIndices");
    EXPECT_EQ(joints.GetName(), TfToken("primvars:skel:jointIndices"));
    EXPECT_EQ(joints.GetPrimvarName(), TfToken("skel:jointIndices"));
    EXPECT_EQ(joints.GetBaseName(), TfToken("jointIndices"));
    EXPECT_TRUE(joints.NameContainsNamespaces());
    EXPECT_FALSE(Primvar("st").NameContainsNamespaces());
    EXPECT_EQ(Primvar("st").GetTypeName(), SdfValueTypeNames->Float2Array);
}

TEST_F(Primvars, InterpolationAndElementSizeFallBackToConstantAndOne)
{
    EXPECT_EQ(Primvar("st").GetInterpolation(), UsdGeomTokens->faceVarying);
    EXPECT_TRUE(Primvar("st").HasAuthoredInterpolation());
    EXPECT_EQ(Primvar("colour").GetInterpolation(), UsdGeomTokens->constant);
    EXPECT_FALSE(Primvar("colour").HasAuthoredInterpolation());
    EXPECT_EQ(Primvar("skel:jointIndices").GetElementSize(), 2);
    EXPECT_TRUE(Primvar("skel:jointIndices").HasAuthoredElementSize());
    EXPECT_EQ(Primvar("st").GetElementSize(), 1);
    EXPECT_FALSE(Primvar("st").HasAuthoredElementSize());
}

TEST_F(Primvars, IndexedPrimvarFlattensThroughItsIndices)
{
    const UsdGeomPrimvar st = Primvar("st");
    EXPECT_TRUE(st.IsIndexed());
    VtIntArray indices;
    EXPECT_TRUE(st.GetIndices(&indices));
    EXPECT_EQ(indices.size(), 6u);

    VtVec2fArray authored;
    EXPECT_TRUE(st.Get(&authored));
    EXPECT_EQ(authored.size(), 3u);

    VtVec2fArray flattened;
    EXPECT_TRUE(st.ComputeFlattened(&flattened));
    EXPECT_THAT(std::vector<GfVec2f>(flattened.begin(), flattened.end()),
                ElementsAre(GfVec2f(0, 0), GfVec2f(1, 0), GfVec2f(1, 1), GfVec2f(1, 1), GfVec2f(1, 0), GfVec2f(0, 0)));

    VtValue value;
    EXPECT_TRUE(st.ComputeFlattened(&value));
    ASSERT_TRUE(value.IsHolding<VtVec2fArray>());
    EXPECT_EQ(value.UncheckedGet<VtVec2fArray>(), flattened);
}

TEST_F(Primvars, UnindexedPrimvarFlattensToItsValue)
{
    const UsdGeomPrimvar colour = Primvar("colour");
    EXPECT_FALSE(colour.IsIndexed());
    EXPECT_FALSE(colour.GetIndicesAttr());
    VtVec3fArray flattened;
    EXPECT_TRUE(colour.ComputeFlattened(&flattened));
    EXPECT_THAT(std::vector<GfVec3f>(flattened.begin(), flattened.end()), ElementsAre(GfVec3f(1, 0, 0)));
    VtValue value;
    EXPECT_TRUE(colour.ComputeFlattened(&value));
    EXPECT_TRUE(value.IsHolding<VtVec3fArray>());

    // A scalar ignores its indices.
    EXPECT_TRUE(Primvar("single").ComputeFlattened(&value));
    ASSERT_TRUE(value.IsHolding<float>());
    EXPECT_EQ(value.UncheckedGet<float>(), 0.5f);
}

TEST_F(Primvars, IndicesOutsideTheValuesFailWithAWarningNamingThem)
{
    const UsdGeomPrimvar bad = Primvar("bad");
    TfDiagnosticCapture capture;
    VtFloatArray flattened;
    EXPECT_FALSE(bad.ComputeFlattened(&flattened));
    // Indices [1, 2, -1, 0, 5, 7, 9, 1, 3] over two values: positions 1, 2,
    // 4, 5, 6 and 8 are out of range; the in-range ones are still filled.
    EXPECT_THAT(std::vector<float>(flattened.begin(), flattened.end()), ElementsAre(20, 0, 0, 10, 0, 0, 0, 20, 0));
    ASSERT_EQ(capture.Count(TF_DIAGNOSTIC_WARNING_TYPE), 1u);
    const std::string message = capture.GetDiagnostics()[0].GetCommentary();
    EXPECT_NE(message.find("6 indices"), std::string::npos) << message;
    EXPECT_NE(message.find("[1, 2, 4, 5, 6, ...]"), std::string::npos) << message;
    EXPECT_NE(message.find("/M.primvars:bad"), std::string::npos) << message;

    VtValue value;
    EXPECT_FALSE(bad.ComputeFlattened(&value));
}

TEST_F(Primvars, TimeSamplesMergeValuesAndIndices)
{
    const UsdGeomPrimvar animated = Primvar("animated");
    std::vector<double> times;
    EXPECT_TRUE(animated.GetTimeSamples(&times));
    EXPECT_THAT(times, ElementsAre(0.0, 5.0, 10.0));
    EXPECT_TRUE(animated.ValueMightBeTimeVarying());

    VtVec2fArray flattened;
    EXPECT_TRUE(animated.ComputeFlattened(&flattened, UsdTimeCode(10.0)));
    EXPECT_THAT(std::vector<GfVec2f>(flattened.begin(), flattened.end()), ElementsAre(GfVec2f(1, 1), GfVec2f(1, 1)));
    // No default value: nothing to flatten at the default time.
    EXPECT_FALSE(animated.ComputeFlattened(&flattened));

    EXPECT_TRUE(Primvar("st").GetTimeSamples(&times));
    EXPECT_TRUE(times.empty());
    EXPECT_FALSE(Primvar("st").ValueMightBeTimeVarying());
}

TEST_F(Primvars, DisplayColorAndOpacityPrimvarsOfAGprim)
{
    const UsdGeomMesh plain = UsdGeomMesh::Get(stage, SdfPath("/Plain"));
    const UsdGeomPrimvar colour = plain.GetDisplayColorPrimvar();
    EXPECT_TRUE(colour);
    EXPECT_EQ(colour.GetName(), UsdGeomTokens->primvarsDisplayColor);
    EXPECT_EQ(colour.GetInterpolation(), UsdGeomTokens->constant);
    VtVec3fArray colours;
    EXPECT_FALSE(colour.Get(&colours));
    EXPECT_EQ(plain.GetDisplayOpacityPrimvar().GetPrimvarName(), TfToken("displayOpacity"));
}
