#pragma once

#include "extension/CTavrinImportRequest.h"
#include "extension/CTavrinImporterFlags.h"
#include "extension/CTavrinImporterRecord.h"
#include "host/CTavrinString.h"

#include <cstdint>
#include <vector>

namespace Tavrin {
class CTavrinDocument;
}

// An importer as the application sees it. The application may hand it items
// and a context, which are kept for the application and not read here.
class CTavrinImporter {
public:
    CTavrinImporter() = default;
    CTavrinImporter(const CTavrinImporter&) = delete;
    CTavrinImporter& operator=(const CTavrinImporter&) = delete;
    virtual ~CTavrinImporter() = default;

    virtual void NotifyA() {}
    virtual bool QueryA() { return false; }
    // A new document that the caller owns, or null when the file was not read.
    virtual Tavrin::CTavrinDocument* Import(const CTavrinImportRequest& request) = 0;
    // Appends the importer's file extensions after the entries already there.
    virtual void GetExtensions(std::vector<Tavrin::CTavrinString>& extensions) = 0;
    virtual Tavrin::CTavrinString GetFormatName() = 0;
    virtual CTavrinImporterFlags GetFlags();
    virtual CTavrinImporterRecord GetRecord();
    virtual void SetItems(std::vector<std::uintptr_t> newItems);
    virtual void SetContext(void* newContext);
    virtual bool QueryB() { return false; }

    const std::vector<std::uintptr_t>& Items() const { return items; }
    void* Context() const { return context; }

protected:
    std::vector<std::uintptr_t> items;
    void* context = nullptr;
};
