#include "usdcore/sdf/assetPath.h"

#include <ostream>

PXR_NAMESPACE_OPEN_SCOPE

std::ostream& operator<<(std::ostream& out, const SdfAssetPath& assetPath)
{
    return out << '@' << assetPath.GetAssetPath() << '@';
}

PXR_NAMESPACE_CLOSE_SCOPE
