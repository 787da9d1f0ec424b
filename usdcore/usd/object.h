#pragma once

#include "usdcore/pxr.h"
#include "usdcore/sdf/data.h"
#include "usdcore/sdf/path.h"
#include "usdcore/tf/token.h"
#include "usdcore/sdf/layer.h"
#include "usdcore/usd/common.h"
#include "usdcore/usd/primData.h"
#include "usdcore/vt/value.h"

#include <cstddef>

PXR_NAMESPACE_OPEN_SCOPE

class UsdPrim;
struct Usd_BuiltinAttribute;

enum UsdObjType {
    UsdTypeObject,
    UsdTypePrim,
    UsdTypeProperty,
    UsdTypeAttribute,
    UsdTypeRelationship,
};

/// What prims and properties share: a path on a stage and metadata.
///
/// A handle: cheap to copy, valid while its stage lives.
class UsdObject
{
public:
    UsdObject() = default;

    /// A prim on a live stage, or a property that has a spec of its kind
    /// (an attribute, or a relationship).
    bool IsValid() const;
    explicit operator bool() const { return IsValid(); }

    UsdStageWeakPtr GetStage() const;
    SdfPath GetPath() const;
    const SdfPath& GetPrimPath() const;
    UsdPrim GetPrim() const;
    /// The prim's name, or the property's full name ("primvars:st").
    const TfToken& GetName() const;

    /// The value of metadatum \p key: the strongest opinion, with
    /// dictionaries (customData, assetInfo...) merged key by key across all
    /// opinions, stronger keys winning.
    bool GetMetadata(const TfToken& key, VtValue* value) const;
    template <class T>
    bool GetMetadata(const TfToken& key, T* value) const
    {
        VtValue held;
        if (!GetMetadata(key, &held) || !held.IsHolding<T>()) return false;
        *value = held.UncheckedGet<T>();
        return true;
    }
    /// Without schema fallbacks, the same as HasAuthoredMetadata.
    bool HasMetadata(const TfToken& key) const { return HasAuthoredMetadata(key); }
    bool HasAuthoredMetadata(const TfToken& key) const;

    bool operator==(const UsdObject& o) const
    {
        return _type == o._type && _prim == o._prim && _propName == o._propName;
    }
    bool operator!=(const UsdObject& o) const { return !(*this == o); }

    friend size_t hash_value(const UsdObject& o)
    {
        return std::hash<const void*>()(o._prim) ^ o._propName.Hash();
    }

protected:
    UsdObject(UsdObjType type, const Usd_PrimData* prim, const TfToken& propName = TfToken())
        : _prim(prim), _propName(propName), _type(type)
    {
    }

    /// Attribute or relationship, as this property's strongest opinion
    /// says; an attribute for an unauthored one the prim's schema defines.
    SdfSpecType _GetDefiningSpecType() const;
    /// Attribute or relationship, as the strongest opinion says; unknown
    /// when no layer has an opinion.
    SdfSpecType _GetAuthoredSpecType() const;
    /// The schema's definition of this attribute, or null.
    const Usd_BuiltinAttribute* _GetBuiltinAttribute() const;

    /// Calls \p fn(opinion, fields) for each spec of this object, strongest
    /// first, until it returns false.
    template <class Fn>
    void _ForEachSpec(Fn&& fn) const;

    const Usd_PrimData* _prim = nullptr;
    TfToken _propName;
    UsdObjType _type = UsdTypeObject;
};

/// The field \p name of a spec's fields, or null.
const VtValue* Usd_FindField(const SdfData::FieldVector& fields, const TfToken& name);

template <class Fn>
void UsdObject::_ForEachSpec(Fn&& fn) const
{
    for (const Usd_Opinion* opinion = _prim->OpinionsBegin(); opinion != _prim->OpinionsEnd(); ++opinion) {
        if (_type == UsdTypePrim) {
            if (!fn(*opinion, *opinion->fields)) return;
            continue;
        }
        const SdfData::FieldVector* fields =
            opinion->layer->GetData().GetFields(Sdf_FindPropertyPath(opinion->path, _propName));
        if (fields && !fn(*opinion, *fields)) return;
    }
}

PXR_NAMESPACE_CLOSE_SCOPE
