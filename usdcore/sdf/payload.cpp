#include "usdcore/sdf/payload.h"

#include <functional>
#include <ostream>

PXR_NAMESPACE_OPEN_SCOPE

SdfPayload::SdfPayload(const std::string& assetPath, const SdfPath& primPath,
                       const SdfLayerOffset& layerOffset)
    : _assetPath(assetPath), _primPath(primPath), _layerOffset(layerOffset)
{
}

bool SdfPayload::operator==(const SdfPayload& rhs) const
{
    return _assetPath == rhs._assetPath && _primPath == rhs._primPath &&
           _layerOffset == rhs._layerOffset;
}

bool SdfPayload::operator<(const SdfPayload& rhs) const
{
    if (_assetPath != rhs._assetPath) {
        return _assetPath < rhs._assetPath;
    }
    if (_primPath != rhs._primPath) {
        return _primPath < rhs._primPath;
    }
    return _layerOffset < rhs._layerOffset;
}

size_t hash_value(const SdfPayload& payload)
{
    const size_t h = std::hash<std::string>()(payload.GetAssetPath());
    return h ^ (payload.GetPrimPath().GetHash() + 0x9e3779b9 + (h << 6) + (h >> 2));
}

std::ostream& operator<<(std::ostream& out, const SdfPayload& payload)
{
    return out << "SdfPayload(" << payload.GetAssetPath() << ", " << payload.GetPrimPath()
               << ", " << payload.GetLayerOffset() << ")";
}

PXR_NAMESPACE_CLOSE_SCOPE
