#include "MeshScene.h"

#include <gtest/gtest.h>

#include "usdcore/sdf/layer.h"

PXR_NAMESPACE_USING_DIRECTIVE

namespace MeshTest {

MeshScene::MeshScene(const std::string& usdaBody) : m_document(Tavrin::CTavrinDocument::Create(true))
{
    const SdfLayerRefPtr layer = SdfLayer::OpenFromString("#usda 1.0\n" + usdaBody, "mesh-test.usda");
    EXPECT_TRUE(layer) << "the test scene does not parse";
    if (layer)
        m_handler.stage = UsdStage::Open(layer);
    m_handler.document = m_document.get();
}

Tavrin::CTavrin3DObject* MeshScene::ConvertGeometry(const std::string& path)
{
    Tavrin::CTavrin3DObject* object = Tavrin::CTavrin3DObject::Create(m_document.get());
    Tavrin::CTavrinGeometry* geometry = Tavrin::CTavrinGeometry::Create(m_document.get());
    if (!m_handler.stage) {
        ADD_FAILURE() << "no stage";
        return object;
    }
    const UsdGeomMesh mesh = UsdGeomMesh::Get(m_handler.stage, SdfPath(path));
    EXPECT_TRUE(mesh) << "no mesh at " << path;
    m_handler.ReadMeshGeometry(mesh, geometry, object);
    object->SetGeometry(geometry);
    return object;
}

namespace {

std::vector<Vector3> VectorsOf(const Tavrin::CTavrin3DVectorsTable* table)
{
    std::vector<Vector3> vectors;
    if (table) {
        for (const Tavrin::CTavrin3DVertex& vector : table->Vectors())
            vectors.push_back({vector.X(), vector.Y(), vector.Z()});
    }
    return vectors;
}

} // namespace

std::vector<Vector3> Vertices(const Tavrin::CTavrin3DObject* object)
{
    return VectorsOf(object->Geometry() ? object->Geometry()->VerticiesTable() : nullptr);
}

std::vector<Vector3> Normals(const Tavrin::CTavrin3DObject* object)
{
    return VectorsOf(object->Geometry() ? object->Geometry()->VerticiesNormalsTable() : nullptr);
}

std::vector<Coordinate> Coordinates(const Tavrin::CTavrin3DObject* object)
{
    std::vector<Coordinate> coordinates;
    if (const Tavrin::CTavrinTextureCoordinatesTable* table = object->TextureCoordinatesTable()) {
        for (const Tavrin::CTavrinTextureCoordinate& coordinate : table->Coordinates())
            coordinates.push_back({coordinate.U(), coordinate.V()});
    }
    return coordinates;
}

std::vector<Triangle> Triangles(const Tavrin::CTavrin3DObject* object)
{
    std::vector<Triangle> triangles;
    if (object->Geometry() && object->Geometry()->PolygonsTable()) {
        for (const std::array<int, 3>& triangle : object->Geometry()->PolygonsTable()->Triangles())
            triangles.push_back(triangle);
    }
    return triangles;
}

} // namespace MeshTest
