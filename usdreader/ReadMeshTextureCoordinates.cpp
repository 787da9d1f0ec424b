#include "host/CTavrinTables.h"
#include "usdreader/MeshValues.h"

PXR_NAMESPACE_USING_DIRECTIVE

namespace Tavrin {

// "st", "st1", "st_map" and also "stretch": the prefix alone decides, in the
// order the primvars are listed.
TfToken FindStPrimvarName(const UsdGeomMesh& mesh)
{
    for (const UsdGeomPrimvar& primvar : UsdGeomPrimvarsAPI(mesh.GetPrim()).GetPrimvars()) {
        const TfToken name = primvar.GetPrimvarName();
        if (name.GetString().compare(0, 2, "st") == 0)
            return name;
    }
    return TfToken();
}

// Coordinates reach the host as authored: no V flip, offset or scale. An
// indexed primvar is expanded before a face-varying one is triangulated.
void ReadMeshTextureCoordinates(const UsdGeomMesh& mesh, const TfToken& primvarName,
                                const HdMeshUtil& meshUtil, CTavrinDocument* document,
                                CTavrinMeshValues* values)
{
    const UsdGeomPrimvar primvar = UsdGeomPrimvarsAPI(mesh.GetPrim()).GetPrimvar(primvarName);
    if (!primvar)
        return;
    const TfToken interpolation = primvar.GetInterpolation();
    VtVec2fArray coordinates;
    if (!primvar.ComputeFlattened(&coordinates, FirstSampleTime(primvar)))
        return;
    if (interpolation == UsdGeomTokens->faceVarying) {
        values->coordinatesFaceVarying = true;
        if (!TriangulateFaceVarying(meshUtil, coordinates, HdTypeFloatVec2, values->triangles.size(),
                                    &values->coordinates))
            return;
    } else {
        values->coordinates = std::move(coordinates);
    }
    values->coordinatesTable = CTavrinTextureCoordinatesTable::Create(document, true);
}

// One (0, 0) per point first, so that points no triangle names, or that
// lie beyond the coordinates, keep a coordinate of their own.
void WriteVertexCoordinates(const CTavrinMeshValues& values)
{
    if (!values.coordinatesTable || values.coordinates.empty() || values.coordinatesFaceVarying)
        return;
    for (std::size_t point = 0; point < values.pointCount; ++point)
        values.coordinatesTable->AddCoordinate(0.0, 0.0);
    std::vector<bool> written(values.pointCount, false);
    for (const GfVec3i& triangle : values.triangles) {
        for (int k = 0; k < 3; ++k) {
            const auto vertex = static_cast<std::size_t>(triangle[k]);
            if (written[vertex] || vertex >= values.coordinates.size())
                continue;
            written[vertex] = true;
            const GfVec2f& coordinate = values.coordinates[vertex];
            values.coordinatesTable->SetCoordinate(static_cast<std::int64_t>(vertex), coordinate[0],
                                                   coordinate[1]);
        }
    }
}

} // namespace Tavrin
