#include "usdcore/usdSkel/topology.h"

#include "usdcore/tf/diagnostic.h"
#include "usdcore/tf/stringUtils.h"

#include <unordered_map>

PXR_NAMESPACE_OPEN_SCOPE

namespace {

using PathIndexMap = std::unordered_map<SdfPath, int, SdfPath::Hash>;

/// The index of the nearest listed ancestor of \p path, or -1.
int ParentIndex(const PathIndexMap& indexOfPath, const SdfPath& path)
{
    if (!path.IsPrimPath()) return -1;
    // Joint paths are normally relative; the walk stops at whichever root the
    // path hangs from. Paths made of ".." climb without end, so they stop the
    // walk as well.
    const SdfPath& root = path.IsAbsolutePath() ? SdfPath::AbsoluteRootPath() : SdfPath::ReflexiveRelativePath();
    static const TfToken parentElement("..");
    if (path == root || path.GetNameToken() == parentElement) return -1;
    for (SdfPath ancestor = path.GetParentPath();
         !ancestor.IsEmpty() && ancestor != root && ancestor.GetNameToken() != parentElement;
         ancestor = ancestor.GetParentPath()) {
        const auto found = indexOfPath.find(ancestor);
        if (found != indexOfPath.end()) return found->second;
    }
    return -1;
}

VtIntArray ParentIndicesOf(const SdfPathVector& paths)
{
    // A path listed twice stands for its last occurrence.
    PathIndexMap indexOfPath;
    indexOfPath.reserve(paths.size());
    for (size_t i = 0; i < paths.size(); ++i) indexOfPath[paths[i]] = static_cast<int>(i);

    VtIntArray parentIndices(paths.size());
    for (size_t i = 0; i < paths.size(); ++i) parentIndices[i] = ParentIndex(indexOfPath, paths[i]);
    return parentIndices;
}

SdfPathVector PathsOf(const VtTokenArray& tokens)
{
    SdfPathVector paths;
    paths.reserve(tokens.size());
    for (const TfToken& token : tokens) paths.emplace_back(token.GetString());
    return paths;
}

} // namespace

UsdSkelTopology::UsdSkelTopology(const VtTokenArray& paths) : _parentIndices(ParentIndicesOf(PathsOf(paths))) {}

UsdSkelTopology::UsdSkelTopology(const SdfPathVector& paths) : _parentIndices(ParentIndicesOf(paths)) {}

UsdSkelTopology::UsdSkelTopology(const VtIntArray& parentIndices) : _parentIndices(parentIndices) {}

bool UsdSkelTopology::Validate(std::string* reason) const
{
    const int* parents = _parentIndices.cdata();
    for (size_t i = 0; i < size(); ++i) {
        const int parent = parents[i];
        if (parent < 0 || static_cast<size_t>(parent) < i) continue;
        if (reason) {
            *reason = static_cast<size_t>(parent) == i
                          ? TfStringPrintf("Joint %zu has itself as its parent.", i)
                          : TfStringPrintf("Joint %zu has mis-ordered parent %d. Joints are expected to be "
                                           "ordered with parent joints always coming before children.",
                                           i, parent);
        }
        return false;
    }
    return true;
}

int UsdSkelTopology::GetParent(size_t index) const
{
    if (index >= _parentIndices.size()) {
        TF_CODING_ERROR("joint index %zu is past the %zu joints of the topology", index, _parentIndices.size());
        return -1;
    }
    return _parentIndices.cdata()[index];
}

PXR_NAMESPACE_CLOSE_SCOPE
