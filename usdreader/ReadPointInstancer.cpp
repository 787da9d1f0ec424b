#include "host/CTavrinSceneNode.h"
#include "usdreader/CTavrinUSDReaderHandler.h"

#include <algorithm>

PXR_NAMESPACE_USING_DIRECTIVE

namespace Tavrin {

namespace {

// Copies made for instances share nothing in the document: past this many
// prims a scattered forest would outgrow any memory, and the rest of the
// instances are left out with a warning.
constexpr std::size_t maxInstancedPrims = 2'000'000;

// Prototype subtrees are read whatever their specifier: a class or an over
// is a common way to keep a prototype from being drawn where it is authored.
constexpr Usd_PrimFlagsPredicate prototypeWalk = UsdTraverseInstanceProxies(UsdPrimIsActive && UsdPrimIsLoaded);

} // namespace

// The instances are read at time 0, as the transforms are: their positions,
// orientations, scales, prototype indices and what hides them.
CTavrinSceneNode* CTavrinUSDReaderHandler::ReadPointInstancer(const UsdGeomPointInstancer& instancer,
                                                              CTavrinSceneNode* parentNode, const std::string& name)
{
    CTavrinTransformNode* node = CTavrinTransformNode::Create(document);
    ReadTransform(instancer, node, parentNode, name);

    const SdfPath& path = instancer.GetPath();
    if (std::find(expandingInstancers.begin(), expandingInstancers.end(), path) != expandingInstancers.end()) {
        TF_WARN("point instancer <%s> is inside its own prototype; its instances there are left out",
                path.GetText());
        return node;
    }
    const UsdTimeCode time(0.0);
    VtMatrix4dArray transforms;
    if (!instancer.ComputeInstanceTransformsAtTime(&transforms, time, time, UsdGeomPointInstancer::ExcludeProtoXform,
                                                   UsdGeomPointInstancer::IgnoreMask))
        return node;
    VtIntArray protoIndices;
    instancer.GetProtoIndicesAttr().Get(&protoIndices, time);
    SdfPathVector prototypes;
    instancer.GetPrototypesRel().GetTargets(&prototypes);
    const std::vector<bool> shown = instancer.ComputeMaskAtTime(time);

    expandingInstancers.push_back(path);
    for (std::size_t i = 0; i < transforms.size(); ++i) {
        if (!shown.empty() && !shown[i])
            continue;
        const UsdPrim prototype = stage->GetPrimAtPath(prototypes[std::size_t(protoIndices[i])]);
        if (!prototype)
            continue;
        if (instancedPrimCount >= maxInstancedPrims) {
            TF_WARN("point instancer <%s>: %zu prims made for instances already; the instances from %zu on are "
                    "left out",
                    path.GetText(), maxInstancedPrims, i);
            break;
        }
        CTavrinTransformNode* instanceNode = CTavrinTransformNode::Create(document);
        instanceNode->SetName(CTavrinString(prototype.GetName().GetString() + "_" + std::to_string(i)));
        instanceNode->SetParent(node);
        instanceNode->SetLocalMatrix(ConvertMatrix(transforms[i]));
        // Taken out of prototypeRoots while it is copied, so that the walk
        // over it does not leave it to its instancer.
        const UsdPrimRange copy(prototype, prototypeWalk);
        prototypeRoots.erase(prototype.GetPath());
        instancedPrimCount += ReadSubtree(copy, instanceNode, false);
        prototypeRoots.insert(prototype.GetPath());
    }
    expandingInstancers.pop_back();
    return node;
}

} // namespace Tavrin
