#include "host/CTavrinSceneNode.h"
#include "usdreader/CTavrinUSDReaderHandler.h"

PXR_NAMESPACE_USING_DIRECTIVE

namespace Tavrin {

// Name, parent, matrix, animation, in this order: the animation reads the
// node's parent to know whether its key frames need the root correction.
void CTavrinUSDReaderHandler::ReadTransform(const UsdGeomXformable& xformable, CTavrinSceneNode* node,
                                            CTavrinSceneNode* parentNode, const std::string& name)
{
    node->SetName(CTavrinString(name));
    node->SetParent(parentNode);

    // Time 0 rather than the default time: a transform authored only as time
    // samples still gets its first pose. Whether the prim resets the
    // transform stack makes no difference to the host, which has no stack.
    GfMatrix4d localTransformation(1.0);
    bool resetsXformStack = false;
    if (xformable.GetLocalTransformation(&localTransformation, &resetsXformStack, UsdTimeCode(0.0))) {
        const CTavrinMatrix localMatrix = ConvertMatrix(localTransformation);
        node->SetLocalMatrix(parentNode ? localMatrix : rootMatrix * localMatrix);
    }

    if (xformable.TransformMightBeTimeVarying())
        ReadTransformAnimation(xformable, node, parentNode);
}

} // namespace Tavrin
