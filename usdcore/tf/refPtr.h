#pragma once

#include "usdcore/pxr.h"
#include "usdcore/tf/nullPtr.h"
#include "usdcore/tf/refBase.h"

#include <cstddef>
#include <functional>
#include <type_traits>
#include <utility>

PXR_NAMESPACE_OPEN_SCOPE

template <class T> class TfWeakPtr;

/// Shared owner of a TfRefBase-derived object (intrusive count).
/// Owners come from TfCreateRefPtr(new T(...)), never from a raw pointer.
template <class T>
class TfRefPtr
{
public:
    using element_type = T;

    TfRefPtr() noexcept = default;
    TfRefPtr(TfNullPtrType) noexcept {}
    TfRefPtr(std::nullptr_t) noexcept {}
    TfRefPtr(const TfRefPtr& o) noexcept : _ptr(o._ptr) { _AddRef(); }
    TfRefPtr(TfRefPtr&& o) noexcept : _ptr(o._ptr) { o._ptr = nullptr; }
    template <class U, class = std::enable_if_t<std::is_convertible<U*, T*>::value>>
    TfRefPtr(const TfRefPtr<U>& o) noexcept : _ptr(o.operator->())
    {
        _AddRef();
    }
    /// Takes a new owner of a weakly held object; empty if it expired.
    /// (Defined in weakPtr.h.)
    template <class U, class = std::enable_if_t<std::is_convertible<U*, T*>::value>>
    TfRefPtr(const TfWeakPtr<U>& weak);

    ~TfRefPtr() { _RemoveRef(); }

    TfRefPtr& operator=(TfRefPtr o) noexcept
    {
        swap(o);
        return *this;
    }

    T* operator->() const noexcept { return _ptr; }
    T& operator*() const noexcept { return *_ptr; }
    explicit operator bool() const noexcept { return _ptr != nullptr; }
    bool operator!() const noexcept { return _ptr == nullptr; }

    void swap(TfRefPtr& o) noexcept { std::swap(_ptr, o._ptr); }
    void Reset() { TfRefPtr().swap(*this); }

    template <class U>
    bool operator==(const TfRefPtr<U>& o) const { return _ptr == o.operator->(); }
    template <class U>
    bool operator!=(const TfRefPtr<U>& o) const { return _ptr != o.operator->(); }
    template <class U>
    bool operator<(const TfRefPtr<U>& o) const { return std::less<const void*>()(_ptr, o.operator->()); }
    bool operator==(std::nullptr_t) const { return _ptr == nullptr; }
    bool operator!=(std::nullptr_t) const { return _ptr != nullptr; }

private:
    template <class U> friend TfRefPtr<U> TfCreateRefPtr(U* p);
    template <class D, class B> friend TfRefPtr<D> TfStatic_cast(const TfRefPtr<B>& p);
    template <class D, class B> friend TfRefPtr<D> TfDynamic_cast(const TfRefPtr<B>& p);
    template <class D> friend TfRefPtr<D> TfConst_cast(const TfRefPtr<const D>& p);

    explicit TfRefPtr(T* p) noexcept : _ptr(p) { _AddRef(); }
    void _AddRef() const
    {
        if (_ptr) Tf_RefPtrCounter::AddRef(_ptr);
    }
    void _RemoveRef() const
    {
        if (_ptr) Tf_RefPtrCounter::RemoveRef(_ptr);
    }

    T* _ptr = nullptr;
};

/// Makes the first owner of a freshly allocated object.
template <class T>
TfRefPtr<T> TfCreateRefPtr(T* p)
{
    return TfRefPtr<T>(p);
}

template <class D, class B>
TfRefPtr<D> TfStatic_cast(const TfRefPtr<B>& p)
{
    return TfRefPtr<D>(static_cast<D*>(p.operator->()));
}

template <class D, class B>
TfRefPtr<D> TfDynamic_cast(const TfRefPtr<B>& p)
{
    return TfRefPtr<D>(dynamic_cast<D*>(p.operator->()));
}

template <class D>
TfRefPtr<D> TfConst_cast(const TfRefPtr<const D>& p)
{
    return TfRefPtr<D>(const_cast<D*>(p.operator->()));
}

template <class T>
T* get_pointer(const TfRefPtr<T>& p)
{
    return p.operator->();
}

template <class T>
size_t hash_value(const TfRefPtr<T>& p)
{
    return std::hash<const void*>()(p.operator->());
}

PXR_NAMESPACE_CLOSE_SCOPE

template <class T>
struct std::hash<PXR_NS::TfRefPtr<T>> {
    size_t operator()(const PXR_NS::TfRefPtr<T>& p) const { return PXR_NS::hash_value(p); }
};
