#pragma once

#include "host/CTavrinString.h"
#include "usdreader/CTavrinImportHandler.h"

// What the application asks of one import: the file, the folder for the
// files the scene refers to (textures are copied there), and where progress
// goes (may be empty).
struct CTavrinImportRequest {
    Tavrin::CTavrinString filePath;
    Tavrin::CTavrinString folder;
    CTavrinProgressCallback progressCallback;
};
