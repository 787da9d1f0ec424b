#include "usdcore/usdGeom/primvar.h"

#include "usdcore/tf/diagnostic.h"
#include "usdcore/tf/stringUtils.h"
#include "usdcore/usd/prim.h"
#include "usdcore/usdGeom/tokens.h"

#include <algorithm>
#include <iterator>

PXR_NAMESPACE_OPEN_SCOPE

namespace {

const std::string kPrimvarsPrefix = "primvars:";
const std::string kIndicesSuffix = ":indices";

// The flattened form of \p authored, when it holds an array of \p T.
template <class T>
bool FlattenIfHolding(const UsdGeomPrimvar& primvar, const VtValue& authored, UsdTimeCode time, VtValue* value,
                      bool* result)
{
    if (!authored.IsHolding<VtArray<T>>()) return false;
    VtArray<T> flattened;
    *result = primvar.ComputeFlattened(&flattened, time);
    if (*result) *value = VtValue::Take(flattened);
    return true;
}

} // namespace

bool UsdGeomPrimvar::IsValidPrimvarName(const TfToken& name)
{
    const std::string& text = name.GetString();
    return text.size() > kPrimvarsPrefix.size() && TfStringStartsWith(text, kPrimvarsPrefix) &&
           !TfStringEndsWith(text, kIndicesSuffix);
}

bool UsdGeomPrimvar::IsPrimvar(const UsdAttribute& attr)
{
    return attr.IsValid() && IsValidPrimvarName(attr.GetName());
}

TfToken UsdGeomPrimvar::StripPrimvarsName(const TfToken& name)
{
    const std::string& text = name.GetString();
    if (!TfStringStartsWith(text, kPrimvarsPrefix)) return name;
    return TfToken(text.substr(kPrimvarsPrefix.size()));
}

bool UsdGeomPrimvar::IsValidInterpolation(const TfToken& interpolation)
{
    return interpolation == UsdGeomTokens->constant || interpolation == UsdGeomTokens->uniform ||
           interpolation == UsdGeomTokens->varying || interpolation == UsdGeomTokens->vertex ||
           interpolation == UsdGeomTokens->faceVarying;
}

bool UsdGeomPrimvar::NameContainsNamespaces() const
{
    return GetPrimvarName().GetString().find(':') != std::string::npos;
}

TfToken UsdGeomPrimvar::GetInterpolation() const
{
    TfToken interpolation;
    if (_attr.GetMetadata(UsdGeomTokens->interpolation, &interpolation)) return interpolation;
    return UsdGeomTokens->constant;
}

bool UsdGeomPrimvar::HasAuthoredInterpolation() const
{
    return _attr.HasAuthoredMetadata(UsdGeomTokens->interpolation);
}

int UsdGeomPrimvar::GetElementSize() const
{
    int elementSize = 1;
    _attr.GetMetadata(UsdGeomTokens->elementSize, &elementSize);
    return elementSize;
}

bool UsdGeomPrimvar::HasAuthoredElementSize() const
{
    return _attr.HasAuthoredMetadata(UsdGeomTokens->elementSize);
}

UsdAttribute UsdGeomPrimvar::GetIndicesAttr() const
{
    if (!_attr) return UsdAttribute();
    const UsdAttribute indices = _attr.GetPrim().GetAttribute(TfToken(GetName().GetString() + kIndicesSuffix));
    return indices.IsValid() ? indices : UsdAttribute();
}

bool UsdGeomPrimvar::GetIndices(VtIntArray* indices, UsdTimeCode time) const
{
    const UsdAttribute attr = GetIndicesAttr();
    return attr && attr.Get(indices, time);
}

bool UsdGeomPrimvar::IsIndexed() const
{
    const UsdAttribute attr = GetIndicesAttr();
    return attr && attr.HasAuthoredValue();
}

bool UsdGeomPrimvar::GetTimeSamples(std::vector<double>* times) const
{
    times->clear();
    if (!_attr) return false;
    if (!_attr.GetTimeSamples(times)) return false;
    const UsdAttribute indices = GetIndicesAttr();
    if (!indices) return true;
    std::vector<double> indexTimes;
    if (!indices.GetTimeSamples(&indexTimes)) return false;
    std::vector<double> merged;
    merged.reserve(times->size() + indexTimes.size());
    std::set_union(times->begin(), times->end(), indexTimes.begin(), indexTimes.end(), std::back_inserter(merged));
    times->swap(merged);
    return true;
}

bool UsdGeomPrimvar::ValueMightBeTimeVarying() const
{
    if (_attr.ValueMightBeTimeVarying()) return true;
    const UsdAttribute indices = GetIndicesAttr();
    return indices && indices.ValueMightBeTimeVarying();
}

bool UsdGeomPrimvar::ComputeFlattened(VtValue* value, UsdTimeCode time) const
{
    VtValue authored;
    if (!_attr.Get(&authored, time)) return false;
    if (!authored.IsArrayValued() || !IsIndexed()) {
        *value = authored;
        return true;
    }
    bool result = false;
#define USDGEOM_FLATTEN_IF_HOLDING_(type, name)                                                                   \
    if (FlattenIfHolding<type>(*this, authored, time, value, &result)) return result;
    VT_ARRAY_VALUE_TYPES(USDGEOM_FLATTEN_IF_HOLDING_)
#undef USDGEOM_FLATTEN_IF_HOLDING_
    TF_CODING_ERROR("cannot flatten primvar <%s>: its value type '%s' is not an array type of the core",
                    _attr.GetPath().GetText(), authored.GetType().name());
    return false;
}

void UsdGeomPrimvar::_ReportInvalidIndices(const std::vector<size_t>& positions, size_t count,
                                           size_t authoredSize) const
{
    std::vector<std::string> shown;
    shown.reserve(positions.size());
    for (size_t position : positions) shown.push_back(std::to_string(position));
    TF_WARN("%zu indices of primvar <%s> at positions [%s%s] are outside the %zu authored values", count,
            _attr.GetPath().GetText(), TfStringJoin(shown, ", ").c_str(), count > positions.size() ? ", ..." : "",
            authoredSize);
}

void UsdGeomPrimvar::_ReportMissingIndices() const
{
    TF_WARN("indexed primvar <%s> has no indices at this time", _attr.GetPath().GetText());
}

PXR_NAMESPACE_CLOSE_SCOPE
