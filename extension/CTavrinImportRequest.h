#pragma once

#include "host/CTavrinString.h"
#include "usdreader/CTavrinImportHandler.h"
#include "usdreader/CTavrinImportOptions.h"

// What the application asks of one import: the file, the folder for the
// files the scene refers to (textures are copied there), where progress
// goes (may be empty), and the options. The application builds this struct
// itself: members are only ever added at the end.
struct CTavrinImportRequest {
    Tavrin::CTavrinString filePath;
    Tavrin::CTavrinString folder;
    CTavrinProgressCallback progressCallback;
    CTavrinImportOptions options;
};
