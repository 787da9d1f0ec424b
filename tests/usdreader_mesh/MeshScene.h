#pragma once

#include <array>
#include <memory>
#include <string>
#include <vector>

#include "host/CTavrinDocument.h"
#include "host/CTavrinGeometry.h"
#include "host/CTavrinTables.h"
#include "usdreader/CTavrinUSDReaderHandler.h"

namespace MeshTest {

using Vector3 = std::array<double, 3>;
using Coordinate = std::array<double, 2>;
using Triangle = std::array<int, 3>;

// A stage read from usda text and a reader state over it, ready to convert
// the meshes of the text one by one.
class MeshScene {
public:
    explicit MeshScene(const std::string& usdaBody);

    Tavrin::CTavrinUSDReaderHandler& Handler() { return m_handler; }
    Tavrin::CTavrinDocument* Document() const { return m_document.get(); }

    // ReadMeshGeometry on the mesh at path into a fresh geometry, attached to
    // a fresh 3D object as ReadMeshObject would.
    Tavrin::CTavrin3DObject* ConvertGeometry(const std::string& path);

private:
    std::unique_ptr<Tavrin::CTavrinDocument> m_document;
    Tavrin::CTavrinUSDReaderHandler m_handler;
};

// The host tables of a converted object as plain values; a missing table is
// an empty list.
std::vector<Vector3> Vertices(const Tavrin::CTavrin3DObject* object);
std::vector<Vector3> Normals(const Tavrin::CTavrin3DObject* object);
std::vector<Coordinate> Coordinates(const Tavrin::CTavrin3DObject* object);
std::vector<Triangle> Triangles(const Tavrin::CTavrin3DObject* object);

} // namespace MeshTest
