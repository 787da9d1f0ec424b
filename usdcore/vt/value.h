#pragma once

#include "usdcore/pxr.h"
#include "usdcore/tf/diagnostic.h"
#include "usdcore/vt/array.h"

#include <cstddef>
#include <iosfwd>
#include <map>
#include <memory>
#include <ostream>
#include <new>
#include <string>
#include <type_traits>
#include <typeinfo>
#include <utility>
#include <vector>

PXR_NAMESPACE_OPEN_SCOPE

class VtValue;

// How a VtValue stores a T. Values that fit in two pointers and move without
// throwing (tokens, scalars, small vectors, every VtArray) live inline;
// others (strings, matrices, dictionaries...) live on the heap behind a
// shared_ptr that copies share, so copying any VtValue is cheap. The heap
// value is copied before it is modified while shared.
struct Vt_ValueStorage {
    alignas(void*) unsigned char bytes[2 * sizeof(void*)];
};

template <class T>
constexpr bool Vt_IsLocal = sizeof(T) <= sizeof(Vt_ValueStorage) &&
                            alignof(T) <= alignof(Vt_ValueStorage) &&
                            std::is_nothrow_move_constructible<T>::value;

// Text given as a C string is held as std::string, as OpenUSD does.
template <class T> struct Vt_HeldType { using type = T; };
template <> struct Vt_HeldType<char*> { using type = std::string; };
template <> struct Vt_HeldType<const char*> { using type = std::string; };

struct Vt_ValueTypeInfo {
    const std::type_info& typeInfo;
    bool isArray;
    void (*copy)(const Vt_ValueStorage& from, Vt_ValueStorage& to);
    void (*move)(Vt_ValueStorage& from, Vt_ValueStorage& to); // leaves `from` destroyed
    void (*destroy)(Vt_ValueStorage& storage);
    bool (*equal)(const Vt_ValueStorage& a, const Vt_ValueStorage& b);
    size_t (*arraySize)(const Vt_ValueStorage& storage);
    void (*stream)(std::ostream& out, const Vt_ValueStorage& storage);
};

template <class T, class = void>
struct Vt_IsStreamable : std::false_type {};
template <class T>
struct Vt_IsStreamable<T, std::void_t<decltype(std::declval<std::ostream&>() << std::declval<const T&>())>>
    : std::true_type {};

template <class A, class B, class = void>
struct Vt_IsEqualityComparable : std::false_type {};
template <class A, class B>
struct Vt_IsEqualityComparable<A, B, std::void_t<decltype(std::declval<const A&>() == std::declval<const B&>())>>
    : std::true_type {};

template <class T> struct Vt_IsStdMap : std::false_type {};
template <class K, class V, class C, class A> struct Vt_IsStdMap<std::map<K, V, C, A>> : std::true_type {};
template <class T> struct Vt_IsStdVector : std::false_type {};
template <class V, class A> struct Vt_IsStdVector<std::vector<V, A>> : std::true_type {};

/// Prints a held value that has no operator<< as its type name in brackets.
void Vt_StreamUnprintable(std::ostream& out, const std::type_info& type);

template <class T>
void Vt_StreamValue(std::ostream& out, const T& value);

/// Maps (time samples, dictionaries) print as "{key: value, ...}" and
/// vectors as "[value, ...]", element by element.
template <class Map>
void Vt_StreamMap(std::ostream& out, const Map& map)
{
    out << '{';
    const char* separator = "";
    for (const auto& [key, value] : map) {
        out << separator;
        Vt_StreamValue(out, key);
        out << ": ";
        Vt_StreamValue(out, value);
        separator = ", ";
    }
    out << '}';
}

template <class Vector>
void Vt_StreamVector(std::ostream& out, const Vector& vector)
{
    out << '[';
    const char* separator = "";
    for (const auto& value : vector) {
        out << separator;
        Vt_StreamValue(out, value);
        separator = ", ";
    }
    out << ']';
}

template <class T>
void Vt_StreamValue(std::ostream& out, const T& value)
{
    if constexpr (Vt_IsStdMap<T>::value) {
        Vt_StreamMap(out, value);
    } else if constexpr (Vt_IsStdVector<T>::value) {
        Vt_StreamVector(out, value);
    } else if constexpr (Vt_IsStreamable<T>::value) {
        out << value;
    } else {
        Vt_StreamUnprintable(out, typeid(T));
    }
}

template <class T>
struct Vt_ValueOps {
    using Held = std::conditional_t<Vt_IsLocal<T>, T, std::shared_ptr<T>>;

    static Held& Holder(Vt_ValueStorage& s) { return *std::launder(reinterpret_cast<Held*>(s.bytes)); }
    static const Held& Holder(const Vt_ValueStorage& s)
    {
        return *std::launder(reinterpret_cast<const Held*>(s.bytes));
    }

    static const T& Get(const Vt_ValueStorage& s)
    {
        if constexpr (Vt_IsLocal<T>) {
            return Holder(s);
        } else {
            return *Holder(s);
        }
    }
    /// Mutable access; a heap value shared with other VtValues is copied first.
    static T& GetMutable(Vt_ValueStorage& s)
    {
        if constexpr (Vt_IsLocal<T>) {
            return Holder(s);
        } else {
            std::shared_ptr<T>& p = Holder(s);
            if (p.use_count() > 1) {
                p = std::make_shared<T>(*p);
            }
            return *p;
        }
    }

    template <class U>
    static void Construct(Vt_ValueStorage& s, U&& value)
    {
        if constexpr (Vt_IsLocal<T>) {
            ::new (static_cast<void*>(s.bytes)) Held(std::forward<U>(value));
        } else {
            ::new (static_cast<void*>(s.bytes)) Held(std::make_shared<T>(std::forward<U>(value)));
        }
    }

    static void Copy(const Vt_ValueStorage& from, Vt_ValueStorage& to)
    {
        ::new (static_cast<void*>(to.bytes)) Held(Holder(from));
    }
    static void Move(Vt_ValueStorage& from, Vt_ValueStorage& to)
    {
        ::new (static_cast<void*>(to.bytes)) Held(std::move(Holder(from)));
        Destroy(from);
    }
    static void Destroy(Vt_ValueStorage& s) { Holder(s).~Held(); }
    static bool Equal(const Vt_ValueStorage& a, const Vt_ValueStorage& b)
    {
        return Get(a) == Get(b);
    }
    static size_t ArraySize(const Vt_ValueStorage& s)
    {
        if constexpr (VtIsArray<T>::value) {
            return Get(s).size();
        } else {
            return 0;
        }
    }

    static void Stream(std::ostream& out, const Vt_ValueStorage& s) { Vt_StreamValue(out, Get(s)); }

    static inline const Vt_ValueTypeInfo info{typeid(T), VtIsArray<T>::value, &Copy,   &Move,
                                              &Destroy,  &Equal,             &ArraySize, &Stream};
};

/// Holds one value of any type (or nothing). Type checks are a pointer
/// compare; see Vt_ValueStorage for the cost of copies.
class VtValue
{
public:
    VtValue() noexcept = default;
    VtValue(const VtValue& o) : _info(o._info)
    {
        if (_info) _info->copy(o._storage, _storage);
    }
    VtValue(VtValue&& o) noexcept : _info(o._info)
    {
        if (_info) _info->move(o._storage, _storage);
        o._info = nullptr;
    }
    template <class T, class Decayed = std::decay_t<T>,
              class = std::enable_if_t<!std::is_same<Decayed, VtValue>::value>>
    VtValue(T&& value)
    {
        using Held = typename Vt_HeldType<Decayed>::type;
        Vt_ValueOps<Held>::Construct(_storage, std::forward<T>(value));
        _info = &Vt_ValueOps<Held>::info;
    }
    ~VtValue() { _Clear(); }

    VtValue& operator=(const VtValue& o)
    {
        if (this != &o) VtValue(o).Swap(*this);
        return *this;
    }
    VtValue& operator=(VtValue&& o) noexcept
    {
        if (this != &o) VtValue(std::move(o)).Swap(*this);
        return *this;
    }
    template <class T, class = std::enable_if_t<!std::is_same<std::decay_t<T>, VtValue>::value>>
    VtValue& operator=(T&& value)
    {
        VtValue(std::forward<T>(value)).Swap(*this);
        return *this;
    }

    /// Wraps \p obj by moving it in; \p obj is left value-initialised.
    template <class T>
    static VtValue Take(T& obj)
    {
        VtValue v;
        v.Swap(obj);
        return v;
    }

    VtValue& Swap(VtValue& o) noexcept
    {
        VtValue tmp;
        _MoveInto(tmp);
        o._MoveInto(*this);
        tmp._MoveInto(o);
        return *this;
    }

    /// Swaps the held T with \p rhs; a value not holding T first becomes a
    /// value-initialised T.
    template <class T, class = std::enable_if_t<!std::is_same<T, VtValue>::value>>
    void Swap(T& rhs)
    {
        if (!IsHolding<T>()) {
            *this = T();
        }
        UncheckedSwap(rhs);
    }
    template <class T>
    void UncheckedSwap(T& rhs)
    {
        using std::swap;
        swap(Vt_ValueOps<T>::GetMutable(_storage), rhs);
    }

    /// Empties this value and returns what it held as T (a value-initialised
    /// T if it held something else).
    template <class T>
    T Remove()
    {
        T result{};
        if (IsHolding<T>()) {
            result = UncheckedRemove<T>();
        }
        _Clear();
        return result;
    }
    template <class T>
    T UncheckedRemove()
    {
        T result = std::move(Vt_ValueOps<T>::GetMutable(_storage));
        _Clear();
        return result;
    }

    template <class T>
    bool IsHolding() const
    {
        return _info == &Vt_ValueOps<T>::info;
    }
    bool IsEmpty() const { return _info == nullptr; }
    bool IsArrayValued() const { return _info && _info->isArray; }
    /// The element count of a held VtArray; 0 for anything else.
    size_t GetArraySize() const { return _info ? _info->arraySize(_storage) : 0; }
    /// typeid of the held value, typeid(void) when empty.
    const std::type_info& GetType() const { return _info ? _info->typeInfo : typeid(void); }
    /// The held type's C++ name without the core's namespace, e.g.
    /// "VtArray<Gf_Vec<float, 3ul> >"; "void" when empty.
    std::string GetTypeName() const;

    template <class T>
    const T& UncheckedGet() const
    {
        return Vt_ValueOps<T>::Get(_storage);
    }
    /// The held T; a coding error and a value-initialised T when this holds
    /// something else.
    template <class T>
    const T& Get() const
    {
        if (IsHolding<T>()) {
            return UncheckedGet<T>();
        }
        Vt_ReportBadGet(typeid(T), GetType());
        static const T* fallback = new T();
        return *fallback;
    }
    template <class T>
    T GetWithDefault(const T& def = T()) const
    {
        return IsHolding<T>() ? UncheckedGet<T>() : def;
    }

    bool operator==(const VtValue& o) const
    {
        return _info == o._info && (!_info || _info->equal(_storage, o._storage));
    }
    bool operator!=(const VtValue& o) const { return !(*this == o); }

    // Comparisons with a T, either way round, without making a VtValue of
    // it. They take part only for a T other than VtValue that compares
    // with the type a VtValue would hold for it; anything else would make
    // them candidates for every comparison that names a VtValue.
    template <class T>
    using _EnableIfComparable = std::enable_if_t<
        !std::is_same<std::decay_t<T>, VtValue>::value &&
            Vt_IsEqualityComparable<typename Vt_HeldType<std::decay_t<T>>::type, T>::value,
        int>;

    template <class T, _EnableIfComparable<T> = 0>
    friend bool operator==(const VtValue& v, const T& rhs)
    {
        using Held = typename Vt_HeldType<std::decay_t<T>>::type;
        return v.IsHolding<Held>() && v.UncheckedGet<Held>() == rhs;
    }
    template <class T, _EnableIfComparable<T> = 0>
    friend bool operator==(const T& lhs, const VtValue& v)
    {
        return v == lhs;
    }
    template <class T, _EnableIfComparable<T> = 0>
    friend bool operator!=(const VtValue& v, const T& rhs)
    {
        return !(v == rhs);
    }
    template <class T, _EnableIfComparable<T> = 0>
    friend bool operator!=(const T& lhs, const VtValue& v)
    {
        return !(v == lhs);
    }

    /// Prints the held value. A template on purpose: as a plain function
    /// taking a VtValue, it would take any printable-looking argument
    /// through the converting constructor, and printing a map of VtValues
    /// would wrap the map in a VtValue and print that, without end.
    template <class V, std::enable_if_t<std::is_same<V, VtValue>::value, int> = 0>
    friend std::ostream& operator<<(std::ostream& out, const V& v)
    {
        if (v._info) v._info->stream(out, v._storage);
        return out;
    }

private:
    static void Vt_ReportBadGet(const std::type_info& wanted, const std::type_info& held);

    void _Clear()
    {
        if (_info) _info->destroy(_storage);
        _info = nullptr;
    }
    void _MoveInto(VtValue& to)
    {
        if (_info) _info->move(_storage, to._storage);
        to._info = _info;
        _info = nullptr;
    }

    Vt_ValueStorage _storage;
    const Vt_ValueTypeInfo* _info = nullptr;
};

/// The held type's name for \p info, without the core's namespace.
std::string Vt_GetTypeName(const std::type_info& info);

PXR_NAMESPACE_CLOSE_SCOPE
