#include "usdreader/CTavrinImportHandler.h"

void CTavrinImportHandler::SetProgressCallback(CTavrinProgressCallback callback)
{
    progressCallback = std::move(callback);
}

void CTavrinImportHandler::ReportProgress(const Tavrin::CTavrinString& message, int value) const
{
    if (progressCallback)
        progressCallback(message, value);
}
