#pragma once

// Builds small crate files by hand for tests: a header, a value area the test
// fills byte by byte, and the structural sections for a pseudo-root carrying
// the test's fields, optionally followed by one prim and its attributes.
// Structural sections use the simplest valid integer encoding (every delta
// written at full width).

#include <lz4.h>

#include <cstdint>
#include <cstring>
#include <map>
#include <string>
#include <vector>

class CrateFileBuilder
{
public:
    explicit CrateFileBuilder(uint8_t minor = 8) : _minor(minor) { _values.assign(88, '\0'); }

    template <class T>
    static std::string Raw(T value)
    {
        return std::string(reinterpret_cast<const char*>(&value), sizeof(value));
    }

    static uint64_t Rep(uint8_t type, uint64_t payload, bool inlined = false, bool array = false,
                        bool compressed = false)
    {
        return (array ? 1ull << 63 : 0) | (inlined ? 1ull << 62 : 0) |
               (compressed ? 1ull << 61 : 0) | uint64_t(type) << 48 | payload;
    }

    uint32_t Token(const std::string& text)
    {
        const auto found = _tokenIndex.find(text);
        if (found != _tokenIndex.end()) {
            return found->second;
        }
        _tokens.push_back(text);
        return _tokenIndex[text] = uint32_t(_tokens.size() - 1);
    }

    uint32_t String(const std::string& text)
    {
        _strings.push_back(Token(text));
        return uint32_t(_strings.size() - 1);
    }

    /// Appends bytes to the value area; returns their file offset.
    uint64_t Append(const std::string& bytes)
    {
        const uint64_t offset = _values.size();
        _values += bytes;
        return offset;
    }
    uint64_t Tell() const { return _values.size(); }

    /// Adds a field to the spec started last (the pseudo-root at first).
    void AddField(const std::string& name, uint64_t rep)
    {
        _fields.push_back({Token(name), rep});
        _specs.back().fields.push_back(_fields.size() - 1);
    }

    /// Starts the prim "/name"; one prim per file.
    void AddPrimSpec(const std::string& name) { _specs.push_back({int64_t(Token(name)), 6, {}}); }
    /// Starts an attribute of the prim.
    void AddAttributeSpec(const std::string& name) { _specs.push_back({-int64_t(Token(name)), 1, {}}); }

    /// The compressed-integer form the reader expects: u64 size + block.
    static std::string CompressedInts(const std::vector<int64_t>& values, size_t width = 4)
    {
        std::string encoded(width, '\0');
        encoded += std::string((values.size() * 2 + 7) / 8, '\xFF');
        int64_t previous = 0;
        for (int64_t value : values) {
            const int64_t delta = value - previous;
            encoded += Raw(delta).substr(0, width);
            previous = value;
        }
        const std::string block = Compressed(encoded);
        return Raw(uint64_t(block.size())) + block;
    }

    static std::string Compressed(const std::string& bytes)
    {
        std::string out(size_t(LZ4_compressBound(int(bytes.size()))), '\0');
        out.resize(size_t(
            LZ4_compress_default(bytes.data(), out.data(), int(bytes.size()), int(out.size()))));
        return std::string(1, '\0') + out;
    }

    std::string Build() const
    {
        std::string file = _values;
        std::vector<std::pair<std::string, std::pair<uint64_t, uint64_t>>> toc;
        auto section = [&](const char* name, const std::string& bytes) {
            toc.push_back({name, {file.size(), bytes.size()}});
            file += bytes;
        };
        std::string tokenChars;
        for (const std::string& token : _tokens) {
            tokenChars += token + '\0';
        }
        const std::string tokenBlock = Compressed(tokenChars);
        section("TOKENS", Raw(uint64_t(_tokens.size())) + Raw(uint64_t(tokenChars.size())) +
                              Raw(uint64_t(tokenBlock.size())) + tokenBlock);
        std::string strings = Raw(uint64_t(_strings.size()));
        for (uint32_t s : _strings) {
            strings += Raw(s);
        }
        section("STRINGS", strings);
        std::vector<int64_t> names, fieldSets;
        std::string reps;
        for (const auto& [name, rep] : _fields) {
            names.push_back(name);
            reps += Raw(rep);
        }
        // Spec i has path i and the i-th field set.
        std::vector<int64_t> pathIndices, elements, jumps, fieldSetStarts, specTypes;
        for (size_t i = 0; i != _specs.size(); ++i) {
            fieldSetStarts.push_back(int64_t(fieldSets.size()));
            fieldSets.insert(fieldSets.end(), _specs[i].fields.begin(), _specs[i].fields.end());
            fieldSets.push_back(0xFFFFFFFF);
            pathIndices.push_back(int64_t(i));
            elements.push_back(_specs[i].element);
            specTypes.push_back(_specs[i].type);
            // The root and the prim lead to their first child (-1); the
            // attributes are siblings (0); the last entry is a leaf (-2).
            const bool last = i + 1 == _specs.size();
            jumps.push_back(last ? -2 : i < 2 ? -1 : 0);
        }
        const std::string repBlock = Compressed(reps);
        section("FIELDS", Raw(uint64_t(_fields.size())) + CompressedInts(names) +
                              Raw(uint64_t(repBlock.size())) + repBlock);
        section("FIELDSETS", Raw(uint64_t(fieldSets.size())) + CompressedInts(fieldSets));
        section("PATHS", Raw(uint64_t(_specs.size())) + Raw(uint64_t(_specs.size())) +
                             CompressedInts(pathIndices) + CompressedInts(elements) +
                             CompressedInts(jumps));
        section("SPECS", Raw(uint64_t(_specs.size())) + CompressedInts(pathIndices) +
                             CompressedInts(fieldSetStarts) + CompressedInts(specTypes));
        const uint64_t tocOffset = file.size();
        file += Raw(uint64_t(toc.size()));
        for (const auto& [name, range] : toc) {
            std::string nameField = name;
            nameField.resize(16, '\0');
            file += nameField + Raw(range.first) + Raw(range.second);
        }
        std::memcpy(&file[0], "PXR-USDC", 8);
        file[8] = 0;
        file[9] = char(_minor);
        file[10] = 0;
        std::memcpy(&file[16], &tocOffset, sizeof(tocOffset));
        return file;
    }

private:
    uint8_t _minor;
    std::string _values;
    std::vector<std::string> _tokens;
    std::map<std::string, uint32_t> _tokenIndex;
    std::vector<uint32_t> _strings;
    std::vector<std::pair<uint32_t, uint64_t>> _fields;
    struct Spec {
        int64_t element;  // a token index, negated for a property
        int64_t type;
        std::vector<int64_t> fields;
    };
    // The pseudo-root (7) first.
    std::vector<Spec> _specs{{0, 7, {}}};
};
