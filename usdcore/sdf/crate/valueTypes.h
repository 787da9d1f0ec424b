#pragma once

// The crate's value types, listed once. Every value in a crate file names its
// type by the number below; the reader's dispatch, the type names in
// diagnostics and the inlining rules all come from this table.

#include "usdcore/pxr.h"

#include <cstdint>

// X(Name, number, C++ type, arrays allowed, inlining)
//
// Inlining says where a value that is not an array lives:
//   Always    - in the 48-bit payload itself (values of at most four bytes,
//               and indices into the token, string and path tables);
//   Sometimes - in the payload when the inlined bit is set (a double that is
//               exactly a float, an int64 that fits 32 bits, a vector whose
//               components fit int8, an int8 diagonal matrix, an empty
//               dictionary), else at the payload's file offset;
//   Never     - always at the payload's file offset.
#define SDF_CRATE_VALUE_TYPES(X)                                                          \
    X(Bool, 1, bool, true, Always)                                                        \
    X(UChar, 2, unsigned char, true, Always)                                              \
    X(Int, 3, int, true, Always)                                                          \
    X(UInt, 4, unsigned int, true, Always)                                                \
    X(Int64, 5, int64_t, true, Sometimes)                                                 \
    X(UInt64, 6, uint64_t, true, Sometimes)                                               \
    X(Half, 7, GfHalf, true, Always)                                                      \
    X(Float, 8, float, true, Always)                                                      \
    X(Double, 9, double, true, Sometimes)                                                 \
    X(String, 10, std::string, true, Always)                                              \
    X(Token, 11, TfToken, true, Always)                                                   \
    X(AssetPath, 12, SdfAssetPath, true, Always)                                          \
    X(Matrix2d, 13, GfMatrix2d, true, Sometimes)                                          \
    X(Matrix3d, 14, GfMatrix3d, true, Sometimes)                                          \
    X(Matrix4d, 15, GfMatrix4d, true, Sometimes)                                          \
    X(Quatd, 16, GfQuatd, true, Never)                                                    \
    X(Quatf, 17, GfQuatf, true, Never)                                                    \
    X(Quath, 18, GfQuath, true, Never)                                                    \
    X(Vec2d, 19, GfVec2d, true, Sometimes)                                                \
    X(Vec2f, 20, GfVec2f, true, Sometimes)                                                \
    X(Vec2h, 21, GfVec2h, true, Sometimes)                                                \
    X(Vec2i, 22, GfVec2i, true, Sometimes)                                                \
    X(Vec3d, 23, GfVec3d, true, Sometimes)                                                \
    X(Vec3f, 24, GfVec3f, true, Sometimes)                                                \
    X(Vec3h, 25, GfVec3h, true, Sometimes)                                                \
    X(Vec3i, 26, GfVec3i, true, Sometimes)                                                \
    X(Vec4d, 27, GfVec4d, true, Sometimes)                                                \
    X(Vec4f, 28, GfVec4f, true, Sometimes)                                                \
    X(Vec4h, 29, GfVec4h, true, Sometimes)                                                \
    X(Vec4i, 30, GfVec4i, true, Sometimes)                                                \
    X(Dictionary, 31, VtDictionary, false, Sometimes)                                     \
    X(TokenListOp, 32, SdfTokenListOp, false, Never)                                      \
    X(StringListOp, 33, SdfStringListOp, false, Never)                                    \
    X(PathListOp, 34, SdfPathListOp, false, Never)                                        \
    X(ReferenceListOp, 35, SdfReferenceListOp, false, Never)                              \
    X(IntListOp, 36, SdfIntListOp, false, Never)                                          \
    X(Int64ListOp, 37, SdfInt64ListOp, false, Never)                                      \
    X(UIntListOp, 38, SdfUIntListOp, false, Never)                                        \
    X(UInt64ListOp, 39, SdfUInt64ListOp, false, Never)                                    \
    X(PathVector, 40, SdfPathVector, false, Never)                                        \
    X(TokenVector, 41, std::vector<TfToken>, false, Never)                                \
    X(Specifier, 42, SdfSpecifier, false, Always)                                         \
    X(Permission, 43, SdfPermission, false, Always)                                       \
    X(Variability, 44, SdfVariability, false, Always)                                     \
    X(VariantSelectionMap, 45, SdfVariantSelectionMap, false, Never)                      \
    X(TimeSamples, 46, SdfTimeSampleMap, false, Never)                                    \
    X(Payload, 47, SdfPayload, false, Never)                                              \
    X(DoubleVector, 48, std::vector<double>, false, Never)                                \
    X(LayerOffsetVector, 49, std::vector<SdfLayerOffset>, false, Never)                   \
    X(StringVector, 50, std::vector<std::string>, false, Never)                           \
    X(ValueBlock, 51, SdfValueBlock, false, Always)                                       \
    X(Value, 52, VtValue, false, Never)                                                   \
    X(UnregisteredValue, 53, SdfUnregisteredValue, false, Never)                          \
    X(UnregisteredValueListOp, 54, SdfUnregisteredValueListOp, false, Never)              \
    X(PayloadListOp, 55, SdfPayloadListOp, false, Never)                                  \
    X(TimeCode, 56, SdfTimeCode, true, Never)                                             \
    X(Relocates, 58, SdfRelocates, false, Never)

// Types later crate versions added that this reader does not decode: fields
// holding them are skipped with a warning. X(Name, number)
#define SDF_CRATE_SKIPPED_VALUE_TYPES(X)                                                  \
    X(PathExpression, 57)                                                                 \
    X(Spline, 59)                                                                         \
    X(AnimationBlock, 60)

PXR_NAMESPACE_OPEN_SCOPE

enum class Sdf_CrateType : uint8_t {
#define SDF_CRATE_ENUMERATOR(name, number, ...) name = number,
    SDF_CRATE_VALUE_TYPES(SDF_CRATE_ENUMERATOR) SDF_CRATE_SKIPPED_VALUE_TYPES(SDF_CRATE_ENUMERATOR)
#undef SDF_CRATE_ENUMERATOR
};

/// The type's name for diagnostics, or null for a number no version uses.
const char* Sdf_CrateTypeName(uint8_t typeNumber);

/// A value representation: 64 bits packing flags, the type and a payload.
class Sdf_CrateValueRep
{
public:
    explicit constexpr Sdf_CrateValueRep(uint64_t bits) : _bits(bits) {}

    constexpr bool IsArray() const { return _bits & (uint64_t(1) << 63); }
    constexpr bool IsInlined() const { return _bits & (uint64_t(1) << 62); }
    constexpr bool IsCompressed() const { return _bits & (uint64_t(1) << 61); }
    /// Set by 0.14.0's array edits, which this reader does not decode.
    constexpr bool IsArrayEdit() const { return _bits & (uint64_t(1) << 60); }
    constexpr uint8_t GetType() const { return uint8_t(_bits >> 48); }
    constexpr uint64_t GetPayload() const { return _bits & ((uint64_t(1) << 48) - 1); }
    /// Inlined values use the payload's low 32 bits.
    constexpr uint32_t GetInlinedBits() const { return uint32_t(_bits); }
    constexpr uint64_t GetBits() const { return _bits; }

private:
    uint64_t _bits;
};

PXR_NAMESPACE_CLOSE_SCOPE
