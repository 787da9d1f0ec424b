// Unpacks arbitrary bytes as a package into a fresh folder, then checks that
// every file written lies inside that folder and that nothing else appeared
// beside it.

#include "usdreader/CTavrinUnzipper.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>

namespace {

namespace fs = std::filesystem;

// One private folder per fuzzing process, made at start and removed at exit:
// the input file and the unpack folder live in it, and it is emptied after
// each input.
char workspaceName[] = "/tmp/tavrin-unzip-fuzz-XXXXXX";

void RemoveWorkspace()
{
    std::error_code ignored;
    fs::remove_all(workspaceName, ignored);
}

bool Inside(const fs::path& file, const fs::path& folder)
{
    const std::string canonical = fs::weakly_canonical(file).string();
    const std::string prefix = fs::weakly_canonical(folder).string() + "/";
    return canonical.compare(0, prefix.size(), prefix) == 0;
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    if (!mkdtemp(workspaceName))
        std::abort();
    std::atexit(RemoveWorkspace);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const fs::path workspace(workspaceName);
    const fs::path archive = workspace / "input.usdz";
    const fs::path unpack = workspace / "nested" / "unpack";

    std::FILE* file = std::fopen(archive.c_str(), "wb");
    if (!file)
        std::abort();
    std::fwrite(data, 1, size, file);
    std::fclose(file);

    Tavrin::CTavrinUnzipper().ExtractAll(Tavrin::CTavrinString(archive.string()),
                                         Tavrin::CTavrinString(unpack.string()));

    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(workspace)) {
        if (entry.path() == archive || entry.path() == workspace / "nested")
            continue;
        if (entry.path() != unpack && !Inside(entry.path(), unpack))
            std::abort();
    }
    std::error_code ignored;
    fs::remove_all(workspace / "nested", ignored);
    return 0;
}
