#pragma once

// Enumerations and small value types of scene description.

#include "usdcore/pxr.h"
#include "usdcore/sdf/assetPath.h"
#include "usdcore/sdf/layerOffset.h"
#include "usdcore/sdf/listOp.h"
#include "usdcore/sdf/path.h"
#include "usdcore/sdf/payload.h"
#include "usdcore/sdf/reference.h"
#include "usdcore/sdf/timeCode.h"
#include "usdcore/vt/array.h"
#include "usdcore/vt/dictionary.h"
#include "usdcore/vt/value.h"

#include <cstddef>
#include <iosfwd>
#include <map>
#include <string>
#include <utility>
#include <vector>

PXR_NAMESPACE_OPEN_SCOPE

/// Kinds of spec; the numbers are those the crate format stores.
enum SdfSpecType {
    SdfSpecTypeUnknown = 0,
    SdfSpecTypeAttribute = 1,
    SdfSpecTypeConnection = 2,
    SdfSpecTypeExpression = 3,
    SdfSpecTypeMapper = 4,
    SdfSpecTypeMapperArg = 5,
    SdfSpecTypePrim = 6,
    SdfSpecTypePseudoRoot = 7,
    SdfSpecTypeRelationship = 8,
    SdfSpecTypeRelationshipTarget = 9,
    SdfSpecTypeVariant = 10,
    SdfSpecTypeVariantSet = 11,
    SdfNumSpecTypes
};

enum SdfSpecifier {
    SdfSpecifierDef,
    SdfSpecifierOver,
    SdfSpecifierClass,
    SdfNumSpecifiers
};

/// "def" and "class" define a prim; "over" only adds opinions.
inline bool SdfIsDefiningSpecifier(SdfSpecifier spec)
{
    return spec != SdfSpecifierOver;
}

enum SdfPermission {
    SdfPermissionPublic,
    SdfPermissionPrivate,
    SdfNumPermissions
};

enum SdfVariability {
    SdfVariabilityVarying,
    SdfVariabilityUniform,
    SdfNumVariabilities
};

using SdfAssetPathArray = VtArray<SdfAssetPath>;
using SdfTimeCodeArray = VtArray<SdfTimeCode>;

/// Time -> value, as authored in "timeSamples"; a sample may hold an
/// SdfValueBlock.
using SdfTimeSampleMap = std::map<double, VtValue>;
/// Variant set name -> selected variant name.
using SdfVariantSelectionMap = std::map<std::string, std::string>;
/// Variant set name -> its variant names.
using SdfVariantsMap = std::map<std::string, std::vector<std::string>>;
/// (source, target) namespace relocation.
using SdfRelocate = std::pair<SdfPath, SdfPath>;
using SdfRelocates = std::vector<SdfRelocate>;
using SdfRelocatesMap = std::map<SdfPath, SdfPath>;

/// The authored value "None": blocks weaker opinions of an attribute.
struct SdfValueBlock {
    bool operator==(const SdfValueBlock&) const { return true; }
    bool operator!=(const SdfValueBlock&) const { return false; }
};

/// Blocks animation (time samples) of weaker layers while keeping defaults.
struct SdfAnimationBlock {
    bool operator==(const SdfAnimationBlock&) const { return true; }
    bool operator!=(const SdfAnimationBlock&) const { return false; }
};

inline size_t hash_value(const SdfValueBlock&) { return 0x5db10c; }
inline size_t hash_value(const SdfAnimationBlock&) { return 0xa5b10c; }

std::ostream& operator<<(std::ostream& out, const SdfValueBlock& block);
std::ostream& operator<<(std::ostream& out, const SdfAnimationBlock& block);

/// Metadata of a field the schema does not know, kept as read: a string,
/// a dictionary or a list op of such values.
class SdfUnregisteredValue
{
public:
    SdfUnregisteredValue() = default;
    explicit SdfUnregisteredValue(const std::string& value);
    explicit SdfUnregisteredValue(const VtDictionary& value);
    explicit SdfUnregisteredValue(const SdfUnregisteredValueListOp& value);

    const VtValue& GetValue() const { return _value; }

    bool operator==(const SdfUnregisteredValue& o) const { return _value == o._value; }
    bool operator!=(const SdfUnregisteredValue& o) const { return !(*this == o); }

private:
    VtValue _value;
};

size_t hash_value(const SdfUnregisteredValue& value);

std::ostream& operator<<(std::ostream& out, const SdfUnregisteredValue& value);
std::ostream& operator<<(std::ostream& out, SdfSpecifier specifier);
std::ostream& operator<<(std::ostream& out, SdfSpecType specType);

PXR_NAMESPACE_CLOSE_SCOPE
