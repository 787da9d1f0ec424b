#include "usdreader/CTavrinUSDReaderHandler.h"

PXR_NAMESPACE_USING_DIRECTIVE

namespace Tavrin {

// Joints are made once skeleton support comes.
void CTavrinUSDReaderHandler::ReadSkeleton(const UsdSkelSkeleton& skeleton)
{
}

} // namespace Tavrin
