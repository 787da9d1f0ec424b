#pragma once

#include "usdcore/pxr.h"
#include "usdcore/sdf/types.h"
#include "usdcore/tf/token.h"
#include "usdcore/usd/attribute.h"
#include "usdcore/usd/object.h"
#include "usdcore/usd/primFlags.h"
#include "usdcore/usd/property.h"
#include "usdcore/usd/relationship.h"

#include <iterator>
#include <string>
#include <vector>

PXR_NAMESPACE_OPEN_SCOPE

class UsdPrimSiblingRange;

/// A composed prim of a stage.
class UsdPrim : public UsdObject
{
public:
    using SiblingRange = UsdPrimSiblingRange;

    UsdPrim() = default;

    UsdPrim GetParent() const;
    /// Children that pass the default predicate (active, loaded, defined,
    /// non-abstract), in composed child order.
    SiblingRange GetChildren() const;
    SiblingRange GetAllChildren() const;
    SiblingRange GetFilteredChildren(const Usd_PrimFlagsPredicate& predicate) const;
    /// The child named \p name, whatever its flags; invalid when none.
    UsdPrim GetChild(const TfToken& name) const;

    const TfToken& GetTypeName() const;
    SdfSpecifier GetSpecifier() const;
    bool IsPseudoRoot() const;
    bool IsActive() const;
    bool IsLoaded() const;
    bool IsDefined() const;
    bool IsAbstract() const;
    bool HasDefiningSpecifier() const;
    /// Instanceable and composed from arcs of its own: its children are
    /// not part of the stage's prim tree here.
    bool IsInstance() const;
    /// Below an instance: a prim of its prototype at the instance's place.
    bool IsInstanceProxy() const;
    bool IsInstanceable() const;
    bool HasPayload() const;
    bool HasAuthoredPayloads() const { return HasPayload(); }

    /// API schemas applied to the prim ("apiSchemas" list edits composed).
    std::vector<TfToken> GetAppliedSchemas() const;
    /// True when \p schemaIdentifier ("SkelBindingAPI", or with its
    /// instance name "CollectionAPI:lights") is applied.
    bool HasAPI(const TfToken& schemaIdentifier) const;

    /// True when the prim's type is the typed schema \p schemaIdentifier
    /// ("Xformable") or derives from it.
    bool IsA(const TfToken& schemaIdentifier) const;
    /// True when the prim's type is schema class \p T's type or derives
    /// from it.
    template <class T>
    bool IsA() const
    {
        return IsA(T::_GetStaticTypeName());
    }

    /// Property names in dictionary order ("a2" before "a10", case ignored
    /// unless the names differ by case alone): the authored ones and those
    /// the prim's schema defines.
    std::vector<TfToken> GetPropertyNames() const { return _GetPropertyNames(false, std::string()); }
    /// Only the properties some layer authors, in the same order.
    std::vector<TfToken> GetAuthoredPropertyNames() const { return _GetPropertyNames(true, std::string()); }
    std::vector<UsdProperty> GetProperties() const { return _MakeProperties(GetPropertyNames()); }
    std::vector<UsdProperty> GetAuthoredProperties() const { return _MakeProperties(GetAuthoredPropertyNames()); }
    /// The properties whose names lie in \p namespaces ("primvars" or
    /// "primvars:"), in the same order.
    std::vector<UsdProperty> GetPropertiesInNamespace(const std::string& namespaces) const;
    std::vector<UsdProperty> GetAuthoredPropertiesInNamespace(const std::string& namespaces) const;
    std::vector<UsdAttribute> GetAttributes() const { return _MakeAttributes(GetPropertyNames()); }
    std::vector<UsdAttribute> GetAuthoredAttributes() const { return _MakeAttributes(GetAuthoredPropertyNames()); }
    std::vector<UsdRelationship> GetRelationships() const;
    std::vector<UsdRelationship> GetAuthoredRelationships() const { return GetRelationships(); }

    /// The attribute \p attrName; invalid unless some spec defines it as an
    /// attribute.
    UsdAttribute GetAttribute(const TfToken& attrName) const;
    UsdRelationship GetRelationship(const TfToken& relName) const;
    UsdProperty GetProperty(const TfToken& propName) const;
    bool HasAttribute(const TfToken& attrName) const { return GetAttribute(attrName).IsValid(); }
    bool HasRelationship(const TfToken& relName) const { return GetRelationship(relName).IsValid(); }
    bool HasProperty(const TfToken& propName) const { return GetProperty(propName).IsValid(); }

private:
    friend class UsdObject;
    friend class UsdStage;
    friend class UsdPrimRange;
    friend class UsdPrimSiblingIterator;
    explicit UsdPrim(const Usd_PrimData* prim) : UsdObject(prim ? UsdTypePrim : UsdTypeObject, prim) {}

    std::vector<TfToken> _GetPropertyNames(bool onlyAuthored, const std::string& prefix) const;
    std::vector<SdfSpecType> _GetPropertyTypes(const std::vector<TfToken>& names) const;
    std::vector<UsdProperty> _MakeProperties(const std::vector<TfToken>& names) const;
    std::vector<UsdAttribute> _MakeAttributes(const std::vector<TfToken>& names) const;
};

/// Walks siblings that pass a predicate.
class UsdPrimSiblingIterator
{
public:
    using iterator_category = std::forward_iterator_tag;
    using value_type = UsdPrim;
    using difference_type = std::ptrdiff_t;
    using reference = UsdPrim;
    using pointer = void;

    UsdPrimSiblingIterator() = default;
    UsdPrimSiblingIterator(const Usd_PrimData* prim, const Usd_PrimFlagsPredicate& predicate);

    UsdPrim operator*() const { return UsdPrim(_prim); }
    UsdPrimSiblingIterator& operator++();
    UsdPrimSiblingIterator operator++(int)
    {
        UsdPrimSiblingIterator result = *this;
        ++*this;
        return result;
    }
    bool operator==(const UsdPrimSiblingIterator& o) const { return _prim == o._prim; }
    bool operator!=(const UsdPrimSiblingIterator& o) const { return _prim != o._prim; }

private:
    void _SkipUnmatched();

    const Usd_PrimData* _prim = nullptr;
    Usd_PrimFlagsPredicate _predicate;
};

/// The children of a prim that pass a predicate, as a range.
class UsdPrimSiblingRange
{
public:
    using iterator = UsdPrimSiblingIterator;
    using const_iterator = UsdPrimSiblingIterator;

    UsdPrimSiblingRange() = default;
    UsdPrimSiblingRange(iterator begin, iterator end) : _begin(begin), _end(end) {}

    iterator begin() const { return _begin; }
    iterator end() const { return _end; }
    bool empty() const { return _begin == _end; }
    UsdPrim front() const { return *_begin; }

private:
    iterator _begin;
    iterator _end;
};

PXR_NAMESPACE_CLOSE_SCOPE
