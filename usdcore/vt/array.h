#pragma once

#include "usdcore/pxr.h"

#include <algorithm>
#include <atomic>
#include <cstdint>
#include <cstddef>
#include <initializer_list>
#include <iterator>
#include <memory>
#include <new>
#include <ostream>
#include <type_traits>
#include <utility>

PXR_NAMESPACE_OPEN_SCOPE

/// A contiguous array whose storage is shared between copies until one of
/// them is written to (copy-on-write). Copying a VtArray, or a VtValue that
/// holds one, is a reference count increment. Every non-const access that
/// could write (data(), non-const operator[], begin()/end(), resizing...)
/// first gives this array its own storage if others share it; read through
/// cdata() or a const reference to avoid that copy.
template <class T>
class VtArray
{
public:
    using ElementType = T;
    using value_type = T;
    using size_type = size_t;
    using difference_type = std::ptrdiff_t;
    using pointer = T*;
    using const_pointer = const T*;
    using reference = T&;
    using const_reference = const T&;
    using iterator = T*;
    using const_iterator = const T*;
    using reverse_iterator = std::reverse_iterator<iterator>;
    using const_reverse_iterator = std::reverse_iterator<const_iterator>;

    VtArray() noexcept = default;
    explicit VtArray(size_t n) { resize(n); }
    VtArray(size_t n, const value_type& value) { resize(n, value); }
    VtArray(std::initializer_list<T> values) { assign(values.begin(), values.end()); }
    template <class It, class = typename std::iterator_traits<It>::iterator_category>
    VtArray(It first, It last)
    {
        assign(first, last);
    }
    VtArray(const VtArray& o) noexcept : _data(o._data), _size(o._size) { _AddRef(); }
    VtArray(VtArray&& o) noexcept : _data(o._data), _size(o._size)
    {
        o._data = nullptr;
        o._size = 0;
    }
    ~VtArray() { _Release(); }

    VtArray& operator=(const VtArray& o) noexcept
    {
        VtArray(o).swap(*this);
        return *this;
    }
    VtArray& operator=(VtArray&& o) noexcept
    {
        VtArray(std::move(o)).swap(*this);
        return *this;
    }
    VtArray& operator=(std::initializer_list<T> values)
    {
        assign(values);
        return *this;
    }

    size_t size() const { return _size; }
    bool empty() const { return _size == 0; }
    size_t capacity() const { return _data ? _GetControl()->capacity : 0; }
    static constexpr size_t max_size() { return (SIZE_MAX - _kHeaderBytes) / sizeof(T); }

    const T* cdata() const { return _data; }
    const T* data() const { return _data; }
    T* data()
    {
        _DetachIfShared();
        return _data;
    }

    const T& operator[](size_t i) const { return _data[i]; }
    T& operator[](size_t i) { return data()[i]; }
    const T& front() const { return _data[0]; }
    T& front() { return data()[0]; }
    const T& back() const { return _data[_size - 1]; }
    T& back() { return data()[_size - 1]; }

    const_iterator begin() const { return _data; }
    const_iterator end() const { return _data + _size; }
    const_iterator cbegin() const { return _data; }
    const_iterator cend() const { return _data + _size; }
    iterator begin() { return data(); }
    iterator end() { return data() + _size; }
    const_reverse_iterator rbegin() const { return const_reverse_iterator(end()); }
    const_reverse_iterator rend() const { return const_reverse_iterator(begin()); }
    const_reverse_iterator crbegin() const { return rbegin(); }
    const_reverse_iterator crend() const { return rend(); }

    /// True if both arrays share the same storage (a copy not yet written to).
    bool IsIdentical(const VtArray& o) const { return _data == o._data && _size == o._size; }

    void swap(VtArray& o) noexcept
    {
        std::swap(_data, o._data);
        std::swap(_size, o._size);
    }

    void reserve(size_t n)
    {
        if (n > capacity() || (_data && !_IsUnique())) {
            _Reallocate(std::max(n, _size), _size);
        }
    }

    template <class... Args>
    void emplace_back(Args&&... args)
    {
        // Built before any reallocation, as args may refer into this array.
        T value(std::forward<Args>(args)...);
        if (!_data || !_IsUnique() || _size == capacity()) {
            _Reallocate(std::max<size_t>(8, 2 * _size), _size);
        }
        ::new (static_cast<void*>(_data + _size)) T(std::move(value));
        ++_size;
    }
    void push_back(const T& value) { emplace_back(value); }
    void push_back(T&& value) { emplace_back(std::move(value)); }
    void pop_back()
    {
        _DetachIfShared();
        _data[--_size].~T();
    }

    /// Grows with value-initialised elements or shrinks.
    void resize(size_t n)
    {
        resize(n, [](T* first, T* last) { std::uninitialized_value_construct(first, last); });
    }
    void resize(size_t n, const value_type& value)
    {
        const T copy = value;
        resize(n, [&copy](T* first, T* last) { std::uninitialized_fill(first, last, copy); });
    }
    /// Grows or shrinks to \p n. New elements are left to \p fillElems, which
    /// is called once as fillElems(first, last) on raw, unconstructed memory
    /// and must construct every element in it: decoders write straight into
    /// the storage without constructing elements twice.
    template <class FillElemsFn,
              class = std::enable_if_t<std::is_invocable<FillElemsFn&, T*, T*>::value>>
    void resize(size_t n, FillElemsFn&& fillElems)
    {
        if (n <= _size) {
            _Shrink(n);
            return;
        }
        if (!_data || !_IsUnique() || n > capacity()) {
            _Reallocate(n, _size);
        }
        fillElems(_data + _size, _data + n);
        _size = n;
    }

    void assign(size_t n, const value_type& value)
    {
        const T copy = value;
        clear();
        resize(n, copy);
    }
    template <class It, class = typename std::iterator_traits<It>::iterator_category>
    void assign(It first, It last)
    {
        VtArray fresh;
        fresh.resize(size_t(std::distance(first, last)),
                     [&](T* out, T*) { std::uninitialized_copy(first, last, out); });
        swap(fresh);
    }
    void assign(std::initializer_list<T> values) { assign(values.begin(), values.end()); }

    void clear()
    {
        if (_data && !_IsUnique()) {
            VtArray().swap(*this);
            return;
        }
        _Shrink(0);
    }

    bool operator==(const VtArray& o) const
    {
        return IsIdentical(o) || (_size == o._size && std::equal(cbegin(), cend(), o.cbegin()));
    }
    bool operator!=(const VtArray& o) const { return !(*this == o); }

private:
    struct _Control {
        std::atomic<size_t> refCount;
        size_t capacity;
    };
    static constexpr size_t _kAlign = std::max(alignof(T), alignof(_Control));
    // The elements follow the control block, at an offset aligned for T.
    static constexpr size_t _kHeaderBytes = (sizeof(_Control) + _kAlign - 1) / _kAlign * _kAlign;

    _Control* _GetControl() const
    {
        return reinterpret_cast<_Control*>(reinterpret_cast<char*>(_data) - _kHeaderBytes);
    }
    bool _IsUnique() const { return _GetControl()->refCount.load(std::memory_order_acquire) == 1; }

    void _AddRef() const
    {
        if (_data) _GetControl()->refCount.fetch_add(1, std::memory_order_relaxed);
    }
    void _Release()
    {
        if (!_data) return;
        _Control* control = _GetControl();
        if (control->refCount.fetch_sub(1, std::memory_order_acq_rel) == 1) {
            std::destroy(_data, _data + _size);
            control->~_Control();
            ::operator delete(static_cast<void*>(control), std::align_val_t(_kAlign));
        }
        _data = nullptr;
        _size = 0;
    }

    /// Moves (when unique) or copies (when shared) the first \p keep
    /// elements into fresh storage for \p newCapacity elements.
    void _Reallocate(size_t newCapacity, size_t keep)
    {
        void* raw = ::operator new(_kHeaderBytes + newCapacity * sizeof(T), std::align_val_t(_kAlign));
        _Control* control = ::new (raw) _Control;
        control->refCount.store(1, std::memory_order_relaxed);
        control->capacity = newCapacity;
        T* fresh = reinterpret_cast<T*>(static_cast<char*>(raw) + _kHeaderBytes);
        if (_data && _IsUnique()) {
            std::uninitialized_move(_data, _data + keep, fresh);
        } else if (_data) {
            std::uninitialized_copy(_data, _data + keep, fresh);
        }
        _Release();
        _data = fresh;
        _size = keep;
    }

    void _DetachIfShared()
    {
        if (_data && !_IsUnique()) {
            _Reallocate(_size, _size);
        }
    }

    void _Shrink(size_t n)
    {
        if (n == _size) return;
        if (!_IsUnique()) {
            _Reallocate(n, n);
            return;
        }
        std::destroy(_data + n, _data + _size);
        _size = n;
    }

    T* _data = nullptr;
    size_t _size = 0;
};

template <class T>
void swap(VtArray<T>& a, VtArray<T>& b) noexcept
{
    a.swap(b);
}

template <class T>
std::ostream& operator<<(std::ostream& out, const VtArray<T>& array)
{
    out << '[';
    for (size_t i = 0; i < array.size(); ++i) out << (i ? ", " : "") << array[i];
    return out << ']';
}

template <class T> struct VtIsArray : std::false_type {};
template <class T> struct VtIsArray<VtArray<T>> : std::true_type {};

PXR_NAMESPACE_CLOSE_SCOPE
