#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <string>

#include "host/CTavrinString.h"

// A fresh folder under /tmp for one test, removed with everything in it at
// the end, and the few file operations the tests check results with.
class ScratchFolder {
public:
    ScratchFolder()
    {
        char pattern[] = "/tmp/tavrin-files-XXXXXX";
        const char* made = mkdtemp(pattern);
        path = made ? made : "";
    }
    ~ScratchFolder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(path, ignored);
    }
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;

    std::string operator/(const std::string& relative) const { return path + "/" + relative; }

    // Every regular file below the folder, as paths relative to it.
    std::set<std::string> Files() const
    {
        std::set<std::string> files;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(path)) {
            if (entry.is_regular_file())
                files.insert(std::filesystem::relative(entry.path(), path).generic_string());
        }
        return files;
    }

    std::string path;
};

inline void WriteFile(const std::string& path, const std::string& bytes)
{
    std::filesystem::create_directories(std::filesystem::path(path).parent_path());
    std::ofstream(path, std::ios::binary) << bytes;
}

inline std::string ReadFile(const std::string& path)
{
    std::ifstream stream(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>());
}

inline Tavrin::CTavrinString Text(const std::string& utf8)
{
    return Tavrin::CTavrinString(utf8);
}
