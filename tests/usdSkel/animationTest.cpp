// Joint-local transforms of a SkelAnimation read from a stage: several
// joints, time samples, arrays that disagree in size, missing components.

#include "skelTestUtils.h"

#include "usdcore/tf/diagnostic.h"
#include "usdcore/usdSkel/animation.h"
#include "usdcore/usdSkel/tokens.h"

#include <gmock/gmock.h>

#include <cmath>
#include <vector>

using namespace skeltest;
using ::testing::ElementsAre;

namespace {

const char* const kScene = R"(
def SkelRoot "Root"
{
    def SkelAnimation "Walk"
    {
        uniform token[] joints = ["Hips", "Hips/Spine", "Hips/Spine/Head"]
        float3[] translations = [(0, 1, 0), (0, 2, 0), (0, 0, 3)]
        quatf[] rotations.timeSamples = {
            0: [(1, 0, 0, 0), (1, 0, 0, 0), (1, 0, 0, 0)],
            10: [(0, 0, 0, 1), (1, 0, 0, 0), (0, 1, 0, 0)],
        }
        half3[] scales = [(1, 1, 1), (2, 2, 2), (1, 1, 1)]
        uniform token[] blendShapes = ["smile"]
        float[] blendShapeWeights = [0.5]
    }

    def SkelAnimation "Mismatched"
    {
        uniform token[] joints = ["A", "B"]
        float3[] translations = [(0, 0, 0), (0, 0, 0)]
        quatf[] rotations = [(1, 0, 0, 0)]
        half3[] scales = [(1, 1, 1), (1, 1, 1)]
    }

    def SkelAnimation "NoScales"
    {
        uniform token[] joints = ["A"]
        float3[] translations = [(0, 0, 0)]
        quatf[] rotations = [(1, 0, 0, 0)]
    }

    def SkelAnimation "WrongType"
    {
        uniform token[] joints = ["A"]
        double3[] translations = [(0, 0, 0)]
        quatf[] rotations = [(1, 0, 0, 0)]
        half3[] scales = [(1, 1, 1)]
    }

    def SkelAnimation "Empty"
    {
        uniform token[] joints = []
        float3[] translations = []
        quatf[] rotations = []
        half3[] scales = []
    }
}
)";

class SkelAnimationTransforms : public ::testing::Test
{
protected:
    void SetUp() override
    {
        stage = StageFromText(kScene);
        ASSERT_TRUE(stage);
    }

    UsdSkelAnimation Animation(const char* name) const
    {
        return UsdSkelAnimation::Get(stage, SdfPath("/Root").AppendChild(TfToken(name)));
    }

    UsdStageRefPtr stage;
};

GfVec3d Transform(const GfVec3d& point, const GfMatrix4d& m)
{
    GfVec3d result;
    for (size_t c = 0; c < 3; ++c) {
        result[c] = point[0] * m[0][c] + point[1] * m[1][c] + point[2] * m[2][c] + m[3][c];
    }
    return result;
}

void ExpectNear(const GfVec3d& actual, const GfVec3d& expected)
{
    for (size_t c = 0; c < 3; ++c) EXPECT_NEAR(actual[c], expected[c], 1e-6) << "component " << c;
}

} // namespace

TEST_F(SkelAnimationTransforms, OneMatrixPerJointAtTheFirstSample)
{
    VtMatrix4dArray xforms;
    ASSERT_TRUE(Animation("Walk").GetTransforms(&xforms, UsdTimeCode(0.0)));
    ASSERT_EQ(xforms.size(), 3u);
    EXPECT_EQ(xforms[0], GfMatrix4d(1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 1, 0, 1));
    EXPECT_EQ(xforms[1], GfMatrix4d(2, 0, 0, 0, 0, 2, 0, 0, 0, 0, 2, 0, 0, 2, 0, 1));
    EXPECT_EQ(xforms[2], GfMatrix4d(1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 3, 1));
}

TEST_F(SkelAnimationTransforms, EachJointTakesItsOwnRotation)
{
    VtMatrix4dArray xforms;
    ASSERT_TRUE(Animation("Walk").GetTransforms(&xforms, UsdTimeCode(10.0)));
    ASSERT_EQ(xforms.size(), 3u);
    // Hips: half turn about z, then up by 1.
    EXPECT_EQ(xforms[0], GfMatrix4d(-1, 0, 0, 0, 0, -1, 0, 0, 0, 0, 1, 0, 0, 1, 0, 1));
    // Spine: unturned, doubled, up by 2.
    EXPECT_EQ(xforms[1], GfMatrix4d(2, 0, 0, 0, 0, 2, 0, 0, 0, 0, 2, 0, 0, 2, 0, 1));
    // Head: half turn about x, then forward by 3.
    EXPECT_EQ(xforms[2], GfMatrix4d(1, 0, 0, 0, 0, -1, 0, 0, 0, 0, -1, 0, 0, 0, 3, 1));
}

TEST_F(SkelAnimationTransforms, RotationsBlendBetweenSamples)
{
    // Halfway between no turn and a half turn about z is a quarter turn:
    // the hips take x onto y before moving up by 1.
    VtMatrix4dArray xforms;
    ASSERT_TRUE(Animation("Walk").GetTransforms(&xforms, UsdTimeCode(5.0)));
    ExpectNear(Transform(GfVec3d(1, 0, 0), xforms[0]), GfVec3d(0, 2, 0));
    ExpectNear(Transform(GfVec3d(0, 0, 1), xforms[2]), GfVec3d(0, -1, 3));
}

TEST_F(SkelAnimationTransforms, DefaultTimeReadsTheDefaultsOnly)
{
    // The rotations have samples only, so at the default time there is no
    // rotation to compose and the call fails.
    VtMatrix4dArray xforms(1, GfMatrix4d(5.0));
    EXPECT_FALSE(Animation("Walk").GetTransforms(&xforms));
    EXPECT_THAT(xforms, ElementsAre(GfMatrix4d(5.0)));
}

TEST_F(SkelAnimationTransforms, SizeMismatchFailsAndKeepsThePreviousMatrices)
{
    VtMatrix4dArray xforms;
    ASSERT_TRUE(Animation("Walk").GetTransforms(&xforms, UsdTimeCode(0.0)));
    const VtMatrix4dArray previous = xforms;
    TfDiagnosticCapture capture;
    EXPECT_FALSE(Animation("Mismatched").GetTransforms(&xforms, UsdTimeCode(0.0)));
    EXPECT_EQ(xforms, previous);
    EXPECT_EQ(capture.Count(TF_DIAGNOSTIC_WARNING_TYPE), 1u);
}

TEST_F(SkelAnimationTransforms, MissingOrMistypedComponentFails)
{
    TfDiagnosticCapture capture;
    VtMatrix4dArray xforms;
    EXPECT_FALSE(Animation("NoScales").GetTransforms(&xforms, UsdTimeCode(0.0)));
    EXPECT_FALSE(Animation("WrongType").GetTransforms(&xforms, UsdTimeCode(0.0)));
    EXPECT_TRUE(xforms.empty());
}

TEST_F(SkelAnimationTransforms, NoJointsGiveNoMatrices)
{
    VtMatrix4dArray xforms(2, GfMatrix4d(1.0));
    EXPECT_TRUE(Animation("Empty").GetTransforms(&xforms, UsdTimeCode(0.0)));
    EXPECT_TRUE(xforms.empty());
}

TEST_F(SkelAnimationTransforms, ComponentAttributesAndTheirSamples)
{
    const UsdSkelAnimation walk = Animation("Walk");
    VtTokenArray joints;
    ASSERT_TRUE(walk.GetJointsAttr().Get(&joints));
    EXPECT_THAT(joints, ElementsAre(TfToken("Hips"), TfToken("Hips/Spine"), TfToken("Hips/Spine/Head")));
    std::vector<double> times;
    EXPECT_TRUE(walk.GetRotationsAttr().GetTimeSamples(&times));
    EXPECT_THAT(times, ElementsAre(0.0, 10.0));
    EXPECT_TRUE(walk.GetTranslationsAttr().GetTimeSamples(&times));
    EXPECT_TRUE(times.empty());
    EXPECT_EQ(walk.GetScalesAttr().GetName(), UsdSkelTokens->scales);

    VtTokenArray shapes;
    EXPECT_TRUE(walk.GetBlendShapesAttr().Get(&shapes));
    EXPECT_THAT(shapes, ElementsAre(TfToken("smile")));
    VtFloatArray weights;
    EXPECT_TRUE(walk.GetBlendShapeWeightsAttr().Get(&weights));
    EXPECT_THAT(weights, ElementsAre(0.5f));
}

TEST_F(SkelAnimationTransforms, NullOutputIsACodingError)
{
    TfDiagnosticCapture capture;
    EXPECT_FALSE(Animation("Walk").GetTransforms(nullptr, UsdTimeCode(0.0)));
    EXPECT_EQ(capture.Count(TF_DIAGNOSTIC_CODING_ERROR_TYPE), 1u);
}
