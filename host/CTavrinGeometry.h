#pragma once

#include "host/CTavrinSceneNode.h"
#include "host/CTavrinTables.h"
#include "host/CTavrinMorphing.h"

namespace Tavrin {

class CTavrinMaterial;

// The tables of one mesh. A table never attached stays null.
class CTavrinGeometry : public CTavrinEntity {
public:
    static CTavrinGeometry* Create(CTavrinDocument* document);
    enumEntityType EntityType() const override { return ENTITY_GEOMETRY; }

    void SetVerticiesTable(CTavrinVerticiesTable* table) { m_vertices = table; }
    void SetVerticiesNormalsTable(CTavrinVerticiesNormalsTable* table) { m_normals = table; }
    void SetPolygonsTable(CTavrinPolygonsTable* table) { m_polygons = table; }
    void SetRigGeometryTable(CTavrinRigGeometryTable* table) { m_rig = table; }

    CTavrinVerticiesTable* VerticiesTable() const { return m_vertices; }
    CTavrinVerticiesNormalsTable* VerticiesNormalsTable() const { return m_normals; }
    CTavrinPolygonsTable* PolygonsTable() const { return m_polygons; }
    CTavrinRigGeometryTable* RigGeometryTable() const { return m_rig; }

private:
    CTavrinVerticiesTable* m_vertices = nullptr;
    CTavrinVerticiesNormalsTable* m_normals = nullptr;
    CTavrinPolygonsTable* m_polygons = nullptr;
    CTavrinRigGeometryTable* m_rig = nullptr;
};

// A scene node that shows a geometry with a material; texture coordinates
// hang on the object, one per vertex of its geometry.
class CTavrin3DObject : public CTavrinSceneNode {
public:
    static CTavrin3DObject* Create(CTavrinDocument* document);
    enumEntityType EntityType() const override { return ENTITY_3D_OBJECT; }

    void SetGeometry(const CTavrinGeometry* geometry) { m_geometry = geometry; }
    void SetTextureCoordinatesTable(CTavrinTextureCoordinatesTable* table) { m_textureCoordinates = table; }
    void SetMaterial(CTavrinMaterial* material) { m_material = material; }

    const CTavrinGeometry* Geometry() const { return m_geometry; }
    CTavrinTextureCoordinatesTable* TextureCoordinatesTable() const { return m_textureCoordinates; }
    CTavrinMaterial* Material() const { return m_material; }
    CTavrinMorphingTable* MorphingTable() { return &m_morphingTable; }
    bool HasMorphingGeometry() const { return !m_morphingTable.ListAllMorphGeometries().empty(); }

private:
    const CTavrinGeometry* m_geometry = nullptr;
    CTavrinTextureCoordinatesTable* m_textureCoordinates = nullptr;
    CTavrinMaterial* m_material = nullptr;
    CTavrinMorphingTable m_morphingTable;
};

} // namespace Tavrin
