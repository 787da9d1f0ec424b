#include "usdcore/sdf/crate/structure.h"

#include "usdcore/sdf/crate/compression.h"
#include "usdcore/sdf/crate/integerCoding.h"

#include <cstring>
#include <string>

PXR_NAMESPACE_OPEN_SCOPE

namespace {

constexpr char kMagic[8] = {'P', 'X', 'R', '-', 'U', 'S', 'D', 'C'};
constexpr size_t kBootstrapSize = 88;
constexpr size_t kSectionNameSize = 16;
constexpr size_t kTocEntrySize = kSectionNameSize + 2 * sizeof(int64_t);
constexpr uint32_t kNoParent = Sdf_CrateNoParent;

// Bits of a path item header in the uncompressed path tree (before 0.4.0).
constexpr uint8_t kPathHasChild = 1 << 0;
constexpr uint8_t kPathHasSibling = 1 << 1;
constexpr uint8_t kPathIsProperty = 1 << 2;

struct Sections {
    std::string_view tokens, strings, fields, fieldSets, paths, specs;
};

bool ReadBootstrapAndToc(std::string_view file, Sdf_CrateVersion* version, Sections* sections,
                         Sdf_CrateError* error)
{
    Sdf_CrateByteCursor cursor(file, error);
    std::string_view magic;
    uint8_t versionBytes[8];
    int64_t tocOffset = 0;
    if (file.size() < kBootstrapSize) {
        return error->Fail("file of " + std::to_string(file.size()) +
                           " bytes is too small for a crate header");
    }
    cursor.ReadBytes(sizeof(kMagic), &magic);
    cursor.Read(&versionBytes);
    cursor.Read(&tocOffset);
    if (std::memcmp(magic.data(), kMagic, sizeof(kMagic)) != 0) {
        return error->Fail("not a crate file (no PXR-USDC header)");
    }
    *version = Sdf_CrateVersion(versionBytes[0], versionBytes[1], versionBytes[2]);
    if (version->major != 0) {
        return error->Fail("unsupported crate version " + std::to_string(version->major) + "." +
                           std::to_string(version->minor) + "." +
                           std::to_string(version->patch));
    }
    uint64_t sectionCount = 0;
    if (tocOffset < 0 || !cursor.Seek(uint64_t(tocOffset)) || !cursor.Read(&sectionCount) ||
        !cursor.CheckCount(sectionCount, kTocEntrySize)) {
        return error->Fail("table of contents at offset " + std::to_string(tocOffset) +
                           " is past the end of the file");
    }
    const std::pair<const char*, std::string_view*> known[] = {
        {"TOKENS", &sections->tokens},       {"STRINGS", &sections->strings},
        {"FIELDS", &sections->fields},       {"FIELDSETS", &sections->fieldSets},
        {"PATHS", &sections->paths},         {"SPECS", &sections->specs},
    };
    for (uint64_t i = 0; i != sectionCount; ++i) {
        std::string_view nameField;
        int64_t start = 0, size = 0;
        cursor.ReadBytes(kSectionNameSize, &nameField);
        cursor.Read(&start);
        cursor.Read(&size);
        const std::string_view name = nameField.substr(0, nameField.find('\0'));
        if (start < 0 || size < 0 || uint64_t(start) > file.size() ||
            uint64_t(size) > file.size() - uint64_t(start)) {
            return error->Fail("section " + std::string(name) + " (offset " +
                               std::to_string(start) + ", size " + std::to_string(size) +
                               ") lies outside the file");
        }
        for (const auto& [knownName, view] : known) {
            if (name == knownName) {
                *view = file.substr(size_t(start), size_t(size));
            }
        }
    }
    return true;
}

bool ReadTokens(std::string_view section, Sdf_CrateVersion version, Sdf_CrateStructure* out,
                Sdf_CrateError* error)
{
    Sdf_CrateByteCursor cursor(section, error);
    uint64_t tokenCount = 0, byteCount = 0;
    if (section.empty()) {
        return true;
    }
    if (!cursor.Read(&tokenCount) || !cursor.Read(&byteCount)) {
        return false;
    }
    std::string_view stored;
    if (version < Sdf_CrateVersion(0, 4, 0)) {
        // Raw characters before 0.4.0.
        if (!cursor.ReadBytes(byteCount, &stored)) {
            return false;
        }
        out->tokenCharacters.reset(new char[stored.size()]);
        std::memcpy(out->tokenCharacters.get(), stored.data(), stored.size());
    } else {
        uint64_t compressedSize = 0;
        if (!cursor.Read(&compressedSize) || !cursor.ReadBytes(compressedSize, &stored)) {
            return false;
        }
        if (byteCount > Sdf_CrateMaxDecompressedSize(compressedSize)) {
            return error->Fail("token data claims " + std::to_string(byteCount) +
                               " bytes from " + std::to_string(compressedSize) +
                               " compressed ones");
        }
        out->tokenCharacters.reset(new char[size_t(byteCount)]);
        if (byteCount != 0 && !Sdf_CrateDecompressExactly(stored, out->tokenCharacters.get(),
                                                          size_t(byteCount), error)) {
            return false;
        }
    }
    // Each token takes at least its terminating NUL.
    if (tokenCount > byteCount) {
        return error->Fail(std::to_string(tokenCount) + " tokens cannot fit in " +
                           std::to_string(byteCount) + " bytes");
    }
    const char* p = out->tokenCharacters.get();
    const char* const end = p + byteCount;
    out->tokens.reserve(size_t(tokenCount));
    for (uint64_t i = 0; i != tokenCount; ++i) {
        const void* nul = std::memchr(p, '\0', size_t(end - p));
        if (!nul) {
            return error->Fail("token " + std::to_string(i) + " is not NUL-terminated");
        }
        out->tokens.emplace_back(p, size_t(static_cast<const char*>(nul) - p));
        p = static_cast<const char*>(nul) + 1;
    }
    return true;
}

// A vector of 32-bit indices: stored raw (u64 count + values) before 0.4.0,
// compressed (u64 count + compressed integers) from then on. \p raw forces
// the raw layout, which the strings section keeps in every version.
bool ReadIndexVector(Sdf_CrateByteCursor& cursor, bool raw, std::vector<uint32_t>* out)
{
    uint64_t count = 0;
    if (!cursor.Read(&count)) {
        return false;
    }
    if (raw) {
        if (!cursor.CheckCount(count, sizeof(uint32_t))) {
            return false;
        }
        out->resize(size_t(count));
        return cursor.ReadArray(count, sizeof(uint32_t), out->data());
    }
    Sdf_CrateCompressedIntegers located;
    if (!Sdf_CrateLocateCompressedIntegers(cursor, count, sizeof(uint32_t), &located)) {
        return false;
    }
    out->resize(size_t(count));
    return Sdf_CrateDecompressIntegers(located, out->data(), cursor.GetError());
}

// Several compressed u32 columns of the same length, read one after another.
template <class... Columns>
bool ReadCompressedColumns(Sdf_CrateByteCursor& cursor, uint64_t count, Columns*... columns)
{
    auto readOne = [&](auto* column) {
        Sdf_CrateCompressedIntegers located;
        if (!Sdf_CrateLocateCompressedIntegers(cursor, count, sizeof(uint32_t), &located)) {
            return false;
        }
        column->resize(size_t(count));
        return Sdf_CrateDecompressIntegers(located, column->data(), cursor.GetError());
    };
    return (readOne(columns) && ...);
}

bool ReadStrings(std::string_view section, Sdf_CrateStructure* out, Sdf_CrateError* error)
{
    Sdf_CrateByteCursor cursor(section, error);
    if (section.empty()) {
        return true;
    }
    if (!ReadIndexVector(cursor, true, &out->strings)) {
        return false;
    }
    for (uint32_t tokenIndex : out->strings) {
        if (tokenIndex >= out->tokens.size()) {
            return error->Fail("string refers to token " + std::to_string(tokenIndex) + " of " +
                               std::to_string(out->tokens.size()));
        }
    }
    return true;
}

bool ReadFields(std::string_view section, Sdf_CrateVersion version, Sdf_CrateStructure* out,
                Sdf_CrateError* error)
{
    Sdf_CrateByteCursor cursor(section, error);
    uint64_t count = 0;
    if (section.empty()) {
        return true;
    }
    if (version < Sdf_CrateVersion(0, 4, 0)) {
        // u64 count, then {u32 padding, u32 token index, u64 value rep} each.
        constexpr size_t kRawFieldSize = 16;
        if (!cursor.Read(&count) || !cursor.CheckCount(count, kRawFieldSize)) {
            return false;
        }
        out->fields.resize(size_t(count));
        for (Sdf_CrateField& field : out->fields) {
            uint32_t padding;
            cursor.Read(&padding);
            cursor.Read(&field.tokenIndex);
            cursor.Read(&field.valueRep);
        }
    } else {
        std::vector<uint32_t> tokenIndices;
        uint64_t repsSize = 0;
        std::string_view reps;
        if (!cursor.Read(&count) || !ReadCompressedColumns(cursor, count, &tokenIndices) ||
            !cursor.Read(&repsSize) || !cursor.ReadBytes(repsSize, &reps)) {
            return false;
        }
        if (count > Sdf_CrateMaxDecompressedSize(repsSize) / sizeof(uint64_t)) {
            return error->Fail(std::to_string(count) + " field values cannot come from " +
                               std::to_string(repsSize) + " compressed bytes");
        }
        std::vector<uint64_t> values(static_cast<size_t>(count));
        if (!Sdf_CrateDecompressExactly(reps, reinterpret_cast<char*>(values.data()),
                                        values.size() * sizeof(uint64_t), error)) {
            return false;
        }
        out->fields.resize(size_t(count));
        for (size_t i = 0; i != count; ++i) {
            out->fields[i] = {tokenIndices[i], values[i]};
        }
    }
    for (const Sdf_CrateField& field : out->fields) {
        if (field.tokenIndex >= out->tokens.size()) {
            return error->Fail("field name refers to token " + std::to_string(field.tokenIndex) +
                               " of " + std::to_string(out->tokens.size()));
        }
    }
    return true;
}

bool ReadFieldSets(std::string_view section, Sdf_CrateVersion version, Sdf_CrateStructure* out,
                   Sdf_CrateError* error)
{
    Sdf_CrateByteCursor cursor(section, error);
    if (section.empty()) {
        return true;
    }
    if (!ReadIndexVector(cursor, version < Sdf_CrateVersion(0, 4, 0), &out->fieldSets)) {
        return false;
    }
    if (!out->fieldSets.empty() && out->fieldSets.back() != Sdf_CrateFieldSetEnd) {
        return error->Fail("the last field set is not terminated");
    }
    for (uint32_t fieldIndex : out->fieldSets) {
        if (fieldIndex != Sdf_CrateFieldSetEnd && fieldIndex >= out->fields.size()) {
            return error->Fail("field set refers to field " + std::to_string(fieldIndex) + " of " +
                               std::to_string(out->fields.size()));
        }
    }
    return true;
}

// Checks and records one step of the path tree. Every path index may be
// given once: that both catches corrupt trees and bounds the walk of a
// cyclic one.
class PathStepRecorder
{
public:
    PathStepRecorder(Sdf_CrateStructure* out, Sdf_CrateError* error)
        : _out(out), _error(error), _seen(size_t(out->pathCount), false)
    {
    }

    bool Record(uint32_t pathIndex, uint32_t parentIndex, int64_t tokenIndex, bool isProperty)
    {
        if (pathIndex >= _seen.size() || _seen[pathIndex]) {
            return _error->Fail("path index " + std::to_string(pathIndex) +
                                (pathIndex >= _seen.size() ? " is out of range"
                                                           : " appears twice in the path tree"));
        }
        if (parentIndex != kNoParent && (tokenIndex < 0 || uint64_t(tokenIndex) >= _out->tokens.size())) {
            return _error->Fail("path element refers to token " + std::to_string(tokenIndex) +
                                " of " + std::to_string(_out->tokens.size()));
        }
        _seen[pathIndex] = true;
        _out->pathSteps.push_back(
            {pathIndex, parentIndex, parentIndex == kNoParent ? 0 : uint32_t(tokenIndex), isProperty});
        return true;
    }

private:
    Sdf_CrateStructure* _out;
    Sdf_CrateError* _error;
    std::vector<bool> _seen;
};

// The compressed path tree (0.4.0 on): three parallel columns walked in
// order, where an entry's child follows it and its sibling, if it has both,
// lies `jump` entries ahead. Siblings wait on an explicit stack, so a deep or
// hostile tree cannot exhaust the call stack.
bool ReadCompressedPaths(Sdf_CrateByteCursor& cursor, Sdf_CrateStructure* out,
                         Sdf_CrateError* error)
{
    uint64_t encodedCount = 0;
    std::vector<uint32_t> pathIndices, elementTokens, jumps;
    if (!cursor.Read(&encodedCount) ||
        !ReadCompressedColumns(cursor, encodedCount, &pathIndices, &elementTokens, &jumps)) {
        return false;
    }
    if (encodedCount == 0) {
        return true;
    }
    out->pathSteps.reserve(size_t(encodedCount));
    PathStepRecorder recorder(out, error);
    struct Pending {
        size_t entry;
        uint32_t parent;
    };
    std::vector<Pending> siblings;
    Pending next{0, kNoParent};
    while (true) {
        const size_t entry = next.entry;
        if (entry >= encodedCount) {
            return error->Fail("path tree jumps to entry " + std::to_string(entry) + " of " +
                               std::to_string(encodedCount));
        }
        const int32_t element = int32_t(elementTokens[entry]);
        if (!recorder.Record(pathIndices[entry], next.parent, element < 0 ? -int64_t(element) : element,
                             element < 0)) {
            return false;
        }
        const int32_t jump = int32_t(jumps[entry]);
        const bool hasChild = jump > 0 || jump == -1;
        const bool hasSibling = jump >= 0;
        if (hasChild && hasSibling) {
            siblings.push_back({entry + size_t(jump), next.parent});
        }
        if (hasChild) {
            next = {entry + 1, pathIndices[entry]};
        } else if (hasSibling) {
            next = {entry + 1, next.parent};
        } else if (!siblings.empty()) {
            next = siblings.back();
            siblings.pop_back();
        } else {
            return true;
        }
    }
}

// The path tree before 0.4.0: item headers in file order, each followed, when
// the item has both a child and a sibling, by the file offset of the sibling.
bool ReadUncompressedPaths(Sdf_CrateByteCursor& cursor, std::string_view file,
                           Sdf_CrateVersion version, Sdf_CrateStructure* out,
                           Sdf_CrateError* error)
{
    // 0.0.1 headers carry 4 leading bytes of padding; both sizes include the
    // 3 trailing bytes of padding after the bits.
    const bool padded = version == Sdf_CrateVersion(0, 0, 1);
    const size_t headerSize = padded ? 16 : 12;
    if (!cursor.CheckCount(out->pathCount, headerSize)) {
        return false;
    }
    // Sibling offsets are file offsets, so this walk reads the whole file.
    Sdf_CrateByteCursor fileCursor(file, error);
    if (!fileCursor.Seek(uint64_t(cursor.GetBytes().data() - file.data()) + cursor.Tell())) {
        return false;
    }
    out->pathSteps.reserve(size_t(out->pathCount));
    PathStepRecorder recorder(out, error);
    struct Pending {
        uint64_t offset;
        uint32_t parent;
    };
    std::vector<Pending> siblings;
    uint32_t parent = kNoParent;
    while (true) {
        uint32_t padding = 0, pathIndex = 0, tokenIndex = 0;
        uint8_t bits = 0;
        std::string_view trailing;
        if ((padded && !fileCursor.Read(&padding)) || !fileCursor.Read(&pathIndex) ||
            !fileCursor.Read(&tokenIndex) || !fileCursor.Read(&bits) ||
            !fileCursor.ReadBytes(3, &trailing) ||
            !recorder.Record(pathIndex, parent, tokenIndex, bits & kPathIsProperty)) {
            return false;
        }
        const bool hasChild = bits & kPathHasChild;
        const bool hasSibling = bits & kPathHasSibling;
        if (hasChild && hasSibling) {
            int64_t siblingOffset = 0;
            if (!fileCursor.Read(&siblingOffset) || siblingOffset < 0) {
                return error->Fail("bad sibling offset in the path tree");
            }
            siblings.push_back({uint64_t(siblingOffset), parent});
        }
        if (hasChild) {
            parent = pathIndex;
        } else if (!hasSibling) {
            if (siblings.empty()) {
                return true;
            }
            parent = siblings.back().parent;
            if (!fileCursor.Seek(siblings.back().offset)) {
                return false;
            }
            siblings.pop_back();
        }
    }
}

bool ReadPaths(std::string_view section, std::string_view file, Sdf_CrateVersion version,
               Sdf_CrateStructure* out, Sdf_CrateError* error)
{
    Sdf_CrateByteCursor cursor(section, error);
    if (section.empty()) {
        return true;
    }
    if (!cursor.Read(&out->pathCount)) {
        return false;
    }
    // Path indices are 32-bit, and a section cannot describe more paths than
    // its bytes can expand to.
    if (out->pathCount > uint64_t(UINT32_MAX) ||
        out->pathCount > Sdf_CrateMaxDecompressedSize(section.size())) {
        return error->Fail("implausible path count " + std::to_string(out->pathCount));
    }
    return version < Sdf_CrateVersion(0, 4, 0)
               ? ReadUncompressedPaths(cursor, file, version, out, error)
               : ReadCompressedPaths(cursor, out, error);
}

bool ReadSpecs(std::string_view section, Sdf_CrateVersion version, Sdf_CrateStructure* out,
               Sdf_CrateError* error)
{
    Sdf_CrateByteCursor cursor(section, error);
    uint64_t count = 0;
    if (section.empty()) {
        return true;
    }
    if (!cursor.Read(&count)) {
        return false;
    }
    if (version < Sdf_CrateVersion(0, 4, 0)) {
        // {path, field set, spec type} as u32s; 0.0.1 put 4 bytes of padding
        // in front.
        const bool padded = version == Sdf_CrateVersion(0, 0, 1);
        if (!cursor.CheckCount(count, padded ? 16 : 12)) {
            return false;
        }
        out->specs.resize(size_t(count));
        for (Sdf_CrateSpec& spec : out->specs) {
            uint32_t padding;
            if (padded) {
                cursor.Read(&padding);
            }
            cursor.Read(&spec.pathIndex);
            cursor.Read(&spec.fieldSetIndex);
            cursor.Read(&spec.specType);
        }
    } else {
        std::vector<uint32_t> paths, fieldSets, types;
        if (!ReadCompressedColumns(cursor, count, &paths, &fieldSets, &types)) {
            return false;
        }
        out->specs.resize(size_t(count));
        for (size_t i = 0; i != count; ++i) {
            out->specs[i] = {paths[i], fieldSets[i], types[i]};
        }
    }
    for (const Sdf_CrateSpec& spec : out->specs) {
        if (spec.pathIndex >= out->pathCount) {
            return error->Fail("spec refers to path " + std::to_string(spec.pathIndex) + " of " +
                               std::to_string(out->pathCount));
        }
        // A field set index names the start of a run: the first entry or
        // one right after a terminator.
        if (spec.fieldSetIndex >= out->fieldSets.size() ||
            (spec.fieldSetIndex != 0 &&
             out->fieldSets[spec.fieldSetIndex - 1] != Sdf_CrateFieldSetEnd)) {
            return error->Fail("spec refers to field set " + std::to_string(spec.fieldSetIndex) +
                               ", which does not start a run");
        }
        if (spec.specType == 0 || spec.specType > Sdf_CrateMaxSpecType) {
            return error->Fail("unknown spec type " + std::to_string(spec.specType));
        }
    }
    return true;
}

} // namespace

bool Sdf_CrateReadStructure(std::string_view file, Sdf_CrateStructure* structure,
                            Sdf_CrateError* error)
{
    Sections sections;
    Sdf_CrateVersion& version = structure->version;
    return ReadBootstrapAndToc(file, &version, &sections, error) &&
           ReadTokens(sections.tokens, version, structure, error) &&
           ReadStrings(sections.strings, structure, error) &&
           ReadFields(sections.fields, version, structure, error) &&
           ReadFieldSets(sections.fieldSets, version, structure, error) &&
           ReadPaths(sections.paths, file, version, structure, error) &&
           ReadSpecs(sections.specs, version, structure, error);
}

PXR_NAMESPACE_CLOSE_SCOPE
