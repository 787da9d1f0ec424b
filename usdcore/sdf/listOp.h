#pragma once

#include "usdcore/pxr.h"
#include "usdcore/sdf/path.h"
#include "usdcore/tf/token.h"

#include <cstdint>
#include <functional>
#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

PXR_NAMESPACE_OPEN_SCOPE

class SdfPayload;
class SdfReference;
class SdfUnregisteredValue;

enum SdfListOpType {
    SdfListOpTypeExplicit,
    SdfListOpTypeAdded,
    SdfListOpTypeDeleted,
    SdfListOpTypeOrdered,
    SdfListOpTypePrepended,
    SdfListOpTypeAppended,
};

/// An edit of a list (references, targets, apiSchemas...) as one layer
/// authors it: either an explicit replacement, or items to delete, add,
/// prepend, append and reorder relative to what weaker layers give.
///
/// Instantiated for the item types that scene description stores: int,
/// unsigned int, int64_t, uint64_t, std::string, TfToken, SdfPath,
/// SdfReference, SdfPayload and SdfUnregisteredValue.
template <class T>
class SdfListOp
{
public:
    using ItemType = T;
    using ItemVector = std::vector<T>;
    using value_type = T;
    using value_vector_type = ItemVector;
    /// Maps (or with nullopt drops) each item as it is applied.
    using ApplyCallback = std::function<std::optional<T>(SdfListOpType, const T&)>;

    static SdfListOp Create(const ItemVector& prependedItems = ItemVector(),
                            const ItemVector& appendedItems = ItemVector(),
                            const ItemVector& deletedItems = ItemVector());
    static SdfListOp CreateExplicit(const ItemVector& explicitItems = ItemVector());

    SdfListOp() = default;

    void Swap(SdfListOp<T>& rhs);

    /// True if applying this op can change a list: always for an explicit
    /// op (even an empty one, which clears), else when any item is listed.
    bool HasKeys() const;
    bool HasItem(const T& item) const;
    bool IsExplicit() const { return _isExplicit; }

    const ItemVector& GetExplicitItems() const { return _explicitItems; }
    const ItemVector& GetAddedItems() const { return _addedItems; }
    const ItemVector& GetPrependedItems() const { return _prependedItems; }
    const ItemVector& GetAppendedItems() const { return _appendedItems; }
    const ItemVector& GetDeletedItems() const { return _deletedItems; }
    const ItemVector& GetOrderedItems() const { return _orderedItems; }
    const ItemVector& GetItems(SdfListOpType type) const;

    /// The list this op gives when applied to an empty one.
    ItemVector GetAppliedItems() const;

    /// Setting explicit items makes the op explicit and clears the other
    /// lists; setting any other list makes it non-explicit and clears the
    /// explicit items.
    void SetExplicitItems(const ItemVector& items);
    void SetAddedItems(const ItemVector& items);
    void SetPrependedItems(const ItemVector& items);
    void SetAppendedItems(const ItemVector& items);
    void SetDeletedItems(const ItemVector& items);
    void SetOrderedItems(const ItemVector& items);
    void SetItems(const ItemVector& items, SdfListOpType type);

    void Clear();
    void ClearAndMakeExplicit();

    /// Edits \p vec in place: an explicit op replaces it (duplicates
    /// dropped); otherwise deletes, adds, prepends, appends and reorders,
    /// in that order.
    void ApplyOperations(ItemVector* vec, const ApplyCallback& cb = ApplyCallback()) const;

    /// This op composed over the weaker \p inner: one op that edits any list
    /// as applying \p inner and then this would. Not expressible (nullopt)
    /// when either uses added or ordered items and this is not explicit.
    std::optional<SdfListOp<T>> ApplyOperations(const SdfListOp<T>& inner) const;

    bool operator==(const SdfListOp<T>& rhs) const;
    bool operator!=(const SdfListOp<T>& rhs) const { return !(*this == rhs); }

private:
    void _SetExplicit(bool isExplicit);
    ItemVector& _Items(SdfListOpType type);

    bool _isExplicit = false;
    ItemVector _explicitItems;
    ItemVector _addedItems;
    ItemVector _prependedItems;
    ItemVector _appendedItems;
    ItemVector _deletedItems;
    ItemVector _orderedItems;
};

template <class T>
std::ostream& operator<<(std::ostream& out, const SdfListOp<T>& op);

/// Reorders \p v as an op with \p order as its ordered items would.
template <class T>
void SdfApplyListOrdering(std::vector<T>* v, const std::vector<T>& order);

using SdfIntListOp = SdfListOp<int>;
using SdfUIntListOp = SdfListOp<unsigned int>;
using SdfInt64ListOp = SdfListOp<int64_t>;
using SdfUInt64ListOp = SdfListOp<uint64_t>;
using SdfTokenListOp = SdfListOp<TfToken>;
using SdfStringListOp = SdfListOp<std::string>;
using SdfPathListOp = SdfListOp<SdfPath>;
using SdfReferenceListOp = SdfListOp<SdfReference>;
using SdfPayloadListOp = SdfListOp<SdfPayload>;
using SdfUnregisteredValueListOp = SdfListOp<SdfUnregisteredValue>;

PXR_NAMESPACE_CLOSE_SCOPE
