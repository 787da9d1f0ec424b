#pragma once

#include "usdcore/pxr.h"
#include "usdcore/sdf/layerOffset.h"
#include "usdcore/sdf/path.h"

#include <cstddef>
#include <iosfwd>
#include <string>
#include <vector>

PXR_NAMESPACE_OPEN_SCOPE

class SdfPayload;
using SdfPayloadVector = std::vector<SdfPayload>;

/// A payload arc: like a reference, but loaded on request.
class SdfPayload
{
public:
    SdfPayload(const std::string& assetPath = std::string(), const SdfPath& primPath = SdfPath(),
               const SdfLayerOffset& layerOffset = SdfLayerOffset());

    const std::string& GetAssetPath() const { return _assetPath; }
    void SetAssetPath(const std::string& assetPath) { _assetPath = assetPath; }
    const SdfPath& GetPrimPath() const { return _primPath; }
    void SetPrimPath(const SdfPath& primPath) { _primPath = primPath; }
    const SdfLayerOffset& GetLayerOffset() const { return _layerOffset; }
    void SetLayerOffset(const SdfLayerOffset& layerOffset) { _layerOffset = layerOffset; }

    bool operator==(const SdfPayload& rhs) const;
    bool operator!=(const SdfPayload& rhs) const { return !(*this == rhs); }
    bool operator<(const SdfPayload& rhs) const;

private:
    std::string _assetPath;
    SdfPath _primPath;
    SdfLayerOffset _layerOffset;
};

size_t hash_value(const SdfPayload& payload);

std::ostream& operator<<(std::ostream& out, const SdfPayload& payload);

PXR_NAMESPACE_CLOSE_SCOPE
