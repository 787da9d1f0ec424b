#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <vector>

#include "host/CTavrin3DVertex.h"
#include "host/CTavrinEntity.h"
#include "host/CTavrinSmallValues.h"

namespace Tavrin {

class CTavrinBasic3DVectorsTable;
class CTavrinDocument;
class CTavrinGeometry;
class CTavrinSkeletonJoint;

// Tables hold millions of entries: each keeps its entries in one contiguous
// vector. Indices are 64-bit; an index outside the table gives null.
class CTavrin3DVectorsTable : public CTavrinEntity {
public:
    virtual void AddVertex(double x, double y, double z);
    virtual CTavrin3DVertex* GetVertex(std::int64_t index);
    virtual int GetCount() const { return static_cast<int>(m_vectors.size()); }
    // False for an index outside the table.
    virtual bool SetVertex(std::int64_t index, const CTavrin3DVertex& vertex);

    const std::vector<CTavrin3DVertex>& Vectors() const { return m_vectors; }
    void Reserve(std::size_t count) { m_vectors.reserve(count); }

    // A table lent by an animation, shown instead of the table's own vectors
    // until it is taken back with null; the table's own vectors stay as they
    // are. The lender keeps ownership and takes it back before it goes.
    void ReferenceBasicTable(const CTavrinBasic3DVectorsTable* table) { m_lentTable = table; }
    // The same, counted as a change of what the table shows.
    void ReplaceBasicTable(const CTavrinBasic3DVectorsTable* table);
    const CTavrinBasic3DVectorsTable* LentBasicTable() const { return m_lentTable; }
    // The geometries of the document that use this table for their
    // vertices or their normals.
    std::vector<CTavrinGeometry*> ListGeometriesReferencingThisTable() const;
    // How many times ReplaceBasicTable changed what the table shows.
    int ShownTableRevision() const { return m_shownTableRevision; }

private:
    std::vector<CTavrin3DVertex> m_vectors;
    const CTavrinBasic3DVectorsTable* m_lentTable = nullptr;
    int m_shownTableRevision = 0;
};

class CTavrinVerticiesTable : public CTavrin3DVectorsTable {
public:
    static CTavrinVerticiesTable* Create(CTavrinDocument* document, bool ownedByDocument);
    enumEntityType EntityType() const override { return ENTITY_VERTICIES_TABLE; }
};

class CTavrinVerticiesNormalsTable : public CTavrin3DVectorsTable {
public:
    static CTavrinVerticiesNormalsTable* Create(CTavrinDocument* document, bool ownedByDocument);
    enumEntityType EntityType() const override { return ENTITY_VERTICIES_NORMALS_TABLE; }
};

class CTavrinTextureCoordinatesTable : public CTavrinEntity {
public:
    static CTavrinTextureCoordinatesTable* Create(CTavrinDocument* document, bool ownedByDocument);
    enumEntityType EntityType() const override { return ENTITY_TEXTURE_COORDINATES_TABLE; }

    virtual void AddCoordinate(double u, double v) { m_coordinates.emplace_back(u, v); }
    virtual CTavrinTextureCoordinate* GetCoordinate(std::int64_t index);
    virtual bool SetCoordinate(std::int64_t index, double u, double v);
    virtual int GetCount() const { return static_cast<int>(m_coordinates.size()); }

    const std::vector<CTavrinTextureCoordinate>& Coordinates() const { return m_coordinates; }

private:
    std::vector<CTavrinTextureCoordinate> m_coordinates;
};

class CTavrinPolygonsTable : public CTavrinEntity {
public:
    static CTavrinPolygonsTable* Create(CTavrinDocument* document);
    enumEntityType EntityType() const override { return ENTITY_POLYGONS_TABLE; }

    virtual void AddTriangle(int a, int b, int c) { m_triangles.push_back({a, b, c}); }
    virtual int GetCount() const { return static_cast<int>(m_triangles.size()); }

    const std::vector<std::array<int, 3>>& Triangles() const { return m_triangles; }

private:
    std::vector<std::array<int, 3>> m_triangles;
};

// Skin weights as (vertex, joint, weight) entries. A second weight for the
// same joint and vertex replaces the first.
class CTavrinRigGeometryTable : public CTavrinEntity {
public:
    struct Entry {
        unsigned int vertex;
        CTavrinSkeletonJoint* joint;
        double weight;
    };

    static CTavrinRigGeometryTable* Create(CTavrinDocument* document);
    enumEntityType EntityType() const override { return ENTITY_RIG_GEOMETRY_TABLE; }

    virtual void SetSkeletonJointData(CTavrinSkeletonJoint* joint, unsigned int vertex, double weight);
    // The vertex's weights by joint; empty for a vertex without weights.
    virtual std::map<CTavrinSkeletonJoint*, double> GetSkeletonJointWeight(unsigned int vertex) const;

    // Every entry once, ordered by vertex, then by joint address.
    const std::vector<Entry>& Entries() const;

private:
    // Entries arrive mostly vertex by vertex; sorting and folding repeated
    // pairs happens once, on the first read after a write.
    void Settle() const;

    mutable std::vector<Entry> m_entries;
    mutable bool m_settled = true;
};

} // namespace Tavrin
