#include "usdreader/CTavrinUSDReaderHandler.h"

PXR_NAMESPACE_USING_DIRECTIVE

namespace Tavrin {

// Skeletal key frames come with skeleton support.
void CTavrinUSDReaderHandler::ReadSkeletalAnimation(const UsdSkelAnimation& animation)
{
}

} // namespace Tavrin
