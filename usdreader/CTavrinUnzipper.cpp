#include "usdreader/CTavrinUnzipper.h"

#include <cstdio>
#include <cstring>

#include <unzip.h>
#ifdef _WIN32
#include <iowin32.h>
#include <share.h>
#endif

#include "usdreader/TavrinContainedPath.h"
#include "usdreader/TavrinFileHelpers.h"

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

void CopyEntry(unzFile zip, std::FILE* output)
{
    char block[CopyBlockSize];
    for (;;) {
        const int read = unzReadCurrentFile(zip, block, CopyBlockSize);
        if (read <= 0)
            return;
        if (std::fwrite(block, 1, static_cast<std::size_t>(read), output) != static_cast<std::size_t>(read))
            return;
    }
}

void ExtractCurrentEntry(unzFile zip, const CTavrinString& folder, const CTavrinString& name)
{
    const CTavrinContainedPath inside = ResolveContainedPath(WithoutDrivePrefix(name));
    if (!inside.contained || inside.path.IsEmpty())
        return;
    const CTavrinString outputPath = folder + inside.path;
    if (!inside.namesFile) {
        MakeFolder(outputPath);
        return;
    }
    MakeFolder(outputPath.Path(CTavrinString::SystemSeparator));
    std::FILE* output = OpenOutput(outputPath);
    if (!output)
        return;
    CopyEntry(zip, output);
    std::fclose(output);
}

} // namespace

bool CTavrinUnzipper::ExtractAll(CTavrinString archive, CTavrinString folder)
{
    folder.ReplaceSlashWithSystemSlash();
    if (folder.LastCh() != CTavrinString::SystemSeparator)
        folder = folder + CTavrinString::SystemSeparator;

    unzFile zip = OpenArchive(archive);
    if (!zip)
        return false;

    if (unzGoToFirstFile(zip) == UNZ_OK) {
        do {
            CTavrinString name;
            if (ReadEntryName(zip, name) && unzOpenCurrentFile(zip) == UNZ_OK)
                ExtractCurrentEntry(zip, folder, name);
            unzCloseCurrentFile(zip);
        } while (unzGoToNextFile(zip) == UNZ_OK);
    }
    return unzClose(zip) == UNZ_OK;
}

} // namespace Tavrin
