#include "extension/CTavrinUSDImporter.h"

#include "usdreader/CTavrinUSDReaderHandler.h"

Tavrin::CTavrinDocument* CTavrinUSDImporter::Import(const CTavrinImportRequest& request)
{
    // One reader state per import, so nothing carries over between imports.
    Tavrin::CTavrinUSDReaderHandler handler;
    handler.SetProgressCallback(request.progressCallback);
    handler.options = request.options;
    return handler.ReadUSDFile(request.filePath, request.folder);
}

void CTavrinUSDImporter::GetExtensions(std::vector<Tavrin::CTavrinString>& extensions)
{
    extensions.emplace_back("usdz");
}

Tavrin::CTavrinString CTavrinUSDImporter::GetFormatName()
{
    return "USDZ";
}

CTavrinImporterFlags CTavrinUSDImporter::GetFlags()
{
    CTavrinImporterFlags flags;
    flags.flags[0] = true;
    return flags;
}
