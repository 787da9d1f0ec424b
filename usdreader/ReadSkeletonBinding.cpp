#include "usdreader/CTavrinUSDReaderHandler.h"

PXR_NAMESPACE_USING_DIRECTIVE

namespace Tavrin {

// Skeletons bound to a mesh are converted once skeleton support comes; until then a skinned mesh imports unskinned.
void CTavrinUSDReaderHandler::ReadSkeletonBinding(const UsdPrim& meshPrim)
{
}

} // namespace Tavrin
