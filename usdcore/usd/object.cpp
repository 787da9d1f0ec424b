#include "usdcore/usd/object.h"

#include "usdcore/sdf/schema.h"
#include "usdcore/usd/prim.h"
#include "usdcore/usd/schemaRegistry.h"
#include "usdcore/usd/stage.h"
#include "usdcore/vt/dictionary.h"

PXR_NAMESPACE_OPEN_SCOPE

namespace {

// Keys of \p weaker that \p stronger lacks are added; nested dictionaries
// merge the same way.
void MergeWeakerDictionary(VtDictionary* stronger, const VtDictionary& weaker)
{
    for (const auto& [key, value] : weaker) {
        const auto found = stronger->find(key);
        if (found == stronger->end()) {
            stronger->emplace(key, value);
        } else if (found->second.IsHolding<VtDictionary>() && value.IsHolding<VtDictionary>()) {
            VtDictionary merged = found->second.UncheckedGet<VtDictionary>();
            MergeWeakerDictionary(&merged, value.UncheckedGet<VtDictionary>());
            found->second = VtValue::Take(merged);
        }
    }
}

} // namespace

const VtValue* Usd_FindField(const SdfData::FieldVector& fields, const TfToken& name)
{
    for (const SdfData::Field& field : fields) {
        if (field.first == name) return &field.second;
    }
    return nullptr;
}

const VtValue* Usd_FindPrimField(const Usd_PrimData& prim, const TfToken& field)
{
    for (const Usd_Opinion* opinion = prim.OpinionsBegin(); opinion != prim.OpinionsEnd(); ++opinion) {
        if (const VtValue* value = Usd_FindField(*opinion->fields, field)) return value;
    }
    return nullptr;
}

bool UsdObject::IsValid() const
{
    if (!_prim) return false;
    switch (_type) {
    case UsdTypePrim: return true;
    case UsdTypeAttribute: return _GetDefiningSpecType() == SdfSpecTypeAttribute;
    case UsdTypeRelationship: return _GetDefiningSpecType() == SdfSpecTypeRelationship;
    case UsdTypeProperty: {
        const SdfSpecType specType = _GetDefiningSpecType();
        return specType == SdfSpecTypeAttribute || specType == SdfSpecTypeRelationship;
    }
    case UsdTypeObject: break;
    }
    return false;
}

SdfSpecType UsdObject::_GetAuthoredSpecType() const
{
    for (const Usd_Opinion* opinion = _prim->OpinionsBegin(); opinion != _prim->OpinionsEnd(); ++opinion) {
        const SdfSpecType specType = opinion->layer->GetSpecType(Sdf_FindPropertyPath(opinion->path, _propName));
        if (specType != SdfSpecTypeUnknown) return specType;
    }
    return SdfSpecTypeUnknown;
}

SdfSpecType UsdObject::_GetDefiningSpecType() const
{
    const SdfSpecType authored = _GetAuthoredSpecType();
    if (authored != SdfSpecTypeUnknown) return authored;
    return _GetBuiltinAttribute() ? SdfSpecTypeAttribute : SdfSpecTypeUnknown;
}

const Usd_BuiltinAttribute* UsdObject::_GetBuiltinAttribute() const
{
    return _prim ? Usd_FindBuiltinAttribute(_prim->typeName, _propName) : nullptr;
}

UsdStageWeakPtr UsdObject::GetStage() const
{
    return _prim ? UsdStageWeakPtr(_prim->stage) : UsdStageWeakPtr();
}

SdfPath UsdObject::GetPath() const
{
    if (!_prim) return SdfPath();
    return _type == UsdTypePrim ? _prim->path : _prim->path.AppendProperty(_propName);
}

const SdfPath& UsdObject::GetPrimPath() const
{
    return _prim ? _prim->path : SdfPath::EmptyPath();
}

UsdPrim UsdObject::GetPrim() const
{
    return UsdPrim(_prim);
}

const TfToken& UsdObject::GetName() const
{
    if (_type == UsdTypePrim) return _prim->path.GetNameToken();
    return _propName;
}

bool UsdObject::GetMetadata(const TfToken& key, VtValue* value) const
{
    if (!_prim) return false;
    if (_type == UsdTypePrim && key == SdfFieldKeys->Specifier) {
        *value = VtValue(_prim->specifier);
        return true;
    }
    VtValue result;
    bool found = false;
    _ForEachSpec([&](const Usd_Opinion&, const SdfData::FieldVector& fields) {
        const VtValue* authored = Usd_FindField(fields, key);
        if (!authored) return true;
        if (!found) {
            result = *authored;
            found = true;
        } else if (authored->IsHolding<VtDictionary>()) {
            VtDictionary merged = result.UncheckedGet<VtDictionary>();
            MergeWeakerDictionary(&merged, authored->UncheckedGet<VtDictionary>());
            result = VtValue::Take(merged);
        }
        // Only dictionaries hear weaker opinions.
        return result.IsHolding<VtDictionary>();
    });
    if (found) {
        value->Swap(result);
    }
    return found;
}

bool UsdObject::HasAuthoredMetadata(const TfToken& key) const
{
    if (!_prim) return false;
    bool found = false;
    _ForEachSpec([&](const Usd_Opinion&, const SdfData::FieldVector& fields) {
        found = Usd_FindField(fields, key) != nullptr;
        return !found;
    });
    return found;
}

PXR_NAMESPACE_CLOSE_SCOPE
