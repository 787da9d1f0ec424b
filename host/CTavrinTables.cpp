#include "host/CTavrinTables.h"

#include <algorithm>
#include <functional>

#include "host/CTavrinDocument.h"

namespace Tavrin {

namespace {

template <class T>
T* CreateIn(CTavrinDocument* document)
{
    return document ? document->Adopt(std::make_unique<T>()) : nullptr;
}

template <class Vector>
bool InRange(const Vector& vector, std::int64_t index)
{
    return index >= 0 && static_cast<std::uint64_t>(index) < vector.size();
}

bool EntryBefore(const CTavrinRigGeometryTable::Entry& a, const CTavrinRigGeometryTable::Entry& b)
{
    if (a.vertex != b.vertex)
        return a.vertex < b.vertex;
    return std::less<CTavrinSkeletonJoint*>()(a.joint, b.joint);
}

} // namespace

void CTavrin3DVectorsTable::AddVertex(double x, double y, double z)
{
    m_vectors.emplace_back(x, y, z);
}

void CTavrin3DVectorsTable::ReplaceBasicTable(const CTavrinBasic3DVectorsTable* table)
{
    if (table == m_lentTable)
        return;
    m_lentTable = table;
    ++m_shownTableRevision;
}

CTavrin3DVertex* CTavrin3DVectorsTable::GetVertex(std::int64_t index)
{
    return InRange(m_vectors, index) ? &m_vectors[index] : nullptr;
}

bool CTavrin3DVectorsTable::SetVertex(std::int64_t index, const CTavrin3DVertex& vertex)
{
    if (!InRange(m_vectors, index))
        return false;
    m_vectors[index] = vertex;
    return true;
}

CTavrinVerticiesTable* CTavrinVerticiesTable::Create(CTavrinDocument* document, bool)
{
    return CreateIn<CTavrinVerticiesTable>(document);
}

CTavrinVerticiesNormalsTable* CTavrinVerticiesNormalsTable::Create(CTavrinDocument* document, bool)
{
    return CreateIn<CTavrinVerticiesNormalsTable>(document);
}

CTavrinTextureCoordinatesTable* CTavrinTextureCoordinatesTable::Create(CTavrinDocument* document, bool)
{
    return CreateIn<CTavrinTextureCoordinatesTable>(document);
}

CTavrinTextureCoordinate* CTavrinTextureCoordinatesTable::GetCoordinate(std::int64_t index)
{
    return InRange(m_coordinates, index) ? &m_coordinates[index] : nullptr;
}

bool CTavrinTextureCoordinatesTable::SetCoordinate(std::int64_t index, double u, double v)
{
    if (!InRange(m_coordinates, index))
        return false;
    m_coordinates[index].Set(u, v);
    return true;
}

CTavrinPolygonsTable* CTavrinPolygonsTable::Create(CTavrinDocument* document)
{
    return CreateIn<CTavrinPolygonsTable>(document);
}

CTavrinRigGeometryTable* CTavrinRigGeometryTable::Create(CTavrinDocument* document)
{
    return CreateIn<CTavrinRigGeometryTable>(document);
}

void CTavrinRigGeometryTable::SetSkeletonJointData(CTavrinSkeletonJoint* joint, unsigned int vertex, double weight)
{
    const Entry entry{vertex, joint, weight};
    if (m_settled && !m_entries.empty() && !EntryBefore(m_entries.back(), entry))
        m_settled = false;
    m_entries.push_back(entry);
}

void CTavrinRigGeometryTable::Settle() const
{
    if (m_settled)
        return;
    // Stable, so that of two entries for one pair the later one is last.
    std::stable_sort(m_entries.begin(), m_entries.end(), EntryBefore);
    std::vector<Entry> folded;
    folded.reserve(m_entries.size());
    for (const Entry& entry : m_entries) {
        if (!folded.empty() && folded.back().vertex == entry.vertex && folded.back().joint == entry.joint)
            folded.back().weight = entry.weight;
        else
            folded.push_back(entry);
    }
    m_entries.swap(folded);
    m_settled = true;
}

const std::vector<CTavrinRigGeometryTable::Entry>& CTavrinRigGeometryTable::Entries() const
{
    Settle();
    return m_entries;
}

std::map<CTavrinSkeletonJoint*, double> CTavrinRigGeometryTable::GetSkeletonJointWeight(unsigned int vertex) const
{
    Settle();
    std::map<CTavrinSkeletonJoint*, double> weights;
    auto first = std::lower_bound(m_entries.begin(), m_entries.end(), vertex,
                                  [](const Entry& entry, unsigned int v) { return entry.vertex < v; });
    for (; first != m_entries.end() && first->vertex == vertex; ++first)
        weights[first->joint] = first->weight;
    return weights;
}

} // namespace Tavrin
