#include "usdreader/CTavrinUnzipper.h"

#include <algorithm>
#include <cstdio>
#include <cstring>

#include <unzip.h>
#ifdef _WIN32
#include <iowin32.h>
#include <share.h>
#endif

#include "usdreader/TavrinContainedPath.h"
#include "usdreader/TavrinFileHelpers.h"
#include "usdreader/UsdApi.h"

namespace Tavrin {

namespace {

constexpr unsigned NameBufferSize = 1024;
constexpr unsigned CopyBlockSize = 16384;

unzFile OpenArchive(const CTavrinString& archive)
{
#ifdef _WIN32
    zlib_filefunc64_def functions;
    fill_win32_filefunc64W(&functions);
    return unzOpen2_64(archive.c_str(), &functions);
#else
    return unzOpen64(archive.toStdString().c_str());
#endif
}

// Binary, truncating, shared with other processes for reading and writing.
std::FILE* OpenOutput(const CTavrinString& path)
{
#ifdef _WIN32
    return _wfsopen(path.c_str(), L"wb", _SH_DENYNO);
#else
    return std::fopen(path.toStdString().c_str(), "wb");
#endif
}

// Zero when the file cannot be read.
std::uint64_t FileSize(const CTavrinString& path)
{
#ifdef _WIN32
    std::FILE* file = _wfsopen(path.c_str(), L"rb", _SH_DENYNO);
#else
    std::FILE* file = std::fopen(path.toStdString().c_str(), "rb");
#endif
    if (!file)
        return 0;
    std::uint64_t size = 0;
#ifdef _WIN32
    if (_fseeki64(file, 0, SEEK_END) == 0)
        size = static_cast<std::uint64_t>(std::max<long long>(_ftelli64(file), 0));
#else
    if (fseeko(file, 0, SEEK_END) == 0)
        size = static_cast<std::uint64_t>(std::max<off_t>(ftello(file), 0));
#endif
    std::fclose(file);
    return size;
}

// The entry name as stored, up to the first NUL (what a C path would see).
// Names with the UTF-8 flag (bit 11) and names without it are both decoded
// as UTF-8: Qt 5's plain conversion, which the flagless names went through,
// decodes UTF-8 as well.
bool ReadEntryName(unzFile zip, CTavrinString& name)
{
    char buffer[NameBufferSize + 1] = {};
    if (unzGetCurrentFileInfo64(zip, nullptr, buffer, NameBufferSize, nullptr, 0, nullptr, 0) != UNZ_OK)
        return false;
    name = CTavrinString(std::string(buffer, strnlen(buffer, NameBufferSize)));
    return true;
}

// Drops a drive or scheme prefix (everything up to the first colon) and then
// one leading backslash, so that C:\x\y.png lands as x\y.png.
CTavrinString WithoutDrivePrefix(CTavrinString name)
{
    const int colon = name.Find(CTavrinString(":"));
    if (colon >= 0)
        name = CTavrinString(name.toStdWString().substr(static_cast<std::size_t>(colon) + 1));
    if (name.FirstCh() == L'\\')
        name = CTavrinString(name.toStdWString().substr(1));
    return name;
}

// Bytes an extraction has left to write, and the limits it runs under.
struct Budget {
    const CTavrinUnpackLimits& limits;
    std::uint64_t bytesLeft;
    std::uint64_t entriesLeft;
};

enum class CopyResult { Complete, TooExpanded, OutOfBudget };

// Copies the open entry until its data ends, or until it passes the entry's
// expansion allowance or the extraction's budget.
CopyResult CopyEntry(unzFile zip, std::FILE* output, std::uint64_t compressedBytes, Budget& budget)
{
    const std::uint64_t ratioBound =
        compressedBytes > budget.limits.totalBytes / std::max<std::uint64_t>(budget.limits.expansionRatio, 1)
            ? budget.limits.totalBytes
            : compressedBytes * budget.limits.expansionRatio;
    const std::uint64_t entryBound = std::max(budget.limits.smallEntryBytes, ratioBound);
    std::uint64_t written = 0;
    char block[CopyBlockSize];
    for (;;) {
        const int read = unzReadCurrentFile(zip, block, CopyBlockSize);
        if (read <= 0)
            return CopyResult::Complete;
        const auto size = static_cast<std::uint64_t>(read);
        if (size > entryBound - written)
            return CopyResult::TooExpanded;
        if (size > budget.bytesLeft)
            return CopyResult::OutOfBudget;
        if (std::fwrite(block, 1, static_cast<std::size_t>(read), output) != static_cast<std::size_t>(read))
            return CopyResult::Complete;
        written += size;
        budget.bytesLeft -= size;
    }
}

// False once the extraction's budget is spent.
bool ExtractCurrentEntry(unzFile zip, const CTavrinString& archive, const CTavrinString& folder,
                         const CTavrinString& name, std::uint64_t compressedBytes, Budget& budget)
{
    const CTavrinContainedPath inside = ResolveContainedPath(WithoutDrivePrefix(name));
    if (!inside.contained || inside.path.IsEmpty())
        return true;
    const CTavrinString outputPath = folder + inside.path;
    if (!inside.namesFile) {
        MakeFolder(outputPath);
        return true;
    }
    MakeFolder(outputPath.Path(CTavrinString::SystemSeparator));
    std::FILE* output = OpenOutput(outputPath);
    if (!output)
        return true;
    const CopyResult result = CopyEntry(zip, output, compressedBytes, budget);
    std::fclose(output);
    switch (result) {
    case CopyResult::Complete:
        return true;
    case CopyResult::TooExpanded:
        RemoveFile(outputPath);
        TF_WARN("Package '%s': entry '%s' expands more than %llu times its %llu compressed bytes; it is skipped",
                archive.toStdString().c_str(), name.toStdString().c_str(),
                static_cast<unsigned long long>(budget.limits.expansionRatio),
                static_cast<unsigned long long>(compressedBytes));
        return true;
    case CopyResult::OutOfBudget:
        RemoveFile(outputPath);
        TF_WARN("Package '%s': unpacking '%s' would write more than %llu bytes in all; it and the entries after it "
                "are skipped",
                archive.toStdString().c_str(), name.toStdString().c_str(),
                static_cast<unsigned long long>(budget.limits.totalBytes));
        return false;
    }
    return true;
}

} // namespace

CTavrinUnpackLimits CTavrinUnpackLimits::ForArchiveOfSize(std::uint64_t archiveBytes)
{
    constexpr std::uint64_t floorBytes = std::uint64_t{256} << 20;
    constexpr std::uint64_t archiveMultiple = 64;
    CTavrinUnpackLimits limits;
    limits.totalBytes = archiveBytes > floorBytes / archiveMultiple ? archiveBytes * archiveMultiple : floorBytes;
    limits.entryCount = 65536;
    // Deflate gives at most about 1,000:1 on the most repetitive data and
    // real files stay well under 100:1; exporters store packages anyway.
    limits.expansionRatio = 100;
    limits.smallEntryBytes = std::uint64_t{1} << 20;
    return limits;
}

bool CTavrinUnzipper::ExtractAll(CTavrinString archive, CTavrinString folder)
{
    return ExtractAll(archive, folder, CTavrinUnpackLimits::ForArchiveOfSize(FileSize(archive)));
}

bool CTavrinUnzipper::ExtractAll(CTavrinString archive, CTavrinString folder, const CTavrinUnpackLimits& limits)
{
    folder.ReplaceSlashWithSystemSlash();
    if (folder.LastCh() != CTavrinString::SystemSeparator)
        folder = folder + CTavrinString::SystemSeparator;

    unzFile zip = OpenArchive(archive);
    if (!zip)
        return false;

    Budget budget{limits, limits.totalBytes, limits.entryCount};
    if (unzGoToFirstFile(zip) == UNZ_OK) {
        bool more = true;
        do {
            if (budget.entriesLeft-- == 0) {
                TF_WARN("Package '%s' has more than %llu entries; the rest are skipped", archive.toStdString().c_str(),
                        static_cast<unsigned long long>(limits.entryCount));
                break;
            }
            CTavrinString name;
            unz_file_info64 info;
            if (ReadEntryName(zip, name) &&
                unzGetCurrentFileInfo64(zip, &info, nullptr, 0, nullptr, 0, nullptr, 0) == UNZ_OK &&
                unzOpenCurrentFile(zip) == UNZ_OK)
                more = ExtractCurrentEntry(zip, archive, folder, name, info.compressed_size, budget);
            unzCloseCurrentFile(zip);
        } while (more && unzGoToNextFile(zip) == UNZ_OK);
    }
    return unzClose(zip) == UNZ_OK;
}

} // namespace Tavrin
