#include <algorithm>

#include "host/CTavrinGeometry.h"
#include "host/CTavrinTables.h"
#include "usdreader/CTavrinUSDReaderHandler.h"
#include "usdreader/MeshValues.h"

PXR_NAMESPACE_USING_DIRECTIVE

namespace Tavrin {

namespace {

template <class Value>
void KeepTriangleValues(const std::vector<bool>& keep, PXR_NS::VtArray<Value>* values)
{
    if (values->size() != keep.size() * 3)
        return;
    std::size_t kept = 0;
    for (std::size_t triangle = 0; triangle < keep.size(); ++triangle) {
        if (!keep[triangle])
            continue;
        for (std::size_t k = 0; k < 3; ++k)
            (*values)[kept * 3 + k] = (*values)[triangle * 3 + k];
        ++kept;
    }
    values->resize(kept * 3);
}

// A triangle naming a vertex outside the points would index past every
// per-vertex table: it is dropped, with its face-varying values, and the
// rest of the mesh imports as usual.
void DropTrianglesOutsidePoints(const SdfPath& meshPath, CTavrinMeshValues* values)
{
    const auto inside = [values](int vertex) {
        return vertex >= 0 && static_cast<std::size_t>(vertex) < values->pointCount;
    };
    std::vector<bool> keep(values->triangles.size());
    std::size_t kept = 0;
    for (std::size_t t = 0; t < keep.size(); ++t) {
        const GfVec3i& triangle = values->triangles[t];
        keep[t] = inside(triangle[0]) && inside(triangle[1]) && inside(triangle[2]);
        kept += keep[t] ? 1 : 0;
    }
    if (kept == keep.size())
        return;
    TF_WARN("Mesh <%s>: %zu of %zu triangles name vertices outside its %zu points; they are dropped",
            meshPath.GetText(), keep.size() - kept, keep.size(), values->pointCount);
    if (values->normalsFaceVarying)
        KeepTriangleValues(keep, &values->normals);
    if (values->coordinatesFaceVarying)
        KeepTriangleValues(keep, &values->coordinates);
    VtVec3iArray triangles(kept);
    std::size_t next = 0;
    for (std::size_t t = 0; t < keep.size(); ++t) {
        if (keep[t])
            triangles[next++] = values->triangles[t];
    }
    values->triangles = std::move(triangles);
}

// Faces whose counts run past the face-vertex indices would triangulate to
// (0, 0, 0) fillers: the faces that fit are kept, in order, and everything
// from the first face that does not fit is dropped. The triangulation then
// never plans more than the indices can give.
void DropFacesPastTheIndices(const SdfPath& meshPath, std::size_t indexCount, VtIntArray* faceVertexCounts)
{
    std::size_t used = 0;
    std::size_t fitting = 0;
    const VtIntArray& counts = *faceVertexCounts;
    for (const int count : counts) {
        const auto needed = static_cast<std::size_t>(std::max(count, 0));
        if (needed > indexCount - used)
            break;
        used += needed;
        ++fitting;
    }
    if (fitting == counts.size())
        return;
    TF_WARN("Mesh <%s>: face %zu of %zu runs past its %zu face-vertex indices; it and the faces after it are dropped",
            meshPath.GetText(), fitting, counts.size(), indexCount);
    faceVertexCounts->resize(fitting);
}

} // namespace

std::array<double, 3> CTavrinAxisConversion::Convert(const float* value) const
{
    std::array<double, 3> converted{};
    for (std::size_t axis = 0; axis < 3; ++axis) {
        const float component = static_cast<float>(sign[axis]) * value[order[axis]];
        converted[axis] = static_cast<double>(component);
    }
    return converted;
}

CTavrinPointTables WritePoints(const VtVec3fArray& points, const CTavrinAxisConversion& axes,
                               CTavrinDocument* document, CTavrinGeometry* geometry)
{
    CTavrinPointTables tables;
    tables.vertices = CTavrinVerticiesTable::Create(document, true);
    tables.normals = CTavrinVerticiesNormalsTable::Create(document, true);
    tables.vertices->Reserve(points.size());
    tables.normals->Reserve(points.size());
    for (const GfVec3f& point : points) {
        const std::array<double, 3> converted = axes.Convert(point.data());
        tables.vertices->AddVertex(converted[0], converted[1], converted[2]);
        tables.normals->AddVertex(0.0, 0.0, 0.0);
    }
    geometry->SetVerticiesTable(tables.vertices);
    return tables;
}

void WriteTriangulatedMesh(const SdfPath& meshPath, const CTavrinAxisConversion& axes,
                           const CTavrinPointTables& tables, CTavrinRigGeometryTable* rigTable,
                           CTavrinDocument* document, CTavrinGeometry* geometry, CTavrin3DObject* object,
                           CTavrinMeshValues* values)
{
    DropTrianglesOutsidePoints(meshPath, values);
    WriteVertexNormals(*values, axes, tables.normals);
    WriteVertexCoordinates(*values);
    SplitFaceVaryingVertices(axes, tables.vertices, tables.normals, rigTable, values);

    geometry->SetVerticiesNormalsTable(tables.normals);
    if (values->coordinatesTable)
        object->SetTextureCoordinatesTable(values->coordinatesTable);

    // Corners follow the axis permutation, so that swapping two axes would
    // also turn the winding.
    CTavrinPolygonsTable* polygonsTable = CTavrinPolygonsTable::Create(document);
    for (const GfVec3i& triangle : values->triangles)
        polygonsTable->AddTriangle(triangle[axes.order[0]], triangle[axes.order[1]], triangle[axes.order[2]]);
    geometry->SetPolygonsTable(polygonsTable);
}

// Points, then skin weights, then topology: the tables fill in that order
// and every read after the points may fail without losing what came before.
void CTavrinUSDReaderHandler::ReadMeshGeometry(const UsdGeomMesh& mesh, CTavrinGeometry* geometry,
                                               CTavrin3DObject* object)
{
    if (!geometry || !object)
        return;
    const CTavrinAxisConversion axes{axisOrder, axisSign};

    const UsdAttribute pointsAttribute = mesh.GetPointsAttr();
    VtVec3fArray points;
    if (!pointsAttribute.Get(&points, FirstSampleTime(pointsAttribute)))
        return;

    CTavrinMeshValues values;
    values.pointCount = points.size();
    const CTavrinPointTables tables = WritePoints(points, axes, document, geometry);

    CTavrinRigGeometryTable* rigTable = ReadSkinWeights(mesh, geometry, object, values.pointCount);

    const UsdAttribute countsAttribute = mesh.GetFaceVertexCountsAttr();
    const UsdTimeCode topologyTime = FirstSampleTime(countsAttribute);
    VtIntArray faceVertexCounts;
    VtIntArray faceVertexIndices;
    if (!countsAttribute.Get(&faceVertexCounts, topologyTime) ||
        !mesh.GetFaceVertexIndicesAttr().Get(&faceVertexIndices, topologyTime))
        return;
    TfToken orientation;
    TfToken scheme;
    mesh.GetOrientationAttr().Get(&orientation, topologyTime);
    mesh.GetSubdivisionSchemeAttr().Get(&scheme, topologyTime);
    DropFacesPastTheIndices(mesh.GetPath(), faceVertexIndices.size(), &faceVertexCounts);

    // The cage as authored: the scheme rides along, nothing is refined.
    const HdMeshTopology topology(scheme, orientation, faceVertexCounts, faceVertexIndices, 0);
    const HdMeshUtil meshUtil(&topology, mesh.GetPath());
    VtIntArray primitiveParams;
    meshUtil.ComputeTriangleIndices(&values.triangles, &primitiveParams);

    ReadMeshNormals(mesh, meshUtil, &values);
    // A name the material gave wins over the search.
    if (stPrimvarName.IsEmpty())
        stPrimvarName = FindStPrimvarName(mesh);
    if (!stPrimvarName.IsEmpty())
        ReadMeshTextureCoordinates(mesh, stPrimvarName, meshUtil, document, &values);

    WriteTriangulatedMesh(mesh.GetPath(), axes, tables, rigTable, document, geometry, object, &values);
}

} // namespace Tavrin
