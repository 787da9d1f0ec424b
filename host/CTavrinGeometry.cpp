#include "host/CTavrinGeometry.h"

#include "host/CTavrinDocument.h"

namespace Tavrin {

CTavrinGeometry* CTavrinGeometry::Create(CTavrinDocument* document)
{
    return document ? document->Adopt(std::make_unique<CTavrinGeometry>()) : nullptr;
}

CTavrin3DObject* CTavrin3DObject::Create(CTavrinDocument* document)
{
    return document ? document->Adopt(std::make_unique<CTavrin3DObject>()) : nullptr;
}

} // namespace Tavrin
