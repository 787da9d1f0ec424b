// Imports arbitrary bytes as a USD file, the whole way from the stage to the
// host document: a crate or package by its magic bytes, text otherwise. The
// unpack and texture folders, and the sequences animated inputs made, go
// after every input.

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string_view>
#include <system_error>
#include <unistd.h>

#include "TavrinAnimation/src/TavrinSequenceContainer.h"
#include "host/CTavrinDocument.h"
#include "usdcore/tf/diagnostic.h"
#include "usdreader/CTavrinUSDReaderHandler.h"

using namespace Tavrin;

namespace {

const char* ExtensionFor(std::string_view bytes)
{
    if (bytes.substr(0, 8) == "PXR-USDC")
        return ".usdc";
    if (bytes.substr(0, 4) == std::string_view("PK\x03\x04", 4))
        return ".usdz";
    return ".usda";
}

std::filesystem::path ScratchFolder()
{
    static const std::filesystem::path folder = [] {
        std::filesystem::path path =
            std::filesystem::temp_directory_path() / ("tavrin-import-fuzz-" + std::to_string(::getpid()));
        std::filesystem::create_directories(path);
        return path;
    }();
    return folder;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    PXR_NS::TfDiagnosticCapture quiet;
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const std::filesystem::path file = ScratchFolder() / (std::string("input") + ExtensionFor(bytes));
    std::ofstream(file, std::ios::binary).write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    const std::filesystem::path textures = ScratchFolder() / "textures";

    CTavrinString unpackFolder;
    {
        CTavrinUSDReaderHandler handler;
        const std::unique_ptr<CTavrinDocument> document(
            handler.ReadUSDFile(CTavrinString(file.string()), CTavrinString(textures.string())));
        unpackFolder = handler.unpackFolder;
    }
    std::error_code ignored;
    if (unpackFolder.Length() > 1)
        std::filesystem::remove_all(unpackFolder.toStdString(), ignored);
    std::filesystem::remove_all(textures, ignored);
    CTavrinSequenceContainer::SetInstance(new CTavrinSequenceContainer());
    return 0;
}
