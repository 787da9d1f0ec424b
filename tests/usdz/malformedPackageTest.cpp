#include "zipWriter.h"

#include "usdcore/sdf/usdz/package.h"
#include "usdcore/tf/diagnostic.h"

#include <gtest/gtest.h>

#include <cstring>
#include <functional>

PXR_NAMESPACE_USING_DIRECTIVE
using usdztest::ZipBuilder;
using usdztest::ZipOptions;

namespace {

const std::string kLayer = "#usda 1.0\n";

// Offsets into the archive built by TwoFiles(): the first local header is at
// 0, its data at 64 (aligned); the second's data at 128; the directory
// follows, and the 22-byte end record closes the file.
std::string TwoFiles(bool zip64 = false)
{
    ZipOptions options;
    options.zip64 = zip64;
    return ZipBuilder::Build({{"a.usda", kLayer}, {"b.png", "image"}}, options);
}

void Put32(std::string* bytes, size_t at, uint32_t value)
{
    for (int i = 0; i < 4; ++i) (*bytes)[at + i] = char(value >> (8 * i));
}
void Put16(std::string* bytes, size_t at, uint16_t value)
{
    for (int i = 0; i < 2; ++i) (*bytes)[at + i] = char(value >> (8 * i));
}

size_t EndRecord(const std::string& zip) { return zip.size() - 22; }
size_t DirectoryOffset(const std::string& zip)
{
    uint32_t offset = 0;
    std::memcpy(&offset, zip.data() + EndRecord(zip) + 16, 4);
    return offset;
}

// The zip64 end record (found through the locator before the end record)
// holds the real directory offset at +48.
size_t Zip64DirectoryOffset(const std::string& zip)
{
    uint64_t record = 0, offset = 0;
    std::memcpy(&record, zip.data() + EndRecord(zip) - 20 + 8, 8);
    std::memcpy(&offset, zip.data() + record + 48, 8);
    return size_t(offset);
}

bool Opens(const std::string& bytes)
{
    return bool(SdfUsdzPackage::OpenFromBytes(bytes, "bad.usdz", nullptr));
}

} // namespace

TEST(MalformedUsdz, NotAZip)
{
    TfDiagnosticCapture capture;
    EXPECT_FALSE(Opens(""));
    EXPECT_FALSE(Opens("#usda 1.0\ndef \"A\" {}\n"));
    EXPECT_FALSE(Opens(std::string(200, '\0')));
    EXPECT_EQ(capture.Count(TF_DIAGNOSTIC_RUNTIME_ERROR_TYPE), 3u);
    EXPECT_TRUE(capture.Contains("Invalid usdz package 'bad.usdz': not a zip archive"));
}

TEST(MalformedUsdz, EntryCountSmallerThanListedIsHonoured)
{
    // Only the first directory record is read; b.png is then unknown.
    std::string zip = TwoFiles();
    Put16(&zip, EndRecord(zip) + 10, 1);
    auto package = SdfUsdzPackage::OpenFromBytes(zip, "one.usdz", nullptr);
    ASSERT_TRUE(package);
    EXPECT_EQ(package->GetEntries().size(), 1u);
}

TEST(MalformedUsdz, DamagedRecordsAreRefusedSayingWhy)
{
    const struct {
        const char* name;
        bool zip64;
        std::function<void(std::string*)> damage;
        const char* expected;
    } cases[] = {
        {"entry count larger than the directory can hold", false,
         [](std::string* zip) { Put16(zip, EndRecord(*zip) + 10, 60000); }, "cannot hold 60000 entries"},
        {"directory outside the file", false, [](std::string* zip) { Put32(zip, EndRecord(*zip) + 16, 0xfffffff0); },
         "lies outside the"},
        {"local header offset outside the file", false,
         [](std::string* zip) { Put32(zip, DirectoryOffset(*zip) + 42, uint32_t(zip->size() - 10)); },
         "'a.usda' has no local header"},
        // Compressed and uncompressed size of a.usda in its directory record.
        {"entry size runs past the end", false,
         [](std::string* zip) {
             Put32(zip, DirectoryOffset(*zip) + 20, 0x7fffffff);
             Put32(zip, DirectoryOffset(*zip) + 24, 0x7fffffff);
         },
         "'a.usda' (2147483647 bytes at 64) runs past the end"},
        {"name longer than the directory", false, [](std::string* zip) { Put16(zip, DirectoryOffset(*zip) + 28, 0xffff); },
         "entry 0 runs past the directory"},
        // The locator sits just before the end record; its record offset at +8.
        {"zip64 locator pointing nowhere", true,
         [](std::string* zip) { Put32(zip, EndRecord(*zip) - 20 + 8, 0xfffffff0); }, "corrupt zip64"},
        // The first record's zip64 extra field shrunk from 24 to 16 bytes: the
        // local header offset it must carry is then missing.
        {"zip64 extra field missing a value", true,
         [](std::string* zip) { Put16(zip, Zip64DirectoryOffset(*zip) + 46 + 6 + 2, 16); },
         "malformed zip64 extra field"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        std::string zip = TwoFiles(c.zip64);
        c.damage(&zip);
        TfDiagnosticCapture capture;
        EXPECT_FALSE(Opens(zip));
        EXPECT_TRUE(capture.Contains(c.expected));
    }
}

TEST(MalformedUsdz, EveryTruncationFailsCleanly)
{
    const std::string zip = TwoFiles();
    TfDiagnosticCapture capture;
    for (size_t size = 0; size < zip.size(); ++size) {
        // Copied so that ASan sees reads past the shortened buffer.
        const std::string truncated = zip.substr(0, size);
        EXPECT_FALSE(Opens(truncated)) << size;
    }
}

TEST(MalformedUsdz, ByteFlipsNeverCrash)
{
    for (const bool zip64 : {false, true}) {
        const std::string zip = TwoFiles(zip64);
        TfDiagnosticCapture capture;
        for (size_t at = 0; at < zip.size(); ++at) {
            for (const char flip : {'\xff', '\x80', '\x01'}) {
                std::string damaged = zip;
                damaged[at] ^= flip;
                if (auto package = SdfUsdzPackage::OpenFromBytes(damaged, "flip.usdz", nullptr)) {
                    for (const auto& entry : package->GetEntries()) {
                        std::string_view bytes;
                        if (package->GetEntryBytes(entry.path, &bytes)) {
                            ASSERT_LE(bytes.data() + bytes.size(), damaged.data() + damaged.size());
                        }
                    }
                }
            }
        }
    }
}
