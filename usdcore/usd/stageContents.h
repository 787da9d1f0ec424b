#pragma once

// What a stage composed, shared by the stage's own source files (composition
// and flattening); nothing outside the stage includes this.

#include "usdcore/pxr.h"
#include "usdcore/sdf/path.h"
#include "usdcore/usd/layerStack.h"
#include "usdcore/usd/namespaceMap.h"
#include "usdcore/usd/primData.h"
#include "usdcore/usd/primIndex.h"
#include "usdcore/usd/stage.h"

#include <deque>
#include <unordered_map>
#include <vector>

PXR_NAMESPACE_OPEN_SCOPE

struct UsdStage::_Contents {
    Usd_LayerCache layers;
    // Namespace maps and opinions are referred to by pointer and index from
    // every prim; both containers only grow while the stage composes.
    std::deque<Usd_NamespaceMap> maps;
    std::vector<Usd_Opinion> opinions;
    /// In depth-first order, the pseudo-root first.
    std::deque<Usd_PrimData> prims;
    std::unordered_map<SdfPath, Usd_PrimData*, SdfPath::Hash> primsByPath;
    Usd_PrimData* pseudoRoot = nullptr;
};

PXR_NAMESPACE_CLOSE_SCOPE
