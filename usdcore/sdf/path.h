#pragma once

#include "usdcore/pxr.h"
#include "usdcore/tf/token.h"

#include <cstddef>
#include <iosfwd>
#include <string>
#include <utility>
#include <vector>

PXR_NAMESPACE_OPEN_SCOPE

struct Sdf_PathNode;
class SdfPath;

using SdfPathVector = std::vector<SdfPath>;

/// A path to a prim, property, variant selection, relationship target,
/// relational attribute or mapper in scene description.
///
/// Every distinct path is one immutable node in a process-wide table, made
/// once and never freed, holding its parent node and its last element. An
/// SdfPath is a pointer to such a node, so copying, comparing for equality,
/// hashing and taking the parent are O(1), and a layer with a million prims
/// stores each shared prefix once.
class SdfPath
{
public:
    struct Hash {
        size_t operator()(const SdfPath& path) const { return path.GetHash(); }
    };
    /// Orders by node address: fast and stable within one run, but not the
    /// text order that operator< gives.
    struct FastLessThan {
        bool operator()(const SdfPath& a, const SdfPath& b) const { return a._node < b._node; }
    };

    /// The empty path.
    SdfPath() noexcept = default;
    /// Parses \p path; ill-formed text gives the empty path and a warning.
    explicit SdfPath(const std::string& path);

    static const SdfPath& EmptyPath();
    /// "/"
    static const SdfPath& AbsoluteRootPath();
    /// "."
    static const SdfPath& ReflexiveRelativePath();

    size_t GetPathElementCount() const;
    bool IsAbsolutePath() const;
    bool IsAbsoluteRootPath() const;
    bool IsPrimPath() const;
    bool IsAbsoluteRootOrPrimPath() const;
    bool IsRootPrimPath() const;
    bool IsPropertyPath() const;
    bool IsPrimPropertyPath() const;
    bool IsNamespacedPropertyPath() const;
    bool IsPrimVariantSelectionPath() const;
    bool IsPrimOrPrimVariantSelectionPath() const;
    bool ContainsPrimVariantSelection() const;
    bool ContainsPropertyElements() const;
    bool ContainsTargetPath() const;
    bool IsRelationalAttributePath() const;
    bool IsTargetPath() const;
    bool IsMapperPath() const;
    bool IsMapperArgPath() const;
    bool IsExpressionPath() const;
    bool IsEmpty() const noexcept { return _node == nullptr; }

    TfToken GetAsToken() const;
    const std::string& GetString() const;
    const char* GetText() const { return GetString().c_str(); }

    /// Every prefix of this path from the first element down to the path
    /// itself; the roots "/" and "." are not included.
    SdfPathVector GetPrefixes() const;

    const std::string& GetName() const { return GetNameToken().GetString(); }
    const TfToken& GetNameToken() const;
    std::string GetElementString() const;
    TfToken GetElementToken() const;

    /// (variant set, variant) of a variant-selection path, else two empty strings.
    std::pair<std::string, std::string> GetVariantSelection() const;

    bool HasPrefix(const SdfPath& prefix) const;

    SdfPath GetParentPath() const;
    SdfPath GetPrimPath() const;
    SdfPath GetPrimOrPrimVariantSelectionPath() const;
    SdfPath GetAbsoluteRootOrPrimPath() const;
    SdfPath StripAllVariantSelections() const;
    /// The target of a target, relational attribute or mapper path, else empty.
    SdfPath GetTargetPath() const;

    SdfPath AppendPath(const SdfPath& newSuffix) const;
    SdfPath AppendChild(const TfToken& childName) const;
    SdfPath AppendProperty(const TfToken& propName) const;
    SdfPath AppendVariantSelection(const std::string& variantSet,
                                   const std::string& variant) const;
    SdfPath AppendTarget(const SdfPath& targetPath) const;
    SdfPath AppendRelationalAttribute(const TfToken& attrName) const;
    SdfPath AppendMapper(const SdfPath& targetPath) const;
    SdfPath AppendMapperArg(const TfToken& argName) const;
    SdfPath AppendExpression() const;
    /// Appends one element given in its text form: "child", ".prop",
    /// "{set=variant}", "[/target]"...
    SdfPath AppendElementString(const std::string& element) const;
    SdfPath AppendElementToken(const TfToken& elementTok) const;

    SdfPath ReplacePrefix(const SdfPath& oldPrefix, const SdfPath& newPrefix,
                          bool fixTargetPaths = true) const;
    SdfPath GetCommonPrefix(const SdfPath& path) const;
    SdfPath MakeAbsolutePath(const SdfPath& anchor) const;
    SdfPath MakeRelativePath(const SdfPath& anchor) const;

    static bool IsValidIdentifier(const std::string& name);
    static bool IsValidNamespacedIdentifier(const std::string& name);
    static bool IsValidPathString(const std::string& pathString, std::string* errMsg = nullptr);

    size_t GetHash() const noexcept { return std::hash<const void*>()(_node); }

    bool operator==(const SdfPath& o) const noexcept { return _node == o._node; }
    bool operator!=(const SdfPath& o) const noexcept { return _node != o._node; }
    /// OpenUSD's order: the empty path first, absolute before relative
    /// paths, a prefix before what extends it, siblings by element text;
    /// a prim's properties come before its children.
    bool operator<(const SdfPath& o) const;
    bool operator>(const SdfPath& o) const { return o < *this; }
    bool operator<=(const SdfPath& o) const { return !(o < *this); }
    bool operator>=(const SdfPath& o) const { return !(*this < o); }

    void swap(SdfPath& o) noexcept { std::swap(_node, o._node); }

private:
    friend struct Sdf_PathParser;
    friend SdfPath Sdf_FindPropertyPath(const SdfPath& primPath, const TfToken& name);
    explicit SdfPath(const Sdf_PathNode* node) noexcept : _node(node) {}

    const Sdf_PathNode* _node = nullptr;
};

inline size_t hash_value(const SdfPath& path) { return path.GetHash(); }

/// primPath.AppendProperty(name) when that path was ever made, else the empty
/// path, without making it: a layer can only hold specs at paths that exist,
/// so lookups of properties that nothing authored leave the path table as it
/// was. Requests AppendProperty would refuse still report as it does.
SdfPath Sdf_FindPropertyPath(const SdfPath& primPath, const TfToken& name);

std::ostream& operator<<(std::ostream& out, const SdfPath& path);

PXR_NAMESPACE_CLOSE_SCOPE

template <>
struct std::hash<PXR_NS::SdfPath> {
    size_t operator()(const PXR_NS::SdfPath& path) const { return path.GetHash(); }
};
