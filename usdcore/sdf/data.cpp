#include "usdcore/sdf/data.h"

#include "usdcore/sdf/schema.h"
#include "usdcore/tf/diagnostic.h"
#include "usdcore/vt/dictionary.h"

#include <algorithm>

PXR_NAMESPACE_OPEN_SCOPE

namespace {

template <class Fields>
auto FindField(Fields& fields, const TfToken& name) -> decltype(fields.begin())
{
    return std::find_if(fields.begin(), fields.end(),
                        [&name](const SdfData::Field& field) { return field.first == name; });
}

} // namespace

const SdfData::Spec* SdfData::_Find(const SdfPath& path) const
{
    auto found = _specs.find(path);
    return found == _specs.end() ? nullptr : &found->second;
}

SdfData::Spec* SdfData::_Find(const SdfPath& path)
{
    auto found = _specs.find(path);
    return found == _specs.end() ? nullptr : &found->second;
}

SdfData::Spec* SdfData::_CreateSpec(const SdfPath& path, SdfSpecType specType)
{
    if (path.IsEmpty() || specType == SdfSpecTypeUnknown) {
        TF_CODING_ERROR("Cannot create a spec of type %d at <%s>", static_cast<int>(specType),
                        path.GetText());
        return nullptr;
    }
    Spec& spec = _specs[path];
    spec.type = specType;
    return &spec;
}

void SdfData::CreateSpec(const SdfPath& path, SdfSpecType specType)
{
    _CreateSpec(path, specType);
}

void SdfData::CreateSpec(const SdfPath& path, SdfSpecType specType, FieldVector&& fields)
{
    Spec* spec = _CreateSpec(path, specType);
    if (!spec) {
        return;
    }
    const auto emptyOrRepeated = [&fields](const Field& field) {
        return field.second.IsEmpty() || &*FindField(fields, field.first) != &field;
    };
    if (spec->fields.empty() && std::none_of(fields.begin(), fields.end(), emptyOrRepeated)) {
        spec->fields = std::move(fields);
        return;
    }
    for (Field& field : fields) {
        Set(path, field.first, std::move(field.second));
    }
}

bool SdfData::HasSpec(const SdfPath& path) const
{
    return _Find(path) != nullptr;
}

void SdfData::EraseSpec(const SdfPath& path)
{
    if (_specs.erase(path) == 0) {
        TF_CODING_ERROR("No spec to erase at <%s>", path.GetText());
    }
}

void SdfData::MoveSpec(const SdfPath& oldPath, const SdfPath& newPath)
{
    auto found = _specs.find(oldPath);
    if (found == _specs.end() || newPath.IsEmpty() || _Find(newPath)) {
        TF_CODING_ERROR("Cannot move spec <%s> to <%s>", oldPath.GetText(), newPath.GetText());
        return;
    }
    Spec spec = std::move(found->second);
    _specs.erase(found);
    _specs.emplace(newPath, std::move(spec));
}

SdfSpecType SdfData::GetSpecType(const SdfPath& path) const
{
    const Spec* spec = _Find(path);
    return spec ? spec->type : SdfSpecTypeUnknown;
}

const VtValue* SdfData::GetFieldValue(const SdfPath& path, const TfToken& fieldName) const
{
    const Spec* spec = _Find(path);
    if (!spec) {
        return nullptr;
    }
    auto field = FindField(spec->fields, fieldName);
    return field == spec->fields.end() ? nullptr : &field->second;
}

bool SdfData::Has(const SdfPath& path, const TfToken& fieldName, VtValue* value) const
{
    const VtValue* held = GetFieldValue(path, fieldName);
    if (held && value) {
        *value = *held;
    }
    return held != nullptr;
}

bool SdfData::HasSpecAndField(const SdfPath& path, const TfToken& fieldName, VtValue* value,
                              SdfSpecType* specType) const
{
    const Spec* spec = _Find(path);
    if (specType) {
        *specType = spec ? spec->type : SdfSpecTypeUnknown;
    }
    return spec && Has(path, fieldName, value);
}

VtValue SdfData::Get(const SdfPath& path, const TfToken& fieldName) const
{
    const VtValue* held = GetFieldValue(path, fieldName);
    return held ? *held : VtValue();
}

void SdfData::Set(const SdfPath& path, const TfToken& fieldName, const VtValue& value)
{
    Set(path, fieldName, VtValue(value));
}

void SdfData::Set(const SdfPath& path, const TfToken& fieldName, VtValue&& value)
{
    if (value.IsEmpty()) {
        Erase(path, fieldName);
        return;
    }
    Spec* spec = _Find(path);
    if (!spec) {
        TF_CODING_ERROR("Cannot set field '%s' on nonexistent spec at <%s>", fieldName.GetText(),
                        path.GetText());
        return;
    }
    auto field = FindField(spec->fields, fieldName);
    if (field != spec->fields.end()) {
        field->second = std::move(value);
    } else {
        spec->fields.emplace_back(fieldName, std::move(value));
    }
}

void SdfData::Erase(const SdfPath& path, const TfToken& fieldName)
{
    Spec* spec = _Find(path);
    if (!spec) {
        return;
    }
    auto field = FindField(spec->fields, fieldName);
    if (field != spec->fields.end()) {
        spec->fields.erase(field);
    }
}

std::vector<TfToken> SdfData::List(const SdfPath& path) const
{
    std::vector<TfToken> names;
    if (const Spec* spec = _Find(path)) {
        names.reserve(spec->fields.size());
        for (const Field& field : spec->fields) {
            names.push_back(field.first);
        }
    }
    return names;
}

const SdfData::FieldVector* SdfData::GetFields(const SdfPath& path) const
{
    const Spec* spec = _Find(path);
    return spec ? &spec->fields : nullptr;
}

void SdfData::VisitSpecs(SdfAbstractDataSpecVisitor* visitor) const
{
    if (!visitor) {
        return;
    }
    for (const auto& entry : _specs) {
        if (!visitor->VisitSpec(*this, entry.first)) {
            break;
        }
    }
    visitor->Done(*this);
}

bool SdfData::HasDictKey(const SdfPath& path, const TfToken& fieldName, const TfToken& keyPath,
                         VtValue* value) const
{
    const VtValue* held = GetFieldValue(path, fieldName);
    if (!held || !held->IsHolding<VtDictionary>()) {
        return false;
    }
    const VtValue* entry = held->UncheckedGet<VtDictionary>().GetValueAtPath(keyPath.GetString());
    if (entry && value) {
        *value = *entry;
    }
    return entry != nullptr;
}

VtValue SdfData::GetDictValueByKey(const SdfPath& path, const TfToken& fieldName,
                                   const TfToken& keyPath) const
{
    VtValue value;
    HasDictKey(path, fieldName, keyPath, &value);
    return value;
}

const SdfTimeSampleMap* SdfData::_TimeSamples(const SdfPath& path) const
{
    const VtValue* held = GetFieldValue(path, SdfFieldKeys->TimeSamples);
    return held && held->IsHolding<SdfTimeSampleMap>() ? &held->UncheckedGet<SdfTimeSampleMap>()
                                                       : nullptr;
}

std::set<double> SdfData::ListTimeSamplesForPath(const SdfPath& path) const
{
    std::set<double> times;
    if (const SdfTimeSampleMap* samples = _TimeSamples(path)) {
        for (const auto& sample : *samples) {
            times.insert(times.end(), sample.first);
        }
    }
    return times;
}

size_t SdfData::GetNumTimeSamplesForPath(const SdfPath& path) const
{
    const SdfTimeSampleMap* samples = _TimeSamples(path);
    return samples ? samples->size() : 0;
}

bool SdfData::GetBracketingTimeSamplesForPath(const SdfPath& path, double time, double* tLower,
                                              double* tUpper) const
{
    const SdfTimeSampleMap* samples = _TimeSamples(path);
    if (!samples || samples->empty() || !tLower || !tUpper) {
        return false;
    }
    auto upper = samples->lower_bound(time);
    if (upper == samples->end()) {
        *tLower = *tUpper = samples->rbegin()->first;
    } else if (upper->first == time || upper == samples->begin()) {
        *tLower = *tUpper = upper->first;
    } else {
        *tUpper = upper->first;
        *tLower = std::prev(upper)->first;
    }
    return true;
}

bool SdfData::QueryTimeSample(const SdfPath& path, double time, VtValue* optionalValue) const
{
    const SdfTimeSampleMap* samples = _TimeSamples(path);
    if (!samples) {
        return false;
    }
    auto found = samples->find(time);
    if (found == samples->end()) {
        return false;
    }
    if (optionalValue) {
        *optionalValue = found->second;
    }
    return true;
}

PXR_NAMESPACE_CLOSE_SCOPE
