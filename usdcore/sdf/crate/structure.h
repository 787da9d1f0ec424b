#pragma once

#include "usdcore/pxr.h"
#include "usdcore/sdf/crate/byteCursor.h"

#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

PXR_NAMESPACE_OPEN_SCOPE

/// A crate file version, compared the way the format's history reads:
/// `version < Sdf_CrateVersion(0, 4, 0)`.
struct Sdf_CrateVersion {
    uint8_t major = 0, minor = 0, patch = 0;

    constexpr Sdf_CrateVersion() = default;
    constexpr Sdf_CrateVersion(uint8_t major_, uint8_t minor_, uint8_t patch_)
        : major(major_), minor(minor_), patch(patch_)
    {
    }
    constexpr uint32_t AsNumber() const { return uint32_t(major) << 16 | minor << 8 | patch; }
    constexpr bool operator<(Sdf_CrateVersion o) const { return AsNumber() < o.AsNumber(); }
    constexpr bool operator>=(Sdf_CrateVersion o) const { return !(*this < o); }
    constexpr bool operator==(Sdf_CrateVersion o) const { return AsNumber() == o.AsNumber(); }
};

/// A field: the token naming it and the (still packed) value representation.
struct Sdf_CrateField {
    uint32_t tokenIndex;
    uint64_t valueRep;
};

/// One step of the path tree, in an order where every parent comes before its
/// children: path `pathIndex` is path `parentIndex` extended by the element
/// token `tokenIndex` (as a property name when `isProperty`). The first step
/// is the absolute root and has no parent.
struct Sdf_CratePathStep {
    uint32_t pathIndex;
    uint32_t parentIndex;
    uint32_t tokenIndex;
    bool isProperty;
};

/// The parent index of the first path step (the absolute root).
constexpr uint32_t Sdf_CrateNoParent = 0xFFFFFFFFu;

struct Sdf_CrateSpec {
    uint32_t pathIndex;
    uint32_t fieldSetIndex;
    uint32_t specType;
};

/// Field sets are runs of field indices, each ended by this value.
constexpr uint32_t Sdf_CrateFieldSetEnd = 0xFFFFFFFFu;

/// The structural sections of a crate file, decoded and range checked: every
/// index below refers to an existing entry, so later stages need no checks
/// on them (apart from string and token indices inside values).
struct Sdf_CrateStructure {
    Sdf_CrateVersion version;
    /// The token characters (owned here) and a view of each token.
    std::unique_ptr<char[]> tokenCharacters;
    std::vector<std::string_view> tokens;
    /// Strings are stored as token indices.
    std::vector<uint32_t> strings;
    std::vector<Sdf_CrateField> fields;
    std::vector<uint32_t> fieldSets;
    uint64_t pathCount = 0;
    std::vector<Sdf_CratePathStep> pathSteps;
    std::vector<Sdf_CrateSpec> specs;
};

/// The highest spec type number the crate uses (variant set).
constexpr uint32_t Sdf_CrateMaxSpecType = 11;

/// Reads the bootstrap header, the table of contents and the structural
/// sections of \p file. Fails, recording why, on anything malformed.
bool Sdf_CrateReadStructure(std::string_view file, Sdf_CrateStructure* structure,
                            Sdf_CrateError* error);

PXR_NAMESPACE_CLOSE_SCOPE
