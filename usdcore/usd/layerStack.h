#pragma once

// The layers a stage reads: a root layer with its sublayers (strongest
// first, each with the time offset that maps its times to the root's), and
// the cache that opens every layer and builds every layer stack of one stage
// once, however many arcs name it.

#include "usdcore/pxr.h"
#include "usdcore/sdf/layer.h"
#include "usdcore/sdf/layerOffset.h"

#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

PXR_NAMESPACE_OPEN_SCOPE

struct Usd_LayerStackEntry {
    SdfLayerRefPtr layer;
    /// Maps the layer's times to the times of the stack's root layer.
    SdfLayerOffset offset;
};

class Usd_LayerStack
{
public:
    explicit Usd_LayerStack(std::vector<Usd_LayerStackEntry> layers) : _layers(std::move(layers)) {}

    /// Strongest first; the root layer is the first.
    const std::vector<Usd_LayerStackEntry>& GetLayers() const { return _layers; }
    const SdfLayerRefPtr& GetRootLayer() const { return _layers.front().layer; }

private:
    std::vector<Usd_LayerStackEntry> _layers;
};

/// The asset path \p assetPath as written in \p layer, anchored at that layer:
/// relative paths are relative to the layer's file, and, for a layer inside
/// a .usdz package (also the package's own root layer), to its place in the
/// package ("scene.usdz[textures/wood.png]").
std::string Usd_AnchorAssetPath(const SdfLayer& layer, const std::string& assetPath);

/// Where the asset path \p assetPath, written in \p layer, is found, as
/// OpenUSD's default resolver answers: the anchored path, made absolute,
/// when a file or folder is there, or when it names an entry that its
/// package holds ("/x/scene.usdz[textures/wood.png]"); empty when it is
/// found nowhere. Search paths and the current directory are not consulted.
std::string Usd_ResolveAssetPath(const SdfLayer& layer, const std::string& assetPath);

/// Stretches offset, which maps the times of a layer counting innerLayer's
/// time codes per second into outerLayer's, by the ratio of the two rates.
/// Rates that give no finite positive ratio leave it alone.
void Usd_ScaleOffsetByTimeCodesPerSecond(const SdfLayer& outerLayer, const SdfLayer& innerLayer,
                                         SdfLayerOffset* offset);

class Usd_LayerCache
{
public:
    /// The layer stack rooted at the layer \p layerPath (an anchored asset
    /// path), or null, with a diagnostic the first time, when that layer
    /// cannot be opened. Later requests for the same file give the same
    /// stack without opening anything.
    const Usd_LayerStack* GetLayerStack(const std::string& layerPath);
    /// The layer stack rooted at the open layer \p rootLayer.
    const Usd_LayerStack* GetLayerStack(const SdfLayerRefPtr& rootLayer);

private:
    const Usd_LayerStack* _BuildStack(const std::string& key, const SdfLayerRefPtr& rootLayer);
    SdfLayerRefPtr _OpenLayer(const std::string& layerPath);
    void _AddLayers(const SdfLayerRefPtr& layer, const SdfLayerOffset& offset,
                    std::vector<const SdfLayer*>* chain, std::vector<Usd_LayerStackEntry>* layers);

    // Keyed by the absolute, normalised path; a null layer records a file
    // that failed to open, so it is reported once.
    std::unordered_map<std::string, SdfLayerRefPtr> _layers;
    std::unordered_map<std::string, std::unique_ptr<Usd_LayerStack>> _stacks;
};

PXR_NAMESPACE_CLOSE_SCOPE
