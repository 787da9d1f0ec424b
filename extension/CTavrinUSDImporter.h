#pragma once

#include "extension/CTavrinImporter.h"

// The importer of USD files (.usd, .usda, .usdc, .usdz). It announces the
// package extension only; the application hands it the other USD files too.
class CTavrinUSDImporter : public CTavrinImporter {
public:
    Tavrin::CTavrinDocument* Import(const CTavrinImportRequest& request) override;
    void GetExtensions(std::vector<Tavrin::CTavrinString>& extensions) override;
    Tavrin::CTavrinString GetFormatName() override;
    CTavrinImporterFlags GetFlags() override;
    virtual void NotifyB() {}
};
