#include "usdcore/usd/stage.h"

#include "usdcore/sdf/listOp.h"
#include "usdcore/sdf/schema.h"
#include "usdcore/sdf/usdz/packageUtils.h"
#include "usdcore/tf/diagnostic.h"
#include "usdcore/tf/pathUtils.h"
#include "usdcore/tf/stringUtils.h"
#include "usdcore/usd/primIndexBuilder.h"
#include "usdcore/usd/stageContents.h"

#include <unordered_set>
#include <vector>

PXR_NAMESPACE_OPEN_SCOPE

namespace {

// The time metadata OpenUSD's schema gives a fallback.
struct StageFallback {
    const TfToken& (*key)();
    double value;
};

const StageFallback kStageFallbacks[] = {
    {[]() -> const TfToken& { return SdfFieldKeys->TimeCodesPerSecond; }, 24.0},
    {[]() -> const TfToken& { return SdfFieldKeys->FramesPerSecond; }, 24.0},
    {[]() -> const TfToken& { return SdfFieldKeys->StartTimeCode; }, 0.0},
    {[]() -> const TfToken& { return SdfFieldKeys->EndTimeCode; }, 0.0},
};

template <class T>
const T* FindHeld(const SdfData::FieldVector& fields, const TfToken& name)
{
    const VtValue* value = Usd_FindField(fields, name);
    return value && value->IsHolding<T>() ? &value->UncheckedGet<T>() : nullptr;
}

// Child names over the prim's specs: the weakest spec's order first, each
// stronger spec appending the names it alone has, then reordering by its
// primOrder.
std::vector<TfToken> ComposeChildNames(const Usd_Opinion* begin, const Usd_Opinion* end)
{
    std::vector<TfToken> names;
    std::unordered_set<TfToken, TfToken::HashFunctor> seen;
    const bool single = end - begin == 1;
    for (const Usd_Opinion* opinion = end; opinion != begin;) {
        --opinion;
        const auto* children = FindHeld<std::vector<TfToken>>(*opinion->fields, SdfChildrenKeys->PrimChildren);
        if (children) {
            if (single) {
                names = *children;
            } else {
                for (const TfToken& name : *children) {
                    if (seen.insert(name).second) names.push_back(name);
                }
            }
        }
        if (const auto* order = FindHeld<std::vector<TfToken>>(*opinion->fields, SdfFieldKeys->PrimOrder)) {
            SdfApplyListOrdering(&names, *order);
        }
    }
    return names;
}

std::vector<TfToken> ComposeChildNames(const Usd_PrimData& prim)
{
    return ComposeChildNames(prim.OpinionsBegin(), prim.OpinionsEnd());
}

// An instance's children are what its arcs bring: what the stage's own
// layers author below it is not instanced, as OpenUSD leaves it out of the
// prototype. The instance's site in those layers is culled from its graph,
// and so from every graph built below it.
std::vector<TfToken> CullLocalSiteOfInstance(Usd_IndexGraph* graph)
{
    Usd_IndexNode& local = graph->nodes.front();
    local.culled = true;
    local.hasSpecs = false;
    local.hasArcs = false;
    std::vector<Usd_Opinion> opinions;
    Usd_PrimIndexBuilder::AppendOpinions(*graph, &opinions);
    return ComposeChildNames(opinions.data(), opinions.data() + opinions.size());
}

SdfSpecifier ComposeSpecifier(const Usd_PrimData& prim)
{
    // The strongest defining specifier wins over any "over".
    for (const Usd_Opinion* opinion = prim.OpinionsBegin(); opinion != prim.OpinionsEnd(); ++opinion) {
        const SdfSpecifier* specifier = FindHeld<SdfSpecifier>(*opinion->fields, SdfFieldKeys->Specifier);
        if (specifier && SdfIsDefiningSpecifier(*specifier)) return *specifier;
    }
    return SdfSpecifierOver;
}

template <class T>
T StrongestField(const Usd_PrimData& prim, const TfToken& field, const T& fallback)
{
    const VtValue* value = Usd_FindPrimField(prim, field);
    return value && value->IsHolding<T>() ? value->UncheckedGet<T>() : fallback;
}

SdfPath DefaultPrimPathOf(const SdfLayer& layer)
{
    const TfToken defaultPrim = layer.GetDefaultPrim();
    const std::string& name = defaultPrim.GetString();
    if (name.empty()) return SdfPath();
    if (name.front() == '/') return SdfPath(name);
    return SdfPath::IsValidIdentifier(name) ? SdfPath::AbsoluteRootPath().AppendChild(defaultPrim) : SdfPath();
}

} // namespace

bool UsdStage::IsSupportedFile(const std::string& filePath)
{
    std::string file = filePath;
    while (ArIsPackageRelativePath(file)) {
        file = ArSplitPackageRelativePathInner(file).second;
    }
    const std::string extension = TfStringToLower(TfGetExtension(file));
    return extension == "usd" || extension == "usda" || extension == "usdc" || extension == "usdz";
}

UsdStageRefPtr UsdStage::Open(const std::string& filePath, InitialLoadSet load)
{
    if (filePath.empty()) {
        TF_CODING_ERROR("cannot open a stage without a file path");
        return UsdStageRefPtr();
    }
    const SdfLayerRefPtr rootLayer = SdfLayer::FindOrOpen(filePath);
    if (!rootLayer) {
        TF_RUNTIME_ERROR("failed to open layer @%s@", filePath.c_str());
        return UsdStageRefPtr();
    }
    UsdStageRefPtr stage = TfCreateRefPtr(new UsdStage(rootLayer, load));
    stage->_Compose();
    return stage;
}

UsdStageRefPtr UsdStage::Open(const SdfLayerHandle& rootLayer, InitialLoadSet load)
{
    if (!rootLayer) {
        TF_CODING_ERROR("cannot open a stage on an expired layer");
        return UsdStageRefPtr();
    }
    UsdStageRefPtr stage = TfCreateRefPtr(new UsdStage(SdfLayerRefPtr(rootLayer), load));
    stage->_Compose();
    return stage;
}

UsdStage::UsdStage(const SdfLayerRefPtr& rootLayer, InitialLoadSet load)
    : _rootLayer(rootLayer), _load(load), _contents(std::make_unique<_Contents>())
{
}

UsdStage::~UsdStage() = default;

void UsdStage::_Compose()
{
    _Contents& c = *_contents;
    Usd_PrimIndexBuilder builder(&c.layers, &c.maps, _load == LoadAll);

    const auto makePrim = [&](Usd_PrimData* parent, const SdfPath& path, const Usd_IndexGraph& graph) {
        c.prims.emplace_back();
        Usd_PrimData& prim = c.prims.back();
        prim.stage = this;
        prim.path = path;
        prim.parent = parent;
        const size_t first = c.opinions.size();
        Usd_PrimIndexBuilder::AppendOpinions(graph, &c.opinions);
        prim.SetOpinions(&c.opinions, static_cast<uint32_t>(first), static_cast<uint32_t>(c.opinions.size() - first));
        return &prim;
    };

    Usd_IndexGraph rootGraph = builder.BuildPseudoRoot(c.layers.GetLayerStack(_rootLayer));
    Usd_PrimData* pseudoRoot = makePrim(nullptr, SdfPath::AbsoluteRootPath(), rootGraph);
    pseudoRoot->specifier = SdfSpecifierDef;
    pseudoRoot->flags = Usd_PrimActiveFlag | Usd_PrimLoadedFlag | Usd_PrimDefinedFlag |
                        Usd_PrimHasDefiningSpecifierFlag | Usd_PrimPseudoRootFlag;
    c.pseudoRoot = pseudoRoot;
    // Every prim of the root layer is a prim of the stage, and most prims
    // have a spec there: room for them all up front spares rehashing.
    c.primsByPath.reserve(_rootLayer->GetData().GetSpecCount());
    c.primsByPath.emplace(pseudoRoot->path, pseudoRoot);

    // Depth first, so prims are stored in traversal order, with an explicit
    // stack: nesting depth comes from files.
    struct Frame {
        Usd_PrimData* prim;
        Usd_IndexGraph graph;
        std::vector<TfToken> childNames;
        size_t next = 0;
        Usd_PrimData* lastChild = nullptr;
    };
    std::vector<Frame> stack;
    stack.push_back({pseudoRoot, std::move(rootGraph), ComposeChildNames(*pseudoRoot)});
    while (!stack.empty()) {
        Frame& frame = stack.back();
        if (frame.next == frame.childNames.size()) {
            stack.pop_back();
            continue;
        }
        Usd_PrimData* parent = frame.prim;
        const SdfPath path = parent->path.AppendChild(frame.childNames[frame.next++]);
        if (path.IsEmpty()) {
            continue;
        }
        const auto [entry, added] = c.primsByPath.emplace(path, nullptr);
        if (!added) {
            continue;
        }
        Usd_IndexGraph graph = builder.BuildChild(frame.graph, path);
        Usd_PrimData* prim = makePrim(parent, path, graph);
        entry->second = prim;
        (frame.lastChild ? frame.lastChild->nextSibling : parent->firstChild) = prim;
        frame.lastChild = prim;

        prim->specifier = ComposeSpecifier(*prim);
        prim->typeName = StrongestField(*prim, SdfFieldKeys->TypeName, TfToken());
        const bool active = StrongestField(*prim, SdfFieldKeys->Active, true);
        const bool defining = SdfIsDefiningSpecifier(prim->specifier);
        const bool instance = StrongestField(*prim, SdfFieldKeys->Instanceable, false) && graph.HasDirectArcs();
        uint32_t flags = 0;
        flags |= active ? Usd_PrimActiveFlag : 0u;
        flags |= parent->Has(Usd_PrimLoadedFlag) && (!graph.hasPayload || _load == LoadAll) ? Usd_PrimLoadedFlag : 0u;
        flags |= parent->Has(Usd_PrimDefinedFlag) && defining ? Usd_PrimDefinedFlag : 0u;
        flags |= parent->Has(Usd_PrimAbstractFlag) || prim->specifier == SdfSpecifierClass ? Usd_PrimAbstractFlag : 0u;
        flags |= instance ? Usd_PrimInstanceFlag : 0u;
        flags |= parent->Has(Usd_PrimInstanceFlag) || parent->Has(Usd_PrimInstanceProxyFlag) ? Usd_PrimInstanceProxyFlag
                                                                                            : 0u;
        flags |= defining ? Usd_PrimHasDefiningSpecifierFlag : 0u;
        flags |= graph.hasPayload ? Usd_PrimHasPayloadFlag : 0u;
        prim->flags = flags;

        // Inactive prims hide what is below them. An instance's children are
        // composed in place, one copy per instance rather than one shared
        // prototype, and flagged as instance proxies: traversals that do not
        // ask for those stop at the instance, as over a prototype.
        if (!active) {
            continue;
        }
        std::vector<TfToken> childNames = instance ? CullLocalSiteOfInstance(&graph) : ComposeChildNames(*prim);
        if (!childNames.empty()) {
            stack.push_back({prim, std::move(graph), std::move(childNames)});
        }
    }
}

SdfLayerHandle UsdStage::GetRootLayer() const
{
    return SdfLayerHandle(_rootLayer);
}

UsdPrim UsdStage::GetPseudoRoot() const
{
    return UsdPrim(_contents->pseudoRoot);
}

UsdPrim UsdStage::GetPrimAtPath(const SdfPath& path) const
{
    const auto found = _contents->primsByPath.find(path);
    return UsdPrim(found != _contents->primsByPath.end() ? found->second : nullptr);
}

UsdPrim UsdStage::GetDefaultPrim() const
{
    const SdfPath path = DefaultPrimPathOf(*_rootLayer);
    return path.IsEmpty() ? UsdPrim() : GetPrimAtPath(path);
}

bool UsdStage::HasDefaultPrim() const
{
    return !_rootLayer->GetDefaultPrim().IsEmpty();
}

UsdPrimRange UsdStage::Traverse()
{
    return UsdPrimRange::Stage(UsdStagePtr(this), UsdPrimDefaultPredicate);
}

UsdPrimRange UsdStage::Traverse(const Usd_PrimFlagsPredicate& predicate)
{
    return UsdPrimRange::Stage(UsdStagePtr(this), predicate);
}

UsdPrimRange UsdStage::TraverseAll()
{
    return UsdPrimRange::Stage(UsdStagePtr(this), UsdPrimAllPrimsPredicate);
}

bool UsdStage::HasAuthoredMetadata(const TfToken& key) const
{
    return _rootLayer->HasField(SdfPath::AbsoluteRootPath(), key);
}

bool UsdStage::GetMetadata(const TfToken& key, VtValue* value) const
{
    if (_rootLayer->HasField(SdfPath::AbsoluteRootPath(), key, value)) {
        return true;
    }
    for (const StageFallback& fallback : kStageFallbacks) {
        if (fallback.key() == key) {
            *value = VtValue(fallback.value);
            return true;
        }
    }
    return false;
}

bool UsdStage::HasMetadata(const TfToken& key) const
{
    VtValue ignored;
    return GetMetadata(key, &ignored);
}

double UsdStage::GetTimeCodesPerSecond() const
{
    double result = 24.0;
    if (!_rootLayer->GetData().Has(SdfPath::AbsoluteRootPath(), SdfFieldKeys->TimeCodesPerSecond, &result)) {
        _rootLayer->GetData().Has(SdfPath::AbsoluteRootPath(), SdfFieldKeys->FramesPerSecond, &result);
    }
    return result;
}

double UsdStage::GetFramesPerSecond() const
{
    double result = 24.0;
    GetMetadata(SdfFieldKeys->FramesPerSecond, &result);
    return result;
}

double UsdStage::GetStartTimeCode() const
{
    double result = 0.0;
    GetMetadata(SdfFieldKeys->StartTimeCode, &result);
    return result;
}

double UsdStage::GetEndTimeCode() const
{
    double result = 0.0;
    GetMetadata(SdfFieldKeys->EndTimeCode, &result);
    return result;
}

bool UsdStage::HasAuthoredTimeCodeRange() const
{
    return HasAuthoredMetadata(SdfFieldKeys->StartTimeCode) && HasAuthoredMetadata(SdfFieldKeys->EndTimeCode);
}

PXR_NAMESPACE_CLOSE_SCOPE
