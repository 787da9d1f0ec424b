#pragma once

// Builds small zip archives in memory, so each test shows the exact layout
// it exercises (order, compression flags, zip64 records, bad offsets...).

#include <zlib.h>

#include <cstdint>
#include <string>
#include <vector>

namespace usdztest {

struct ZipFile {
    std::string name;
    std::string data;
    uint16_t method = 0; ///< 0 stored, 8 deflated (data is written as given)
    uint16_t flags = 0;  ///< bit 0: encrypted
};

struct ZipOptions {
    /// Writes sizes and offsets as 0xFFFFFFFF with zip64 extra fields, and
    /// zip64 end records.
    bool zip64 = false;
    /// Pads each file's data to start on this boundary (usdz uses 64).
    size_t alignment = 64;
    std::string comment;
    /// Central directory order as indices into the files (default: as given).
    std::vector<size_t> directoryOrder;
};

class ZipBuilder
{
public:
    static std::string Build(const std::vector<ZipFile>& files, const ZipOptions& options = {})
    {
        ZipBuilder b;
        std::vector<uint64_t> localOffsets;
        for (const ZipFile& file : files) {
            localOffsets.push_back(b._out.size());
            b.LocalHeader(file, options);
        }
        const uint64_t directoryOffset = b._out.size();
        std::vector<size_t> order = options.directoryOrder;
        if (order.empty()) {
            for (size_t i = 0; i < files.size(); ++i) order.push_back(i);
        }
        for (size_t i : order) {
            b.DirectoryEntry(files[i], localOffsets[i], options);
        }
        const uint64_t directorySize = b._out.size() - directoryOffset;
        if (options.zip64) {
            const uint64_t recordOffset = b._out.size();
            b.U32(0x06064b50);
            b.U64(44);
            b.U16(45);
            b.U16(45);
            b.U32(0);
            b.U32(0);
            b.U64(order.size());
            b.U64(order.size());
            b.U64(directorySize);
            b.U64(directoryOffset);
            b.U32(0x07064b50);
            b.U32(0);
            b.U64(recordOffset);
            b.U32(1);
        }
        b.U32(0x06054b50);
        b.U16(0);
        b.U16(0);
        b.U16(options.zip64 ? 0xffff : uint16_t(order.size()));
        b.U16(options.zip64 ? 0xffff : uint16_t(order.size()));
        b.U32(options.zip64 ? 0xffffffff : uint32_t(directorySize));
        b.U32(options.zip64 ? 0xffffffff : uint32_t(directoryOffset));
        b.U16(uint16_t(options.comment.size()));
        b._out += options.comment;
        return b._out;
    }

private:
    void U16(uint16_t v)
    {
        for (int i = 0; i < 2; ++i) _out += char(v >> (8 * i));
    }
    void U32(uint32_t v)
    {
        for (int i = 0; i < 4; ++i) _out += char(v >> (8 * i));
    }
    void U64(uint64_t v)
    {
        for (int i = 0; i < 8; ++i) _out += char(v >> (8 * i));
    }
    static uint32_t Crc(const std::string& data)
    {
        return uint32_t(crc32(0, reinterpret_cast<const Bytef*>(data.data()), uInt(data.size())));
    }

    void LocalHeader(const ZipFile& file, const ZipOptions& options)
    {
        // The extra field of the local header pads the data to the boundary.
        const size_t fixed = 30 + file.name.size() + (options.zip64 ? 20 : 0);
        size_t padding = 0;
        if (options.alignment > 1) {
            const size_t misalignment = (_out.size() + fixed) % options.alignment;
            padding = misalignment ? options.alignment - misalignment : 0;
            if (padding && padding < 4) padding += options.alignment; // room for a header
        }
        U32(0x04034b50);
        U16(options.zip64 ? 45 : 20);
        U16(file.flags);
        U16(file.method);
        U16(0);
        U16(0);
        U32(Crc(file.data));
        U32(options.zip64 ? 0xffffffff : uint32_t(file.data.size()));
        U32(options.zip64 ? 0xffffffff : uint32_t(file.data.size()));
        U16(uint16_t(file.name.size()));
        U16(uint16_t((options.zip64 ? 20 : 0) + padding));
        _out += file.name;
        if (options.zip64) {
            U16(0x0001);
            U16(16);
            U64(file.data.size());
            U64(file.data.size());
        }
        if (padding) {
            U16(0x1986); // an unregistered id, skipped by readers
            U16(uint16_t(padding - 4));
            _out += std::string(padding - 4, '\0');
        }
        _out += file.data;
    }

    void DirectoryEntry(const ZipFile& file, uint64_t localOffset, const ZipOptions& options)
    {
        U32(0x02014b50);
        U16(options.zip64 ? 45 : 20);
        U16(options.zip64 ? 45 : 20);
        U16(file.flags);
        U16(file.method);
        U16(0);
        U16(0);
        U32(Crc(file.data));
        U32(options.zip64 ? 0xffffffff : uint32_t(file.data.size()));
        U32(options.zip64 ? 0xffffffff : uint32_t(file.data.size()));
        U16(uint16_t(file.name.size()));
        U16(options.zip64 ? 28 : 0);
        U16(0);
        U16(0);
        U16(0);
        U32(0);
        U32(options.zip64 ? 0xffffffff : uint32_t(localOffset));
        _out += file.name;
        if (options.zip64) {
            U16(0x0001);
            U16(24);
            U64(file.data.size());
            U64(file.data.size());
            U64(localOffset);
        }
    }

    std::string _out;
};

} // namespace usdztest
