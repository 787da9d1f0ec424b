#include "extension/CTavrinImporter.h"

#include <utility>

CTavrinImporterFlags CTavrinImporter::GetFlags()
{
    return {};
}

CTavrinImporterRecord CTavrinImporter::GetRecord()
{
    return {};
}

void CTavrinImporter::SetItems(std::vector<std::uintptr_t> newItems)
{
    items = std::move(newItems);
}

void CTavrinImporter::SetContext(void* newContext)
{
    context = newContext;
}
