#pragma once

#include "usdcore/pxr.h"
#include "usdcore/sdf/crate/byteCursor.h"
#include "usdcore/sdf/crate/structure.h"
#include "usdcore/sdf/crate/valueTypes.h"
#include "usdcore/sdf/path.h"
#include "usdcore/tf/token.h"
#include "usdcore/vt/value.h"

#include <bitset>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

PXR_NAMESPACE_OPEN_SCOPE

/// Turns value representations into VtValues holding the types the text
/// reader produces for the same scene.
///
/// Values stored in the file are decoded once per representation and then
/// shared: the writer stores equal values once, so identical representations
/// (time-sample times, repeated arrays, nested dictionaries) need not be
/// decoded again, and a hostile file cannot multiply the work by referring to
/// one value many times.
class Sdf_CrateValueReader
{
public:
    Sdf_CrateValueReader(std::string_view file, const std::string& identifier,
                         Sdf_CrateVersion version,
                         const std::vector<TfToken>& tokens, const std::vector<uint32_t>& strings,
                         const std::vector<SdfPath>& paths, Sdf_CrateError* error);

    /// Decodes \p rep into \p value. Returns false, with the cause recorded,
    /// on corrupt data. A value of a type this reader does not decode leaves
    /// \p value empty (with one warning per type, naming \p identifier) and
    /// returns true.
    bool Unpack(Sdf_CrateValueRep rep, VtValue* value);

    /// Nested values (values inside dictionaries, time samples and other
    /// values) deeper than this are refused.
    static constexpr int kMaxNesting = 64;

private:
    // The per-type decoding lives in the source file.
    friend class Sdf_CrateValueDecoding;

    bool _UnpackUncached(Sdf_CrateValueRep rep, VtValue* value);
    bool ReadString(uint32_t index, std::string* out);
    bool ReadToken(uint32_t index, TfToken* out);
    bool ReadPath(uint32_t index, SdfPath* out);
    /// A value inside another: a jump to its representation, then decoding.
    bool ReadNestedValue(Sdf_CrateByteCursor& cursor, VtValue* out);
    Sdf_CrateByteCursor CursorAt(uint64_t offset, bool* ok);
    bool _Skip(uint8_t type, VtValue* value);

    std::string_view _file;
    Sdf_CrateVersion _version;
    const std::vector<TfToken>& _tokens;
    const std::vector<uint32_t>& _strings;
    const std::vector<SdfPath>& _paths;
    Sdf_CrateError* _error;
    const std::string& _identifier;
    int _nesting = 0;
    std::unordered_map<uint64_t, VtValue> _decoded;
    std::bitset<256> _warnedTypes;
};

PXR_NAMESPACE_CLOSE_SCOPE
