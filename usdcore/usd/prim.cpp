#include "usdcore/usd/prim.h"

#include "usdcore/sdf/listOp.h"
#include "usdcore/sdf/schema.h"
#include "usdcore/usd/nameOrder.h"
#include "usdcore/usd/primData.h"
#include "usdcore/usd/schemaRegistry.h"

#include <algorithm>

PXR_NAMESPACE_OPEN_SCOPE

namespace {

const TfToken& ApiSchemasKey()
{
    static const TfToken key("apiSchemas");
    return key;
}

// "primvars" and "primvars:" both name the namespace "primvars:".
std::string NamespacePrefix(const std::string& namespaces)
{
    if (namespaces.empty() || namespaces.back() == ':') return namespaces;
    return namespaces + ':';
}

} // namespace

UsdPrim UsdPrim::GetParent() const
{
    return UsdPrim(_prim ? _prim->parent : nullptr);
}

UsdPrim::SiblingRange UsdPrim::GetFilteredChildren(const Usd_PrimFlagsPredicate& predicate) const
{
    if (!_prim) return SiblingRange();
    return SiblingRange(UsdPrimSiblingIterator(_prim->firstChild, Usd_PredicateBelow(*_prim, predicate)),
                        UsdPrimSiblingIterator());
}

UsdPrim::SiblingRange UsdPrim::GetChildren() const
{
    return GetFilteredChildren(UsdPrimDefaultPredicate);
}

UsdPrim::SiblingRange UsdPrim::GetAllChildren() const
{
    return GetFilteredChildren(UsdPrimAllPrimsPredicate);
}

UsdPrim UsdPrim::GetChild(const TfToken& name) const
{
    if (!_prim) return UsdPrim();
    for (const Usd_PrimData* child = _prim->firstChild; child; child = child->nextSibling) {
        if (child->path.GetNameToken() == name) return UsdPrim(child);
    }
    return UsdPrim();
}

const TfToken& UsdPrim::GetTypeName() const
{
    static const TfToken empty;
    return _prim ? _prim->typeName : empty;
}

SdfSpecifier UsdPrim::GetSpecifier() const { return _prim ? _prim->specifier : SdfSpecifierOver; }
bool UsdPrim::IsPseudoRoot() const { return _prim && _prim->Has(Usd_PrimPseudoRootFlag); }
bool UsdPrim::IsActive() const { return _prim && _prim->Has(Usd_PrimActiveFlag); }
bool UsdPrim::IsLoaded() const { return _prim && _prim->Has(Usd_PrimLoadedFlag); }
bool UsdPrim::IsDefined() const { return _prim && _prim->Has(Usd_PrimDefinedFlag); }
bool UsdPrim::IsAbstract() const { return _prim && _prim->Has(Usd_PrimAbstractFlag); }
bool UsdPrim::HasDefiningSpecifier() const { return _prim && _prim->Has(Usd_PrimHasDefiningSpecifierFlag); }
bool UsdPrim::IsInstance() const { return _prim && _prim->Has(Usd_PrimInstanceFlag); }
bool UsdPrim::IsInstanceProxy() const { return _prim && _prim->Has(Usd_PrimInstanceProxyFlag); }
bool UsdPrim::HasPayload() const { return _prim && _prim->Has(Usd_PrimHasPayloadFlag); }

bool UsdPrim::IsInstanceable() const
{
    bool instanceable = false;
    return GetMetadata(SdfFieldKeys->Instanceable, &instanceable) && instanceable;
}

std::vector<TfToken> UsdPrim::GetAppliedSchemas() const
{
    std::vector<TfToken> schemas;
    if (!_prim) return schemas;
    for (const Usd_Opinion* opinion = _prim->OpinionsEnd(); opinion != _prim->OpinionsBegin();) {
        --opinion;
        const VtValue* value = Usd_FindField(*opinion->fields, ApiSchemasKey());
        if (value && value->IsHolding<SdfTokenListOp>()) {
            value->UncheckedGet<SdfTokenListOp>().ApplyOperations(&schemas);
        }
    }
    return schemas;
}

bool UsdPrim::HasAPI(const TfToken& schemaIdentifier) const
{
    const std::vector<TfToken> schemas = GetAppliedSchemas();
    return std::find(schemas.begin(), schemas.end(), schemaIdentifier) != schemas.end();
}

bool UsdPrim::IsA(const TfToken& schemaIdentifier) const
{
    return _prim && Usd_SchemaTypeIsA(_prim->typeName, schemaIdentifier);
}

std::vector<TfToken> UsdPrim::_GetPropertyNames(bool onlyAuthored, const std::string& prefix) const
{
    std::vector<TfToken> names;
    if (!_prim) return names;
    const auto inNamespace = [&prefix](const TfToken& name) {
        return name.GetString().compare(0, prefix.size(), prefix) == 0;
    };
    for (const Usd_Opinion* opinion = _prim->OpinionsBegin(); opinion != _prim->OpinionsEnd(); ++opinion) {
        const VtValue* value = Usd_FindField(*opinion->fields, SdfChildrenKeys->PropertyChildren);
        if (value && value->IsHolding<std::vector<TfToken>>()) {
            for (const TfToken& name : value->UncheckedGet<std::vector<TfToken>>()) {
                if (inNamespace(name)) names.push_back(name);
            }
        }
    }
    if (!onlyAuthored) {
        for (const Usd_BuiltinAttribute* builtin : Usd_GetBuiltinAttributes(_prim->typeName)) {
            if (inNamespace(builtin->name)) names.push_back(builtin->name);
        }
    }
    // Identical tokens are adjacent after sorting by text, whatever the
    // dictionary order does with names that differ by case.
    std::sort(names.begin(), names.end(), [](const TfToken& a, const TfToken& b) {
        return a.GetString() < b.GetString();
    });
    names.erase(std::unique(names.begin(), names.end()), names.end());
    std::sort(names.begin(), names.end(), [](const TfToken& a, const TfToken& b) {
        return Usd_DictionaryLessThan()(a.GetString(), b.GetString());
    });
    return names;
}

std::vector<SdfSpecType> UsdPrim::_GetPropertyTypes(const std::vector<TfToken>& names) const
{
    std::vector<SdfSpecType> types;
    types.reserve(names.size());
    for (const TfToken& name : names) {
        types.push_back(UsdProperty(UsdTypeProperty, _prim, name)._GetDefiningSpecType());
    }
    return types;
}

std::vector<UsdProperty> UsdPrim::_MakeProperties(const std::vector<TfToken>& names) const
{
    std::vector<UsdProperty> properties;
    for (const TfToken& name : names) {
        UsdProperty property(UsdTypeProperty, _prim, name);
        if (property.IsValid()) properties.push_back(property);
    }
    return properties;
}

std::vector<UsdProperty> UsdPrim::GetPropertiesInNamespace(const std::string& namespaces) const
{
    return _MakeProperties(_GetPropertyNames(false, NamespacePrefix(namespaces)));
}

std::vector<UsdProperty> UsdPrim::GetAuthoredPropertiesInNamespace(const std::string& namespaces) const
{
    return _MakeProperties(_GetPropertyNames(true, NamespacePrefix(namespaces)));
}

std::vector<UsdAttribute> UsdPrim::_MakeAttributes(const std::vector<TfToken>& names) const
{
    std::vector<UsdAttribute> attributes;
    const std::vector<SdfSpecType> types = _GetPropertyTypes(names);
    for (size_t i = 0; i < names.size(); ++i) {
        if (types[i] == SdfSpecTypeAttribute) attributes.push_back(UsdAttribute(_prim, names[i]));
    }
    return attributes;
}

std::vector<UsdRelationship> UsdPrim::GetRelationships() const
{
    std::vector<UsdRelationship> relationships;
    const std::vector<TfToken> names = GetPropertyNames();
    const std::vector<SdfSpecType> types = _GetPropertyTypes(names);
    for (size_t i = 0; i < names.size(); ++i) {
        if (types[i] == SdfSpecTypeRelationship) relationships.push_back(UsdRelationship(_prim, names[i]));
    }
    return relationships;
}

UsdAttribute UsdPrim::GetAttribute(const TfToken& attrName) const
{
    return _prim ? UsdAttribute(_prim, attrName) : UsdAttribute();
}

UsdRelationship UsdPrim::GetRelationship(const TfToken& relName) const
{
    return _prim ? UsdRelationship(_prim, relName) : UsdRelationship();
}

UsdProperty UsdPrim::GetProperty(const TfToken& propName) const
{
    return _prim ? UsdProperty(UsdTypeProperty, _prim, propName) : UsdProperty();
}

UsdPrimSiblingIterator::UsdPrimSiblingIterator(const Usd_PrimData* prim, const Usd_PrimFlagsPredicate& predicate)
    : _prim(prim), _predicate(predicate)
{
    _SkipUnmatched();
}

UsdPrimSiblingIterator& UsdPrimSiblingIterator::operator++()
{
    _prim = _prim->nextSibling;
    _SkipUnmatched();
    return *this;
}

void UsdPrimSiblingIterator::_SkipUnmatched()
{
    while (_prim && !_predicate(*_prim)) {
        _prim = _prim->nextSibling;
    }
}

PXR_NAMESPACE_CLOSE_SCOPE
