#include "usdcore/sdf/fileFormat.h"

#include "usdcore/sdf/crate/crateReader.h"
#include "usdcore/sdf/usda/usdaReader.h"
#include "usdcore/sdf/usdz/package.h"
#include "usdcore/sdf/usdz/packageUtils.h"
#include "usdcore/tf/diagnostic.h"
#include "usdcore/tf/mappedFile.h"
#include "usdcore/tf/pathUtils.h"
#include "usdcore/tf/stringUtils.h"

PXR_NAMESPACE_OPEN_SCOPE

namespace {

constexpr std::string_view kCrateMagic = "PXR-USDC";

std::string LowerExtension(const std::string& path)
{
    return TfStringToLower(TfGetExtension(path));
}

} // namespace

bool Sdf_IsCrateBytes(std::string_view bytes)
{
    return bytes.substr(0, kCrateMagic.size()) == kCrateMagic;
}

bool Sdf_ReadLayerBytes(std::string_view bytes, const std::string& extension,
                        const std::string& identifier, SdfData* data)
{
    if (extension == "usdc" || (extension == "usd" && Sdf_IsCrateBytes(bytes))) {
        return SdfCrateReadData(bytes, identifier, data);
    }
    if (extension == "usda" || extension == "usd") {
        return SdfUsdaReadData(bytes, identifier, data);
    }
    TF_RUNTIME_ERROR("cannot read '%s': '.%s' is not a layer format", identifier.c_str(),
                     extension.c_str());
    return false;
}

bool Sdf_ReadLayerFile(const std::string& path, SdfData* data)
{
    if (ArIsPackageRelativePath(path)) {
        std::shared_ptr<const SdfUsdzPackage> package;
        std::string_view bytes;
        if (!SdfUsdzReadPackagedAsset(path, &package, &bytes)) {
            TF_RUNTIME_ERROR("cannot open '%s'", path.c_str());
            return false;
        }
        const std::string inner = ArSplitPackageRelativePathInner(path).second;
        return Sdf_ReadLayerBytes(bytes, LowerExtension(inner), path, data);
    }
    const std::string extension = LowerExtension(path);
    if (extension == "usdz") {
        const std::shared_ptr<const SdfUsdzPackage> package = SdfUsdzPackage::Open(path);
        if (!package) {
            return false;
        }
        const std::string& rootLayer = package->GetRootLayerPath();
        std::string_view bytes;
        if (!package->GetEntryBytes(rootLayer, &bytes)) {
            TF_RUNTIME_ERROR("cannot read the first layer '%s' of '%s'", rootLayer.c_str(), path.c_str());
            return false;
        }
        return Sdf_ReadLayerBytes(bytes, LowerExtension(rootLayer),
                                  ArJoinPackageRelativePath(path, rootLayer), data);
    }
    std::string whyNot;
    const std::shared_ptr<const TfMappedFile> file = TfMappedFile::Open(path, &whyNot);
    if (!file) {
        TF_RUNTIME_ERROR("cannot open '%s': %s", path.c_str(), whyNot.c_str());
        return false;
    }
    return Sdf_ReadLayerBytes(file->GetBytes(), extension, path, data);
}

PXR_NAMESPACE_CLOSE_SCOPE
