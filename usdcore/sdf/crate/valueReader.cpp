#include "usdcore/sdf/crate/valueReader.h"

#include "usdcore/gf/half.h"
#include "usdcore/gf/matrix2d.h"
#include "usdcore/gf/matrix3d.h"
#include "usdcore/gf/matrix4d.h"
#include "usdcore/gf/quatd.h"
#include "usdcore/gf/quatf.h"
#include "usdcore/gf/quath.h"
#include "usdcore/gf/vec2d.h"
#include "usdcore/gf/vec2f.h"
#include "usdcore/gf/vec2h.h"
#include "usdcore/gf/vec2i.h"
#include "usdcore/gf/vec3d.h"
#include "usdcore/gf/vec3f.h"
#include "usdcore/gf/vec3h.h"
#include "usdcore/gf/vec3i.h"
#include "usdcore/gf/vec4d.h"
#include "usdcore/gf/vec4f.h"
#include "usdcore/gf/vec4h.h"
#include "usdcore/gf/vec4i.h"
#include "usdcore/sdf/assetPath.h"
#include "usdcore/sdf/crate/compressedArrays.h"
#include "usdcore/sdf/layerOffset.h"
#include "usdcore/sdf/listOp.h"
#include "usdcore/sdf/payload.h"
#include "usdcore/sdf/reference.h"
#include "usdcore/sdf/timeCode.h"
#include "usdcore/sdf/types.h"
#include "usdcore/tf/diagnostic.h"
#include "usdcore/vt/array.h"
#include "usdcore/vt/dictionary.h"
#include "usdcore/vt/types.h"

#include <cstring>
#include <memory>
#include <string>
#include <type_traits>

PXR_NAMESPACE_OPEN_SCOPE

const char* Sdf_CrateTypeName(uint8_t typeNumber)
{
    switch (typeNumber) {
#define SDF_CRATE_NAME_CASE(name, number, ...) \
    case number:                               \
        return #name;
        SDF_CRATE_VALUE_TYPES(SDF_CRATE_NAME_CASE)
        SDF_CRATE_SKIPPED_VALUE_TYPES(SDF_CRATE_NAME_CASE)
#undef SDF_CRATE_NAME_CASE
    }
    return nullptr;
}

namespace {

enum class Inlining { Always, Sometimes, Never };

template <class T, class... Candidates>
constexpr bool IsOneOf = (std::is_same<T, Candidates>::value || ...);

template <class T>
struct IsGfVec
    : std::bool_constant<IsOneOf<T, GfVec2d, GfVec2f, GfVec2h, GfVec2i, GfVec3d, GfVec3f, GfVec3h,
                                 GfVec3i, GfVec4d, GfVec4f, GfVec4h, GfVec4i>> {};

template <class T>
struct IsGfQuat : std::bool_constant<IsOneOf<T, GfQuatd, GfQuatf, GfQuath>> {};

template <class T>
struct IsGfMatrix
    : std::bool_constant<std::is_same<T, GfMatrix2d>::value || std::is_same<T, GfMatrix3d>::value ||
                         std::is_same<T, GfMatrix4d>::value> {};

template <class T>
constexpr size_t MatrixSize()
{
    return std::is_same<T, GfMatrix2d>::value ? 2 : std::is_same<T, GfMatrix3d>::value ? 3 : 4;
}

template <class T>
struct IsListOp : std::false_type {};
template <class T>
struct IsListOp<SdfListOp<T>> : std::true_type {};

template <class T>
struct IsVector : std::false_type {};
template <class T>
struct IsVector<std::vector<T>> : std::true_type {};

// Types whose in-memory layout is exactly the file's, so that arrays of them
// are copied in one go.
template <class T>
constexpr bool IsStoredAsInMemory =
    (std::is_arithmetic<T>::value && !std::is_same<T, bool>::value) ||
    std::is_same<T, GfHalf>::value || IsGfVec<T>::value || IsGfMatrix<T>::value;

// Bytes one element takes in the file (at least), to check counts before
// allocating.
template <class T>
constexpr size_t StoredSize()
{
    if constexpr (std::is_same<T, bool>::value) {
        return 1;
    } else if constexpr (std::is_same<T, std::string>::value || std::is_same<T, TfToken>::value ||
                         std::is_same<T, SdfAssetPath>::value || std::is_same<T, SdfPath>::value) {
        return sizeof(uint32_t);
    } else if constexpr (IsGfQuat<T>::value) {
        return 4 * sizeof(typename T::ScalarType);
    } else if constexpr (std::is_same<T, SdfTimeCode>::value) {
        return sizeof(double);
    } else if constexpr (std::is_same<T, SdfLayerOffset>::value) {
        return 2 * sizeof(double);
    } else if constexpr (std::is_same<T, SdfReference>::value) {
        return 2 * sizeof(uint32_t) + 2 * sizeof(double) + sizeof(uint64_t);
    } else if constexpr (std::is_same<T, SdfPayload>::value ||
                         std::is_same<T, SdfRelocate>::value) {
        return 2 * sizeof(uint32_t);
    } else if constexpr (std::is_same<T, SdfUnregisteredValue>::value) {
        return 2 * sizeof(uint64_t);
    } else {
        static_assert(IsStoredAsInMemory<T>, "every element type needs a stored size");
        return sizeof(T);
    }
}

static_assert(sizeof(GfHalf) == 2 && sizeof(GfVec3f) == 12 && sizeof(GfMatrix4d) == 128,
              "Gf types must be laid out as the crate stores them");

} // namespace

/// The decoders for each stored type. A friend of the reader, so that the
/// type dispatch can stay out of the header.
class Sdf_CrateValueDecoding
{
public:
    using Cursor = Sdf_CrateByteCursor;

    template <class T, bool supportsArray, Inlining inlining>
    static bool Unpack(Sdf_CrateValueReader& r, Sdf_CrateValueRep rep, VtValue* out)
    {
        if (rep.IsArray()) {
            if constexpr (supportsArray) {
                VtArray<T> array;
                if (!ReadArray(r, rep, &array)) {
                    return false;
                }
                out->Swap(array);
                return true;
            } else {
                return r._error->Fail(std::string("a ") + Sdf_CrateTypeName(rep.GetType()) +
                                      " value cannot be an array");
            }
        }
        T value{};
        if constexpr (inlining == Inlining::Always) {
            if (!FromPayload(r, rep.GetInlinedBits(), &value)) {
                return false;
            }
        } else {
            if (rep.IsInlined()) {
                // The writer only inlines the cases DecodeInlined knows; for
                // the others the value is the type's default, as OpenUSD's.
                if constexpr (inlining == Inlining::Sometimes) {
                    DecodeInlined(rep.GetInlinedBits(), &value);
                }
            } else {
                bool ok = false;
                Cursor cursor = r.CursorAt(rep.GetPayload(), &ok);
                if (!ok || !Read(r, cursor, &value)) {
                    return false;
                }
            }
        }
        if constexpr (std::is_same<T, VtValue>::value) {
            *out = std::move(value);
        } else {
            out->Swap(value);
        }
        return true;
    }

    // ---- Values held in the payload itself.

    template <class T>
    static bool FromPayload(Sdf_CrateValueReader& r, uint32_t bits, T* out)
    {
        if constexpr (std::is_same<T, bool>::value) {
            *out = (bits & 0xFF) != 0;
        } else if constexpr (std::is_same<T, GfHalf>::value) {
            out->setBits(uint16_t(bits));
        } else if constexpr (std::is_arithmetic<T>::value) {
            std::memcpy(out, &bits, sizeof(T));
        } else if constexpr (std::is_same<T, std::string>::value) {
            return r.ReadString(bits, out);
        } else if constexpr (std::is_same<T, TfToken>::value) {
            return r.ReadToken(bits, out);
        } else if constexpr (std::is_same<T, SdfAssetPath>::value) {
            // Inlined asset paths name a token (inside other values, a string).
            TfToken token;
            if (!r.ReadToken(bits, &token)) {
                return false;
            }
            *out = SdfAssetPath(token.GetString());
        } else if constexpr (std::is_same<T, SdfSpecifier>::value) {
            return FromEnumerator(r, bits, SdfNumSpecifiers, "specifier", out);
        } else if constexpr (std::is_same<T, SdfPermission>::value) {
            return FromEnumerator(r, bits, SdfNumPermissions, "permission", out);
        } else if constexpr (std::is_same<T, SdfVariability>::value) {
            // 2 was a "config" variability that was never used; files that
            // carry it mean uniform.
            constexpr uint32_t kLegacyConfigVariability = 2;
            if (bits == kLegacyConfigVariability) {
                *out = SdfVariabilityUniform;
                return true;
            }
            return FromEnumerator(r, bits, kLegacyConfigVariability, "variability", out);
        } else {
            static_assert(std::is_same<T, SdfValueBlock>::value, "not an always-inlined type");
        }
        return true;
    }

    template <class Enum>
    static bool FromEnumerator(Sdf_CrateValueReader& r, uint32_t bits, uint32_t count,
                               const char* what, Enum* out)
    {
        if (bits >= count) {
            return r._error->Fail("invalid " + std::string(what) + " " + std::to_string(bits));
        }
        *out = static_cast<Enum>(bits);
        return true;
    }

    // ---- Values that are inlined when they fit in 32 bits.

    template <class T>
    static void DecodeInlined(uint32_t bits, T* out)
    {
        if constexpr (std::is_same<T, double>::value) {
            float value;
            std::memcpy(&value, &bits, sizeof(value));
            *out = value;
        } else if constexpr (std::is_integral<T>::value) {
            using Narrow = std::conditional_t<std::is_signed<T>::value, int32_t, uint32_t>;
            *out = T(Narrow(bits));
        } else if constexpr (IsGfVec<T>::value) {
            int8_t components[4];
            std::memcpy(components, &bits, sizeof(components));
            for (size_t i = 0; i != T::dimension; ++i) {
                (*out)[i] = typename T::ScalarType(components[i]);
            }
        } else if constexpr (IsGfMatrix<T>::value) {
            int8_t diagonal[4];
            std::memcpy(diagonal, &bits, sizeof(diagonal));
            *out = T(1);
            for (size_t i = 0; i != MatrixSize<T>(); ++i) {
                (*out)[i][i] = double(diagonal[i]);
            }
        } else {
            // Only an empty dictionary is inlined.
            static_assert(std::is_same<T, VtDictionary>::value, "not a sometimes-inlined type");
            *out = T();
        }
    }

    // ---- Values stored at a file offset.

    template <class T>
    static bool Read(Sdf_CrateValueReader& r, Cursor& cursor, T* out)
    {
        if constexpr (std::is_same<T, bool>::value) {
            uint8_t byte = 0;
            if (!cursor.Read(&byte)) {
                return false;
            }
            *out = byte != 0;
            return true;
        } else if constexpr (IsStoredAsInMemory<T>) {
            return cursor.ReadArray(1, sizeof(T), out);
        } else if constexpr (IsGfQuat<T>::value) {
            // Stored imaginary part first, then the real part.
            typename T::ScalarType parts[4];
            if (!cursor.ReadArray(4, sizeof(parts[0]), parts)) {
                return false;
            }
            *out = T(parts[3], parts[0], parts[1], parts[2]);
            return true;
        } else if constexpr (std::is_same<T, std::string>::value) {
            return ReadIndexed(cursor, out, [&r](uint32_t i, T* s) { return r.ReadString(i, s); });
        } else if constexpr (std::is_same<T, TfToken>::value) {
            return ReadIndexed(cursor, out, [&r](uint32_t i, T* t) { return r.ReadToken(i, t); });
        } else if constexpr (std::is_same<T, SdfPath>::value) {
            return ReadIndexed(cursor, out, [&r](uint32_t i, T* p) { return r.ReadPath(i, p); });
        } else if constexpr (std::is_same<T, SdfAssetPath>::value) {
            std::string path;
            if (!Read(r, cursor, &path)) {
                return false;
            }
            *out = SdfAssetPath(path);
            return true;
        } else if constexpr (std::is_same<T, SdfTimeCode>::value) {
            double time = 0;
            if (!cursor.Read(&time)) {
                return false;
            }
            *out = SdfTimeCode(time);
            return true;
        } else if constexpr (std::is_same<T, SdfLayerOffset>::value) {
            double offset = 0, scale = 1;
            if (!cursor.Read(&offset) || !cursor.Read(&scale)) {
                return false;
            }
            *out = SdfLayerOffset(offset, scale);
            return true;
        } else if constexpr (std::is_same<T, SdfReference>::value) {
            std::string assetPath;
            SdfPath primPath;
            SdfLayerOffset layerOffset;
            VtDictionary customData;
            if (!Read(r, cursor, &assetPath) || !Read(r, cursor, &primPath) ||
                !Read(r, cursor, &layerOffset) || !Read(r, cursor, &customData)) {
                return false;
            }
            *out = SdfReference(assetPath, primPath, layerOffset, customData);
            return true;
        } else if constexpr (std::is_same<T, SdfPayload>::value) {
            std::string assetPath;
            SdfPath primPath;
            SdfLayerOffset layerOffset;
            if (!Read(r, cursor, &assetPath) || !Read(r, cursor, &primPath)) {
                return false;
            }
            // Payloads gained a layer offset in 0.8.0.
            if (r._version >= Sdf_CrateVersion(0, 8, 0) && !Read(r, cursor, &layerOffset)) {
                return false;
            }
            *out = SdfPayload(assetPath, primPath, layerOffset);
            return true;
        } else if constexpr (std::is_same<T, SdfRelocate>::value) {
            // Source path, then target path.
            return Read(r, cursor, &out->first) && Read(r, cursor, &out->second);
        } else if constexpr (std::is_same<T, VtValue>::value) {
            return r.ReadNestedValue(cursor, out);
        } else if constexpr (std::is_same<T, VtDictionary>::value) {
            return ReadMap<VtValue>(r, cursor, out, [](VtDictionary* map, std::string key, VtValue value) {
                (*map)[key] = std::move(value);
            });
        } else if constexpr (std::is_same<T, SdfVariantSelectionMap>::value) {
            return ReadMap<std::string>(r, cursor, out, [](T* map, std::string key, std::string value) {
                (*map)[key] = std::move(value);
            });
        } else if constexpr (std::is_same<T, SdfUnregisteredValue>::value) {
            VtValue held;
            if (!r.ReadNestedValue(cursor, &held)) {
                return false;
            }
            if (held.IsHolding<std::string>()) {
                *out = SdfUnregisteredValue(held.UncheckedGet<std::string>());
            } else if (held.IsHolding<VtDictionary>()) {
                *out = SdfUnregisteredValue(held.UncheckedGet<VtDictionary>());
            } else if (held.IsHolding<SdfUnregisteredValueListOp>()) {
                *out = SdfUnregisteredValue(held.UncheckedGet<SdfUnregisteredValueListOp>());
            }
            return true;
        } else if constexpr (std::is_same<T, SdfTimeSampleMap>::value) {
            return ReadTimeSamples(r, cursor, out);
        } else if constexpr (IsVector<T>::value) {
            return ReadVector(r, cursor, out);
        } else {
            static_assert(IsListOp<T>::value, "no reader for this type");
            return ReadListOp(r, cursor, out);
        }
    }

    template <class T, class Lookup>
    static bool ReadIndexed(Cursor& cursor, T* out, const Lookup& lookup)
    {
        uint32_t index = 0;
        return cursor.Read(&index) && lookup(index, out);
    }

    template <class T>
    static bool ReadVector(Sdf_CrateValueReader& r, Cursor& cursor, std::vector<T>* out)
    {
        uint64_t count = 0;
        if (!cursor.Read(&count) || !cursor.CheckCount(count, StoredSize<T>())) {
            return false;
        }
        out->resize(size_t(count));
        for (T& element : *out) {
            if (!Read(r, cursor, &element)) {
                return false;
            }
        }
        return true;
    }

    // Maps are stored as `u64 count` and count (string index, value) pairs.
    template <class Value, class Map, class Insert>
    static bool ReadMap(Sdf_CrateValueReader& r, Cursor& cursor, Map* out, const Insert& insert)
    {
        uint64_t count = 0;
        if (!cursor.Read(&count) || !cursor.CheckCount(count, 2 * sizeof(uint32_t))) {
            return false;
        }
        for (uint64_t i = 0; i != count; ++i) {
            std::string key;
            Value value;
            if (!Read(r, cursor, &key) || !Read(r, cursor, &value)) {
                return false;
            }
            insert(out, std::move(key), std::move(value));
        }
        return true;
    }

    template <class T>
    static bool ReadListOp(Sdf_CrateValueReader& r, Cursor& cursor, SdfListOp<T>* out)
    {
        enum : uint8_t {
            kExplicit = 1 << 0,
            kHasExplicitItems = 1 << 1,
            kHasAddedItems = 1 << 2,
            kHasDeletedItems = 1 << 3,
            kHasOrderedItems = 1 << 4,
            kHasPrependedItems = 1 << 5,
            kHasAppendedItems = 1 << 6,
        };
        uint8_t header = 0;
        if (!cursor.Read(&header)) {
            return false;
        }
        if (header & kExplicit) {
            out->ClearAndMakeExplicit();
        }
        // The item vectors follow in this order, each present when its bit is.
        using Setter = void (SdfListOp<T>::*)(const std::vector<T>&);
        const std::pair<uint8_t, Setter> parts[] = {
            {kHasExplicitItems, &SdfListOp<T>::SetExplicitItems},
            {kHasAddedItems, &SdfListOp<T>::SetAddedItems},
            {kHasPrependedItems, &SdfListOp<T>::SetPrependedItems},
            {kHasAppendedItems, &SdfListOp<T>::SetAppendedItems},
            {kHasDeletedItems, &SdfListOp<T>::SetDeletedItems},
            {kHasOrderedItems, &SdfListOp<T>::SetOrderedItems},
        };
        for (const auto& [bit, set] : parts) {
            if (header & bit) {
                std::vector<T> items;
                if (!ReadVector(r, cursor, &items)) {
                    return false;
                }
                (out->*set)(items);
            }
        }
        return true;
    }

    // At the payload: a jump to the times' representation (times are shared
    // between attributes sampled alike), then, after that representation,
    // a jump to `u64 count` and the count value representations.
    static bool ReadTimeSamples(Sdf_CrateValueReader& r, Cursor& cursor, SdfTimeSampleMap* out)
    {
        int64_t jump = 0;
        uint64_t timesBits = 0, count = 0;
        VtValue times;
        size_t from = cursor.Tell();
        if (!cursor.Read(&jump) || !cursor.Jump(jump, from) || !cursor.Read(&timesBits) ||
            !r.Unpack(Sdf_CrateValueRep(timesBits), &times)) {
            return false;
        }
        const double* timeValues = nullptr;
        size_t timeCount = 0;
        if (times.IsHolding<std::vector<double>>()) {
            timeValues = times.UncheckedGet<std::vector<double>>().data();
            timeCount = times.UncheckedGet<std::vector<double>>().size();
        } else if (times.IsHolding<VtArray<double>>()) {
            timeValues = times.UncheckedGet<VtArray<double>>().cdata();
            timeCount = times.UncheckedGet<VtArray<double>>().size();
        } else {
            return r._error->Fail("time sample times are not doubles");
        }
        from = cursor.Tell();
        if (!cursor.Read(&jump) || !cursor.Jump(jump, from) || !cursor.Read(&count)) {
            return false;
        }
        if (count != timeCount) {
            return r._error->Fail(std::to_string(timeCount) + " sample times but " +
                                  std::to_string(count) + " sample values");
        }
        if (!cursor.CheckCount(count, sizeof(uint64_t))) {
            return false;
        }
        for (size_t i = 0; i != timeCount; ++i) {
            uint64_t valueBits = 0;
            cursor.Read(&valueBits);
            VtValue value;
            if (!r.Unpack(Sdf_CrateValueRep(valueBits), &value)) {
                return false;
            }
            (*out)[timeValues[i]] = std::move(value);
        }
        return true;
    }

    // ---- Arrays, decoded straight into the array's storage.

    template <class T>
    static bool ReadArray(Sdf_CrateValueReader& r, Sdf_CrateValueRep rep, VtArray<T>* out)
    {
        // Payload 0 is the empty array.
        if (rep.GetPayload() == 0) {
            return true;
        }
        bool ok = false;
        Cursor cursor = r.CursorAt(rep.GetPayload(), &ok);
        uint32_t rank = 0, count32 = 0;
        uint64_t count = 0;
        const Sdf_CrateVersion version = r._version;
        // Before 0.5.0 arrays began with a rank (always 1); before 0.7.0 the
        // count was 32 bits.
        if (!ok || (version < Sdf_CrateVersion(0, 5, 0) && !cursor.Read(&rank))) {
            return false;
        }
        if (version < Sdf_CrateVersion(0, 7, 0)) {
            if (!cursor.Read(&count32)) {
                return false;
            }
            count = count32;
        } else if (!cursor.Read(&count)) {
            return false;
        }
        if constexpr (Sdf_CrateIsCompressibleInteger<T>) {
            if (rep.IsCompressed() && version >= Sdf_CrateVersion(0, 5, 0) &&
                count >= Sdf_CrateMinCompressedArraySize) {
                return Sdf_CrateReadCompressedIntegerArray(cursor, count, out);
            }
        }
        if constexpr (Sdf_CrateIsCompressibleFloat<T>) {
            if (rep.IsCompressed() && version >= Sdf_CrateVersion(0, 6, 0) &&
                count >= Sdf_CrateMinCompressedArraySize) {
                return Sdf_CrateReadCompressedFloatArray(cursor, count, out);
            }
        }
        return ReadRawArray(r, cursor, count, out);
    }

    template <class T>
    static bool ReadRawArray(Sdf_CrateValueReader& r, Cursor& cursor, uint64_t count,
                             VtArray<T>* out)
    {
        if (!cursor.CheckCount(count, StoredSize<T>())) {
            return false;
        }
        if constexpr (IsStoredAsInMemory<T>) {
            out->resize(size_t(count), [&cursor](T* first, T* last) {
                cursor.ReadArray(uint64_t(last - first), sizeof(T), first);
            });
            return true;
        } else {
            // Elements that need a lookup can fail half way; they are built
            // first so that a failure leaves a valid array behind.
            out->resize(size_t(count));
            for (T& element : *out) {
                if (!Read(r, cursor, &element)) {
                    return false;
                }
            }
            return true;
        }
    }

};

Sdf_CrateValueReader::Sdf_CrateValueReader(std::string_view file, const std::string& identifier,
                                           Sdf_CrateVersion version,
                                           const std::vector<TfToken>& tokens,
                                           const std::vector<uint32_t>& strings,
                                           const std::vector<SdfPath>& paths,
                                           Sdf_CrateError* error)
    : _file(file), _version(version), _tokens(tokens), _strings(strings), _paths(paths),
      _error(error), _identifier(identifier)
{
}

bool Sdf_CrateValueReader::Unpack(Sdf_CrateValueRep rep, VtValue* value)
{
    // Inlined values cost nothing to decode; the rest are decoded once.
    if (rep.IsInlined()) {
        return _UnpackUncached(rep, value);
    }
    const auto [slot, isNew] = _decoded.try_emplace(rep.GetBits());
    if (!isNew) {
        // An empty entry is a value still being decoded further up.
        if (slot->second.IsEmpty()) {
            return _error->Fail("a value contains itself");
        }
        *value = slot->second;
        return true;
    }
    // References to elements survive the rehashing that nested decoding
    // may cause.
    VtValue& decoded = slot->second;
    if (_nesting >= kMaxNesting) {
        return _error->Fail("values nested more than " + std::to_string(kMaxNesting) + " deep");
    }
    ++_nesting;
    const bool ok = _UnpackUncached(rep, value);
    --_nesting;
    if (ok && !value->IsEmpty()) {
        decoded = *value;
    } else {
        _decoded.erase(rep.GetBits());
    }
    return ok;
}

bool Sdf_CrateValueReader::_UnpackUncached(Sdf_CrateValueRep rep, VtValue* value)
{
    if (rep.IsArrayEdit()) {
        return _Skip(rep.GetType(), value);
    }
    switch (rep.GetType()) {
#define SDF_CRATE_UNPACK_CASE(name, number, Type, supportsArray, inlining) \
    case number:                                                           \
        return Sdf_CrateValueDecoding::Unpack<Type, supportsArray, Inlining::inlining>(*this, rep, value);
        SDF_CRATE_VALUE_TYPES(SDF_CRATE_UNPACK_CASE)
#undef SDF_CRATE_UNPACK_CASE
    default:
        return _Skip(rep.GetType(), value);
    }
}

bool Sdf_CrateValueReader::_Skip(uint8_t type, VtValue* value)
{
    *value = VtValue();
    if (!_warnedTypes.test(type)) {
        _warnedTypes.set(type);
        const char* name = Sdf_CrateTypeName(type);
        TF_WARN("%s: skipping values of crate type %s (%d), which this reader does not decode",
                _identifier.c_str(), name ? name : "unknown",
                int(type));
    }
    return true;
}

bool Sdf_CrateValueReader::ReadString(uint32_t index, std::string* out)
{
    if (index >= _strings.size()) {
        return _error->Fail("string index " + std::to_string(index) + " of " +
                            std::to_string(_strings.size()));
    }
    // The structure stage checked that every string names a token.
    *out = _tokens[_strings[index]].GetString();
    return true;
}

bool Sdf_CrateValueReader::ReadToken(uint32_t index, TfToken* out)
{
    if (index >= _tokens.size()) {
        return _error->Fail("token index " + std::to_string(index) + " of " +
                            std::to_string(_tokens.size()));
    }
    *out = _tokens[index];
    return true;
}

bool Sdf_CrateValueReader::ReadPath(uint32_t index, SdfPath* out)
{
    if (index >= _paths.size()) {
        return _error->Fail("path index " + std::to_string(index) + " of " +
                            std::to_string(_paths.size()));
    }
    *out = _paths[index];
    return true;
}

bool Sdf_CrateValueReader::ReadNestedValue(Sdf_CrateByteCursor& cursor, VtValue* out)
{
    // A jump relative to its own position, to the value's representation;
    // whatever the value needed was written in between.
    const size_t from = cursor.Tell();
    int64_t jump = 0;
    uint64_t bits = 0;
    return cursor.Read(&jump) && cursor.Jump(jump, from) && cursor.Read(&bits) &&
           Unpack(Sdf_CrateValueRep(bits), out);
}

Sdf_CrateByteCursor Sdf_CrateValueReader::CursorAt(uint64_t offset, bool* ok)
{
    Sdf_CrateByteCursor cursor(_file, _error);
    *ok = cursor.Seek(offset);
    return cursor;
}

PXR_NAMESPACE_CLOSE_SCOPE
