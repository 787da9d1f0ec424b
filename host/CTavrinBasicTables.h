#pragma once
// A table of 3D vectors as a value outside any document: what vertices key
// frames keep one of per frame, and lend to a document's table while they
// are applied.

#include "host/CTavrin3DVertex.h"

#include <vector>

namespace Tavrin {

class CTavrinBasic3DVectorsTable : public CTavrinArchivable {
public:
    CTavrinBasic3DVectorsTable() = default;
    explicit CTavrinBasic3DVectorsTable(std::vector<CTavrin3DVertex> vectors) : m_vectors(std::move(vectors)) {}

    // A new empty table, owned by the caller.
    static CTavrinBasic3DVectorsTable* Create() { return new CTavrinBasic3DVectorsTable(); }

    const std::vector<CTavrin3DVertex>& Vectors() const { return m_vectors; }
    int GetCount() const { return static_cast<int>(m_vectors.size()); }
    void AddVertex(double x, double y, double z) { m_vectors.emplace_back(x, y, z); }

    // The count (int32), then x, y, z of each vector. A read replaces the
    // contents; the count is not trusted, vectors are taken as they arrive.
    bool ReadFromArchive(CTavrinArchiveBase* archive) override;
    bool WriteIntoArchive(CTavrinArchiveBase* archive) override;

private:
    std::vector<CTavrin3DVertex> m_vectors;
};

} // namespace Tavrin
