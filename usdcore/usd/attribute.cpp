#include "usdcore/usd/attribute.h"

#include "usdcore/sdf/assetPath.h"
#include "usdcore/sdf/schema.h"
#include "usdcore/tf/diagnostic.h"
#include "usdcore/usd/interpolation.h"
#include "usdcore/usd/layerStack.h"
#include "usdcore/usd/primData.h"
#include "usdcore/usd/relationship.h"
#include "usdcore/usd/schemaRegistry.h"

#include <algorithm>
#include <iterator>

PXR_NAMESPACE_OPEN_SCOPE

struct UsdAttribute::_Resolution {
    const VtValue* defaultValue = nullptr;
    const SdfTimeSampleMap* samples = nullptr;
    /// Maps the deciding layer's times to the stage's.
    SdfLayerOffset offset;
    /// The layer of the deciding spec, which anchors asset paths.
    const SdfLayer* layer = nullptr;
    /// A value block decided: no value, not even the schema's fallback.
    bool blocked = false;
};

namespace {

bool IsBlock(const VtValue& value)
{
    return value.IsHolding<SdfValueBlock>();
}

// The value of \p samples at \p time (in the samples' own time): held at
// both ends, blended in between. A blocked sample gives no value at its
// time and holds nothing over to the next.
bool ValueAt(const SdfTimeSampleMap& samples, double time, VtValue* value)
{
    auto upper = samples.lower_bound(time);
    if (upper == samples.end()) {
        --upper;
    }
    if (upper->first == time || upper == samples.begin() || upper->first < time) {
        if (IsBlock(upper->second)) return false;
        *value = upper->second;
        return true;
    }
    const auto lower = std::prev(upper);
    if (IsBlock(lower->second)) return false;
    if (IsBlock(upper->second)) {
        *value = lower->second;
        return true;
    }
    const double alpha = (time - lower->first) / (upper->first - lower->first);
    if (!Usd_InterpolateValue(lower->second, upper->second, alpha, value)) {
        *value = lower->second;
    }
    return true;
}

// Asset paths come out with where they are found, anchored at the layer
// whose opinion gave them, as OpenUSD hands them out: a path written in a
// sublayer or a referenced file in another folder stays relative to it.
void ResolveAssetPaths(const SdfLayer& layer, VtValue* value)
{
    if (value->IsHolding<SdfAssetPath>()) {
        const std::string path = value->UncheckedGet<SdfAssetPath>().GetAssetPath();
        *value = SdfAssetPath(path, Usd_ResolveAssetPath(layer, path));
    } else if (value->IsHolding<VtArray<SdfAssetPath>>()) {
        VtArray<SdfAssetPath> paths = value->UncheckedGet<VtArray<SdfAssetPath>>();
        for (SdfAssetPath& path : paths) {
            path = SdfAssetPath(path.GetAssetPath(), Usd_ResolveAssetPath(layer, path.GetAssetPath()));
        }
        *value = paths;
    }
}

} // namespace

UsdAttribute::_Resolution UsdAttribute::_Resolve(bool numericTime) const
{
    _Resolution resolution;
    if (!_prim) return resolution;
    _ForEachSpec([&](const Usd_Opinion& opinion, const SdfData::FieldVector& fields) {
        // Within one spec, samples answer numeric times before the default.
        if (numericTime) {
            const VtValue* samples = Usd_FindField(fields, SdfFieldKeys->TimeSamples);
            if (samples && samples->IsHolding<SdfTimeSampleMap>() &&
                !samples->UncheckedGet<SdfTimeSampleMap>().empty()) {
                resolution.samples = &samples->UncheckedGet<SdfTimeSampleMap>();
                resolution.offset = opinion.offset;
                resolution.layer = opinion.layer;
                return false;
            }
        }
        const VtValue* value = Usd_FindField(fields, SdfFieldKeys->Default);
        if (!value) return true;
        if (IsBlock(*value)) {
            resolution.blocked = true;
        } else {
            resolution.defaultValue = value;
            resolution.layer = opinion.layer;
        }
        return false;
    });
    return resolution;
}

bool UsdAttribute::Get(VtValue* value, UsdTimeCode time) const
{
    const _Resolution resolution = _Resolve(time.IsNumeric());
    if (resolution.samples) {
        if (!ValueAt(*resolution.samples, resolution.offset.GetInverse() * time.GetValue(), value)) return false;
        ResolveAssetPaths(*resolution.layer, value);
        return true;
    }
    if (resolution.defaultValue) {
        *value = *resolution.defaultValue;
        ResolveAssetPaths(*resolution.layer, value);
        return true;
    }
    if (resolution.blocked) return false;
    const Usd_BuiltinAttribute* builtin = _GetBuiltinAttribute();
    if (!builtin || builtin->fallback.IsEmpty()) return false;
    *value = builtin->fallback;
    return true;
}

bool UsdAttribute::HasValue() const
{
    const _Resolution resolution = _Resolve(true);
    if (resolution.samples || resolution.defaultValue) return true;
    return !resolution.blocked && HasFallbackValue();
}

bool UsdAttribute::HasFallbackValue() const
{
    const Usd_BuiltinAttribute* builtin = _GetBuiltinAttribute();
    return builtin && !builtin->fallback.IsEmpty();
}

void UsdAttribute::_ReportTypeMismatch(const VtValue& held, const char* wanted) const
{
    TF_CODING_ERROR("type mismatch for <%s>: asked for '%s', the value holds '%s'", GetPath().GetText(), wanted,
                    held.GetType().name());
}

bool UsdAttribute::GetTimeSamples(std::vector<double>* times) const
{
    times->clear();
    const _Resolution resolution = _Resolve(true);
    if (!resolution.samples) return true;
    times->reserve(resolution.samples->size());
    for (const auto& sample : *resolution.samples) {
        times->push_back(resolution.offset * sample.first);
    }
    // A negative scale runs the layer's time backwards.
    if (resolution.offset.GetScale() < 0) {
        std::reverse(times->begin(), times->end());
    }
    return true;
}

size_t UsdAttribute::GetNumTimeSamples() const
{
    const _Resolution resolution = _Resolve(true);
    return resolution.samples ? resolution.samples->size() : 0;
}

bool UsdAttribute::GetBracketingTimeSamples(double desiredTime, double* lower, double* upper,
                                            bool* hasTimeSamples) const
{
    std::vector<double> times;
    GetTimeSamples(&times);
    *hasTimeSamples = !times.empty();
    if (times.empty()) return false;
    const auto above = std::lower_bound(times.begin(), times.end(), desiredTime);
    if (above == times.end()) {
        *lower = *upper = times.back();
    } else if (*above == desiredTime || above == times.begin()) {
        *lower = *upper = *above;
    } else {
        *lower = *std::prev(above);
        *upper = *above;
    }
    return true;
}

bool UsdAttribute::HasAuthoredValue() const
{
    const _Resolution resolution = _Resolve(true);
    return resolution.samples || resolution.defaultValue;
}

SdfValueTypeName UsdAttribute::GetTypeName() const
{
    TfToken typeName;
    if (GetMetadata(SdfFieldKeys->TypeName, &typeName) && !typeName.IsEmpty()) {
        return SdfSchema::GetInstance().FindType(typeName);
    }
    const Usd_BuiltinAttribute* builtin = _GetBuiltinAttribute();
    return builtin ? builtin->typeName : SdfValueTypeName();
}

TfToken UsdAttribute::GetRoleName() const
{
    return GetTypeName().GetRole();
}

SdfVariability UsdAttribute::GetVariability() const
{
    SdfVariability variability = SdfVariabilityVarying;
    if (GetMetadata(SdfFieldKeys->Variability, &variability)) return variability;
    const Usd_BuiltinAttribute* builtin = _GetBuiltinAttribute();
    return builtin ? builtin->variability : variability;
}

bool UsdAttribute::GetConnections(SdfPathVector* sources) const
{
    if (!_prim) {
        sources->clear();
        return false;
    }
    return Usd_ComposePathListField(*_prim, _propName, SdfFieldKeys->ConnectionPaths, sources);
}

bool UsdAttribute::HasAuthoredConnections() const
{
    return HasAuthoredMetadata(SdfFieldKeys->ConnectionPaths);
}

PXR_NAMESPACE_CLOSE_SCOPE
