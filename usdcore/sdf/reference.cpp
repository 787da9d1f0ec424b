#include "usdcore/sdf/reference.h"

#include <functional>
#include <ostream>

PXR_NAMESPACE_OPEN_SCOPE

SdfReference::SdfReference(const std::string& assetPath, const SdfPath& primPath,
                           const SdfLayerOffset& layerOffset, const VtDictionary& customData)
    : _assetPath(assetPath), _primPath(primPath), _layerOffset(layerOffset),
      _customData(customData)
{
}

bool SdfReference::operator==(const SdfReference& rhs) const
{
    return _assetPath == rhs._assetPath && _primPath == rhs._primPath &&
           _layerOffset == rhs._layerOffset && _customData == rhs._customData;
}

bool SdfReference::operator<(const SdfReference& rhs) const
{
    if (_assetPath != rhs._assetPath) {
        return _assetPath < rhs._assetPath;
    }
    if (_primPath != rhs._primPath) {
        return _primPath < rhs._primPath;
    }
    return _layerOffset < rhs._layerOffset;
}

size_t hash_value(const SdfReference& reference)
{
    // The layer offset is left out: offsets equal within a tolerance must
    // hash alike.
    const size_t h = std::hash<std::string>()(reference.GetAssetPath());
    return h ^ (reference.GetPrimPath().GetHash() + 0x9e3779b9 + (h << 6) + (h >> 2));
}

std::ostream& operator<<(std::ostream& out, const SdfReference& reference)
{
    out << "SdfReference(" << reference.GetAssetPath() << ", " << reference.GetPrimPath() << ", "
        << reference.GetLayerOffset() << ", {";
    bool first = true;
    for (const auto& entry : reference.GetCustomData()) {
        out << (first ? "" : ", ") << entry.first;
        first = false;
    }
    return out << "})";
}

PXR_NAMESPACE_CLOSE_SCOPE
