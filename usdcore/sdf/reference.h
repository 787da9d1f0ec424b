#pragma once

#include "usdcore/pxr.h"
#include "usdcore/sdf/layerOffset.h"
#include "usdcore/sdf/path.h"
#include "usdcore/vt/dictionary.h"

#include <cstddef>
#include <iosfwd>
#include <string>
#include <vector>

PXR_NAMESPACE_OPEN_SCOPE

class SdfReference;
using SdfReferenceVector = std::vector<SdfReference>;

/// A reference arc: a prim of another layer (or, with an empty asset path,
/// of the same layer stack) brought in under the referencing prim.
/// An empty prim path means the target layer's default prim.
class SdfReference
{
public:
    SdfReference(const std::string& assetPath = std::string(), const SdfPath& primPath = SdfPath(),
                 const SdfLayerOffset& layerOffset = SdfLayerOffset(),
                 const VtDictionary& customData = VtDictionary());

    const std::string& GetAssetPath() const { return _assetPath; }
    void SetAssetPath(const std::string& assetPath) { _assetPath = assetPath; }
    const SdfPath& GetPrimPath() const { return _primPath; }
    void SetPrimPath(const SdfPath& primPath) { _primPath = primPath; }
    const SdfLayerOffset& GetLayerOffset() const { return _layerOffset; }
    void SetLayerOffset(const SdfLayerOffset& layerOffset) { _layerOffset = layerOffset; }
    const VtDictionary& GetCustomData() const { return _customData; }
    void SetCustomData(const VtDictionary& customData) { _customData = customData; }
    void SwapCustomData(VtDictionary& customData) { _customData.swap(customData); }

    /// A reference to a prim of the referencing layer stack.
    bool IsInternal() const { return _assetPath.empty(); }

    bool operator==(const SdfReference& rhs) const;
    bool operator!=(const SdfReference& rhs) const { return !(*this == rhs); }
    /// By asset path, then prim path, then layer offset; custom data is
    /// not ordered.
    bool operator<(const SdfReference& rhs) const;

private:
    std::string _assetPath;
    SdfPath _primPath;
    SdfLayerOffset _layerOffset;
    VtDictionary _customData;
};

size_t hash_value(const SdfReference& reference);

std::ostream& operator<<(std::ostream& out, const SdfReference& reference);

PXR_NAMESPACE_CLOSE_SCOPE
