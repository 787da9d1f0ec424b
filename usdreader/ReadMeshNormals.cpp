#include "host/CTavrinTables.h"
#include "usdreader/MeshValues.h"

PXR_NAMESPACE_USING_DIRECTIVE

namespace Tavrin {

// Only the `normals` attribute: a primvars:normals primvar is not consulted.
// Every interpolation but face-varying is taken as one normal per point.
void ReadMeshNormals(const UsdGeomMesh& mesh, const HdMeshUtil& meshUtil, CTavrinMeshValues* values)
{
    const TfToken interpolation = mesh.GetNormalsInterpolation();
    const UsdAttribute attribute = mesh.GetNormalsAttr();
    VtVec3fArray normals;
    if (!attribute.Get(&normals, FirstSampleTime(attribute)))
        return;
    if (interpolation == UsdGeomTokens->faceVarying) {
        values->normalsFaceVarying = true;
        TriangulateFaceVarying(meshUtil, normals, HdTypeFloatVec3, values->triangles.size(),
                               &values->normals);
    } else {
        values->normals = std::move(normals);
    }
}

// A point whose index lies beyond the normals (a uniform or constant array
// shorter than the points) keeps its zero normal.
void WriteVertexNormals(const CTavrinMeshValues& values, const CTavrinAxisConversion& axes,
                        CTavrinVerticiesNormalsTable* normalsTable)
{
    if (values.normals.empty() || values.normalsFaceVarying)
        return;
    std::vector<bool> written(values.pointCount, false);
    for (const GfVec3i& triangle : values.triangles) {
        for (int k = 0; k < 3; ++k) {
            const auto vertex = static_cast<std::size_t>(triangle[k]);
            if (written[vertex] || vertex >= values.normals.size())
                continue;
            written[vertex] = true;
            const std::array<double, 3> normal = axes.Convert(values.normals[vertex].data());
            normalsTable->SetVertex(static_cast<std::int64_t>(vertex),
                                    CTavrin3DVertex(normal[0], normal[1], normal[2]));
        }
    }
}

} // namespace Tavrin
