#pragma once

#include <zip.h>

#include <cstdint>
#include <string>
#include <vector>

// Writes zip archives for the tests with minizip's own writer, so that the
// names and contents each test needs are visible in the test itself.
struct TestZipEntry {
    std::string name;
    std::string data;
    bool deflate = true;
    unsigned long flags = 0; ///< general-purpose flags, e.g. 0x800 for UTF-8 names
};

inline bool WriteTestZip(const std::string& path, const std::vector<TestZipEntry>& entries)
{
    zipFile zip = zipOpen64(path.c_str(), APPEND_STATUS_CREATE);
    if (!zip)
        return false;
    bool ok = true;
    for (const TestZipEntry& entry : entries) {
        zip_fileinfo info = {};
        ok = ok &&
             zipOpenNewFileInZip4_64(zip, entry.name.c_str(), &info, nullptr, 0, nullptr, 0, nullptr,
                                     entry.deflate ? Z_DEFLATED : 0, entry.deflate ? 6 : 0, 0, -MAX_WBITS,
                                     DEF_MEM_LEVEL, Z_DEFAULT_STRATEGY, nullptr, 0, 0, entry.flags, 0) == ZIP_OK;
        ok = ok && zipWriteInFileInZip(zip, entry.data.data(), unsigned(entry.data.size())) == ZIP_OK;
        ok = ok && zipCloseFileInZip(zip) == ZIP_OK;
    }
    return zipClose(zip, nullptr) == ZIP_OK && ok;
}

// Offsets of every record with the given four-byte signature.
inline std::vector<size_t> FindRecords(const std::string& bytes, uint32_t signature)
{
    const std::string magic{char(signature), char(signature >> 8), char(signature >> 16), char(signature >> 24)};
    std::vector<size_t> offsets;
    for (size_t at = bytes.find(magic); at != std::string::npos; at = bytes.find(magic, at + 1))
        offsets.push_back(at);
    return offsets;
}

inline void PutU32(std::string& bytes, size_t offset, uint32_t value)
{
    for (int i = 0; i < 4; ++i)
        bytes[offset + i] = char(value >> (8 * i));
}

constexpr uint32_t LocalHeaderSignature = 0x04034b50;
constexpr uint32_t CentralHeaderSignature = 0x02014b50;

// Deterministic bytes that deflate poorly, so that entries span several
// blocks of the extractor's copy loop.
inline std::string NoisyBytes(size_t size)
{
    std::string bytes(size, '\0');
    uint32_t state = 12345;
    for (char& byte : bytes) {
        state = state * 1103515245u + 12345u;
        byte = char(state >> 16);
    }
    return bytes;
}
