#include <map>
#include <unordered_map>

#include "host/CTavrinTables.h"
#include "usdreader/FaceVaryingSplit.h"
#include "usdreader/MeshValues.h"

PXR_NAMESPACE_USING_DIRECTIVE

namespace Tavrin {

namespace {

using JointWeights = std::map<CTavrinSkeletonJoint*, double>;

// A copy carries the weights of the vertex it was split from, which are
// those of the original point at the chain's start. They are all read before
// any is written, so that the rig table is not re-sorted between writes.
void CopySkinWeights(const CTavrinFaceVaryingSplit& split, int vertexCount,
                     CTavrinRigGeometryTable* rigTable)
{
    std::vector<int> originalPoint(split.copies.size());
    std::unordered_map<int, JointWeights> weightsOfPoint;
    for (std::size_t i = 0; i < split.copies.size(); ++i) {
        const int source = split.copies[i].source;
        const int point =
            source < vertexCount ? source : originalPoint[static_cast<std::size_t>(source - vertexCount)];
        originalPoint[i] = point;
        if (weightsOfPoint.find(point) == weightsOfPoint.end())
            weightsOfPoint.emplace(point, rigTable->GetSkeletonJointWeight(static_cast<unsigned>(point)));
    }
    for (std::size_t i = 0; i < split.copies.size(); ++i) {
        const auto copy = static_cast<unsigned>(vertexCount) + static_cast<unsigned>(i);
        for (const auto& [joint, weight] : weightsOfPoint[originalPoint[i]])
            rigTable->SetSkeletonJointData(joint, copy, weight);
    }
}

} // namespace

// Runs when the normals or the coordinates are face-varying. The first corner
// to reach a point writes its values into the point; each other distinct
// value set makes a copy that takes its position (and, for the part that is
// not face-varying, its normal or coordinate) from the vertex it was split
// from.
void SplitFaceVaryingVertices(const CTavrinAxisConversion& axes, CTavrinVerticiesTable* vertexTable,
                              CTavrinVerticiesNormalsTable* normalsTable,
                              CTavrinRigGeometryTable* rigTable, CTavrinMeshValues* values)
{
    CTavrinTextureCoordinatesTable* coordinatesTable = values->coordinatesTable;
    const bool coordinatesSplit = values->coordinatesFaceVarying && coordinatesTable;
    if (!values->normalsFaceVarying && !coordinatesSplit)
        return;
    const int vertexCount = vertexTable->GetCount();
    if (coordinatesSplit) {
        for (int vertex = 0; vertex < vertexCount; ++vertex)
            coordinatesTable->AddCoordinate(0.0, 0.0);
    }

    CTavrinCornerKeys keys;
    if (values->normalsFaceVarying && !values->normals.empty())
        keys.normals = values->normals.cdata()->data();
    if (coordinatesSplit && !values->coordinates.empty())
        keys.coordinates = values->coordinates.cdata()->data();
    const std::size_t cornerCount = values->triangles.size() * 3;
    int* corners = cornerCount ? values->triangles.data()->data() : nullptr;
    const CTavrinFaceVaryingSplit split = SplitFaceVaryingCorners(vertexCount, corners, cornerCount, keys);

    const auto writeNormal = [&](int corner, auto&& write) {
        const std::array<double, 3> normal =
            axes.Convert(keys.normals + static_cast<std::size_t>(corner) * 3);
        write(normal[0], normal[1], normal[2]);
    };
    const float* coordinates = keys.coordinates;
    for (std::size_t vertex = 0; vertex < split.keyCornerOfVertex.size(); ++vertex) {
        const int corner = split.keyCornerOfVertex[vertex];
        if (corner < 0)
            continue;
        if (keys.normals) {
            writeNormal(corner, [&](double x, double y, double z) {
                normalsTable->SetVertex(static_cast<std::int64_t>(vertex), CTavrin3DVertex(x, y, z));
            });
        }
        if (coordinates) {
            const float* uv = coordinates + static_cast<std::size_t>(corner) * 2;
            coordinatesTable->SetCoordinate(static_cast<std::int64_t>(vertex), uv[0], uv[1]);
        }
    }

    const bool copyCoordinates = !coordinates && coordinatesTable && coordinatesTable->GetCount() > 0;
    for (const CTavrinFaceVaryingSplit::Copy& copy : split.copies) {
        const CTavrin3DVertex* position = vertexTable->GetVertex(copy.source);
        vertexTable->AddVertex(position->X(), position->Y(), position->Z());
        if (keys.normals) {
            writeNormal(copy.corner, [&](double x, double y, double z) { normalsTable->AddVertex(x, y, z); });
        } else {
            const CTavrin3DVertex* normal = normalsTable->GetVertex(copy.source);
            normalsTable->AddVertex(normal->X(), normal->Y(), normal->Z());
        }
        if (coordinates) {
            const float* uv = coordinates + static_cast<std::size_t>(copy.corner) * 2;
            coordinatesTable->AddCoordinate(uv[0], uv[1]);
        } else if (copyCoordinates) {
            const CTavrinTextureCoordinate* coordinate = coordinatesTable->GetCoordinate(copy.source);
            coordinatesTable->AddCoordinate(coordinate->U(), coordinate->V());
        }
    }
    if (rigTable)
        CopySkinWeights(split, vertexCount, rigTable);
}

} // namespace Tavrin
