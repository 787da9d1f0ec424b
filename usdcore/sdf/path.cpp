#include "usdcore/sdf/path.h"

#include "usdcore/sdf/pathNode.h"
#include "usdcore/sdf/pathParser.h"
#include "usdcore/tf/diagnostic.h"

#include <algorithm>
#include <ostream>
#include <string_view>

PXR_NAMESPACE_OPEN_SCOPE

using NodeType = Sdf_PathNodeType;

namespace {

const TfToken& DotDotToken()
{
    static const TfToken* token = new TfToken("..");
    return *token;
}

bool IsDotDot(const Sdf_PathNode* node)
{
    return node->type == NodeType::Prim && node->name == DotDotToken();
}

const Sdf_PathNode* Append(const Sdf_PathNode* parent, NodeType type, const TfToken& name,
                           const TfToken& variant = TfToken(),
                           const Sdf_PathNode* target = nullptr)
{
    return Sdf_FindOrCreatePathNode(parent, type, name, variant, target);
}

/// The nearest ancestor-or-self that is a root, prim or variant selection:
/// what OpenUSD calls the prim part of a path.
const Sdf_PathNode* PrimPart(const Sdf_PathNode* node)
{
    while (!node->IsPrimLike()) {
        node = node->parent;
    }
    return node;
}

const Sdf_PathNode* AncestorAtCount(const Sdf_PathNode* node, uint32_t count)
{
    while (node->elementCount > count) {
        node = node->parent;
    }
    return node;
}

bool NodeLess(const Sdf_PathNode* l, const Sdf_PathNode* r);

// Siblings: kind first, then the element's own content.
bool SiblingLess(const Sdf_PathNode* l, const Sdf_PathNode* r)
{
    if (l->type != r->type) {
        return l->type < r->type;
    }
    switch (l->type) {
    case NodeType::PrimVariantSelection:
        if (l->name != r->name) {
            return l->name < r->name;
        }
        return l->variant < r->variant;
    case NodeType::Target:
    case NodeType::Mapper:
        return NodeLess(l->target, r->target);
    default:
        return l->name < r->name;
    }
}

// Both nodes are absolute or both relative. A prefix sorts before what
// extends it; otherwise the first differing elements under a common parent
// decide.
bool NodeLess(const Sdf_PathNode* l, const Sdf_PathNode* r)
{
    if (l == r) {
        return false;
    }
    if (l->absolute != r->absolute) {
        return l->absolute;
    }
    const uint32_t lCount = l->elementCount;
    const uint32_t rCount = r->elementCount;
    if (lCount == 0 || rCount == 0) {
        return lCount == 0 && rCount != 0;
    }
    l = AncestorAtCount(l, rCount);
    r = AncestorAtCount(r, lCount);
    if (l == r) {
        return lCount < rCount;
    }
    while (l->parent != r->parent) {
        l = l->parent;
        r = r->parent;
    }
    return SiblingLess(l, r);
}

/// \p node re-made over \p base: the elements of \p node below
/// \p stopCount are appended to \p base in order, with \p mapTarget
/// applied to target paths.
template <class MapTarget>
const Sdf_PathNode* Rebase(const Sdf_PathNode* node, uint32_t stopCount, const Sdf_PathNode* base,
                           MapTarget&& mapTarget)
{
    std::vector<const Sdf_PathNode*> chain;
    for (const Sdf_PathNode* n = node; n->elementCount > stopCount; n = n->parent) {
        chain.push_back(n);
    }
    const Sdf_PathNode* result = base;
    for (auto it = chain.rbegin(); it != chain.rend() && result; ++it) {
        const Sdf_PathNode* n = *it;
        const Sdf_PathNode* target = n->target ? mapTarget(n->target) : nullptr;
        if (n->target && !target) {
            return nullptr;
        }
        result = Append(result, n->type, n->name, n->variant, target);
    }
    return result;
}

const Sdf_PathNode* Identity(const Sdf_PathNode* node)
{
    return node;
}

} // namespace

SdfPath::SdfPath(const std::string& path)
{
    if (path.empty()) {
        return;
    }
    std::string error;
    *this = Sdf_PathParser::Parse(path, &error);
    if (IsEmpty()) {
        TF_WARN("Ill-formed SdfPath <%s>: %s", path.c_str(), error.c_str());
    }
}

const SdfPath& SdfPath::EmptyPath()
{
    static const SdfPath empty;
    return empty;
}

const SdfPath& SdfPath::AbsoluteRootPath()
{
    static const SdfPath root(Sdf_AbsoluteRootNode());
    return root;
}

const SdfPath& SdfPath::ReflexiveRelativePath()
{
    static const SdfPath root(Sdf_RelativeRootNode());
    return root;
}

size_t SdfPath::GetPathElementCount() const
{
    return _node ? _node->elementCount : 0;
}

bool SdfPath::IsAbsolutePath() const
{
    return _node && _node->absolute;
}

bool SdfPath::IsAbsoluteRootPath() const
{
    return _node == Sdf_AbsoluteRootNode();
}

bool SdfPath::IsPrimPath() const
{
    return _node && (_node->type == NodeType::Prim || _node == Sdf_RelativeRootNode());
}

bool SdfPath::IsAbsoluteRootOrPrimPath() const
{
    return IsPrimPath() || IsAbsoluteRootPath();
}

bool SdfPath::IsRootPrimPath() const
{
    return _node && _node->absolute && _node->type == NodeType::Prim && _node->elementCount == 1;
}

bool SdfPath::IsPropertyPath() const
{
    return _node &&
           (_node->type == NodeType::PrimProperty || _node->type == NodeType::RelationalAttribute);
}

bool SdfPath::IsPrimPropertyPath() const
{
    return _node && _node->type == NodeType::PrimProperty;
}

bool SdfPath::IsNamespacedPropertyPath() const
{
    return IsPropertyPath() && _node->name.GetString().find(':') != std::string::npos;
}

bool SdfPath::IsPrimVariantSelectionPath() const
{
    return _node && _node->type == NodeType::PrimVariantSelection;
}

bool SdfPath::IsPrimOrPrimVariantSelectionPath() const
{
    return IsPrimPath() || IsPrimVariantSelectionPath();
}

bool SdfPath::ContainsPrimVariantSelection() const
{
    return _node && _node->containsVariantSelection;
}

bool SdfPath::ContainsPropertyElements() const
{
    return _node && !_node->IsPrimLike();
}

bool SdfPath::ContainsTargetPath() const
{
    return _node && _node->containsTarget;
}

bool SdfPath::IsRelationalAttributePath() const
{
    return _node && _node->type == NodeType::RelationalAttribute;
}

bool SdfPath::IsTargetPath() const
{
    return _node && _node->type == NodeType::Target;
}

bool SdfPath::IsMapperPath() const
{
    return _node && _node->type == NodeType::Mapper;
}

bool SdfPath::IsMapperArgPath() const
{
    return _node && _node->type == NodeType::MapperArg;
}

bool SdfPath::IsExpressionPath() const
{
    return _node && _node->type == NodeType::Expression;
}

TfToken SdfPath::GetAsToken() const
{
    return _node ? TfToken(GetString()) : TfToken();
}

const std::string& SdfPath::GetString() const
{
    static const std::string empty;
    return _node ? Sdf_PathNodeText(_node) : empty;
}

SdfPathVector SdfPath::GetPrefixes() const
{
    SdfPathVector prefixes(GetPathElementCount());
    const Sdf_PathNode* node = _node;
    for (size_t i = prefixes.size(); i > 0; --i, node = node->parent) {
        prefixes[i - 1] = SdfPath(node);
    }
    return prefixes;
}

const TfToken& SdfPath::GetNameToken() const
{
    static const TfToken* const empty = new TfToken();
    static const TfToken* const expression = new TfToken("expression");
    if (!_node) {
        return *empty;
    }
    switch (_node->type) {
    case NodeType::PrimVariantSelection:
        // The selected variant, or the set when the selection is empty.
        return _node->variant.IsEmpty() ? _node->name : _node->variant;
    case NodeType::Expression:
        return *expression;
    case NodeType::Target:
    case NodeType::Mapper:
        return *empty;
    default:
        return _node->name;
    }
}

std::string SdfPath::GetElementString() const
{
    // The roots are not elements.
    return _node && _node->type != NodeType::Root ? Sdf_PathNodeElementString(_node)
                                                  : std::string();
}

TfToken SdfPath::GetElementToken() const
{
    return TfToken(GetElementString());
}

std::pair<std::string, std::string> SdfPath::GetVariantSelection() const
{
    if (!IsPrimVariantSelectionPath()) {
        return {};
    }
    return {_node->name.GetString(), _node->variant.GetString()};
}

bool SdfPath::HasPrefix(const SdfPath& prefix) const
{
    if (!_node || !prefix._node || _node->absolute != prefix._node->absolute) {
        return false;
    }
    if (prefix._node->elementCount > _node->elementCount) {
        return false;
    }
    return AncestorAtCount(_node, prefix._node->elementCount) == prefix._node;
}

SdfPath SdfPath::GetParentPath() const
{
    if (!_node || _node == Sdf_AbsoluteRootNode()) {
        return SdfPath();
    }
    // Above "." and "../.." lies one more "..".
    if (_node == Sdf_RelativeRootNode() || IsDotDot(_node)) {
        return SdfPath(Append(_node, NodeType::Prim, DotDotToken()));
    }
    return SdfPath(_node->parent);
}

SdfPath SdfPath::GetPrimPath() const
{
    if (!_node) {
        return SdfPath();
    }
    const Sdf_PathNode* node = _node;
    while (node->type != NodeType::Prim && node->type != NodeType::Root) {
        node = node->parent;
    }
    return SdfPath(node);
}

SdfPath SdfPath::GetPrimOrPrimVariantSelectionPath() const
{
    return _node ? SdfPath(PrimPart(_node)) : SdfPath();
}

SdfPath SdfPath::GetAbsoluteRootOrPrimPath() const
{
    return IsAbsoluteRootPath() ? *this : GetPrimPath();
}

SdfPath SdfPath::StripAllVariantSelections() const
{
    if (!ContainsPrimVariantSelection()) {
        return *this;
    }
    std::vector<const Sdf_PathNode*> chain;
    const Sdf_PathNode* root = _node;
    for (; root->type != NodeType::Root; root = root->parent) {
        chain.push_back(root);
    }
    const Sdf_PathNode* result = root;
    for (auto it = chain.rbegin(); it != chain.rend(); ++it) {
        const Sdf_PathNode* n = *it;
        if (n->type != NodeType::PrimVariantSelection) {
            result = Append(result, n->type, n->name, n->variant, n->target);
        }
    }
    return SdfPath(result);
}

SdfPath SdfPath::GetTargetPath() const
{
    if (!ContainsTargetPath()) {
        return SdfPath();
    }
    const Sdf_PathNode* node = _node;
    while (!node->target) {
        node = node->parent;
    }
    return SdfPath(node->target);
}

SdfPath SdfPath::AppendPath(const SdfPath& newSuffix) const
{
    if (!_node || !newSuffix._node) {
        return SdfPath();
    }
    if (newSuffix._node->absolute) {
        TF_CODING_ERROR("Cannot append absolute path <%s> to <%s>", newSuffix.GetText(),
                        GetText());
        return SdfPath();
    }
    if (newSuffix._node == Sdf_RelativeRootNode()) {
        return *this;
    }
    if (!_node->IsPrimLike()) {
        TF_CODING_ERROR("Cannot append <%s> to the non-prim path <%s>", newSuffix.GetText(),
                        GetText());
        return SdfPath();
    }
    const Sdf_PathNode* result = Rebase(newSuffix._node, 0, _node, Identity);
    return SdfPath(result);
}

SdfPath SdfPath::AppendChild(const TfToken& childName) const
{
    if (!_node) {
        return SdfPath();
    }
    if (!_node->IsPrimLike()) {
        TF_CODING_ERROR("Cannot append child '%s' to <%s>", childName.GetText(), GetText());
        return SdfPath();
    }
    if (!IsValidIdentifier(childName.GetString()) && childName != DotDotToken()) {
        TF_CODING_ERROR("Invalid prim name '%s'", childName.GetText());
        return SdfPath();
    }
    return SdfPath(Append(_node, NodeType::Prim, childName));
}

SdfPath SdfPath::AppendProperty(const TfToken& propName) const
{
    if (!_node) {
        return SdfPath();
    }
    if (!_node->IsPrimLike() || _node == Sdf_AbsoluteRootNode() || IsDotDot(_node)) {
        TF_CODING_ERROR("Cannot append property '%s' to <%s>", propName.GetText(), GetText());
        return SdfPath();
    }
    if (!IsValidNamespacedIdentifier(propName.GetString())) {
        TF_CODING_ERROR("Invalid property name '%s'", propName.GetText());
        return SdfPath();
    }
    return SdfPath(Append(_node, NodeType::PrimProperty, propName));
}

SdfPath Sdf_FindPropertyPath(const SdfPath& primPath, const TfToken& name)
{
    if (!primPath._node) {
        return SdfPath();
    }
    if (const Sdf_PathNode* node =
            Sdf_FindPathNode(primPath._node, NodeType::PrimProperty, name, TfToken(), nullptr)) {
        return SdfPath(node);
    }
    const Sdf_PathNode* prim = primPath._node;
    if (!prim->IsPrimLike() || prim == Sdf_AbsoluteRootNode() || IsDotDot(prim) ||
        !SdfPath::IsValidNamespacedIdentifier(name.GetString())) {
        return primPath.AppendProperty(name); // refused, with its diagnostic
    }
    return SdfPath();
}

SdfPath SdfPath::AppendVariantSelection(const std::string& variantSet,
                                        const std::string& variant) const
{
    if (!IsPrimOrPrimVariantSelectionPath() || _node == Sdf_RelativeRootNode() ||
        IsDotDot(_node)) {
        TF_CODING_ERROR("Cannot append variant selection {%s=%s} to <%s>", variantSet.c_str(),
                        variant.c_str(), GetText());
        return SdfPath();
    }
    return SdfPath(
        Append(_node, NodeType::PrimVariantSelection, TfToken(variantSet), TfToken(variant)));
}

SdfPath SdfPath::AppendTarget(const SdfPath& targetPath) const
{
    if (!targetPath._node || !(IsPrimPropertyPath() || IsRelationalAttributePath())) {
        TF_CODING_ERROR("Cannot append target <%s> to <%s>", targetPath.GetText(), GetText());
        return SdfPath();
    }
    return SdfPath(Append(_node, NodeType::Target, TfToken(), TfToken(), targetPath._node));
}

SdfPath SdfPath::AppendRelationalAttribute(const TfToken& attrName) const
{
    if (!IsTargetPath() || !IsValidNamespacedIdentifier(attrName.GetString())) {
        TF_CODING_ERROR("Cannot append relational attribute '%s' to <%s>", attrName.GetText(),
                        GetText());
        return SdfPath();
    }
    return SdfPath(Append(_node, NodeType::RelationalAttribute, attrName));
}

SdfPath SdfPath::AppendMapper(const SdfPath& targetPath) const
{
    if (!targetPath._node || !IsPropertyPath()) {
        TF_CODING_ERROR("Cannot append mapper <%s> to <%s>", targetPath.GetText(), GetText());
        return SdfPath();
    }
    return SdfPath(Append(_node, NodeType::Mapper, TfToken(), TfToken(), targetPath._node));
}

SdfPath SdfPath::AppendMapperArg(const TfToken& argName) const
{
    if (!IsMapperPath() || !IsValidIdentifier(argName.GetString())) {
        TF_CODING_ERROR("Cannot append mapper argument '%s' to <%s>", argName.GetText(),
                        GetText());
        return SdfPath();
    }
    return SdfPath(Append(_node, NodeType::MapperArg, argName));
}

SdfPath SdfPath::AppendExpression() const
{
    if (!IsPropertyPath()) {
        TF_CODING_ERROR("Cannot append an expression to <%s>", GetText());
        return SdfPath();
    }
    return SdfPath(Append(_node, NodeType::Expression, TfToken()));
}

SdfPath SdfPath::AppendElementString(const std::string& element) const
{
    if (!_node || element.empty()) {
        return _node && element.empty() ? *this : SdfPath();
    }
    std::string error;
    SdfPath result = Sdf_PathParser::ParseElements(*this, element, &error);
    if (result.IsEmpty() || result.GetPathElementCount() != GetPathElementCount() + 1) {
        TF_CODING_ERROR("Cannot append element '%s' to <%s>%s%s", element.c_str(), GetText(),
                        error.empty() ? "" : ": ", error.c_str());
        return SdfPath();
    }
    return result;
}

SdfPath SdfPath::AppendElementToken(const TfToken& elementTok) const
{
    // The crate reader names most prims this way: a plain name needs no
    // parsing and no second trip through the token table.
    if (_node && _node->IsPrimLike() && IsValidIdentifier(elementTok.GetString())) {
        return SdfPath(Append(_node, NodeType::Prim, elementTok));
    }
    return AppendElementString(elementTok.GetString());
}

SdfPath SdfPath::ReplacePrefix(const SdfPath& oldPrefix, const SdfPath& newPrefix,
                               bool fixTargetPaths) const
{
    if (!_node || oldPrefix == newPrefix || oldPrefix.IsEmpty() || newPrefix.IsEmpty()) {
        return *this;
    }
    const auto mapTarget = [&](const Sdf_PathNode* target) {
        return fixTargetPaths
                   ? SdfPath(target).ReplacePrefix(oldPrefix, newPrefix, fixTargetPaths)._node
                   : target;
    };
    if (HasPrefix(oldPrefix)) {
        return SdfPath(Rebase(_node, oldPrefix._node->elementCount, newPrefix._node, mapTarget));
    }
    if (fixTargetPaths && _node->containsTarget) {
        const Sdf_PathNode* root = AncestorAtCount(_node, 0);
        return SdfPath(Rebase(_node, 0, root, mapTarget));
    }
    return *this;
}

SdfPath SdfPath::GetCommonPrefix(const SdfPath& path) const
{
    if (!_node || !path._node || _node->absolute != path._node->absolute) {
        return SdfPath();
    }
    const Sdf_PathNode* l = AncestorAtCount(_node, path._node->elementCount);
    const Sdf_PathNode* r = AncestorAtCount(path._node, _node->elementCount);
    while (l != r) {
        l = l->parent;
        r = r->parent;
    }
    return SdfPath(l);
}

SdfPath SdfPath::MakeAbsolutePath(const SdfPath& anchor) const
{
    if (!_node) {
        return SdfPath();
    }
    if (!anchor.IsAbsolutePath() || !anchor._node->IsPrimLike()) {
        TF_CODING_ERROR("The anchor <%s> is not an absolute prim path", anchor.GetText());
        return SdfPath();
    }
    if (_node->absolute) {
        return *this;
    }
    std::vector<const Sdf_PathNode*> chain;
    for (const Sdf_PathNode* n = _node; n->type != NodeType::Root; n = n->parent) {
        chain.push_back(n);
    }
    const Sdf_PathNode* result = anchor._node;
    for (auto it = chain.rbegin(); it != chain.rend(); ++it) {
        const Sdf_PathNode* n = *it;
        if (IsDotDot(n)) {
            if (result == Sdf_AbsoluteRootNode()) {
                // More ".." than the anchor has elements.
                return SdfPath();
            }
            result = result->parent;
            continue;
        }
        const Sdf_PathNode* target =
            n->target ? SdfPath(n->target).MakeAbsolutePath(anchor)._node : nullptr;
        if (n->target && !target) {
            return SdfPath();
        }
        result = Append(result, n->type, n->name, n->variant, target);
    }
    return SdfPath(result);
}

SdfPath SdfPath::MakeRelativePath(const SdfPath& anchor) const
{
    if (!_node) {
        return SdfPath();
    }
    if (!anchor.IsAbsolutePath() || !anchor._node->IsPrimLike()) {
        TF_CODING_ERROR("The anchor <%s> is not an absolute prim path", anchor.GetText());
        return SdfPath();
    }
    const SdfPath absolute = MakeAbsolutePath(anchor);
    if (absolute.IsEmpty()) {
        return SdfPath();
    }
    const SdfPath common = absolute.GetCommonPrefix(anchor);
    const Sdf_PathNode* result = Sdf_RelativeRootNode();
    for (uint32_t i = common._node->elementCount; i < anchor._node->elementCount; ++i) {
        result = Append(result, NodeType::Prim, DotDotToken());
    }
    return SdfPath(Rebase(absolute._node, common._node->elementCount, result, Identity));
}

namespace {

bool IsIdentifierStartByte(unsigned char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' || c >= 0x80;
}

// Checked in place: path building calls this for every appended name.
bool IsIdentifierText(std::string_view name)
{
    if (name.empty() || !IsIdentifierStartByte(static_cast<unsigned char>(name[0]))) {
        return false;
    }
    return std::all_of(name.begin() + 1, name.end(), [](char c) {
        return IsIdentifierStartByte(static_cast<unsigned char>(c)) || (c >= '0' && c <= '9');
    });
}

} // namespace

bool SdfPath::IsValidIdentifier(const std::string& name)
{
    return IsIdentifierText(name);
}

bool SdfPath::IsValidNamespacedIdentifier(const std::string& name)
{
    const std::string_view text(name);
    size_t start = 0;
    while (true) {
        const size_t colon = text.find(':', start);
        if (!IsIdentifierText(text.substr(start, colon - start))) {
            return false;
        }
        if (colon == std::string_view::npos) {
            return true;
        }
        start = colon + 1;
    }
}

bool SdfPath::IsValidPathString(const std::string& pathString, std::string* errMsg)
{
    std::string error;
    const bool valid = !Sdf_PathParser::Parse(pathString, &error).IsEmpty();
    if (!valid && errMsg) {
        *errMsg = error;
    }
    return valid;
}

bool SdfPath::operator<(const SdfPath& o) const
{
    if (_node == o._node) {
        return false;
    }
    if (!_node || !o._node) {
        return !_node;
    }
    if (_node->absolute != o._node->absolute) {
        return _node->absolute;
    }
    // The prim part decides first; only paths on the same prim are ordered
    // by their property part, and a prim sorts before its properties.
    const Sdf_PathNode* lPrim = PrimPart(_node);
    const Sdf_PathNode* rPrim = PrimPart(o._node);
    if (lPrim != rPrim) {
        return NodeLess(lPrim, rPrim);
    }
    if (_node == lPrim || o._node == rPrim) {
        return _node == lPrim;
    }
    return NodeLess(_node, o._node);
}

std::ostream& operator<<(std::ostream& out, const SdfPath& path)
{
    return out << path.GetString();
}

PXR_NAMESPACE_CLOSE_SCOPE
