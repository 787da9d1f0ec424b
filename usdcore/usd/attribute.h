#pragma once

#include "usdcore/pxr.h"
#include "usdcore/sdf/path.h"
#include "usdcore/sdf/types.h"
#include "usdcore/sdf/valueTypeName.h"
#include "usdcore/usd/property.h"
#include "usdcore/usd/timeCode.h"
#include "usdcore/vt/value.h"

#include <vector>

PXR_NAMESPACE_OPEN_SCOPE

/// A typed, possibly animated value of a prim.
///
/// Values resolve over the prim's specs, strongest first: the first spec
/// with time samples (when reading at a numeric time) or a default value
/// decides; a default of None (a value block) stops the search with no
/// value. Sample times of layers reached through offsets (sublayers,
/// references, payloads) are moved onto the stage's time line.
class UsdAttribute : public UsdProperty
{
public:
    UsdAttribute() = default;

    SdfValueTypeName GetTypeName() const;
    TfToken GetRoleName() const;
    SdfVariability GetVariability() const;

    /// The value at \p time: at a sample's time that sample; between two
    /// samples a blend of floating-point values (or the earlier sample for
    /// other types); before the first and after the last sample, the end
    /// sample. Without authored opinions, the fallback value of the prim's
    /// schema. False when there is none of these, the value is blocked, or
    /// (for the typed form) it holds another type.
    bool Get(VtValue* value, UsdTimeCode time = UsdTimeCode::Default()) const;
    template <class T>
    bool Get(T* value, UsdTimeCode time = UsdTimeCode::Default()) const
    {
        VtValue held;
        if (!Get(&held, time)) return false;
        return _Extract(held, value);
    }

    /// The stage times of the samples that decide the value, ascending.
    /// Empty, with true, when a default or nothing decides.
    bool GetTimeSamples(std::vector<double>* times) const;
    size_t GetNumTimeSamples() const;
    /// More than one sample decides the value.
    bool ValueMightBeTimeVarying() const { return GetNumTimeSamples() > 1; }
    /// The samples around \p desiredTime in stage time (both equal when a
    /// sample is there or the time is outside the samples). False when no
    /// samples decide the value.
    bool GetBracketingTimeSamples(double desiredTime, double* lower, double* upper, bool* hasTimeSamples) const;

    /// A default or samples decide the value (not blocked).
    bool HasAuthoredValue() const;
    bool HasAuthoredValueOpinion() const { return HasAuthoredValue(); }
    /// An authored value or the schema's fallback decides (not blocked).
    bool HasValue() const;
    /// The prim's schema gives this attribute a fallback value.
    bool HasFallbackValue() const;

    /// The attribute's connections, composed over its specs and mapped to
    /// the stage's namespace.
    bool GetConnections(SdfPathVector* sources) const;
    bool HasAuthoredConnections() const;

private:
    friend class UsdPrim;
    UsdAttribute(const Usd_PrimData* prim, const TfToken& name) : UsdProperty(UsdTypeAttribute, prim, name) {}

    struct _Resolution;
    _Resolution _Resolve(bool numericTime) const;

    template <class T>
    bool _Extract(const VtValue& held, T* value) const
    {
        if (!held.IsHolding<T>()) {
            _ReportTypeMismatch(held, typeid(T).name());
            return false;
        }
        *value = held.UncheckedGet<T>();
        return true;
    }
    void _ReportTypeMismatch(const VtValue& held, const char* wanted) const;
};

using UsdAttributeVector = std::vector<UsdAttribute>;

PXR_NAMESPACE_CLOSE_SCOPE
