#include "usdcore/sdf/layer.h"

#include "usdcore/sdf/fileFormat.h"
#include "usdcore/sdf/schema.h"
#include "usdcore/sdf/usda/usdaReader.h"
#include "usdcore/sdf/usda/usdaWriter.h"
#include "usdcore/sdf/usdz/packageUtils.h"
#include "usdcore/tf/diagnostic.h"
#include "usdcore/tf/pathUtils.h"

#include <atomic>
#include <cstdio>
#include <mutex>
#include <unordered_map>

PXR_NAMESPACE_OPEN_SCOPE

namespace {

// Open layers by real path. Entries are weak: a layer leaves when its last
// holder lets go.
struct LayerRegistry {
    std::mutex mutex;
    std::unordered_map<std::string, SdfLayerPtr> layers;
};

LayerRegistry& GetRegistry()
{
    static LayerRegistry* registry = new LayerRegistry;
    return *registry;
}

std::string RealPathOf(const std::string& path)
{
    if (ArIsPackageRelativePath(path)) {
        const auto [package, inner] = ArSplitPackageRelativePathOuter(path);
        return ArJoinPackageRelativePath(TfAbsPath(package), inner);
    }
    return TfAbsPath(path);
}

// A holder-less entry belongs to a layer on its way out: treat it as gone.
SdfLayerRefPtr Lookup(const LayerRegistry& registry, const std::string& realPath)
{
    const auto found = registry.layers.find(realPath);
    if (found == registry.layers.end() || !found->second || found->second->GetCurrentCount() == 0) {
        return SdfLayerRefPtr();
    }
    return SdfLayerRefPtr(found->second);
}

} // namespace

SdfLayer::SdfLayer(std::string identifier, std::string realPath, SdfData data)
    : _identifier(std::move(identifier)), _realPath(std::move(realPath)), _data(std::move(data))
{
}

SdfLayer::~SdfLayer()
{
    if (_realPath.empty()) return;
    LayerRegistry& registry = GetRegistry();
    std::lock_guard<std::mutex> lock(registry.mutex);
    const auto found = registry.layers.find(_realPath);
    if (found != registry.layers.end() && found->second.operator->() == this) {
        registry.layers.erase(found);
    }
}

SdfLayerRefPtr SdfLayer::Find(const std::string& path)
{
    LayerRegistry& registry = GetRegistry();
    std::lock_guard<std::mutex> lock(registry.mutex);
    return Lookup(registry, RealPathOf(path));
}

SdfLayerRefPtr SdfLayer::FindOrOpen(const std::string& path)
{
    if (path.empty()) {
        TF_CODING_ERROR("cannot open a layer without a path");
        return SdfLayerRefPtr();
    }
    const std::string realPath = RealPathOf(path);
    LayerRegistry& registry = GetRegistry();
    {
        std::lock_guard<std::mutex> lock(registry.mutex);
        if (SdfLayerRefPtr layer = Lookup(registry, realPath)) {
            return layer;
        }
    }
    // Read outside the lock: other layers may open meanwhile. If the same
    // one did, the first registered wins and this read is dropped.
    SdfData data;
    if (!Sdf_ReadLayerFile(path, &data)) {
        return SdfLayerRefPtr();
    }
    SdfLayerRefPtr layer = TfCreateRefPtr(new SdfLayer(path, realPath, std::move(data)));
    std::lock_guard<std::mutex> lock(registry.mutex);
    if (SdfLayerRefPtr existing = Lookup(registry, realPath)) {
        return existing;
    }
    registry.layers[realPath] = SdfLayerPtr(layer);
    return layer;
}

SdfLayerRefPtr SdfLayer::OpenFromString(const std::string& usdaText, const std::string& identifier)
{
    SdfData data;
    if (!SdfUsdaReadData(usdaText, identifier, &data)) {
        return SdfLayerRefPtr();
    }
    return TfCreateRefPtr(new SdfLayer(identifier, std::string(), std::move(data)));
}

SdfLayerRefPtr SdfLayer::CreateAnonymous(const std::string& tag)
{
    return CreateAnonymous(tag, SdfData());
}

SdfLayerRefPtr SdfLayer::CreateAnonymous(const std::string& tag, SdfData data)
{
    static std::atomic<unsigned long> counter{0};
    const std::string identifier = "anon:" + std::to_string(++counter) + ":" + tag;
    return TfCreateRefPtr(new SdfLayer(identifier, std::string(), std::move(data)));
}

bool SdfLayer::IsAnonymous() const
{
    return _identifier.compare(0, 5, "anon:") == 0;
}

TfToken SdfLayer::GetDefaultPrim() const
{
    TfToken defaultPrim;
    _data.Has(SdfPath::AbsoluteRootPath(), SdfFieldKeys->DefaultPrim, &defaultPrim);
    return defaultPrim;
}

std::vector<std::string> SdfLayer::GetSubLayerPaths() const
{
    std::vector<std::string> paths;
    _data.Has(SdfPath::AbsoluteRootPath(), SdfFieldKeys->SubLayers, &paths);
    return paths;
}

std::vector<SdfLayerOffset> SdfLayer::GetSubLayerOffsets() const
{
    std::vector<SdfLayerOffset> offsets;
    _data.Has(SdfPath::AbsoluteRootPath(), SdfFieldKeys->SubLayerOffsets, &offsets);
    // One offset per sublayer, as OpenUSD gives them, even when unauthored.
    offsets.resize(GetSubLayerPaths().size());
    return offsets;
}

double SdfLayer::GetTimeCodesPerSecond() const
{
    double timeCodesPerSecond = 0.0;
    if (_data.Has(SdfPath::AbsoluteRootPath(), SdfFieldKeys->TimeCodesPerSecond, &timeCodesPerSecond))
        return timeCodesPerSecond;
    return GetFramesPerSecond();
}

double SdfLayer::GetFramesPerSecond() const
{
    double framesPerSecond = 24.0;
    _data.Has(SdfPath::AbsoluteRootPath(), SdfFieldKeys->FramesPerSecond, &framesPerSecond);
    return framesPerSecond;
}

bool SdfLayer::ExportToString(std::string* result) const
{
    result->clear();
    return SdfUsdaWriteData(_data, result);
}

bool SdfLayer::Export(const std::string& filename) const
{
    std::string text;
    if (!ExportToString(&text)) {
        return false;
    }
    FILE* file = std::fopen(filename.c_str(), "wb");
    if (!file) {
        TF_RUNTIME_ERROR("cannot write '%s'", filename.c_str());
        return false;
    }
    const bool written = std::fwrite(text.data(), 1, text.size(), file) == text.size();
    const bool closed = std::fclose(file) == 0;
    if (!written || !closed) {
        TF_RUNTIME_ERROR("could not write all of '%s'", filename.c_str());
        return false;
    }
    return true;
}

PXR_NAMESPACE_CLOSE_SCOPE
