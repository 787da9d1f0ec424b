// The skeleton schemas on a skinned scene: which prims they accept, the
// skeleton's arrays, and the bindings a mesh names.

#include "skelTestUtils.h"

#include "usdcore/usdGeom/boundable.h"
#include "usdcore/usdSkel/animation.h"
#include "usdcore/usdSkel/bindingAPI.h"
#include "usdcore/usdSkel/blendShape.h"
#include "usdcore/usdSkel/root.h"
#include "usdcore/usdSkel/skeleton.h"
#include "usdcore/usdSkel/tokens.h"
#include "usdcore/usdSkel/topology.h"

#include <gmock/gmock.h>

using namespace skeltest;
using ::testing::ElementsAre;

namespace {

const char* const kScene = R"(
def SkelRoot "Character" (
    prepend apiSchemas = ["SkelBindingAPI"]
)
{
    rel skel:skeleton = </Character/Rig>

    def Skeleton "Rig"
    {
        uniform token[] joints = ["Hips", "Hips/Spine", "Hips/Spine/Head"]
        uniform token[] jointNames = ["hips", "spine", "head"]
        uniform matrix4d[] bindTransforms = [
            ((1, 0, 0, 0), (0, 1, 0, 0), (0, 0, 1, 0), (0, 1, 0, 1)),
            ((1, 0, 0, 0), (0, 1, 0, 0), (0, 0, 1, 0), (0, 2, 0, 1)),
            ((1, 0, 0, 0), (0, 1, 0, 0), (0, 0, 1, 0), (0, 3, 0, 1))]
        uniform matrix4d[] restTransforms = [
            ((1, 0, 0, 0), (0, 1, 0, 0), (0, 0, 1, 0), (0, 1, 0, 1)),
            ((1, 0, 0, 0), (0, 1, 0, 0), (0, 0, 1, 0), (0, 1, 0, 1)),
            ((1, 0, 0, 0), (0, 1, 0, 0), (0, 0, 1, 0), (0, 1, 0, 1))]
    }

    def SkelAnimation "Anim"
    {
    }

    def Xform "Group"
    {
        def Mesh "Body" (
            prepend apiSchemas = ["SkelBindingAPI"]
        )
        {
            rel skel:skeleton = [</Character/Rig>, </Character/Other>]
            rel skel:animationSource = </Character/Anim>
            uniform token[] skel:joints = ["Hips/Spine", "Hips"]
            int[] primvars:skel:jointIndices = [0, 1, 1, 0] (
                elementSize = 2
                interpolation = "vertex"
            )
            float[] primvars:skel:jointWeights = [0.75, 0.25, 1, 0] (
                elementSize = 2
                interpolation = "vertex"
            )
            matrix4d primvars:skel:geomBindTransform = ((2, 0, 0, 0), (0, 2, 0, 0), (0, 0, 2, 0), (0, 0, 0, 1))
            uniform token[] skel:blendShapes = ["smile"]
            rel skel:blendShapeTargets = </Character/Group/Body/Smile>

            def BlendShape "Smile"
            {
                uniform vector3f[] offsets = [(0, 1, 0)]
                uniform int[] pointIndices = [2]
            }
        }

        def Mesh "Unbound"
        {
        }
    }

    def Skeleton "Other"
    {
    }
}
def Xform "Outside"
{
    rel skel:skeleton = </Character/Group>
}
)";

class SkelSchemas : public ::testing::Test
{
protected:
    void SetUp() override
    {
        stage = StageFromText(kScene);
        ASSERT_TRUE(stage);
    }

    UsdPrim Prim(const char* path) const { return stage->GetPrimAtPath(SdfPath(path)); }

    UsdStageRefPtr stage;
};

} // namespace

TEST_F(SkelSchemas, EachSchemaAcceptsItsOwnType)
{
    EXPECT_TRUE(UsdSkelRoot::Get(stage, SdfPath("/Character")));
    EXPECT_TRUE(UsdSkelSkeleton::Get(stage, SdfPath("/Character/Rig")));
    EXPECT_TRUE(UsdSkelAnimation::Get(stage, SdfPath("/Character/Anim")));
    EXPECT_TRUE(UsdSkelBlendShape::Get(stage, SdfPath("/Character/Group/Body/Smile")));

    EXPECT_FALSE(UsdSkelRoot::Get(stage, SdfPath("/Character/Group")));
    EXPECT_FALSE(UsdSkelRoot::Get(stage, SdfPath("/Character/Rig")));
    EXPECT_FALSE(UsdSkelSkeleton::Get(stage, SdfPath("/Character")));
    EXPECT_FALSE(UsdSkelSkeleton::Get(stage, SdfPath("/Character/Anim")));
    EXPECT_FALSE(UsdSkelAnimation::Get(stage, SdfPath("/Character/Rig")));
    EXPECT_FALSE(UsdSkelAnimation::Get(stage, SdfPath("/Missing")));
}

TEST_F(SkelSchemas, RootsAndSkeletonsAreBoundable)
{
    EXPECT_TRUE(UsdGeomBoundable::Get(stage, SdfPath("/Character")));
    EXPECT_TRUE(UsdGeomBoundable::Get(stage, SdfPath("/Character/Rig")));
    EXPECT_FALSE(UsdGeomBoundable::Get(stage, SdfPath("/Character/Anim")));
    const UsdSkelRoot root = UsdSkelRoot::Get(stage, SdfPath("/Character"));
    const UsdGeomBoundable& boundable = root;
    EXPECT_TRUE(boundable);
}

TEST_F(SkelSchemas, FindTheEnclosingRoot)
{
    EXPECT_EQ(UsdSkelRoot::Find(Prim("/Character/Group/Body")).GetPath(), SdfPath("/Character"));
    EXPECT_EQ(UsdSkelRoot::Find(Prim("/Character")).GetPath(), SdfPath("/Character"));
    EXPECT_FALSE(UsdSkelRoot::Find(Prim("/Outside")));
    EXPECT_FALSE(UsdSkelRoot::Find(UsdPrim()));
}

TEST_F(SkelSchemas, SkeletonArraysAreIndexedByJoint)
{
    const UsdSkelSkeleton skeleton = UsdSkelSkeleton::Get(stage, SdfPath("/Character/Rig"));
    VtTokenArray joints;
    ASSERT_TRUE(skeleton.GetJointsAttr().Get(&joints));
    EXPECT_THAT(joints, ElementsAre(TfToken("Hips"), TfToken("Hips/Spine"), TfToken("Hips/Spine/Head")));
    VtTokenArray names;
    ASSERT_TRUE(skeleton.GetJointNamesAttr().Get(&names));
    EXPECT_THAT(names, ElementsAre(TfToken("hips"), TfToken("spine"), TfToken("head")));

    VtMatrix4dArray bind;
    ASSERT_TRUE(skeleton.GetBindTransformsAttr().Get(&bind));
    ASSERT_EQ(bind.size(), 3u);
    EXPECT_EQ(bind[2].ExtractTranslation(), GfVec3d(0, 3, 0));
    VtMatrix4dArray rest;
    ASSERT_TRUE(skeleton.GetRestTransformsAttr().Get(&rest));
    ASSERT_EQ(rest.size(), 3u);
    EXPECT_EQ(rest[1].ExtractTranslation(), GfVec3d(0, 1, 0));

    EXPECT_THAT(UsdSkelTopology(joints).GetParentIndices(), ElementsAre(-1, 0, 1));
}

TEST_F(SkelSchemas, UnauthoredSkeletonArraysHaveNoValue)
{
    // The schema defines them, so they exist, without a value.
    const UsdSkelSkeleton other = UsdSkelSkeleton::Get(stage, SdfPath("/Character/Other"));
    EXPECT_TRUE(other.GetJointsAttr());
    EXPECT_TRUE(other.GetRestTransformsAttr());
    EXPECT_FALSE(UsdSkelAnimation::Get(stage, SdfPath("/Character/Anim")).GetJointsAttr().HasAuthoredValue());
    EXPECT_TRUE(UsdSkelAnimation::Get(stage, SdfPath("/Character/Anim")).GetScalesAttr());
    VtTokenArray joints;
    EXPECT_FALSE(other.GetJointsAttr().Get(&joints));
    VtMatrix4dArray bind;
    EXPECT_FALSE(other.GetBindTransformsAttr().Get(&bind));
}

TEST_F(SkelSchemas, BindingRelationshipsOfAMesh)
{
    const UsdSkelBindingAPI binding(Prim("/Character/Group/Body"));
    SdfPathVector targets;
    ASSERT_TRUE(binding.GetSkeletonRel().GetTargets(&targets));
    EXPECT_THAT(targets, ElementsAre(SdfPath("/Character/Rig"), SdfPath("/Character/Other")));
    EXPECT_EQ(binding.GetSkeletonRel().GetName(), UsdSkelTokens->skelSkeleton);
    ASSERT_TRUE(binding.GetAnimationSourceRel().GetTargets(&targets));
    EXPECT_THAT(targets, ElementsAre(SdfPath("/Character/Anim")));
    ASSERT_TRUE(binding.GetBlendShapeTargetsRel().GetTargets(&targets));
    EXPECT_THAT(targets, ElementsAre(SdfPath("/Character/Group/Body/Smile")));

    EXPECT_FALSE(UsdSkelBindingAPI(Prim("/Character/Group/Unbound")).GetSkeletonRel());
    EXPECT_FALSE(UsdSkelBindingAPI(Prim("/Character/Group/Unbound")).GetAnimationSourceRel());
}

TEST_F(SkelSchemas, BoundSkeletonIsTheFirstTarget)
{
    UsdSkelSkeleton skeleton;
    EXPECT_TRUE(UsdSkelBindingAPI(Prim("/Character/Group/Body")).GetSkeleton(&skeleton));
    EXPECT_EQ(skeleton.GetPath(), SdfPath("/Character/Rig"));
    UsdPrim animation;
    EXPECT_TRUE(UsdSkelBindingAPI(Prim("/Character/Group/Body")).GetAnimationSource(&animation));
    EXPECT_EQ(animation.GetPath(), SdfPath("/Character/Anim"));
}

TEST_F(SkelSchemas, TargetThatIsNotASkeletonGivesAnInvalidView)
{
    UsdSkelSkeleton skeleton;
    EXPECT_TRUE(UsdSkelBindingAPI(Prim("/Outside")).GetSkeleton(&skeleton));
    EXPECT_FALSE(skeleton);
    EXPECT_FALSE(UsdSkelBindingAPI(Prim("/Character/Group/Unbound")).GetSkeleton(&skeleton));
    EXPECT_FALSE(skeleton);
}

TEST_F(SkelSchemas, InheritedSkeletonComesFromTheNearestBindingAncestor)
{
    EXPECT_EQ(UsdSkelBindingAPI(Prim("/Character/Group/Unbound")).GetInheritedSkeleton().GetPath(),
              SdfPath("/Character/Rig"));
    EXPECT_FALSE(UsdSkelBindingAPI(Prim("/Character/Group/Unbound")).GetInheritedAnimationSource());
    EXPECT_EQ(UsdSkelBindingAPI(Prim("/Character/Group/Body")).GetInheritedAnimationSource().GetPath(),
              SdfPath("/Character/Anim"));
}

TEST(SkelBindingInheritance, OnlyAppliedBindingsCountAndAnEmptyOneBlocks)
{
    const UsdStageRefPtr stage = StageFromText(R"(
def Xform "Root" (
    prepend apiSchemas = ["SkelBindingAPI"]
)
{
    rel skel:skeleton = </Root/Skel>
    rel skel:animationSource = </Root/Anim>
    def Skeleton "Skel" {}
    def Skeleton "Other" {}
    def SkelAnimation "Anim" {}
    def Xform "Plain"
    {
        rel skel:skeleton = </Root/Other>
        def Mesh "Below" {}
    }
    def Xform "Blocked" (
        prepend apiSchemas = ["SkelBindingAPI"]
    )
    {
        rel skel:skeleton = None
        rel skel:animationSource = </Root/Skel>
        def Mesh "Below" {}
    }
}
)");
    ASSERT_TRUE(stage);
    const auto binding = [&stage](const char* path) { return UsdSkelBindingAPI(stage->GetPrimAtPath(SdfPath(path))); };
    // Without SkelBindingAPI applied, Plain's own binding is passed over.
    EXPECT_EQ(binding("/Root/Plain/Below").GetInheritedSkeleton().GetPath(), SdfPath("/Root/Skel"));
    EXPECT_EQ(binding("/Root/Plain/Below").GetInheritedAnimationSource().GetPath(), SdfPath("/Root/Anim"));
    // An empty binding is a binding to nothing, and a target that is not an
    // animation binds no animation; neither lets the search go further up.
    UsdSkelSkeleton skeleton;
    EXPECT_TRUE(binding("/Root/Blocked").GetSkeleton(&skeleton));
    EXPECT_FALSE(skeleton);
    EXPECT_FALSE(binding("/Root/Blocked/Below").GetInheritedSkeleton());
    UsdPrim animation;
    EXPECT_TRUE(binding("/Root/Blocked").GetAnimationSource(&animation));
    EXPECT_FALSE(animation);
    EXPECT_FALSE(binding("/Root/Blocked/Below").GetInheritedAnimationSource());
}

TEST_F(SkelSchemas, InfluenceAttributesOfAMesh)
{
    const UsdSkelBindingAPI binding(Prim("/Character/Group/Body"));
    VtIntArray indices;
    ASSERT_TRUE(binding.GetJointIndicesAttr().Get(&indices));
    EXPECT_THAT(indices, ElementsAre(0, 1, 1, 0));
    VtFloatArray weights;
    ASSERT_TRUE(binding.GetJointWeightsAttr().Get(&weights));
    EXPECT_THAT(weights, ElementsAre(0.75f, 0.25f, 1.0f, 0.0f));
    GfMatrix4d geomBind;
    ASSERT_TRUE(binding.GetGeomBindTransformAttr().Get(&geomBind));
    EXPECT_EQ(geomBind, GfMatrix4d(2, 0, 0, 0, 0, 2, 0, 0, 0, 0, 2, 0, 0, 0, 0, 1));
    VtTokenArray joints;
    ASSERT_TRUE(binding.GetJointsAttr().Get(&joints));
    EXPECT_THAT(joints, ElementsAre(TfToken("Hips/Spine"), TfToken("Hips")));
    VtTokenArray shapes;
    ASSERT_TRUE(binding.GetBlendShapesAttr().Get(&shapes));
    EXPECT_THAT(shapes, ElementsAre(TfToken("smile")));
    EXPECT_TRUE(Prim("/Character/Group/Body").HasAPI(UsdSkelTokens->SkelBindingAPI));
}

TEST_F(SkelSchemas, InfluencesAsPrimvars)
{
    const UsdSkelBindingAPI binding(Prim("/Character/Group/Body"));
    const UsdGeomPrimvar indices = binding.GetJointIndicesPrimvar();
    ASSERT_TRUE(indices);
    EXPECT_EQ(indices.GetPrimvarName(), TfToken("skel:jointIndices"));
    EXPECT_EQ(indices.GetElementSize(), 2);
    EXPECT_EQ(indices.GetInterpolation(), TfToken("vertex"));
    VtFloatArray weights;
    ASSERT_TRUE(binding.GetJointWeightsPrimvar().ComputeFlattened(&weights));
    EXPECT_THAT(weights, ElementsAre(0.75f, 0.25f, 1.0f, 0.0f));
    EXPECT_FALSE(UsdSkelBindingAPI(Prim("/Character/Group/Unbound")).GetJointIndicesPrimvar());
}

TEST_F(SkelSchemas, BlendShapeOffsets)
{
    const UsdSkelBlendShape smile = UsdSkelBlendShape::Get(stage, SdfPath("/Character/Group/Body/Smile"));
    VtVec3fArray offsets;
    ASSERT_TRUE(smile.GetOffsetsAttr().Get(&offsets));
    EXPECT_THAT(offsets, ElementsAre(GfVec3f(0, 1, 0)));
    VtIntArray points;
    ASSERT_TRUE(smile.GetPointIndicesAttr().Get(&points));
    EXPECT_THAT(points, ElementsAre(2));
    EXPECT_FALSE(smile.GetNormalOffsetsAttr().HasAuthoredValue());
}
