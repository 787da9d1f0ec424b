#include "host/CTavrinSceneNode.h"
#include "usdreader/CTavrinUSDReaderHandler.h"
#include "usdreader/JointKeys.h"

PXR_NAMESPACE_USING_DIRECTIVE

namespace Tavrin {

// One host joint per USD joint, keyed by name. A name met before ends the
// conversion: at the first joint that is the same skeleton bound to another
// mesh, and later joints keep whatever joints the earlier skeleton left at
// their indices. Joints are parented only when every joint was made.
void CTavrinUSDReaderHandler::ReadSkeleton(const UsdSkelSkeleton& skeleton)
{
    VtTokenArray joints;
    VtMatrix4dArray bindTransforms;
    VtMatrix4dArray restTransforms;
    if (!skeleton.GetJointsAttr().Get(&joints) || !skeleton.GetBindTransformsAttr().Get(&bindTransforms) ||
        !skeleton.GetRestTransformsAttr().Get(&restTransforms))
        return;
    // A joint without both matrices has no pose to give: such a skeleton is
    // taken as unreadable rather than half converted.
    if (bindTransforms.size() < joints.size() || restTransforms.size() < joints.size())
        return;

    const UsdSkelTopology topology(joints);
    for (std::size_t i = 0; i < joints.size(); ++i) {
        CTavrinString name = JointName(joints[i]);
        if (name.IsEmpty())
            name = CTavrinString("Joint_") + CTavrinString(unnamedJointCount++);
        const SdfPath key = JointKey(name);
        if (nodesByPath.count(key) != 0)
            return;

        CTavrinSkeletonJoint* joint = CTavrinSkeletonJoint::Create(document);
        nodesByPath[key] = joint;
        joint->SetName(name);
        joint->SetInvBindMatrix(ConvertMatrix(bindTransforms[i]).Inverse());
        joint->SetLocalMatrix(ConvertMatrix(restTransforms[i]));
        jointsByIndex[static_cast<int>(i)] = joint;
    }

    // Absent when the skeleton's parent made no node, and then left as an
    // explicit null: its root joints become roots of the scene.
    CTavrinSceneNode* skeletonParent = nodesByPath[skeleton.GetPath().GetParentPath()];
    for (std::size_t i = 0; i < topology.size(); ++i) {
        const int parent = topology.GetParent(i);
        CTavrinSkeletonJoint* joint = jointsByIndex[static_cast<int>(i)];
        joint->SetParent(parent < 0 ? skeletonParent : jointsByIndex[parent]);
    }
}

} // namespace Tavrin
