#include "usdcore/sdf/listOp.h"

#include "usdcore/sdf/path.h"
#include "usdcore/sdf/payload.h"
#include "usdcore/sdf/reference.h"
#include "usdcore/sdf/types.h"

#include <algorithm>
#include <list>
#include <ostream>
#include <type_traits>
#include <unordered_map>
#include <unordered_set>

PXR_NAMESPACE_OPEN_SCOPE

namespace {

struct ItemHash {
    template <class T>
    size_t operator()(const T& item) const
    {
        if constexpr (std::is_integral_v<T> || std::is_same_v<T, std::string>) {
            return std::hash<T>()(item);
        } else {
            return hash_value(item);
        }
    }
};

// The list being edited, with a hash index from item to its place, so that
// every edit is O(1) expected and applying an op is linear in the sizes.
// Like OpenUSD, an item repeated in the input is indexed at its last place.
template <class T>
class ApplyList
{
public:
    using List = std::list<T>;
    using Iterator = typename List::iterator;

    explicit ApplyList(const std::vector<T>& items) : _list(items.begin(), items.end())
    {
        for (Iterator it = _list.begin(); it != _list.end(); ++it) {
            _index[*it] = it;
        }
    }

    std::vector<T> Take() const { return std::vector<T>(_list.begin(), _list.end()); }

    void Delete(const T& item)
    {
        auto found = _index.find(item);
        if (found != _index.end()) {
            _list.erase(found->second);
            _index.erase(found);
        }
    }

    void Add(const T& item)
    {
        if (_index.find(item) == _index.end()) {
            _index[item] = _list.insert(_list.end(), item);
        }
    }

    /// Inserts \p item before \p position, or moves it there if present.
    void InsertOrMove(const T& item, Iterator position)
    {
        auto found = _index.find(item);
        if (found == _index.end()) {
            _index[item] = _list.insert(position, item);
        } else if (found->second != position) {
            _list.splice(position, _list, found->second);
        }
    }

    void Prepend(const std::vector<T>& items)
    {
        for (auto it = items.rbegin(); it != items.rend(); ++it) {
            InsertOrMove(*it, _list.begin());
        }
    }

    void Append(const std::vector<T>& items)
    {
        for (const T& item : items) {
            InsertOrMove(item, _list.end());
        }
    }

    // Each ordered item that is present moves, with the run of unordered
    // items that follow it, into the order given; items before the first
    // ordered one stay in front.
    void Reorder(const std::vector<T>& orderItems)
    {
        std::vector<T> order;
        std::unordered_set<T, ItemHash> orderSet;
        for (const T& item : orderItems) {
            if (orderSet.insert(item).second) {
                order.push_back(item);
            }
        }
        if (order.empty()) {
            return;
        }
        List scratch;
        scratch.swap(_list);
        for (const T& item : order) {
            auto found = _index.find(item);
            if (found == _index.end()) {
                continue;
            }
            Iterator end = std::next(found->second);
            while (end != scratch.end() && orderSet.count(*end) == 0) {
                ++end;
            }
            _list.splice(_list.end(), scratch, found->second, end);
        }
        _list.splice(_list.begin(), scratch);
    }

private:
    List _list;
    std::unordered_map<T, Iterator, ItemHash> _index;
};

template <class T>
std::vector<T> Mapped(const std::vector<T>& items, SdfListOpType type,
                      const typename SdfListOp<T>::ApplyCallback& cb)
{
    if (!cb) {
        return items;
    }
    std::vector<T> result;
    result.reserve(items.size());
    for (const T& item : items) {
        if (std::optional<T> mapped = cb(type, item)) {
            result.push_back(std::move(*mapped));
        }
    }
    return result;
}

template <class T>
void EraseAll(std::vector<T>* items, const T& item)
{
    items->erase(std::remove(items->begin(), items->end(), item), items->end());
}

} // namespace

template <class T>
SdfListOp<T> SdfListOp<T>::Create(const ItemVector& prependedItems,
                                  const ItemVector& appendedItems,
                                  const ItemVector& deletedItems)
{
    SdfListOp<T> op;
    op._prependedItems = prependedItems;
    op._appendedItems = appendedItems;
    op._deletedItems = deletedItems;
    return op;
}

template <class T>
SdfListOp<T> SdfListOp<T>::CreateExplicit(const ItemVector& explicitItems)
{
    SdfListOp<T> op;
    op.SetExplicitItems(explicitItems);
    return op;
}

template <class T>
void SdfListOp<T>::Swap(SdfListOp<T>& rhs)
{
    std::swap(_isExplicit, rhs._isExplicit);
    _explicitItems.swap(rhs._explicitItems);
    _addedItems.swap(rhs._addedItems);
    _prependedItems.swap(rhs._prependedItems);
    _appendedItems.swap(rhs._appendedItems);
    _deletedItems.swap(rhs._deletedItems);
    _orderedItems.swap(rhs._orderedItems);
}

template <class T>
bool SdfListOp<T>::HasKeys() const
{
    if (_isExplicit) {
        return true;
    }
    return !_addedItems.empty() || !_prependedItems.empty() || !_appendedItems.empty() ||
           !_deletedItems.empty() || !_orderedItems.empty();
}

template <class T>
bool SdfListOp<T>::HasItem(const T& item) const
{
    const auto contains = [&item](const ItemVector& items) {
        return std::find(items.begin(), items.end(), item) != items.end();
    };
    if (_isExplicit) {
        return contains(_explicitItems);
    }
    return contains(_addedItems) || contains(_prependedItems) || contains(_appendedItems) ||
           contains(_deletedItems) || contains(_orderedItems);
}

template <class T>
const typename SdfListOp<T>::ItemVector& SdfListOp<T>::GetItems(SdfListOpType type) const
{
    return const_cast<SdfListOp<T>*>(this)->_Items(type);
}

template <class T>
typename SdfListOp<T>::ItemVector& SdfListOp<T>::_Items(SdfListOpType type)
{
    switch (type) {
    case SdfListOpTypeExplicit:
        return _explicitItems;
    case SdfListOpTypeAdded:
        return _addedItems;
    case SdfListOpTypeDeleted:
        return _deletedItems;
    case SdfListOpTypeOrdered:
        return _orderedItems;
    case SdfListOpTypePrepended:
        return _prependedItems;
    case SdfListOpTypeAppended:
        break;
    }
    return _appendedItems;
}

template <class T>
typename SdfListOp<T>::ItemVector SdfListOp<T>::GetAppliedItems() const
{
    ItemVector result;
    ApplyOperations(&result);
    return result;
}

template <class T>
void SdfListOp<T>::SetItems(const ItemVector& items, SdfListOpType type)
{
    _SetExplicit(type == SdfListOpTypeExplicit);
    _Items(type) = items;
}

template <class T>
void SdfListOp<T>::SetExplicitItems(const ItemVector& items)
{
    SetItems(items, SdfListOpTypeExplicit);
}

template <class T>
void SdfListOp<T>::SetAddedItems(const ItemVector& items)
{
    SetItems(items, SdfListOpTypeAdded);
}

template <class T>
void SdfListOp<T>::SetPrependedItems(const ItemVector& items)
{
    SetItems(items, SdfListOpTypePrepended);
}

template <class T>
void SdfListOp<T>::SetAppendedItems(const ItemVector& items)
{
    SetItems(items, SdfListOpTypeAppended);
}

template <class T>
void SdfListOp<T>::SetDeletedItems(const ItemVector& items)
{
    SetItems(items, SdfListOpTypeDeleted);
}

template <class T>
void SdfListOp<T>::SetOrderedItems(const ItemVector& items)
{
    SetItems(items, SdfListOpTypeOrdered);
}

template <class T>
void SdfListOp<T>::_SetExplicit(bool isExplicit)
{
    if (isExplicit != _isExplicit) {
        _isExplicit = isExplicit;
        _explicitItems.clear();
        _addedItems.clear();
        _prependedItems.clear();
        _appendedItems.clear();
        _deletedItems.clear();
        _orderedItems.clear();
    }
}

template <class T>
void SdfListOp<T>::Clear()
{
    // Switching modes twice clears every list and leaves the op non-explicit.
    _SetExplicit(true);
    _SetExplicit(false);
}

template <class T>
void SdfListOp<T>::ClearAndMakeExplicit()
{
    _SetExplicit(false);
    _SetExplicit(true);
}

template <class T>
void SdfListOp<T>::ApplyOperations(ItemVector* vec, const ApplyCallback& cb) const
{
    if (!vec) {
        return;
    }
    if (_isExplicit) {
        ApplyList<T> result{ItemVector()};
        for (const T& item : Mapped(_explicitItems, SdfListOpTypeExplicit, cb)) {
            result.Add(item);
        }
        *vec = result.Take();
        return;
    }
    if (!HasKeys()) {
        return;
    }
    ApplyList<T> result(*vec);
    for (const T& item : Mapped(_deletedItems, SdfListOpTypeDeleted, cb)) {
        result.Delete(item);
    }
    for (const T& item : Mapped(_addedItems, SdfListOpTypeAdded, cb)) {
        result.Add(item);
    }
    result.Prepend(Mapped(_prependedItems, SdfListOpTypePrepended, cb));
    result.Append(Mapped(_appendedItems, SdfListOpTypeAppended, cb));
    result.Reorder(Mapped(_orderedItems, SdfListOpTypeOrdered, cb));
    *vec = result.Take();
}

template <class T>
std::optional<SdfListOp<T>> SdfListOp<T>::ApplyOperations(const SdfListOp<T>& inner) const
{
    if (_isExplicit) {
        return *this;
    }
    if (!_addedItems.empty() || !_orderedItems.empty()) {
        return std::nullopt;
    }
    if (inner._isExplicit) {
        ItemVector items = inner._explicitItems;
        ApplyOperations(&items);
        return CreateExplicit(items);
    }
    if (!inner._addedItems.empty() || !inner._orderedItems.empty()) {
        return std::nullopt;
    }
    ItemVector deleted = inner._deletedItems;
    ItemVector prepended = inner._prependedItems;
    ItemVector appended = inner._appendedItems;
    // A stronger delete cancels the weaker op's prepend or append of the
    // item; a stronger prepend or append cancels its delete and moves it.
    for (const T& item : _deletedItems) {
        EraseAll(&prepended, item);
        EraseAll(&appended, item);
        if (std::find(deleted.begin(), deleted.end(), item) == deleted.end()) {
            deleted.push_back(item);
        }
    }
    for (const ItemVector* stronger : {&_prependedItems, &_appendedItems}) {
        for (const T& item : *stronger) {
            EraseAll(&deleted, item);
            EraseAll(&prepended, item);
            EraseAll(&appended, item);
        }
    }
    prepended.insert(prepended.begin(), _prependedItems.begin(), _prependedItems.end());
    appended.insert(appended.end(), _appendedItems.begin(), _appendedItems.end());
    SdfListOp<T> result;
    result._deletedItems = std::move(deleted);
    result._prependedItems = std::move(prepended);
    result._appendedItems = std::move(appended);
    return result;
}

template <class T>
bool SdfListOp<T>::operator==(const SdfListOp<T>& rhs) const
{
    return _isExplicit == rhs._isExplicit && _explicitItems == rhs._explicitItems &&
           _addedItems == rhs._addedItems && _prependedItems == rhs._prependedItems &&
           _appendedItems == rhs._appendedItems && _deletedItems == rhs._deletedItems &&
           _orderedItems == rhs._orderedItems;
}

template <class T>
void SdfApplyListOrdering(std::vector<T>* v, const std::vector<T>& order)
{
    if (v && !order.empty() && !v->empty()) {
        SdfListOp<T> op;
        op.SetOrderedItems(order);
        op.ApplyOperations(v);
    }
}

namespace {

template <class T>
void PrintItems(std::ostream& out, const char* label, const std::vector<T>& items, bool* first)
{
    if (items.empty()) {
        return;
    }
    out << (*first ? "" : ", ") << label << " Items: [";
    *first = false;
    for (size_t i = 0; i < items.size(); ++i) {
        out << (i ? ", " : "") << items[i];
    }
    out << "]";
}

} // namespace

template <class T>
std::ostream& operator<<(std::ostream& out, const SdfListOp<T>& op)
{
    out << "SdfListOp(";
    bool first = true;
    PrintItems(out, "Explicit", op.GetExplicitItems(), &first);
    PrintItems(out, "Deleted", op.GetDeletedItems(), &first);
    PrintItems(out, "Added", op.GetAddedItems(), &first);
    PrintItems(out, "Prepended", op.GetPrependedItems(), &first);
    PrintItems(out, "Appended", op.GetAppendedItems(), &first);
    PrintItems(out, "Ordered", op.GetOrderedItems(), &first);
    return out << ")";
}

#define SDF_INSTANTIATE_LIST_OP(T)                                            \
    template class SdfListOp<T>;                                              \
    template std::ostream& operator<<(std::ostream&, const SdfListOp<T>&);    \
    template void SdfApplyListOrdering(std::vector<T>*, const std::vector<T>&);

SDF_INSTANTIATE_LIST_OP(int)
SDF_INSTANTIATE_LIST_OP(unsigned int)
SDF_INSTANTIATE_LIST_OP(int64_t)
SDF_INSTANTIATE_LIST_OP(uint64_t)
SDF_INSTANTIATE_LIST_OP(std::string)
SDF_INSTANTIATE_LIST_OP(TfToken)
SDF_INSTANTIATE_LIST_OP(SdfPath)
SDF_INSTANTIATE_LIST_OP(SdfReference)
SDF_INSTANTIATE_LIST_OP(SdfPayload)
SDF_INSTANTIATE_LIST_OP(SdfUnregisteredValue)

PXR_NAMESPACE_CLOSE_SCOPE
