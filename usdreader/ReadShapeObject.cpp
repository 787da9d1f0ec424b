#include <algorithm>
#include <cmath>
#include <vector>

#include "host/CTavrinGeometry.h"
#include "host/CTavrinSceneNode.h"
#include "host/CTavrinTables.h"
#include "usdreader/CTavrinUSDReaderHandler.h"
#include "usdreader/MeshValues.h"

PXR_NAMESPACE_USING_DIRECTIVE

namespace Tavrin {

namespace {

// The segment counts OpenUSD 24.08's UsdImaging adapters give the
// generators: ten around every round shape, ten from pole to pole of a
// sphere, four from a capsule's pole to its equator.
constexpr size_t kRadialSegments = 10;
constexpr size_t kSphereAxialSegments = 10;
constexpr size_t kCapsuleCapAxialSegments = 4;

// A shape's mesh as imaging draws it, before it reaches the host.
struct CTavrinShapeMesh {
    PxOsdMeshTopology topology;
    // Where the prim has them, turned to its axis.
    VtVec3fArray points;
    // One per face vertex, in the faces' order.
    VtVec2fArray coordinates;
};

// Lengths are read at their earliest sample, as a mesh's points are. One
// the tessellation cannot use (not finite, negative, zero where the shape
// would have no surface, or too small for single precision) skips the
// shape rather than give the host points at infinity or a mesh without
// area.
bool ReadLength(const UsdPrim& prim, const UsdAttribute& attribute, bool zeroAllowed, double* length)
{
    if (!attribute.Get(length, FirstSampleTime(attribute))) {
        TF_WARN("<%s>: %s cannot be read as a double; the shape is skipped", prim.GetPath().GetText(),
                attribute.GetName().GetText());
        return false;
    }
    const float single = static_cast<float>(*length);
    if ((std::isnormal(single) && single > 0.0f) || (zeroAllowed && single == 0.0f && *length >= 0.0))
        return true;
    TF_WARN("<%s>: %s = %g gives the shape no surface; it is skipped", prim.GetPath().GetText(),
            attribute.GetName().GetText(), *length);
    return false;
}

// Imaging builds along Z whatever else the axis says; so does the import,
// with a warning.
TfToken ReadAxis(const UsdPrim& prim, const UsdAttribute& attribute)
{
    TfToken axis;
    attribute.Get(&axis, FirstSampleTime(attribute));
    if (axis == UsdGeomTokens->x || axis == UsdGeomTokens->y || axis == UsdGeomTokens->z)
        return axis;
    TF_WARN("<%s>: axis \"%s\" is none of X, Y and Z; the shape is built along Z", prim.GetPath().GetText(),
            axis.GetText());
    return UsdGeomTokens->z;
}

// The sizes must also fit single precision together (a capsule's length
// adds its radius to half its height).
bool ExtentIsFinite(const UsdPrim& prim, bool computed, const VtVec3fArray& extent)
{
    bool finite = computed && extent.size() == 2;
    for (size_t corner = 0; finite && corner < 2; ++corner) {
        for (size_t axis = 0; axis < 3; ++axis)
            finite = finite && std::isfinite(extent[corner][axis]);
    }
    if (!finite)
        TF_WARN("<%s>: the shape's extent does not fit single precision; it is skipped", prim.GetPath().GetText());
    return finite;
}

// The frame UsdImaging turns a shape built along Z into for its axis: rows
// are where the shape's X, Y and Z go. A cyclic turn of the axes, so that
// faces stay wound outward.
GfMatrix4d AxisFrame(const TfToken& axis)
{
    if (axis == UsdGeomTokens->x)
        return GfMatrix4d(0.0, 1.0, 0.0, 0.0, 0.0, 0.0, 1.0, 0.0, 1.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 1.0);
    if (axis == UsdGeomTokens->y)
        return GfMatrix4d(0.0, 0.0, 1.0, 0.0, 1.0, 0.0, 0.0, 0.0, 0.0, 1.0, 0.0, 0.0, 0.0, 0.0, 0.0, 1.0);
    return GfMatrix4d(1.0);
}

// Each quad of a cube or plane shows the whole texture once, unmirrored:
// its corners, in the face's own counter-clockwise order, take (1, 1),
// (0, 1), (0, 0), (1, 0). On a plane facing Z, u runs along X and v along Y.
VtVec2fArray WholeTexturePerFace(const PxOsdMeshTopology& topology)
{
    static const GfVec2f corners[4] = {GfVec2f(1.0f, 1.0f), GfVec2f(0.0f, 1.0f), GfVec2f(0.0f, 0.0f),
                                       GfVec2f(1.0f, 0.0f)};
    VtVec2fArray coordinates(topology.GetFaceVertexIndices().size());
    size_t corner = 0;
    for (const int count : topology.GetFaceVertexCounts()) {
        for (int k = 0; k < count; ++k)
            coordinates[corner++] = corners[k % 4];
    }
    return coordinates;
}

// Round shapes take a spherical projection about their centre, from their
// points as built along Z: u is the angle about the axis over a full turn,
// from +X toward +Y; v the elevation seen from the centre, 0 straight down
// the axis and 1 straight up (a sphere's latitude). Faces that cross the
// seam take u past 1 rather than from 0, and points on the axis (poles, cap
// centres, the cone's apex), which have no angle, take their face's mean u;
// so the values are per face corner, and the host's vertices split along
// the seam and at the poles.
VtVec2fArray SphericalProjection(const PxOsdMeshTopology& topology, const VtVec3fArray& builtAlongZ)
{
    const VtIntArray& indices = topology.GetFaceVertexIndices();
    VtVec2fArray coordinates(indices.size());
    std::vector<double> u;
    size_t faceStart = 0;
    for (const int count : topology.GetFaceVertexCounts()) {
        u.assign(static_cast<size_t>(count), -1.0);
        double lowest = 1.0;
        double highest = 0.0;
        for (size_t k = 0; k < u.size(); ++k) {
            const GfVec3f& point = builtAlongZ[static_cast<size_t>(indices[faceStart + k])];
            const double fromAxis = std::hypot(double(point[0]), double(point[1]));
            coordinates[faceStart + k][1] = static_cast<float>(0.5 + std::atan2(double(point[2]), fromAxis) / M_PI);
            if (fromAxis > 0.0) {
                const double angle = std::atan2(double(point[1]), double(point[0])) / (2.0 * M_PI);
                u[k] = angle < 0.0 ? angle + 1.0 : angle;
                lowest = std::min(lowest, u[k]);
                highest = std::max(highest, u[k]);
            }
        }
        double sum = 0.0;
        int aroundAxis = 0;
        for (double& value : u) {
            if (value < 0.0)
                continue;
            if (highest - lowest > 0.5 && value < 0.5)
                value += 1.0;
            sum += value;
            ++aroundAxis;
        }
        for (size_t k = 0; k < u.size(); ++k) {
            const double value = u[k] >= 0.0 ? u[k] : (aroundAxis ? sum / aroundAxis : 0.5);
            coordinates[faceStart + k][0] = static_cast<float>(value);
        }
        faceStart += u.size();
    }
    return coordinates;
}

// Generates the round shapes: points built along Z for the coordinates, and
// the same points turned to the axis for the mesh.
template <class Generate>
void GenerateRound(const PxOsdMeshTopology& topology, size_t pointCount, const TfToken& axis,
                   const Generate& generate, CTavrinShapeMesh* mesh)
{
    VtVec3fArray builtAlongZ(pointCount);
    generate(builtAlongZ.begin(), nullptr);
    const GfMatrix4d frame = AxisFrame(axis);
    mesh->points = VtVec3fArray(pointCount);
    generate(mesh->points.begin(), &frame);
    mesh->topology = topology;
    mesh->coordinates = SphericalProjection(topology, builtAlongZ);
}

// False, silently, for a prim that is no implicit shape, and with a warning
// for a shape whose sizes give no surface.
bool GenerateShapeMesh(const UsdPrim& prim, CTavrinShapeMesh* mesh)
{
    VtVec3fArray extent;
    if (const UsdGeomCube cube{prim}) {
        double size = 0.0;
        if (!ReadLength(prim, cube.GetSizeAttr(), false, &size) ||
            !ExtentIsFinite(prim, UsdGeomCube::ComputeExtent(size, &extent), extent))
            return false;
        mesh->points = VtVec3fArray(GeomUtilCuboidMeshGenerator::ComputeNumPoints());
        GeomUtilCuboidMeshGenerator::GeneratePoints(mesh->points.begin(), size, size, size);
        mesh->topology = GeomUtilCuboidMeshGenerator::GenerateTopology();
        mesh->coordinates = WholeTexturePerFace(mesh->topology);
        return true;
    }
    if (const UsdGeomPlane plane{prim}) {
        double width = 0.0;
        double length = 0.0;
        if (!ReadLength(prim, plane.GetWidthAttr(), false, &width) ||
            !ReadLength(prim, plane.GetLengthAttr(), false, &length))
            return false;
        const TfToken axis = ReadAxis(prim, plane.GetAxisAttr());
        if (!ExtentIsFinite(prim, UsdGeomPlane::ComputeExtent(width, length, axis, &extent), extent))
            return false;
        // 24.08's imaging writes the plane's corners itself; these frames
        // give its corners, in its order, from the generator's: facing X,
        // length along Y and width along Z; facing Y, width along -X first
        // and length along Z.
        mesh->points = VtVec3fArray(GeomUtilPlaneMeshGenerator::ComputeNumPoints());
        if (axis == UsdGeomTokens->x) {
            const GfMatrix4d frame = AxisFrame(axis);
            GeomUtilPlaneMeshGenerator::GeneratePoints(mesh->points.begin(), length, width, &frame);
        } else if (axis == UsdGeomTokens->y) {
            const GfMatrix4d frame(-1.0, 0.0, 0.0, 0.0, 0.0, 0.0, 1.0, 0.0, 0.0, 1.0, 0.0, 0.0, 0.0, 0.0, 0.0, 1.0);
            GeomUtilPlaneMeshGenerator::GeneratePoints(mesh->points.begin(), width, length, &frame);
        } else {
            GeomUtilPlaneMeshGenerator::GeneratePoints(mesh->points.begin(), width, length);
        }
        mesh->topology = GeomUtilPlaneMeshGenerator::GenerateTopology();
        mesh->coordinates = WholeTexturePerFace(mesh->topology);
        return true;
    }
    if (const UsdGeomSphere sphere{prim}) {
        double radius = 0.0;
        if (!ReadLength(prim, sphere.GetRadiusAttr(), false, &radius) ||
            !ExtentIsFinite(prim, UsdGeomSphere::ComputeExtent(radius, &extent), extent))
            return false;
        GenerateRound(GeomUtilSphereMeshGenerator::GenerateTopology(kRadialSegments, kSphereAxialSegments),
                      GeomUtilSphereMeshGenerator::ComputeNumPoints(kRadialSegments, kSphereAxialSegments),
                      UsdGeomTokens->z,
                      [radius](GfVec3f* points, const GfMatrix4d* frame) {
                          GeomUtilSphereMeshGenerator::GeneratePoints(points, kRadialSegments,
                                                                      kSphereAxialSegments, radius, frame);
                      },
                      mesh);
        return true;
    }
    if (const UsdGeomCylinder cylinder{prim}) {
        double height = 0.0;
        double radius = 0.0;
        if (!ReadLength(prim, cylinder.GetHeightAttr(), false, &height) ||
            !ReadLength(prim, cylinder.GetRadiusAttr(), false, &radius))
            return false;
        const TfToken axis = ReadAxis(prim, cylinder.GetAxisAttr());
        if (!ExtentIsFinite(prim, UsdGeomCylinder::ComputeExtent(height, radius, axis, &extent), extent))
            return false;
        GenerateRound(GeomUtilCylinderMeshGenerator::GenerateTopology(kRadialSegments),
                      GeomUtilCylinderMeshGenerator::ComputeNumPoints(kRadialSegments), axis,
                      [radius, height](GfVec3f* points, const GfMatrix4d* frame) {
                          GeomUtilCylinderMeshGenerator::GeneratePoints(points, kRadialSegments, radius, height,
                                                                        frame);
                      },
                      mesh);
        return true;
    }
    if (const UsdGeomCone cone{prim}) {
        double height = 0.0;
        double radius = 0.0;
        if (!ReadLength(prim, cone.GetHeightAttr(), false, &height) ||
            !ReadLength(prim, cone.GetRadiusAttr(), false, &radius))
            return false;
        const TfToken axis = ReadAxis(prim, cone.GetAxisAttr());
        if (!ExtentIsFinite(prim, UsdGeomCone::ComputeExtent(height, radius, axis, &extent), extent))
            return false;
        GenerateRound(GeomUtilConeMeshGenerator::GenerateTopology(kRadialSegments),
                      GeomUtilConeMeshGenerator::ComputeNumPoints(kRadialSegments), axis,
                      [radius, height](GfVec3f* points, const GfMatrix4d* frame) {
                          GeomUtilConeMeshGenerator::GeneratePoints(points, kRadialSegments, radius, height, frame);
                      },
                      mesh);
        return true;
    }
    if (const UsdGeomCapsule capsule{prim}) {
        double height = 0.0;
        double radius = 0.0;
        // Without a cylinder between its hemispheres a capsule is a sphere.
        if (!ReadLength(prim, capsule.GetHeightAttr(), true, &height) ||
            !ReadLength(prim, capsule.GetRadiusAttr(), false, &radius))
            return false;
        const TfToken axis = ReadAxis(prim, capsule.GetAxisAttr());
        if (!ExtentIsFinite(prim, UsdGeomCapsule::ComputeExtent(height, radius, axis, &extent), extent))
            return false;
        GenerateRound(GeomUtilCapsuleMeshGenerator::GenerateTopology(kRadialSegments, kCapsuleCapAxialSegments),
                      GeomUtilCapsuleMeshGenerator::ComputeNumPoints(kRadialSegments, kCapsuleCapAxialSegments),
                      axis,
                      [radius, height](GfVec3f* points, const GfMatrix4d* frame) {
                          GeomUtilCapsuleMeshGenerator::GeneratePoints(points, kRadialSegments,
                                                                       kCapsuleCapAxialSegments, radius, height,
                                                                       frame);
                      },
                      mesh);
        return true;
    }
    return false;
}

// The unit direction of a normal Hydra's code has already scaled, or zero.
GfVec3d Direction(const GfVec3d& normal)
{
    const double length = normal.GetLength();
    return length > 0.0 ? normal / length : GfVec3d(0.0);
}

// Imaging shades a bilinear mesh flat, each face's normal on its corners,
// and any other smooth, with the normals Hydra makes from the faces around
// each point. Where those come out zero (the copies of the cone's apex,
// whose corners lie on edges of no length alone) the point takes the
// direction of its faces' normals, the cone's own normal along that line:
// Hydra's shader renormalises the interpolated normal and never shows the
// zero, but a host table would. Computed in double precision, so that
// neither the largest nor the smallest shapes lose their normals.
void ComputeShapeNormals(const HdMeshTopology& topology, const VtVec3fArray& points,
                         const HdMeshUtil& meshUtil, CTavrinMeshValues* values)
{
    const std::vector<GfVec3d> widePoints(points.begin(), points.end());
    const VtArray<GfVec3d> faceNormals = Hd_FlatNormals::ComputeFlatNormals(&topology, widePoints.data());
    const VtIntArray& counts = topology.GetFaceVertexCounts();
    const VtIntArray& indices = topology.GetFaceVertexIndices();

    if (topology.GetScheme() == PxOsdOpenSubdivTokens->bilinear ||
        topology.GetScheme() == PxOsdOpenSubdivTokens->none) {
        VtVec3fArray cornerNormals(indices.size());
        size_t corner = 0;
        for (size_t face = 0; face < counts.size(); ++face) {
            for (int k = 0; k < counts[face]; ++k)
                cornerNormals[corner++] = GfVec3f(Direction(faceNormals[face]));
        }
        values->normalsFaceVarying = true;
        TriangulateFaceVarying(meshUtil, cornerNormals, HdTypeFloatVec3, values->triangles.size(), &values->normals);
        return;
    }

    Hd_VertexAdjacency adjacency;
    adjacency.BuildAdjacencyTable(&topology);
    const VtArray<GfVec3d> smooth =
        Hd_SmoothNormals::ComputeSmoothNormals(&adjacency, static_cast<int>(widePoints.size()), widePoints.data());
    std::vector<GfVec3d> ofFaces(points.size(), GfVec3d(0.0));
    size_t faceStart = 0;
    for (size_t face = 0; face < counts.size(); ++face) {
        for (int k = 0; k < counts[face]; ++k)
            ofFaces[static_cast<size_t>(indices[faceStart + static_cast<size_t>(k)])] += faceNormals[face];
        faceStart += static_cast<size_t>(counts[face]);
    }
    values->normals = VtVec3fArray(smooth.size());
    for (size_t point = 0; point < smooth.size(); ++point) {
        const GfVec3d direction = Direction(smooth[point]);
        values->normals[point] = GfVec3f(direction != GfVec3d(0.0) ? direction : Direction(ofFaces[point]));
    }
}

} // namespace

CTavrin3DObject* CTavrinUSDReaderHandler::ReadShapeObject(const UsdPrim& prim, CTavrinSceneNode* parentNode,
                                                          const std::string& name)
{
    CTavrinShapeMesh shapeMesh;
    if (!GenerateShapeMesh(prim, &shapeMesh))
        return nullptr;
    const UsdGeomGprim shape(prim);
    CTavrin3DObject* object = CTavrin3DObject::Create(document);
    ReadTransform(shape, object, parentNode, name);
    ReadObjectMaterial(shape, object);
    // The shape has coordinates of its own, whatever primvar its material
    // names.
    stPrimvarName = TfToken();

    CTavrinGeometry* geometry = CTavrinGeometry::Create(document);
    const CTavrinAxisConversion axes{axisOrder, axisSign};
    const CTavrinPointTables tables = WritePoints(shapeMesh.points, axes, document, geometry);
    CTavrinMeshValues values;
    values.pointCount = shapeMesh.points.size();
    const HdMeshTopology topology(shapeMesh.topology);
    const HdMeshUtil meshUtil(&topology, prim.GetPath());
    VtIntArray primitiveParams;
    meshUtil.ComputeTriangleIndices(&values.triangles, &primitiveParams);
    ComputeShapeNormals(topology, shapeMesh.points, meshUtil, &values);
    values.coordinatesFaceVarying = true;
    if (TriangulateFaceVarying(meshUtil, shapeMesh.coordinates, HdTypeFloatVec2, values.triangles.size(),
                               &values.coordinates))
        values.coordinatesTable = CTavrinTextureCoordinatesTable::Create(document, true);
    WriteTriangulatedMesh(prim.GetPath(), axes, tables, nullptr, document, geometry, object, &values);
    object->SetGeometry(geometry);
    return object;
}

} // namespace Tavrin
