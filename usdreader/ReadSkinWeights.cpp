#include "usdreader/CTavrinUSDReaderHandler.h"

PXR_NAMESPACE_USING_DIRECTIVE

namespace Tavrin {

// Skin weights come with skeleton support; until then a skinned mesh imports
// without a rig table and keeps its own transform.
CTavrinRigGeometryTable* CTavrinUSDReaderHandler::ReadSkinWeights(const UsdGeomMesh&, CTavrinGeometry*,
                                                                  CTavrin3DObject*, std::size_t)
{
    return nullptr;
}

} // namespace Tavrin
