#pragma once

// Arrays the crate stores compressed: integers as delta-encoded integers
// (0.5.0 on), floating-point values as integers or as a lookup table plus
// indices (0.6.0 on). Each is decoded straight into the array's storage.

#include "usdcore/gf/half.h"
#include "usdcore/pxr.h"
#include "usdcore/sdf/crate/byteCursor.h"
#include "usdcore/sdf/crate/integerCoding.h"
#include "usdcore/vt/array.h"

#include <cstdint>
#include <memory>
#include <new>
#include <string>
#include <type_traits>

PXR_NAMESPACE_OPEN_SCOPE

/// Arrays of these may be stored as compressed integers.
template <class T>
constexpr bool Sdf_CrateIsCompressibleInteger =
    std::is_same<T, int>::value || std::is_same<T, unsigned int>::value ||
    std::is_same<T, int64_t>::value || std::is_same<T, uint64_t>::value;

/// Arrays of these may be stored as integers or a lookup table.
template <class T>
constexpr bool Sdf_CrateIsCompressibleFloat = std::is_same<T, GfHalf>::value ||
                                              std::is_same<T, float>::value ||
                                              std::is_same<T, double>::value;

/// Arrays shorter than this are never compressed, whatever their flag says.
constexpr uint64_t Sdf_CrateMinCompressedArraySize = 16;

/// An integral floating-point value; GfHalf converts from float only.
template <class T>
T Sdf_CrateFromInteger(int32_t value)
{
    if constexpr (std::is_same<T, GfHalf>::value) {
        return GfHalf(float(value));
    } else {
        return T(value);
    }
}

/// Reads \p count compressed integers (after the array's count) into \p out.
template <class T>
bool Sdf_CrateReadCompressedIntegerArray(Sdf_CrateByteCursor& cursor, uint64_t count,
                                         VtArray<T>* out)
{
    Sdf_CrateCompressedIntegers located;
    if (!Sdf_CrateLocateCompressedIntegers(cursor, count, sizeof(T), &located)) {
        return false;
    }
    bool ok = false;
    out->resize(size_t(count), [&](T* first, T*) {
        ok = Sdf_CrateDecompressIntegers(located, first, cursor.GetError());
    });
    return ok;
}

/// Reads \p count floating-point values stored under a code byte: 'i', the
/// values are integers, stored as compressed int32s; 't', a lookup table of
/// the distinct values and compressed indices into it.
template <class T>
bool Sdf_CrateReadCompressedFloatArray(Sdf_CrateByteCursor& cursor, uint64_t count,
                                       VtArray<T>* out)
{
    Sdf_CrateError* error = cursor.GetError();
    char code = 0;
    if (!cursor.Read(&code)) {
        return false;
    }
    if (code == 'i') {
        Sdf_CrateCompressedIntegers located;
        if (!Sdf_CrateLocateCompressedIntegers(cursor, count, sizeof(int32_t), &located)) {
            return false;
        }
        std::unique_ptr<int32_t[]> integers(new int32_t[size_t(count)]);
        if (!Sdf_CrateDecompressIntegers(located, integers.get(), error)) {
            return false;
        }
        out->resize(size_t(count), [&](T* first, T*) {
            for (size_t i = 0; i != count; ++i) {
                ::new (static_cast<void*>(first + i)) T(Sdf_CrateFromInteger<T>(integers[i]));
            }
        });
        return true;
    }
    if (code != 't') {
        return error->Fail("unknown compressed array code " + std::to_string(int(code)));
    }
    uint32_t tableSize = 0;
    if (!cursor.Read(&tableSize) || !cursor.CheckCount(tableSize, sizeof(T))) {
        return false;
    }
    std::unique_ptr<T[]> table(new T[tableSize]);
    cursor.ReadArray(tableSize, sizeof(T), table.get());
    Sdf_CrateCompressedIntegers located;
    if (!Sdf_CrateLocateCompressedIntegers(cursor, count, sizeof(uint32_t), &located)) {
        return false;
    }
    std::unique_ptr<uint32_t[]> indices(new uint32_t[size_t(count)]);
    if (!Sdf_CrateDecompressIntegers(located, indices.get(), error)) {
        return false;
    }
    for (size_t i = 0; i != count; ++i) {
        if (indices[i] >= tableSize) {
            return error->Fail("lookup table index " + std::to_string(indices[i]) + " of " +
                               std::to_string(tableSize));
        }
    }
    out->resize(size_t(count), [&](T* first, T*) {
        for (size_t i = 0; i != count; ++i) {
            ::new (static_cast<void*>(first + i)) T(table[indices[i]]);
        }
    });
    return true;
}

PXR_NAMESPACE_CLOSE_SCOPE
