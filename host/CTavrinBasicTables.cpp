#include "host/CTavrinBasicTables.h"

#include "host/CTavrinDocument.h"
#include "host/CTavrinGeometry.h"

namespace Tavrin {

bool CTavrinBasic3DVectorsTable::WriteIntoArchive(CTavrinArchiveBase* archive) {
    int count = GetCount();
    if (!archive->ReadWrite(count))
        return false;
    for (CTavrin3DVertex& vector : m_vectors) {
        if (!vector.ArchiveReadWrite(*archive))
            return false;
    }
    return true;
}

bool CTavrinBasic3DVectorsTable::ReadFromArchive(CTavrinArchiveBase* archive) {
    m_vectors.clear();
    int count = 0;
    if (!archive->ReadWrite(count) || count < 0)
        return false;
    for (int i = 0; i < count; ++i) {
        CTavrin3DVertex vector;
        if (!vector.ArchiveReadWrite(*archive))
            return false;
        m_vectors.push_back(vector);
    }
    return true;
}

std::vector<CTavrinGeometry*> CTavrin3DVectorsTable::ListGeometriesReferencingThisTable() const {
    std::vector<CTavrinGeometry*> geometries;
    if (!Document())
        return geometries;
    for (int serial = 0; serial < Document()->EntityCount(); ++serial) {
        auto* geometry = dynamic_cast<CTavrinGeometry*>(Document()->EntityBySerial(serial));
        if (geometry && (static_cast<const CTavrin3DVectorsTable*>(geometry->VerticiesTable()) == this ||
                         static_cast<const CTavrin3DVectorsTable*>(geometry->VerticiesNormalsTable()) == this))
            geometries.push_back(geometry);
    }
    return geometries;
}

} // namespace Tavrin
