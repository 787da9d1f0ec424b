#pragma once

#include "usdcore/pxr.h"
#include "usdcore/sdf/path.h"
#include "usdcore/sdf/types.h"
#include "usdcore/tf/token.h"
#include "usdcore/vt/value.h"

#include <cstddef>
#include <set>
#include <unordered_map>
#include <utility>
#include <vector>

PXR_NAMESPACE_OPEN_SCOPE

class SdfData;
/// Code written against OpenUSD's abstract layer data sees this class.
using SdfAbstractData = SdfData;

/// Receives every spec of an SdfData (in no particular order).
class SdfAbstractDataSpecVisitor
{
public:
    virtual ~SdfAbstractDataSpecVisitor() = default;
    /// Return false to stop the visit.
    virtual bool VisitSpec(const SdfAbstractData& data, const SdfPath& path) = 0;
    virtual void Done(const SdfAbstractData& data) = 0;
};

/// The contents of one layer: specs keyed by path, each with a spec type
/// and its fields (name -> value) in the order they were first set.
///
/// Built once by a file reader, then read. Lookups are one hash probe for
/// that spec and a scan of its few fields. Cheap to move; copies are deep.
class SdfData
{
public:
    using Field = std::pair<TfToken, VtValue>;
    using FieldVector = std::vector<Field>;

    SdfData() = default;

    bool StreamsData() const { return false; }
    bool IsEmpty() const { return _specs.empty(); }
    size_t GetSpecCount() const { return _specs.size(); }
    /// Room for \p specCount specs without rehashing (readers know the count).
    void Reserve(size_t specCount) { _specs.reserve(specCount); }

    /// Makes a spec at \p path of \p specType. An existing spec keeps its
    /// fields and takes the new type.
    void CreateSpec(const SdfPath& path, SdfSpecType specType);
    /// The same, then sets every field of \p fields as Set would one after
    /// another. Readers that gather a spec's fields first spare a lookup per
    /// field and the regrowing of its field list.
    void CreateSpec(const SdfPath& path, SdfSpecType specType, FieldVector&& fields);
    bool HasSpec(const SdfPath& path) const;
    void EraseSpec(const SdfPath& path);
    /// Moves the entry at \p oldPath (only that spec, not its descendants).
    void MoveSpec(const SdfPath& oldPath, const SdfPath& newPath);
    /// SdfSpecTypeUnknown when there is no spec at \p path.
    SdfSpecType GetSpecType(const SdfPath& path) const;

    bool Has(const SdfPath& path, const TfToken& fieldName, VtValue* value = nullptr) const;
    /// True, with \p value set, if the field holds a T.
    template <class T>
    bool Has(const SdfPath& path, const TfToken& fieldName, T* value) const
    {
        const VtValue* held = GetFieldValue(path, fieldName);
        if (!held || !held->IsHolding<T>()) {
            return false;
        }
        if (value) {
            *value = held->UncheckedGet<T>();
        }
        return true;
    }
    bool HasSpecAndField(const SdfPath& path, const TfToken& fieldName, VtValue* value,
                         SdfSpecType* specType) const;
    /// The field's value, or an empty VtValue.
    VtValue Get(const SdfPath& path, const TfToken& fieldName) const;
    /// The field's value in place, or null: no copy.
    const VtValue* GetFieldValue(const SdfPath& path, const TfToken& fieldName) const;
    /// Sets a field of an existing spec (a coding error otherwise); an empty
    /// value erases the field.
    void Set(const SdfPath& path, const TfToken& fieldName, const VtValue& value);
    void Set(const SdfPath& path, const TfToken& fieldName, VtValue&& value);
    void Erase(const SdfPath& path, const TfToken& fieldName);
    /// Field names of this spec in the order they were first set.
    std::vector<TfToken> List(const SdfPath& path) const;
    /// Its fields in place, or null.
    const FieldVector* GetFields(const SdfPath& path) const;

    void VisitSpecs(SdfAbstractDataSpecVisitor* visitor) const;

    /// The value at the ':'-separated \p keyPath of a dictionary field.
    bool HasDictKey(const SdfPath& path, const TfToken& fieldName, const TfToken& keyPath,
                    VtValue* value = nullptr) const;
    VtValue GetDictValueByKey(const SdfPath& path, const TfToken& fieldName,
                              const TfToken& keyPath) const;

    /// Times of the "timeSamples" field of \p path.
    std::set<double> ListTimeSamplesForPath(const SdfPath& path) const;
    size_t GetNumTimeSamplesForPath(const SdfPath& path) const;
    /// The samples at or around \p time: both equal \p time when a sample
    /// is there, the first (last) sample before (after) all samples.
    bool GetBracketingTimeSamplesForPath(const SdfPath& path, double time, double* tLower,
                                         double* tUpper) const;
    bool QueryTimeSample(const SdfPath& path, double time, VtValue* optionalValue = nullptr) const;

private:
    struct Spec {
        SdfSpecType type = SdfSpecTypeUnknown;
        FieldVector fields;
    };

    const Spec* _Find(const SdfPath& path) const;
    Spec* _Find(const SdfPath& path);
    /// The entry at \p path, made if missing, with \p specType; null (and a
    /// coding error) for an empty path or an unknown type.
    Spec* _CreateSpec(const SdfPath& path, SdfSpecType specType);
    const SdfTimeSampleMap* _TimeSamples(const SdfPath& path) const;

    std::unordered_map<SdfPath, Spec, SdfPath::Hash> _specs;
};

PXR_NAMESPACE_CLOSE_SCOPE
