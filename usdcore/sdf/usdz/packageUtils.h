#pragma once

// Package-relative asset paths, as OpenUSD's Ar writes them: the asset
// "inner/geom.usdc" inside "scene.usdz" is "scene.usdz[inner/geom.usdc]",
// and packages nest: "a.usdz[b.usdz[c.usda]]". Brackets that belong to a
// name inside the outer brackets are escaped with a backslash.

#include "usdcore/pxr.h"

#include <string>
#include <utility>
#include <vector>

PXR_NAMESPACE_OPEN_SCOPE

/// True if \p path ends with a ']' that closes a matching '['.
bool ArIsPackageRelativePath(const std::string& path);

/// Nests each path inside the previous one, skipping empty paths:
/// ("a.usdz", "b.usdz", "c.usda") -> "a.usdz[b.usdz[c.usda]]", and
/// ("a.usdz[b.usdz]", "c.usda") -> "a.usdz[b.usdz[c.usda]]".
std::string ArJoinPackageRelativePath(const std::vector<std::string>& paths);
std::string ArJoinPackageRelativePath(const std::pair<std::string, std::string>& paths);
std::string ArJoinPackageRelativePath(const std::string& packagePath,
                                      const std::string& packagedPath);

/// "a.usdz[b.usdz[c.usda]]" -> ("a.usdz", "b.usdz[c.usda]"); a path that is
/// not package-relative -> (path, "").
std::pair<std::string, std::string> ArSplitPackageRelativePathOuter(const std::string& path);

/// "a.usdz[b.usdz[c.usda]]" -> ("a.usdz[b.usdz]", "c.usda"); a path that is
/// not package-relative -> (path, "").
std::pair<std::string, std::string> ArSplitPackageRelativePathInner(const std::string& path);

/// Resolves \p assetPath as authored in the layer \p anchorIdentifier.
/// Relative paths ("./tex.png", "../geo.usd", "sub/a.usda") are anchored at
/// the anchor's directory; inside a package, at the directory of the
/// anchor's packaged path, so "pkg.usdz[sub/a.usda]" anchors "./t.png" to
/// "pkg.usdz[sub/t.png]". Absolute and package-relative asset paths are
/// only normalised. The result is lexical: nothing is looked up on disk.
std::string SdfAnchorAssetPath(const std::string& anchorIdentifier, const std::string& assetPath);

PXR_NAMESPACE_CLOSE_SCOPE
