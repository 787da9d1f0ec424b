#pragma once

#include "usdcore/pxr.h"

#include <cstddef>
#include <functional>
#include <iosfwd>
#include <string>

PXR_NAMESPACE_OPEN_SCOPE

/// An asset path as authored ("./tex/wood.png") and, once resolved against
/// the layer that authored it, where it was found.
class SdfAssetPath
{
public:
    SdfAssetPath() = default;
    explicit SdfAssetPath(const std::string& path) : _assetPath(path) {}
    SdfAssetPath(const std::string& path, const std::string& resolvedPath)
        : _assetPath(path), _resolvedPath(resolvedPath)
    {
    }

    const std::string& GetAssetPath() const { return _assetPath; }
    const std::string& GetResolvedPath() const { return _resolvedPath; }

    size_t GetHash() const
    {
        const size_t h = std::hash<std::string>()(_assetPath);
        return h ^ (std::hash<std::string>()(_resolvedPath) + 0x9e3779b9 + (h << 6) + (h >> 2));
    }

    bool operator==(const SdfAssetPath& o) const
    {
        return _assetPath == o._assetPath && _resolvedPath == o._resolvedPath;
    }
    bool operator!=(const SdfAssetPath& o) const { return !(*this == o); }
    bool operator<(const SdfAssetPath& o) const
    {
        return _assetPath < o._assetPath ||
               (_assetPath == o._assetPath && _resolvedPath < o._resolvedPath);
    }

private:
    std::string _assetPath;
    std::string _resolvedPath;
};

inline size_t hash_value(const SdfAssetPath& p) { return p.GetHash(); }

/// Prints "@path@", the text format's spelling.
std::ostream& operator<<(std::ostream& out, const SdfAssetPath& assetPath);

PXR_NAMESPACE_CLOSE_SCOPE
