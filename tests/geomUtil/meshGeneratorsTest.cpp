// The mesh generators with the segment counts OpenUSD's imaging gives
// them: how many points and faces, that every point lies on the shape's
// surface, and that the faces close the surface wound outward.

#include "usdcore/geomUtil/capsuleMeshGenerator.h"
#include "usdcore/geomUtil/coneMeshGenerator.h"
#include "usdcore/geomUtil/cuboidMeshGenerator.h"
#include "usdcore/geomUtil/cylinderMeshGenerator.h"
#include "usdcore/geomUtil/planeMeshGenerator.h"
#include "usdcore/geomUtil/sphereMeshGenerator.h"
#include "usdcore/pxOsd/tokens.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <map>
#include <tuple>
#include <vector>

PXR_NAMESPACE_USING_DIRECTIVE

namespace {

struct Shape {
    const char* name;
    PxOsdMeshTopology topology;
    std::vector<GfVec3f> points;
    // How far a point lies off the surface.
    std::function<double(const GfVec3d&)> offSurface;
    double size;
};

double FromAxis(const GfVec3d& p)
{
    return std::hypot(p[0], p[1]);
}

template <class Generate>
std::vector<GfVec3f> Points(size_t count, const Generate& generate)
{
    std::vector<GfVec3f> points(count);
    generate(points.begin());
    return points;
}

// Sizes chosen unequal, so that a length given to the wrong axis shows.
std::vector<Shape> Shapes()
{
    std::vector<Shape> shapes;
    {
        const double size = 3.0;
        shapes.push_back({"cube", GeomUtilCuboidMeshGenerator::GenerateTopology(),
                          Points(GeomUtilCuboidMeshGenerator::ComputeNumPoints(),
                                 [&](auto it) { GeomUtilCuboidMeshGenerator::GeneratePoints(it, size, size, size); }),
                          [=](const GfVec3d& p) {
                              return std::abs(std::max({std::abs(p[0]), std::abs(p[1]), std::abs(p[2])}) - size / 2);
                          },
                          size});
    }
    {
        const double radius = 2.5;
        shapes.push_back({"sphere", GeomUtilSphereMeshGenerator::GenerateTopology(10, 10),
                          Points(GeomUtilSphereMeshGenerator::ComputeNumPoints(10, 10),
                                 [&](auto it) { GeomUtilSphereMeshGenerator::GeneratePoints(it, 10, 10, radius); }),
                          [=](const GfVec3d& p) { return std::abs(p.GetLength() - radius); }, radius});
    }
    {
        const double radius = 0.75, height = 3.0;
        shapes.push_back({"cylinder", GeomUtilCylinderMeshGenerator::GenerateTopology(10),
                          Points(GeomUtilCylinderMeshGenerator::ComputeNumPoints(10),
                                 [&](auto it) { GeomUtilCylinderMeshGenerator::GeneratePoints(it, 10, radius, height); }),
                          [=](const GfVec3d& p) {
                              const double onCap = std::abs(std::abs(p[2]) - height / 2) +
                                                   std::max(0.0, FromAxis(p) - radius);
                              const double onSide = std::abs(FromAxis(p) - radius) +
                                                    std::max(0.0, std::abs(p[2]) - height / 2);
                              return std::min(onCap, onSide);
                          },
                          height});
    }
    {
        const double radius = 1.5, height = 2.0;
        shapes.push_back({"cone", GeomUtilConeMeshGenerator::GenerateTopology(10),
                          Points(GeomUtilConeMeshGenerator::ComputeNumPoints(10),
                                 [&](auto it) { GeomUtilConeMeshGenerator::GeneratePoints(it, 10, radius, height); }),
                          [=](const GfVec3d& p) {
                              const double onBase = std::abs(p[2] + height / 2) + std::max(0.0, FromAxis(p) - radius);
                              // The side's radius shrinks linearly to 0 at the apex.
                              const double onSide = std::abs(FromAxis(p) - radius * (height / 2 - p[2]) / height);
                              return std::min(onBase, onSide);
                          },
                          height});
    }
    {
        const double radius = 0.5, height = 2.0;
        shapes.push_back({"capsule", GeomUtilCapsuleMeshGenerator::GenerateTopology(10, 4),
                          Points(GeomUtilCapsuleMeshGenerator::ComputeNumPoints(10, 4),
                                 [&](auto it) { GeomUtilCapsuleMeshGenerator::GeneratePoints(it, 10, 4, radius, height); }),
                          [=](const GfVec3d& p) {
                              // Every point of the surface is radius away from
                              // the segment between the hemispheres' centres.
                              const double along = std::clamp(p[2], -height / 2, height / 2);
                              return std::abs((p - GfVec3d(0, 0, along)).GetLength() - radius);
                          },
                          height + 2 * radius});
    }
    {
        const double width = 4.0, length = 1.5;
        shapes.push_back({"plane", GeomUtilPlaneMeshGenerator::GenerateTopology(),
                          Points(GeomUtilPlaneMeshGenerator::ComputeNumPoints(),
                                 [&](auto it) { GeomUtilPlaneMeshGenerator::GeneratePoints(it, width, length); }),
                          [=](const GfVec3d& p) {
                              // Its points are its corners.
                              return std::abs(p[2]) + std::abs(std::abs(p[0]) - width / 2) +
                                     std::abs(std::abs(p[1]) - length / 2);
                          },
                          width});
    }
    return shapes;
}

// Twice the area vector of a face (Newell's sum): outward when the face is
// wound counter-clockwise seen from outside.
GfVec3d AreaVector(const Shape& shape, size_t faceStart, int count)
{
    const VtIntArray& indices = shape.topology.GetFaceVertexIndices();
    GfVec3d sum(0.0);
    for (int k = 0; k < count; ++k) {
        const GfVec3d a(shape.points[indices[faceStart + k]]);
        const GfVec3d b(shape.points[indices[faceStart + (k + 1) % count]]);
        sum += GfCross(a, b);
    }
    return sum;
}

TEST(GeomUtilMeshGenerators, CountsOfImagingsTessellation)
{
    // With 10 segments around, 10 from pole to pole of the sphere and 4 from
    // pole to equator of the capsule: rings of 10 points, a pole fan of 10
    // triangles at each closed end, 10 quads per strip between rings.
    struct Expected {
        size_t points, triangles, quads;
        TfToken scheme;
    };
    const std::map<std::string, Expected> expected = {
        {"cube", {8, 0, 6, PxOsdOpenSubdivTokens->bilinear}},
        // Poles + 9 rings; 8 strips between them.
        {"sphere", {2 + 9 * 10, 2 * 10, 8 * 10, PxOsdOpenSubdivTokens->catmullClark}},
        // Centres + cap rings + the side's own two rings; one strip.
        {"cylinder", {2 + 4 * 10, 2 * 10, 10, PxOsdOpenSubdivTokens->catmullClark}},
        // Base centre + base ring + side ring + 10 copies of the apex.
        {"cone", {1 + 3 * 10, 10, 10, PxOsdOpenSubdivTokens->catmullClark}},
        // Poles + 4 rings per hemisphere; 3 strips in each and 1 between.
        {"capsule", {2 + 8 * 10, 2 * 10, 7 * 10, PxOsdOpenSubdivTokens->catmullClark}},
        {"plane", {4, 0, 1, PxOsdOpenSubdivTokens->bilinear}},
    };
    for (const Shape& shape : Shapes()) {
        SCOPED_TRACE(shape.name);
        const Expected& want = expected.at(shape.name);
        EXPECT_EQ(shape.points.size(), want.points);
        const VtIntArray& counts = shape.topology.GetFaceVertexCounts();
        EXPECT_EQ(size_t(std::count(counts.begin(), counts.end(), 3)), want.triangles);
        EXPECT_EQ(size_t(std::count(counts.begin(), counts.end(), 4)), want.quads);
        EXPECT_EQ(counts.size(), want.triangles + want.quads);
        EXPECT_EQ(shape.topology.GetFaceVertexIndices().size(), 3 * want.triangles + 4 * want.quads);
        EXPECT_EQ(shape.topology.GetScheme(), want.scheme);
        EXPECT_EQ(shape.topology.GetOrientation(), PxOsdOpenSubdivTokens->rightHanded);
    }
}

TEST(GeomUtilMeshGenerators, EveryPointLiesOnTheSurfaceAndEveryPointIsUsed)
{
    for (const Shape& shape : Shapes()) {
        SCOPED_TRACE(shape.name);
        for (size_t i = 0; i < shape.points.size(); ++i)
            EXPECT_LT(shape.offSurface(GfVec3d(shape.points[i])), 1e-6 * shape.size) << "point " << i;
        std::vector<bool> used(shape.points.size(), false);
        for (const int index : shape.topology.GetFaceVertexIndices()) {
            ASSERT_GE(index, 0);
            ASSERT_LT(size_t(index), shape.points.size());
            used[size_t(index)] = true;
        }
        EXPECT_EQ(std::count(used.begin(), used.end(), false), 0);
    }
}

TEST(GeomUtilMeshGenerators, FacesAreWoundOutward)
{
    // Every shape is convex about the origin, so a face's outward normal
    // points the way of any of its points; the plane faces +Z.
    for (const Shape& shape : Shapes()) {
        SCOPED_TRACE(shape.name);
        const VtIntArray& counts = shape.topology.GetFaceVertexCounts();
        const VtIntArray& indices = shape.topology.GetFaceVertexIndices();
        size_t faceStart = 0;
        for (size_t face = 0; face < counts.size(); ++face) {
            const GfVec3d area = AreaVector(shape, faceStart, counts[face]);
            const GfVec3d outward = std::string(shape.name) == "plane" ? GfVec3d(0, 0, 1)
                                                                     : GfVec3d(shape.points[indices[faceStart]]);
            EXPECT_GT(GfDot(area, outward), 0.0) << "face " << face;
            faceStart += size_t(counts[face]);
        }
    }
}

TEST(GeomUtilMeshGenerators, SolidsAreClosed)
{
    // Seen by position (the cylinder's and cone's rings come twice, the
    // apex ten times), every edge of a solid is walked once each way; the
    // cone's edges between copies of its apex have no length and are left
    // out.
    for (const Shape& shape : Shapes()) {
        if (std::string(shape.name) == "plane")
            continue;
        SCOPED_TRACE(shape.name);
        std::map<std::tuple<float, float, float>, int> positions;
        std::vector<int> position;
        for (const GfVec3f& p : shape.points)
            position.push_back(positions.emplace(std::make_tuple(p[0], p[1], p[2]), int(positions.size())).first->second);
        std::map<std::pair<int, int>, int> walked;
        const VtIntArray& counts = shape.topology.GetFaceVertexCounts();
        const VtIntArray& indices = shape.topology.GetFaceVertexIndices();
        size_t faceStart = 0;
        for (const int count : counts) {
            for (int k = 0; k < count; ++k) {
                const int from = position[size_t(indices[faceStart + size_t(k)])];
                const int to = position[size_t(indices[faceStart + size_t((k + 1) % count)])];
                if (from != to)
                    ++walked[{from, to}];
            }
            faceStart += size_t(count);
        }
        for (const auto& [edge, times] : walked) {
            EXPECT_EQ(times, 1) << edge.first << "-" << edge.second;
            const auto reverse = walked.find({edge.second, edge.first});
            EXPECT_TRUE(reverse != walked.end() && reverse->second == 1) << edge.first << "-" << edge.second;
        }
    }
}

TEST(GeomUtilMeshGenerators, AFrameCarriesThePointsAndADoubleIteratorTakesThem)
{
    // Rows say where X, Y and Z go: here Z to X, the way imaging turns a
    // cylinder to axis X.
    const GfMatrix4d toX(0.0, 1.0, 0.0, 0.0, 0.0, 0.0, 1.0, 0.0, 1.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 1.0);
    std::vector<GfVec3f> alongZ(42);
    std::vector<GfVec3d> alongX(42);
    GeomUtilCylinderMeshGenerator::GeneratePoints(alongZ.begin(), 10, 0.75f, 3.0f);
    GeomUtilCylinderMeshGenerator::GeneratePoints(alongX.begin(), 10, 0.75, 3.0, &toX);
    for (size_t i = 0; i < alongZ.size(); ++i) {
        EXPECT_FLOAT_EQ(float(alongX[i][0]), alongZ[i][2]) << i;
        EXPECT_FLOAT_EQ(float(alongX[i][1]), alongZ[i][0]) << i;
        EXPECT_FLOAT_EQ(float(alongX[i][2]), alongZ[i][1]) << i;
    }
}

TEST(GeomUtilMeshGenerators, TooFewSegmentsGiveNothing)
{
    EXPECT_EQ(GeomUtilSphereMeshGenerator::ComputeNumPoints(2, 10), 0u);
    EXPECT_EQ(GeomUtilSphereMeshGenerator::ComputeNumPoints(10, 1), 0u);
    EXPECT_TRUE(GeomUtilSphereMeshGenerator::GenerateTopology(10, 1).GetFaceVertexCounts().empty());
    EXPECT_EQ(GeomUtilCylinderMeshGenerator::ComputeNumPoints(2), 0u);
    EXPECT_TRUE(GeomUtilConeMeshGenerator::GenerateTopology(2).GetFaceVertexIndices().empty());
    EXPECT_EQ(GeomUtilCapsuleMeshGenerator::ComputeNumPoints(10, 0), 0u);
    // Nothing is written either.
    std::vector<GfVec3f> untouched(4, GfVec3f(7.0f));
    GeomUtilSphereMeshGenerator::GeneratePoints(untouched.begin(), 2, 2, 1.0);
    EXPECT_EQ(untouched, std::vector<GfVec3f>(4, GfVec3f(7.0f)));
}

} // namespace
