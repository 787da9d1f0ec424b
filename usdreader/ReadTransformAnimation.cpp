#include "usdreader/CTavrinUSDReaderHandler.h"

PXR_NAMESPACE_USING_DIRECTIVE

namespace Tavrin {

// Transform key frames come with animation support; until then a node keeps its pose at time 0.
void CTavrinUSDReaderHandler::ReadTransformAnimation(const UsdGeomXformable& xformable, CTavrinSceneNode* node,
                                                     CTavrinSceneNode* parentNode)
{
}

} // namespace Tavrin
