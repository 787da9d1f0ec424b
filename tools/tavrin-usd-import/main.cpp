// tavrin-usd-import: imports a USD file (.usd, .usda, .usdc, .usdz) into a
// new document, as the application's importer does, and tells what it holds.
//
//   tavrin-usd-import [FILE] [--folder DIR] [--json PATH] [--quiet] [--plugin PATH] [--no-shapes]
//                     [--no-instances] [--no-point-instancers]
//
// Like the application, it loads the importer plug-in (the build's own unless
// --plugin names another), hands it the program's animation containers and
// imports through it.
// Without FILE the bundled sample scene is imported. Textures are copied into
// DIR, or into a fresh folder under the temporary directory. --json writes the
// import (progress reports and document) in the tavrin-document/1 form
// (docs/document-json.md). --no-shapes imports no implicit shapes (cubes,
// spheres and the like); --no-instances nothing that instances bring in;
// --no-point-instancers no copies for a point instancer's instances.
// Exit status: 0 on success, 1 when the import (or writing the JSON) failed,
// 2 on a usage error.

#include <cstdio>
#include <fstream>
#include <memory>
#include <string>
#include <unistd.h>
#include <utility>
#include <vector>

#include "TavrinAnimation/src/TavrinSequenceJson.h"
#include "host/CTavrinDocument.h"
#include "host/CTavrinDocumentJson.h"
#include "host/CTavrinUUID.h"
#include "tools/tavrin-usd-import/CommandLine.h"
#include "tools/tavrin-usd-import/DocumentSummary.h"
#include "tools/tavrin-usd-import/ProgressDisplay.h"
#include "extension/CTavrinImportRequest.h"
#include "extension/CTavrinImporter.h"
#include "tools/tavrin-usd-import/PluginHost.h"
#include "utilities/TavrinTempFolder.h"

using namespace Tavrin;
using namespace TavrinUsdImport;

namespace {

// A folder of its own under the temporary directory, so that textures of
// different imports never overwrite each other.
CTavrinString FreshTextureFolder()
{
    CTavrinString folder = GetTempFolder();
    if (!folder.IsEmpty() && folder.LastCh() != CTavrinString::SystemSeparator)
        folder = folder + CTavrinString::SystemSeparator;
    CTavrinUUID uuid;
    uuid.Generate();
    return folder + CTavrinString("tavrin-usd-import-") + uuid.ToString();
}

bool WriteJson(const std::string& path, const CTavrinImportRecord& record, const CTavrinSequence* sequence)
{
    std::ofstream stream(path, std::ios::binary | std::ios::trunc);
    if (!stream)
        return false;
    WriteImportRecordJson(record, SequenceJsonWriter(sequence), stream);
    stream << '\n';
    return static_cast<bool>(stream.flush());
}

} // namespace

int main(int argc, char** argv)
{
    CommandLine commandLine;
    std::string error;
    if (!ParseCommandLine(argc, argv, commandLine, error)) {
        std::fprintf(stderr, "tavrin-usd-import: %s\n%s", error.c_str(), usageText);
        return 2;
    }
    if (commandLine.help) {
        std::fputs(usageText, stdout);
        return 0;
    }
    const std::string file = commandLine.file.empty() ? std::string(TAVRIN_SAMPLE_SCENE) : commandLine.file;
    const CTavrinString folder =
        commandLine.folder.empty() ? FreshTextureFolder() : CTavrinString(commandLine.folder);

    PluginHost plugin;
    const std::string pluginPath = commandLine.pluginPath.empty() ? std::string(TAVRIN_PLUGIN_PATH) : commandLine.pluginPath;
    if (!plugin.Load(pluginPath, error)) {
        std::fprintf(stderr, "tavrin-usd-import: %s\n", error.c_str());
        return 1;
    }

    CTavrinImportRecord record;
    record.source = CTavrinString(file);
    ProgressDisplay display(stdout, isatty(fileno(stdout)) != 0);
    CTavrinImportRequest request;
    request.filePath = CTavrinString(file);
    request.folder = folder;
    request.options = commandLine.options;
    request.progressCallback = [&](CTavrinString message, int value) {
        if (!commandLine.quiet)
            display.Report(message.toStdString(), value);
        record.progress.emplace_back(std::move(message), value);
    };
    const std::unique_ptr<CTavrinDocument> document(plugin.Importer().Import(request));
    display.Finish();
    record.document = document.get();
    const CTavrinSequence* sequence = plugin.LastImportedSequence();

    if (!commandLine.jsonPath.empty() && !WriteJson(commandLine.jsonPath, record, sequence)) {
        std::fprintf(stderr, "tavrin-usd-import: cannot write %s\n", commandLine.jsonPath.c_str());
        return 1;
    }
    if (!document) {
        std::fprintf(stderr, "tavrin-usd-import: %s could not be imported\n", file.c_str());
        return 1;
    }
    if (!commandLine.quiet) {
        std::printf("%s\n%stextures:   %s\n", file.c_str(),
                    FormatSummary(SummarizeDocument(*document, sequence)).c_str(),
                    folder.toStdString().c_str());
    }
    return 0;
}
