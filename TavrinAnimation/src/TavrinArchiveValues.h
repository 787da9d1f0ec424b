#pragma once
// Archive records of the value types that the animation model stores and
// the host archive has no record of its own for.

#include "host/CTavrinApplicationServices.h"
#include "host/CTavrinArchive.h"
#include "host/CTavrinMatrix.h"
#include "host/CTavrinSmallValues.h"
#include "host/CTavrinTexture.h"

namespace Tavrin {

// The 16 values row by row.
bool ReadWriteMatrix(CTavrinArchiveBase& archive, CTavrinMatrix& matrix);
// The full file name; a read name gets the system's separators.
bool ReadWriteTexture(CTavrinArchiveBase& archive, CTavrinTexture& texture);
// X, Y, Z.
bool ReadWriteNormal(CTavrinArchiveBase& archive, CTavrinNormal& normal);

// A copy of source made by the application's archivable factory (or the
// model's own); null when the factory makes nothing of source's kind.
template <class T>
T* CreateArchivableCopyOf(const T& source) {
    CTavrinArchivable* copy = CTavrinArchivableFactory::getInstance()->CreateArchivableCopy(&source);
    if (auto* typed = dynamic_cast<T*>(copy))
        return typed;
    delete copy;
    return nullptr;
}

} // namespace Tavrin
