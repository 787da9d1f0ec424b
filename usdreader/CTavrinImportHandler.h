#pragma once

#include <functional>

#include "host/CTavrinString.h"

// What the application hears of an import: a message and a value.
using CTavrinProgressCallback = std::function<void(Tavrin::CTavrinString message, int value)>;

// Holds the progress callback of one import; the reader state derives from it.
class CTavrinImportHandler {
public:
    virtual ~CTavrinImportHandler() = default;
    // A copy of callback is kept; an empty one empties the store.
    virtual void SetProgressCallback(CTavrinProgressCallback callback);

protected:
    // Calls the callback when there is one; without it nothing is reported.
    void ReportProgress(const Tavrin::CTavrinString& message, int value) const;

    CTavrinProgressCallback progressCallback;
};
