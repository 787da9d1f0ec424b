#include "tools/tavrin-usd-import/CommandLine.h"

#include <cstring>

namespace TavrinUsdImport {

const char* const usageText =
    "usage: tavrin-usd-import [FILE] [--folder DIR] [--json PATH] [--quiet] [--plugin PATH] [--no-shapes]\n"
    "                         [--no-instances] [--no-point-instancers]\n"
    "  --no-shapes            leave Cube, Sphere, Cylinder, Cone, Capsule and Plane prims out\n"
    "  --no-instances         leave what instanceable prims bring in out (the instance itself stays)\n"
    "  --no-point-instancers  make no nodes for point instancers' instances; their prototypes are\n"
    "                         read where they are authored\n";

namespace {

// An option that takes a value: the value is the next argument, which must
// exist and must not be given twice.
bool TakeValue(int argc, const char* const* argv, int& index, std::string& value, std::string& error)
{
    const char* option = argv[index];
    if (index + 1 >= argc) {
        error = std::string(option) + " needs a value";
        return false;
    }
    if (!value.empty()) {
        error = std::string(option) + " is given twice";
        return false;
    }
    value = argv[++index];
    if (value.empty()) {
        error = std::string(option) + " needs a value";
        return false;
    }
    return true;
}

} // namespace

bool ParseCommandLine(int argc, const char* const* argv, CommandLine& commandLine, std::string& error)
{
    for (int index = 1; index < argc; ++index) {
        const char* argument = argv[index];
        if (std::strcmp(argument, "--folder") == 0) {
            if (!TakeValue(argc, argv, index, commandLine.folder, error))
                return false;
        } else if (std::strcmp(argument, "--json") == 0) {
            if (!TakeValue(argc, argv, index, commandLine.jsonPath, error))
                return false;
        } else if (std::strcmp(argument, "--plugin") == 0) {
            if (!TakeValue(argc, argv, index, commandLine.pluginPath, error))
                return false;
        } else if (std::strcmp(argument, "--quiet") == 0 || std::strcmp(argument, "-q") == 0) {
            commandLine.quiet = true;
        } else if (std::strcmp(argument, "--no-shapes") == 0) {
            commandLine.options.shapes = false;
        } else if (std::strcmp(argument, "--no-instances") == 0) {
            commandLine.options.instances = false;
        } else if (std::strcmp(argument, "--no-point-instancers") == 0) {
            commandLine.options.pointInstancers = false;
        } else if (std::strcmp(argument, "--help") == 0 || std::strcmp(argument, "-h") == 0) {
            commandLine.help = true;
        } else if (argument[0] == '-' && argument[1] != '\0') {
            error = std::string("unknown option ") + argument;
            return false;
        } else if (commandLine.file.empty() && argument[0] != '\0') {
            commandLine.file = argument;
        } else {
            error = "only one file is imported at a time";
            return false;
        }
    }
    return true;
}

} // namespace TavrinUsdImport
