#pragma once

// Builds small crate files by hand for tests: a header, a value area the test
// fills byte by byte, and the structural sections for a pseudo-root carrying
// the test's fields. Structural sections use the simplest valid integer
// encoding (every delta written at full width).

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

    void AddField(const std::string& name, uint64_t rep) { _fields.push_back({Token(name), rep}); }

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
        std::vector<int64_t> names, fieldSet;
        std::string reps;
        for (size_t i = 0; i != _fields.size(); ++i) {
            names.push_back(_fields[i].first);
            reps += Raw(_fields[i].second);
            fieldSet.push_back(int64_t(i));
        }
        fieldSet.push_back(0xFFFFFFFF);
        const std::string repBlock = Compressed(reps);
        section("FIELDS", Raw(uint64_t(_fields.size())) + CompressedInts(names) +
                              Raw(uint64_t(repBlock.size())) + repBlock);
        section("FIELDSETS", Raw(uint64_t(fieldSet.size())) + CompressedInts(fieldSet));
        // Just the absolute root: path 0, no element, a leaf (-2).
        section("PATHS", Raw(uint64_t(1)) + Raw(uint64_t(1)) + CompressedInts({0}) +
                             CompressedInts({0}) + CompressedInts({-2}));
        // The pseudo-root (7) with field set 0.
        section("SPECS", Raw(uint64_t(1)) + CompressedInts({0}) + CompressedInts({0}) +
                             CompressedInts({7}));
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
};
