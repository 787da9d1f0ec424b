#pragma once

#include <array>
#include <climits>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "usdreader/UsdApi.h"

namespace Tavrin {

class CTavrin3DObject;
class CTavrinDocument;
class CTavrinGeometry;
class CTavrinRigGeometryTable;
class CTavrinTextureCoordinatesTable;
class CTavrinVerticiesNormalsTable;
class CTavrinVerticiesTable;

// The reader state's axis permutation and signs, as points and normals take
// them: each component formed in single precision, then widened.
struct CTavrinAxisConversion {
    const std::array<std::int32_t, 4>& order;
    const std::array<std::int32_t, 4>& sign;

    std::array<double, 3> Convert(const float* value) const;
};

// What the geometry converter has gathered of one mesh between triangulation
// and the host tables. Face-varying arrays hold one value per triangle
// corner, aligned with `triangles`.
struct CTavrinMeshValues {
    std::size_t pointCount = 0;
    PXR_NS::VtVec3iArray triangles;

    // Per vertex, or per corner when normalsFaceVarying; a face-varying read
    // whose triangulation failed keeps the flag and no values.
    bool normalsFaceVarying = false;
    PXR_NS::VtVec3fArray normals;

    bool coordinatesFaceVarying = false;
    PXR_NS::VtVec2fArray coordinates;
    // Made once coordinates were read; null otherwise.
    CTavrinTextureCoordinatesTable* coordinatesTable = nullptr;
};

// The time a group of attributes is read at: the leading attribute's (or
// primvar's) earliest sample, or 0.0 without samples.
template <class Sampled>
PXR_NS::UsdTimeCode FirstSampleTime(const Sampled& attributeOrPrimvar)
{
    std::vector<double> times;
    if (!attributeOrPrimvar.GetTimeSamples(&times) || times.empty())
        return PXR_NS::UsdTimeCode(0.0);
    return PXR_NS::UsdTimeCode(times.front());
}

// Face-varying values as three per triangle, in the triangles' fan and
// winding; false when the utility refuses them or gives another count.
template <class Value>
bool TriangulateFaceVarying(const PXR_NS::HdMeshUtil& meshUtil, const PXR_NS::VtArray<Value>& source,
                            PXR_NS::HdType type, std::size_t triangleCount,
                            PXR_NS::VtArray<Value>* triangulated)
{
    if (source.size() > static_cast<std::size_t>(INT_MAX))
        return false;
    PXR_NS::VtValue result;
    if (!meshUtil.ComputeTriangulatedFaceVaryingPrimvar(source.cdata(), static_cast<int>(source.size()),
                                                        type, &result) ||
        !result.IsHolding<PXR_NS::VtArray<Value>>())
        return false;
    const auto& values = result.UncheckedGet<PXR_NS::VtArray<Value>>();
    if (values.size() != triangleCount * 3)
        return false;
    *triangulated = values;
    return true;
}

// Reads `normals` (triangulated when face-varying) into values.
void ReadMeshNormals(const PXR_NS::UsdGeomMesh& mesh, const PXR_NS::HdMeshUtil& meshUtil,
                     CTavrinMeshValues* values);

// The name of the mesh's first primvar whose name begins with "st"; empty
// when none does.
PXR_NS::TfToken FindStPrimvarName(const PXR_NS::UsdGeomMesh& mesh);

// Reads the primvar named primvarName as texture coordinates (flattened,
// triangulated when face-varying) into values, and makes the table when
// there are coordinates to hold.
void ReadMeshTextureCoordinates(const PXR_NS::UsdGeomMesh& mesh, const PXR_NS::TfToken& primvarName,
                                const PXR_NS::HdMeshUtil& meshUtil, CTavrinDocument* document,
                                CTavrinMeshValues* values);

// Per-vertex normals and coordinates, each vertex written from the first
// corner that names it.
void WriteVertexNormals(const CTavrinMeshValues& values, const CTavrinAxisConversion& axes,
                        CTavrinVerticiesNormalsTable* normalsTable);
void WriteVertexCoordinates(const CTavrinMeshValues& values);

// Splits vertices whose corners carry different face-varying values, and
// re-points the triangles to the copies.
void SplitFaceVaryingVertices(const CTavrinAxisConversion& axes, CTavrinVerticiesTable* vertexTable,
                              CTavrinVerticiesNormalsTable* normalsTable,
                              CTavrinRigGeometryTable* rigTable, CTavrinMeshValues* values);

// The vertex table of a mesh's points, attached to geometry, and its normals
// table, one zero normal per point, not yet attached.
struct CTavrinPointTables {
    CTavrinVerticiesTable* vertices = nullptr;
    CTavrinVerticiesNormalsTable* normals = nullptr;
};
CTavrinPointTables WritePoints(const PXR_NS::VtVec3fArray& points, const CTavrinAxisConversion& axes,
                               CTavrinDocument* document, CTavrinGeometry* geometry);

// What follows once a mesh's values are read: per-vertex normals and
// coordinates, vertices split for face-varying ones, the normals attached
// to geometry and the coordinates to object, then the triangles as the
// polygons table. rigTable, when not null, gives split copies their weights.
void WriteTriangulatedMesh(const PXR_NS::SdfPath& meshPath, const CTavrinAxisConversion& axes,
                           const CTavrinPointTables& tables, CTavrinRigGeometryTable* rigTable,
                           CTavrinDocument* document, CTavrinGeometry* geometry, CTavrin3DObject* object,
                           CTavrinMeshValues* values);

} // namespace Tavrin
