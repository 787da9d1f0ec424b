#pragma once

#include <string>

#include "usdreader/CTavrinImportOptions.h"

namespace TavrinUsdImport {

// What the command line asks for. Empty strings mean "not given".
struct CommandLine {
    std::string file;
    std::string folder;
    std::string jsonPath;
    // The importer plug-in to load; the build's own when empty.
    std::string pluginPath;
    // Passed to the importer as they are.
    CTavrinImportOptions options;
    bool quiet = false;
    bool help = false;
};

// Fills commandLine from argv; on a usage error returns false with the reason
// in error.
bool ParseCommandLine(int argc, const char* const* argv, CommandLine& commandLine, std::string& error);

extern const char* const usageText;

} // namespace TavrinUsdImport
