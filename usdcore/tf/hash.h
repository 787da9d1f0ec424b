#pragma once

#include "usdcore/pxr.h"

#include <cstddef>
#include <functional>
#include <utility>

PXR_NAMESPACE_OPEN_SCOPE

/// Hash functor for unordered containers: uses the type's hash_value()
/// (found by argument-dependent lookup) if it has one, else std::hash.
struct TfHash {
    template <class T>
    size_t operator()(const T& value) const
    {
        return _Hash(value, 0);
    }

    /// Mixes the hashes of \p values into one.
    template <class... Args>
    static size_t Combine(const Args&... values)
    {
        size_t seed = 0;
        ((seed ^= TfHash()(values) + 0x9e3779b97f4a7c15ull + (seed << 6) + (seed >> 2)), ...);
        return seed;
    }

private:
    template <class T>
    static auto _Hash(const T& value, int) -> decltype(hash_value(value))
    {
        return hash_value(value);
    }
    template <class T>
    static size_t _Hash(const T& value, long)
    {
        return std::hash<T>()(value);
    }
};

PXR_NAMESPACE_CLOSE_SCOPE
