#include "usdcore/sdf/usdz/packageUtils.h"

#include "usdcore/tf/pathUtils.h"
#include "usdcore/tf/stringUtils.h"

PXR_NAMESPACE_OPEN_SCOPE

namespace {

constexpr size_t kNotFound = std::string::npos;

bool IsEscaped(const std::string& path, size_t at)
{
    return at > 0 && path[at - 1] == '\\';
}

/// Index of the '[' that the ']' at \p close closes, counting nested pairs
/// and skipping escaped brackets; kNotFound if unbalanced.
size_t FindMatchingOpen(const std::string& path, size_t close)
{
    size_t depth = 1;
    for (size_t at = close; at-- > 0;) {
        const char c = path[at];
        if ((c != '[' && c != ']') || IsEscaped(path, at)) {
            continue;
        }
        if (c == ']') {
            ++depth;
        } else if (--depth == 0) {
            return at;
        }
    }
    return kNotFound;
}

/// Where the package part of \p path ends: before the outermost bracket
/// pair if \p path is package-relative, else its end. Only that part of a
/// path may have its own brackets escaped or unescaped; the packaged part
/// already carries its escapes.
size_t PackagePartEnd(const std::string& path)
{
    if (path.empty() || path.back() != ']') {
        return path.size();
    }
    const size_t open = FindMatchingOpen(path, path.size() - 1);
    return open == kNotFound ? path.size() : open;
}

std::string ReplaceAll(std::string s, const std::string& from, const std::string& to)
{
    for (size_t at = s.find(from); at != std::string::npos; at = s.find(from, at + to.size())) {
        s.replace(at, from.size(), to);
    }
    return s;
}

std::string EscapeBrackets(const std::string& path)
{
    const size_t end = PackagePartEnd(path);
    std::string head = path.substr(0, end);
    head = ReplaceAll(ReplaceAll(head, "[", "\\["), "]", "\\]");
    return head + path.substr(end);
}

std::string UnescapeBrackets(const std::string& path)
{
    const size_t end = PackagePartEnd(path);
    std::string head = path.substr(0, end);
    head = ReplaceAll(ReplaceAll(head, "\\[", "["), "\\]", "]");
    return head + path.substr(end);
}

/// The innermost closing bracket: the first of the trailing run of ']',
/// or the one after it when that first one is escaped.
size_t FindInnermostClose(const std::string& path)
{
    if (path.empty() || path.back() != ']') {
        return kNotFound;
    }
    size_t first = path.size() - 1;
    while (first > 0 && path[first - 1] == ']') {
        --first;
    }
    if (first == 0) {
        return kNotFound;
    }
    if (path[first - 1] == '\\') {
        ++first;
    }
    return first < path.size() ? first : kNotFound;
}

template <class Paths>
std::string Join(const Paths& paths)
{
    std::string joined;
    size_t insertAt = 0;
    for (const std::string* path : paths) {
        if (path->empty()) {
            continue;
        }
        if (joined.empty()) {
            // Later paths go inside the innermost brackets of the first.
            joined = *path;
            insertAt = joined.size();
            while (insertAt > 0 && joined[insertAt - 1] == ']') {
                --insertAt;
            }
            continue;
        }
        const std::string wrapped = '[' + EscapeBrackets(*path) + ']';
        joined.insert(insertAt, wrapped);
        insertAt += wrapped.size() - 1;
    }
    return joined;
}

} // namespace

bool ArIsPackageRelativePath(const std::string& path)
{
    return !path.empty() && path.back() == ']' &&
           FindMatchingOpen(path, path.size() - 1) != kNotFound;
}

std::string ArJoinPackageRelativePath(const std::vector<std::string>& paths)
{
    std::vector<const std::string*> pointers;
    pointers.reserve(paths.size());
    for (const std::string& path : paths) {
        pointers.push_back(&path);
    }
    return Join(pointers);
}

std::string ArJoinPackageRelativePath(const std::pair<std::string, std::string>& paths)
{
    return ArJoinPackageRelativePath(paths.first, paths.second);
}

std::string ArJoinPackageRelativePath(const std::string& packagePath,
                                      const std::string& packagedPath)
{
    const std::string* const pointers[] = {&packagePath, &packagedPath};
    return Join(pointers);
}

std::pair<std::string, std::string> ArSplitPackageRelativePathOuter(const std::string& path)
{
    if (!ArIsPackageRelativePath(path)) {
        return {path, std::string()};
    }
    const size_t close = path.size() - 1;
    const size_t open = FindMatchingOpen(path, close);
    return {path.substr(0, open), UnescapeBrackets(path.substr(open + 1, close - open - 1))};
}

std::pair<std::string, std::string> ArSplitPackageRelativePathInner(const std::string& path)
{
    const size_t close = FindInnermostClose(path);
    const size_t open = close == kNotFound ? kNotFound : FindMatchingOpen(path, close);
    if (open == kNotFound) {
        return {path, std::string()};
    }
    std::string package = path;
    package.erase(open, close - open + 1);
    return {std::move(package), UnescapeBrackets(path.substr(open + 1, close - open - 1))};
}

namespace {

std::string AnchorFilePath(const std::string& anchorIdentifier, const std::string& path)
{
    if (path[0] == '/') {
        return TfNormPath(path);
    }
    const std::pair<std::string, std::string> anchor = ArSplitPackageRelativePathInner(anchorIdentifier);
    if (!anchor.second.empty()) {
        // Inside a package: stay inside it.
        return ArJoinPackageRelativePath(anchor.first,
                                         TfNormPath(TfGetPathName(anchor.second) + path));
    }
    const std::string directory = TfGetPathName(anchorIdentifier);
    return TfNormPath(directory.empty() ? path : directory + path);
}

} // namespace

std::string SdfAnchorAssetPath(const std::string& anchorIdentifier, const std::string& assetPath)
{
    if (assetPath.empty()) {
        return assetPath;
    }
    // Of a package-relative asset path only the outer package path is
    // anchored; what is inside the package is relative to the package.
    const std::pair<std::string, std::string> asset = ArSplitPackageRelativePathOuter(assetPath);
    if (!asset.second.empty() && !asset.first.empty()) {
        return ArJoinPackageRelativePath(AnchorFilePath(anchorIdentifier, asset.first), asset.second);
    }
    return AnchorFilePath(anchorIdentifier, assetPath);
}

PXR_NAMESPACE_CLOSE_SCOPE
