#pragma once

#include "usdcore/pxr.h"
#include "usdcore/tf/nullPtr.h"
#include "usdcore/tf/refPtr.h"
#include "usdcore/tf/weakBase.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <type_traits>

PXR_NAMESPACE_OPEN_SCOPE

/// Non-owning pointer to a TfWeakBase-derived object that becomes null when
/// the object is destroyed.
template <class T>
class TfWeakPtr
{
public:
    using element_type = T;

    TfWeakPtr() noexcept = default;
    TfWeakPtr(TfNullPtrType) noexcept {}
    TfWeakPtr(std::nullptr_t) noexcept {}
    template <class U, class = std::enable_if_t<std::is_convertible<U*, T*>::value>>
    TfWeakPtr(U* p) : _ptr(p), _remnant(p ? p->_GetRemnant() : nullptr)
    {
    }
    template <class U, class = std::enable_if_t<std::is_convertible<U*, T*>::value>>
    TfWeakPtr(const TfRefPtr<U>& p) : TfWeakPtr(p.operator->())
    {
    }
    template <class U, class = std::enable_if_t<std::is_convertible<U*, T*>::value>>
    TfWeakPtr(const TfWeakPtr<U>& p) : _ptr(p._ptr), _remnant(p._remnant)
    {
    }

    bool IsExpired() const { return _remnant && !_remnant->alive; }
    bool IsInvalid() const { return IsExpired(); }

    /// The object, or null if it was never set or has been destroyed.
    T* get() const { return (_remnant && _remnant->alive) ? _ptr : nullptr; }
    T* operator->() const { return get(); }
    T& operator*() const { return *get(); }
    explicit operator bool() const { return get() != nullptr; }
    bool operator!() const { return get() == nullptr; }

    void Reset() { *this = TfWeakPtr(); }

    // Identity compares the address recorded at construction, so an expired
    // pointer still finds its entry in a map keyed by handles.
    template <class U>
    bool operator==(const TfWeakPtr<U>& o) const { return _ptr == o._ptr; }
    template <class U>
    bool operator!=(const TfWeakPtr<U>& o) const { return _ptr != o._ptr; }
    template <class U>
    bool operator<(const TfWeakPtr<U>& o) const { return std::less<const void*>()(_ptr, o._ptr); }
    template <class U>
    bool operator==(const TfRefPtr<U>& o) const { return get() == o.operator->(); }
    template <class U>
    bool operator!=(const TfRefPtr<U>& o) const { return get() != o.operator->(); }

    size_t GetHash() const { return std::hash<const void*>()(_ptr); }

private:
    template <class U> friend class TfWeakPtr;
    T* _ptr = nullptr;
    std::shared_ptr<Tf_Remnant> _remnant;
};

template <class T>
template <class U, class>
TfRefPtr<T>::TfRefPtr(const TfWeakPtr<U>& weak) : _ptr(weak.get())
{
    _AddRef();
}

template <class T>
T* get_pointer(const TfWeakPtr<T>& p)
{
    return p.get();
}

template <class T>
size_t hash_value(const TfWeakPtr<T>& p)
{
    return p.GetHash();
}

PXR_NAMESPACE_CLOSE_SCOPE

template <class T>
struct std::hash<PXR_NS::TfWeakPtr<T>> {
    size_t operator()(const PXR_NS::TfWeakPtr<T>& p) const { return p.GetHash(); }
};
