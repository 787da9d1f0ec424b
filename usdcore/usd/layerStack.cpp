#include "usdcore/usd/layerStack.h"

#include "usdcore/sdf/usdz/package.h"
#include "usdcore/sdf/usdz/packageUtils.h"
#include "usdcore/tf/diagnostic.h"
#include "usdcore/tf/pathUtils.h"
#include "usdcore/tf/stringUtils.h"

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <system_error>

PXR_NAMESPACE_OPEN_SCOPE

namespace {

// Sublayers nest rarely more than a few levels; the bound only stops
// hostile files, cycles are caught by name before it.
constexpr size_t kMaxSublayerDepth = 128;

std::string AbsoluteLayerPath(const std::string& path)
{
    if (ArIsPackageRelativePath(path)) {
        const auto [package, inner] = ArSplitPackageRelativePathOuter(path);
        return ArJoinPackageRelativePath(TfAbsPath(package), inner);
    }
    return TfAbsPath(path);
}

} // namespace

std::string Usd_AnchorAssetPath(const SdfLayer& layer, const std::string& assetPath)
{
    const std::string& identifier = layer.GetIdentifier();
    // A package opened by its own name reads its first layer, so what that
    // layer authors is relative to the first layer's place in the package.
    if (!ArIsPackageRelativePath(identifier) &&
        TfStringToLower(TfGetExtension(identifier)) == "usdz") {
        if (const auto package = SdfUsdzPackage::Open(identifier)) {
            return SdfAnchorAssetPath(
                ArJoinPackageRelativePath(identifier, package->GetRootLayerPath()), assetPath);
        }
    }
    return SdfAnchorAssetPath(identifier, assetPath);
}

std::string Usd_ResolveAssetPath(const SdfLayer& layer, const std::string& assetPath)
{
    if (assetPath.empty()) {
        return std::string();
    }
    const std::string anchored = AbsoluteLayerPath(Usd_AnchorAssetPath(layer, assetPath));
    std::error_code error;
    const std::string file = ArSplitPackageRelativePathOuter(anchored).first;
    if (!std::filesystem::exists(file, error)) {
        return std::string();
    }
    if (!ArIsPackageRelativePath(anchored)) {
        return anchored;
    }
    // The outer file exists, so a package that fails to open is worth its
    // diagnostic; the entry itself may simply be absent.
    const auto [package, inner] = ArSplitPackageRelativePathInner(anchored);
    const auto opened = SdfUsdzPackage::Open(package);
    return opened && opened->FindEntry(inner) ? anchored : std::string();
}

SdfLayerRefPtr Usd_LayerCache::_OpenLayer(const std::string& layerPath)
{
    const std::string key = AbsoluteLayerPath(layerPath);
    const auto found = _layers.find(key);
    if (found != _layers.end()) {
        return found->second;
    }
    SdfLayerRefPtr layer = SdfLayer::FindOrOpen(layerPath);
    _layers.emplace(key, layer);
    return layer;
}

const Usd_LayerStack* Usd_LayerCache::GetLayerStack(const std::string& layerPath)
{
    const std::string key = AbsoluteLayerPath(layerPath);
    const auto found = _stacks.find(key);
    if (found != _stacks.end()) {
        return found->second.get();
    }
    return _BuildStack(key, _OpenLayer(layerPath));
}

const Usd_LayerStack* Usd_LayerCache::GetLayerStack(const SdfLayerRefPtr& rootLayer)
{
    const std::string key = AbsoluteLayerPath(rootLayer->GetIdentifier());
    const auto found = _stacks.find(key);
    if (found != _stacks.end()) {
        return found->second.get();
    }
    _layers.emplace(key, rootLayer);
    return _BuildStack(key, rootLayer);
}

const Usd_LayerStack* Usd_LayerCache::_BuildStack(const std::string& key, const SdfLayerRefPtr& rootLayer)
{
    std::unique_ptr<Usd_LayerStack> stack;
    if (rootLayer) {
        std::vector<Usd_LayerStackEntry> layers;
        std::vector<const SdfLayer*> chain;
        _AddLayers(rootLayer, SdfLayerOffset(), &chain, &layers);
        stack = std::make_unique<Usd_LayerStack>(std::move(layers));
    }
    const Usd_LayerStack* result = stack.get();
    _stacks.emplace(key, std::move(stack));
    return result;
}

void Usd_ScaleOffsetByTimeCodesPerSecond(const SdfLayer& outerLayer, const SdfLayer& innerLayer,
                                         SdfLayerOffset* offset)
{
    const double outerRate = outerLayer.GetTimeCodesPerSecond();
    const double innerRate = innerLayer.GetTimeCodesPerSecond();
    const double ratio = outerRate / innerRate;
    if (outerRate != innerRate && std::isfinite(ratio) && ratio > 0.0)
        offset->SetScale(offset->GetScale() * ratio);
}

void Usd_LayerCache::_AddLayers(const SdfLayerRefPtr& layer, const SdfLayerOffset& offset,
                                std::vector<const SdfLayer*>* chain,
                                std::vector<Usd_LayerStackEntry>* layers)
{
    layers->push_back({layer, offset});
    chain->push_back(layer.operator->());

    const std::vector<std::string> subLayerPaths = layer->GetSubLayerPaths();
    const std::vector<SdfLayerOffset> subLayerOffsets = layer->GetSubLayerOffsets();
    for (size_t i = 0; i < subLayerPaths.size() && i < subLayerOffsets.size(); ++i) {
        const std::string path = Usd_AnchorAssetPath(*layer, subLayerPaths[i]);
        SdfLayerRefPtr subLayer = _OpenLayer(path);
        if (!subLayer) {
            TF_WARN("sublayer '%s' of '%s' is ignored: it cannot be opened", path.c_str(),
                    layer->GetIdentifier().c_str());
            continue;
        }
        if (std::find(chain->begin(), chain->end(), subLayer.operator->()) != chain->end()) {
            TF_WARN("sublayer cycle: '%s' is its own sublayer through '%s'", path.c_str(),
                    layer->GetIdentifier().c_str());
            continue;
        }
        // A layer counts once per stack: a second path to it would only
        // repeat its opinions at a weaker place.
        const bool seen = std::any_of(layers->begin(), layers->end(), [&](const Usd_LayerStackEntry& entry) {
            return entry.layer == subLayer;
        });
        if (seen) {
            continue;
        }
        if (chain->size() >= kMaxSublayerDepth) {
            TF_WARN("sublayers of '%s' nest too deeply", layer->GetIdentifier().c_str());
            continue;
        }
        SdfLayerOffset subOffset = subLayerOffsets[i];
        if (!subOffset.IsValid() || !subOffset.GetInverse().IsValid()) {
            TF_WARN("invalid offset of sublayer '%s' ignored", path.c_str());
            subOffset = SdfLayerOffset();
        }
        Usd_ScaleOffsetByTimeCodesPerSecond(*layer, *subLayer, &subOffset);
        _AddLayers(subLayer, offset * subOffset, chain, layers);
    }
    chain->pop_back();
}

PXR_NAMESPACE_CLOSE_SCOPE
