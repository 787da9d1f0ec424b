#pragma once

#include "usdcore/pxr.h"
#include "usdcore/tf/token.h"
#include "usdcore/usd/attribute.h"
#include "usdcore/usd/timeCode.h"
#include "usdcore/vt/array.h"
#include "usdcore/vt/types.h"
#include "usdcore/vt/value.h"

#include <cstddef>
#include <string>
#include <vector>

PXR_NAMESPACE_OPEN_SCOPE

/// An attribute in the "primvars:" namespace seen as a primitive variable:
/// a value with an interpolation over the geometry ("constant", "uniform",
/// "varying", "vertex", "faceVarying"), an element size, and optionally an
/// "indices" attribute ("primvars:st:indices") that expands the authored
/// values.
class UsdGeomPrimvar
{
public:
    UsdGeomPrimvar() = default;
    /// A primvar over \p attr; false unless \p attr is a primvar.
    explicit UsdGeomPrimvar(const UsdAttribute& attr) : _attr(attr) {}

    /// True when \p attr is valid and named as a primvar: in the
    /// "primvars:" namespace, and not an ":indices" attribute.
    static bool IsPrimvar(const UsdAttribute& attr);
    /// True when \p name is in the "primvars:" namespace and does not end
    /// in the reserved ":indices".
    static bool IsValidPrimvarName(const TfToken& name);
    /// \p name without its leading "primvars:".
    static TfToken StripPrimvarsName(const TfToken& name);
    /// True when \p interpolation is one of the five interpolations.
    static bool IsValidInterpolation(const TfToken& interpolation);

    bool IsDefined() const { return IsPrimvar(_attr); }
    explicit operator bool() const { return IsDefined(); }

    const UsdAttribute& GetAttr() const { return _attr; }
    /// The attribute's full name: "primvars:st".
    const TfToken& GetName() const { return _attr.GetName(); }
    /// The name without "primvars:": "st", "skel:jointIndices".
    TfToken GetPrimvarName() const { return StripPrimvarsName(GetName()); }
    bool NameContainsNamespaces() const;
    TfToken GetBaseName() const { return _attr.GetBaseName(); }
    TfToken GetNamespace() const { return _attr.GetNamespace(); }
    SdfValueTypeName GetTypeName() const { return _attr.GetTypeName(); }

    /// The "interpolation" metadata, "constant" when not authored.
    TfToken GetInterpolation() const;
    bool HasAuthoredInterpolation() const;
    /// The "elementSize" metadata (values per element), 1 when not authored.
    int GetElementSize() const;
    bool HasAuthoredElementSize() const;

    /// The authored values (not expanded by the indices).
    template <class T>
    bool Get(T* value, UsdTimeCode time = UsdTimeCode::Default()) const
    {
        return _attr.Get(value, time);
    }
    bool HasValue() const { return _attr.HasValue(); }
    bool HasAuthoredValue() const { return _attr.HasAuthoredValue(); }

    /// The sample times of the values and of the indices, merged and
    /// ascending.
    bool GetTimeSamples(std::vector<double>* times) const;
    bool ValueMightBeTimeVarying() const;

    /// The "<name>:indices" attribute when the primvar is indexed, else an
    /// invalid attribute.
    UsdAttribute GetIndicesAttr() const;
    bool GetIndices(VtIntArray* indices, UsdTimeCode time = UsdTimeCode::Default()) const;
    /// True when the indices attribute has an authored value.
    bool IsIndexed() const;

    /// The values expanded by the indices: element i is the authored value
    /// at indices[i]. Without indices, the authored values. False, with a
    /// warning, when an index lies outside the authored values (those
    /// elements are left default-constructed) or the indices are missing.
    template <class T>
    bool ComputeFlattened(VtArray<T>* value, UsdTimeCode time = UsdTimeCode::Default()) const;
    /// The same for whatever array type the primvar holds; a scalar value
    /// is returned as it is.
    bool ComputeFlattened(VtValue* value, UsdTimeCode time = UsdTimeCode::Default()) const;

    friend bool operator==(const UsdGeomPrimvar& lhs, const UsdGeomPrimvar& rhs) { return lhs._attr == rhs._attr; }
    friend bool operator!=(const UsdGeomPrimvar& lhs, const UsdGeomPrimvar& rhs) { return !(lhs == rhs); }

private:
    template <class T>
    bool _Flatten(const VtArray<T>& authored, const VtIntArray& indices, VtArray<T>* value) const;
    /// Reports the out-of-range indices at \p positions (\p count in all).
    void _ReportInvalidIndices(const std::vector<size_t>& positions, size_t count, size_t authoredSize) const;
    void _ReportMissingIndices() const;

    UsdAttribute _attr;
};

template <class T>
bool UsdGeomPrimvar::ComputeFlattened(VtArray<T>* value, UsdTimeCode time) const
{
    VtArray<T> authored;
    if (!Get(&authored, time)) return false;
    if (!IsIndexed()) {
        *value = authored;
        return true;
    }
    VtIntArray indices;
    if (!GetIndices(&indices, time)) {
        _ReportMissingIndices();
        return false;
    }
    if (authored.empty()) return false;
    return _Flatten(authored, indices, value);
}

template <class T>
bool UsdGeomPrimvar::_Flatten(const VtArray<T>& authored, const VtIntArray& indices, VtArray<T>* value) const
{
    value->resize(indices.size());
    T* out = value->data();
    const T* source = authored.cdata();
    const size_t authoredSize = authored.size();
    // Only the first few bad positions are named; the count says the rest.
    constexpr size_t kPositionsShown = 5;
    std::vector<size_t> invalidPositions;
    size_t invalidCount = 0;
    for (size_t i = 0; i < indices.size(); ++i) {
        const int index = indices[i];
        if (index >= 0 && static_cast<size_t>(index) < authoredSize) {
            out[i] = source[index];
        } else {
            if (invalidPositions.size() < kPositionsShown) invalidPositions.push_back(i);
            ++invalidCount;
        }
    }
    if (invalidCount == 0) return true;
    _ReportInvalidIndices(invalidPositions, invalidCount, authoredSize);
    return false;
}

PXR_NAMESPACE_CLOSE_SCOPE
