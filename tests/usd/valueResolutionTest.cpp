// Reading values at the default time and between, before and after samples.

#include "usdTestUtils.h"

#include "usdcore/gf/half.h"
#include "usdcore/gf/matrix4d.h"
#include "usdcore/gf/quatf.h"
#include "usdcore/gf/vec3f.h"
#include "usdcore/sdf/schema.h"
#include "usdcore/vt/types.h"

#include <gmock/gmock.h>

using namespace usdtest;
using ::testing::ElementsAre;

namespace {

class ValueResolutionTest : public ::testing::Test
{
protected:
    void SetUp() override { ASSERT_TRUE(stage); }

    template <class T>
    T At(const std::string& name, UsdTimeCode time)
    {
        T value{};
        EXPECT_TRUE(Attribute(stage, "/V", name).Get(&value, time)) << name << " at " << time;
        return value;
    }

    UsdStageRefPtr stage = OpenStage("values.usda");
};

} // namespace

TEST_F(ValueResolutionTest, FloatingScalarsBlendLinearly)
{
    EXPECT_FLOAT_EQ(At<float>("f", 2.5), 2.5f);
    EXPECT_DOUBLE_EQ(At<double>("d", 2.0), 3.0);       // (1, 1) to (3, 5)
    EXPECT_FLOAT_EQ(float(At<GfHalf>("h", 1.0)), 0.5f);
}

TEST_F(ValueResolutionTest, EndSamplesHoldOutsideTheirRange)
{
    EXPECT_FLOAT_EQ(At<float>("f", -5.0), 0.0f);
    EXPECT_FLOAT_EQ(At<float>("f", 20.0), 10.0f);
    EXPECT_FLOAT_EQ(At<float>("f", 10.0), 10.0f);
}

TEST_F(ValueResolutionTest, VectorsAndMatricesBlendPerComponent)
{
    EXPECT_EQ(At<GfVec3f>("v", 1.0), GfVec3f(1, 2, 3));
    const GfMatrix4d m = At<GfMatrix4d>("m", 1.0);
    EXPECT_EQ(m, GfMatrix4d(2, 0, 0, 0, 0, 2, 0, 0, 0, 0, 2, 0, 1, 2, 3, 1));
}

TEST_F(ValueResolutionTest, QuaternionsBlendOnTheSphere)
{
    // Halfway from the identity to a half turn about z is a quarter turn:
    // real part cos 45 degrees, z part sin 45 degrees (a straight blend would
    // give 0.5 and 0.5).
    const GfQuatf q = At<GfQuatf>("q", 0.5);
    EXPECT_NEAR(q.GetReal(), std::sqrt(0.5), 1e-6);
    EXPECT_NEAR(q.GetImaginary()[0], 0.0, 1e-6);
    EXPECT_NEAR(q.GetImaginary()[2], std::sqrt(0.5), 1e-6);
}

TEST_F(ValueResolutionTest, OtherTypesHoldTheEarlierSample)
{
    EXPECT_EQ(At<int>("i", 5.0), 1);
    EXPECT_EQ(At<int>("i", 10.0), 5);
    EXPECT_EQ(At<TfToken>("t", 0.5), TfToken("a"));
}

TEST_F(ValueResolutionTest, ArraysBlendPerElementWhenSizesMatch)
{
    EXPECT_THAT(At<VtVec3fArray>("arr", 1.0), ElementsAre(GfVec3f(1, 1, 1), GfVec3f(2, 2, 2)));
    EXPECT_THAT(At<VtVec3fArray>("sizeChanges", 1.0), ElementsAre(GfVec3f(0, 0, 0)));
}

TEST_F(ValueResolutionTest, DefaultTimeReadsTheDefaultNumericTimesTheSamples)
{
    EXPECT_EQ(At<double>("both", UsdTimeCode::Default()), 7.0);
    EXPECT_DOUBLE_EQ(At<double>("both", 0.5), 1.5);
    // Only samples: nothing at the default time.
    double value = 0;
    EXPECT_FALSE(Attribute(stage, "/V", "d").Get(&value));
}

TEST_F(ValueResolutionTest, BlockedSamplesInterruptTheCurve)
{
    const UsdAttribute gap = Attribute(stage, "/V", "gap");
    double value = 0;
    EXPECT_TRUE(gap.Get(&value, 0.5)); // the next sample is blocked: hold 1
    EXPECT_EQ(value, 1.0);
    EXPECT_FALSE(gap.Get(&value, 1.0));
    EXPECT_FALSE(gap.Get(&value, 1.5));
    EXPECT_TRUE(gap.Get(&value, 2.0));
    EXPECT_EQ(value, 3.0);
}

TEST_F(ValueResolutionTest, AttributeDescription)
{
    const UsdAttribute v = Attribute(stage, "/V", "v");
    EXPECT_EQ(v.GetTypeName(), SdfValueTypeNames->Float3);
    EXPECT_EQ(v.GetVariability(), SdfVariabilityVarying);
    EXPECT_EQ(Attribute(stage, "/V", "arr").GetTypeName(), SdfValueTypeNames->Float3Array);
    EXPECT_EQ(Attribute(stage, "/V", "kind").GetVariability(), SdfVariabilityUniform);
    EXPECT_EQ(v.GetPath(), SdfPath("/V.v"));
    EXPECT_EQ(v.GetNumTimeSamples(), 2u);
    EXPECT_TRUE(v.ValueMightBeTimeVarying());

    double lower = 0, upper = 0;
    bool hasSamples = false;
    EXPECT_TRUE(v.GetBracketingTimeSamples(1.0, &lower, &upper, &hasSamples));
    EXPECT_TRUE(hasSamples);
    EXPECT_EQ(lower, 0.0);
    EXPECT_EQ(upper, 4.0);
}

TEST_F(ValueResolutionTest, DeclaredWithoutValue)
{
    const UsdAttribute unvalued = Attribute(stage, "/V", "unvalued");
    EXPECT_TRUE(unvalued.IsValid());
    EXPECT_FALSE(unvalued.HasAuthoredValue());
    EXPECT_FALSE(unvalued.HasValue());
    VtValue value;
    EXPECT_FALSE(unvalued.Get(&value));

    const UsdAttribute missing = Attribute(stage, "/V", "neverDeclared");
    EXPECT_FALSE(missing);
    EXPECT_FALSE(missing.Get(&value));
}

TEST_F(ValueResolutionTest, WrongTypeIsACodingError)
{
    TfDiagnosticCapture capture;
    int wrong = 0;
    EXPECT_FALSE(Attribute(stage, "/V", "both").Get(&wrong));
    EXPECT_EQ(capture.Count(TF_DIAGNOSTIC_CODING_ERROR_TYPE), 1u);
}
