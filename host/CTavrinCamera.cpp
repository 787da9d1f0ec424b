#include "host/CTavrinCamera.h"

#include "host/CTavrinDocument.h"

#include <memory>

namespace Tavrin {

CTavrinCamera* CTavrinCamera::Create(CTavrinDocument* document) {
    return document ? document->Adopt(std::make_unique<CTavrinCamera>()) : nullptr;
}

} // namespace Tavrin
