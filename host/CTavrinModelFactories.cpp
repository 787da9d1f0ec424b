// The model's own archivable factory and tables creator: what the animation
// model's key frames get when the application installed none.

#include "host/CTavrinApplicationServices.h"
#include "host/CTavrinBasicTables.h"
#include "host/CTavrinLight.h"
#include "host/CTavrinMaterial.h"

namespace Tavrin {

CTavrinArchivable* CTavrinArchivableFactory::CreateArchivableCopy(const CTavrinArchivable* source) const
{
    if (const auto* material = dynamic_cast<const CTavrinBasicMaterial*>(source))
        return material->CreateCopy();
    if (const auto* light = dynamic_cast<const CTavrinBasicLight*>(source))
        return light->CreateCopy();
    if (const auto* table = dynamic_cast<const CTavrinBasic3DVectorsTable*>(source))
        return new CTavrinBasic3DVectorsTable(*table);
    return nullptr;
}

CTavrinBasic3DVectorsTable* CTavrinTablesCreator::CreateBasic3DVectorsTable() const
{
    return CTavrinBasic3DVectorsTable::Create();
}

} // namespace Tavrin
