// Implicit shapes (Cube, Sphere, Cylinder, Cone, Capsule, Plane) imported
// as 3D objects: their meshes against the shapes' geometry, their normals
// and texture coordinates, their place in the scene like a mesh's, the
// option that leaves them out, and sizes that give no surface.

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/usdreader/ImportSupport.h"
#include "usdcore/tf/diagnostic.h"
#include "usdcore/usdGeom/capsule.h"
#include "usdcore/usdGeom/cone.h"
#include "usdcore/usdGeom/cube.h"
#include "usdcore/usdGeom/cylinder.h"
#include "usdcore/usdGeom/plane.h"
#include "usdcore/usdGeom/sphere.h"

PXR_NAMESPACE_USING_DIRECTIVE

using namespace Tavrin;
using namespace TavrinReaderTests;
using ::testing::ElementsAre;

namespace {

using Vector = std::array<double, 3>;

std::vector<Vector> VectorsOf(const CTavrinJson& table)
{
    std::vector<Vector> vectors;
    for (const CTavrinJson& v : table)
        vectors.push_back({v.at(0).get<double>(), v.at(1).get<double>(), v.at(2).get<double>()});
    return vectors;
}

double Dot(const Vector& a, const Vector& b)
{
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

double Length(const Vector& v)
{
    return std::sqrt(Dot(v, v));
}

Vector Minus(const Vector& a, const Vector& b)
{
    return {a[0] - b[0], a[1] - b[1], a[2] - b[2]};
}

Vector Cross(const Vector& a, const Vector& b)
{
    return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}

int AxisIndex(const std::string& axis)
{
    return axis == "X" ? 0 : axis == "Y" ? 1 : 2;
}

// A point's distance along the shape's axis and from it.
double Along(const Vector& p, int axis)
{
    return p[size_t(axis)];
}
double FromAxis(const Vector& p, int axis)
{
    return std::hypot(p[size_t((axis + 1) % 3)], p[size_t((axis + 2) % 3)]);
}

// One shape of the table: its prim, how far a point lies off its surface,
// its extent as the schema computes it, and the bounds its vertices reach.
struct ShapeCase {
    std::string name;
    std::string prim;
    std::function<double(const Vector&)> offSurface;
    VtVec3fArray extent;
    // Ring points lie every 36 degrees from the first axis across: the
    // second axis across is reached only at 72 and 108 degrees, so there
    // the vertices span sin 72 of the extent. -1 where they span it all.
    int shortAxis;
    size_t triangles;
};

const double kSin72 = std::sin(72.0 * M_PI / 180.0);

std::vector<ShapeCase> ShapeCases()
{
    std::vector<ShapeCase> cases;
    VtVec3fArray extent;
    UsdGeomCube::ComputeExtent(3.0, &extent);
    cases.push_back({"Cube", "def Cube \"Shape\" { double size = 3 }",
                     [](const Vector& p) {
                         return std::abs(std::max({std::abs(p[0]), std::abs(p[1]), std::abs(p[2])}) - 1.5);
                     },
                     extent, -1, 12});
    UsdGeomSphere::ComputeExtent(2.0, &extent);
    cases.push_back({"Sphere", "def Sphere \"Shape\" { double radius = 2 }",
                     [](const Vector& p) { return std::abs(Length(p) - 2.0); }, extent, 1, 180});
    UsdGeomCylinder::ComputeExtent(4.0, 1.0, UsdGeomTokens->x, &extent);
    cases.push_back({"Cylinder along X",
                     "def Cylinder \"Shape\" { double height = 4\n double radius = 1\n uniform token axis = \"X\" }",
                     [](const Vector& p) {
                         const double onCap = std::abs(std::abs(Along(p, 0)) - 2.0) + std::max(0.0, FromAxis(p, 0) - 1.0);
                         const double onSide = std::abs(FromAxis(p, 0) - 1.0) + std::max(0.0, std::abs(Along(p, 0)) - 2.0);
                         return std::min(onCap, onSide);
                     },
                     extent, 2, 40});
    UsdGeomCone::ComputeExtent(2.0, 1.5, UsdGeomTokens->y, &extent);
    cases.push_back({"Cone along Y",
                     "def Cone \"Shape\" { double height = 2\n double radius = 1.5\n uniform token axis = \"Y\" }",
                     [](const Vector& p) {
                         const double onBase = std::abs(Along(p, 1) + 1.0) + std::max(0.0, FromAxis(p, 1) - 1.5);
                         // The side narrows from 1.5 at the base to 0 at the apex.
                         const double onSide = std::abs(FromAxis(p, 1) - 1.5 * (1.0 - Along(p, 1)) / 2.0);
                         return std::min(onBase, onSide);
                     },
                     extent, 0, 30});
    UsdGeomCapsule::ComputeExtent(2.0, 0.5, UsdGeomTokens->z, &extent);
    cases.push_back({"Capsule",
                     "def Capsule \"Shape\" { double height = 2\n double radius = 0.5 }",
                     [](const Vector& p) {
                         // Every surface point is 0.5 from the segment
                         // between the hemispheres' centres.
                         const double along = std::clamp(p[2], -1.0, 1.0);
                         return std::abs(Length(Minus(p, {0.0, 0.0, along})) - 0.5);
                     },
                     extent, 1, 160});
    for (const char* axis : {"X", "Y", "Z"}) {
        UsdGeomPlane::ComputeExtent(4.0, 1.0, TfToken(axis), &extent);
        const int a = AxisIndex(axis);
        const VtVec3fArray corners = extent;
        cases.push_back({std::string("Plane facing ") + axis,
                         std::string("def Plane \"Shape\" { double width = 4\n double length = 1\n uniform token axis = \"") +
                             axis + "\" }",
                         [a, corners](const Vector& p) {
                             // Its vertices are its corners.
                             double off = std::abs(p[size_t(a)]);
                             for (size_t i = 0; i < 3; ++i)
                                 off += std::abs(std::abs(p[i]) - corners[1][i]);
                             return off;
                         },
                         extent, -1, 2});
    }
    return cases;
}

bool IsPlane(const ShapeCase& shape)
{
    return shape.name.rfind("Plane", 0) == 0;
}

CTavrinJson ImportShape(const std::string& prim)
{
    const ImportResult result = ImportText(ZUpScene(prim + "\n"));
    return NodeNamed(result.json, "Shape");
}

TEST(ImplicitShapes, VerticesLieOnTheSurfaceAndSpanTheSchemasExtent)
{
    for (const ShapeCase& shape : ShapeCases()) {
        SCOPED_TRACE(shape.name);
        const CTavrinJson node = ImportShape(shape.prim);
        ASSERT_FALSE(node.is_null());
        EXPECT_EQ(node.at("type"), "3DObject");
        const std::vector<Vector> vertices = VectorsOf(node.at("geometry").at("vertices"));
        ASSERT_FALSE(vertices.empty());
        Vector lowest = vertices[0];
        Vector highest = vertices[0];
        for (size_t i = 0; i < vertices.size(); ++i) {
            EXPECT_LT(shape.offSurface(vertices[i]), 1e-6) << "vertex " << i;
            for (size_t k = 0; k < 3; ++k) {
                lowest[k] = std::min(lowest[k], vertices[i][k]);
                highest[k] = std::max(highest[k], vertices[i][k]);
            }
        }
        for (size_t k = 0; k < 3; ++k) {
            const double reach = int(k) == shape.shortAxis ? kSin72 : 1.0;
            EXPECT_NEAR(lowest[k], reach * shape.extent[0][k], 1e-6) << "axis " << k;
            EXPECT_NEAR(highest[k], reach * shape.extent[1][k], 1e-6) << "axis " << k;
        }
        EXPECT_EQ(node.at("geometry").at("triangles").size(), shape.triangles);
    }
}

TEST(ImplicitShapes, TrianglesAreWoundOutwardAndCoverEveryVertex)
{
    for (const ShapeCase& shape : ShapeCases()) {
        SCOPED_TRACE(shape.name);
        const CTavrinJson node = ImportShape(shape.prim);
        const std::vector<Vector> vertices = VectorsOf(node.at("geometry").at("vertices"));
        std::vector<bool> used(vertices.size(), false);
        for (const CTavrinJson& triangle : node.at("geometry").at("triangles")) {
            const Vector& a = vertices.at(triangle.at(0).get<size_t>());
            const Vector& b = vertices.at(triangle.at(1).get<size_t>());
            const Vector& c = vertices.at(triangle.at(2).get<size_t>());
            for (int k = 0; k < 3; ++k)
                used[triangle.at(k).get<size_t>()] = true;
            const Vector area = Cross(Minus(b, a), Minus(c, a));
            // Each shape is convex about the origin, or a plane through it
            // facing its axis; the cone's side quads end in a triangle of
            // no area at the apex.
            if (Length(area) < 1e-9)
                continue;
            Vector outward = a;
            if (IsPlane(shape)) {
                outward = {0.0, 0.0, 0.0};
                outward[size_t(AxisIndex(shape.name.substr(shape.name.size() - 1)))] = 1.0;
            }
            EXPECT_GT(Dot(area, outward), 0.0);
        }
        EXPECT_EQ(std::count(used.begin(), used.end(), false), 0);
    }
}

TEST(ImplicitShapes, NormalsAreUnitAndShadeAsImagingDoes)
{
    for (const ShapeCase& shape : ShapeCases()) {
        SCOPED_TRACE(shape.name);
        const CTavrinJson node = ImportShape(shape.prim);
        const std::vector<Vector> vertices = VectorsOf(node.at("geometry").at("vertices"));
        const std::vector<Vector> normals = VectorsOf(node.at("geometry").at("normals"));
        ASSERT_EQ(normals.size(), vertices.size());
        for (size_t i = 0; i < normals.size(); ++i)
            EXPECT_NEAR(Length(normals[i]), 1.0, 1e-6) << "vertex " << i;
        // The cube and plane are bilinear: flat, every triangle's corners
        // carry its own face's normal, so the cube's corners come three
        // times over (24 vertices).
        if (shape.name == "Cube" || IsPlane(shape)) {
            EXPECT_EQ(vertices.size(), shape.name == "Cube" ? 24u : 4u);
            for (const CTavrinJson& triangle : node.at("geometry").at("triangles")) {
                const Vector& a = vertices[triangle.at(0).get<size_t>()];
                const Vector area = Cross(Minus(vertices[triangle.at(1).get<size_t>()], a),
                                          Minus(vertices[triangle.at(2).get<size_t>()], a));
                for (int k = 0; k < 3; ++k)
                    EXPECT_NEAR(Dot(normals[triangle.at(k).get<size_t>()], area), Length(area), 1e-9);
            }
        }
    }
}

TEST(ImplicitShapes, SmoothNormalsFollowTheRoundSurfaces)
{
    // The sphere's normals lie within a few degrees of the radius; its
    // poles point straight along the axis.
    {
        const CTavrinJson node = ImportShape("def Sphere \"Shape\" { double radius = 2 }");
        const std::vector<Vector> vertices = VectorsOf(node.at("geometry").at("vertices"));
        const std::vector<Vector> normals = VectorsOf(node.at("geometry").at("normals"));
        for (size_t i = 0; i < vertices.size(); ++i) {
            EXPECT_GT(Dot(normals[i], vertices[i]) / 2.0, 0.99) << i;
            if (std::abs(vertices[i][2]) == 2.0) {
                EXPECT_NEAR(normals[i][2], vertices[i][2] / 2.0, 1e-7) << i;
            }
        }
    }
    // The cylinder's caps meet its side at a crease: a vertex there is the
    // cap's, facing along the axis, or the side's, facing straight out.
    {
        const CTavrinJson node = ImportShape("def Cylinder \"Shape\" { double height = 4\n double radius = 1 }");
        const std::vector<Vector> vertices = VectorsOf(node.at("geometry").at("vertices"));
        const std::vector<Vector> normals = VectorsOf(node.at("geometry").at("normals"));
        for (size_t i = 0; i < vertices.size(); ++i) {
            const Vector& p = vertices[i];
            const Vector& n = normals[i];
            const bool capNormal = std::abs(n[2]) > 0.5;
            if (capNormal) {
                EXPECT_NEAR(std::abs(p[2]), 2.0, 1e-6) << i;
                EXPECT_THAT(n, ElementsAre(0.0, 0.0, p[2] > 0 ? 1.0 : -1.0)) << i;
            } else {
                EXPECT_NEAR(n[2], 0.0, 1e-7) << i;
                EXPECT_NEAR(Dot(n, {p[0], p[1], 0.0}), 1.0, 1e-6) << i;
            }
        }
    }
    // The cone's base faces down. Along its side the two faces around a
    // base point, or around a copy of the apex, sum to the true surface
    // normal of the cone of radius 1 and height 2, which climbs
    // 1 / sqrt(1 + 4) from level. Hydra leaves the apex copies a zero
    // normal; the import gives them the direction of their faces'.
    {
        const CTavrinJson node = ImportShape("def Cone \"Shape\" { double height = 2\n double radius = 1 }");
        const std::vector<Vector> vertices = VectorsOf(node.at("geometry").at("vertices"));
        const std::vector<Vector> normals = VectorsOf(node.at("geometry").at("normals"));
        for (size_t i = 0; i < vertices.size(); ++i) {
            const Vector& p = vertices[i];
            const Vector& n = normals[i];
            if (n[2] < 0.0) {
                EXPECT_THAT(n, ElementsAre(0.0, 0.0, -1.0)) << i;
                EXPECT_EQ(p[2], -1.0) << i;
            } else {
                EXPECT_NEAR(n[2], 1.0 / std::sqrt(5.0), 1e-6) << i;
                if (p[2] == -1.0) {
                    EXPECT_NEAR(Dot(n, {p[0], p[1], 0.0}), 2.0 / std::sqrt(5.0), 1e-6) << i;
                }
            }
        }
    }
}

TEST(ImplicitShapes, TextureCoordinatesWrapRoundShapesOnceAndEachCubeFaceWhole)
{
    for (const ShapeCase& shape : ShapeCases()) {
        SCOPED_TRACE(shape.name);
        const CTavrinJson node = ImportShape(shape.prim);
        const CTavrinJson& coordinates = node.at("textureCoordinates");
        const std::vector<Vector> vertices = VectorsOf(node.at("geometry").at("vertices"));
        ASSERT_EQ(coordinates.size(), vertices.size());
        for (const CTavrinJson& uv : coordinates) {
            EXPECT_GE(uv.at(0).get<double>(), 0.0);
            EXPECT_LE(uv.at(0).get<double>(), 1.0);
            EXPECT_GE(uv.at(1).get<double>(), 0.0);
            EXPECT_LE(uv.at(1).get<double>(), 1.0);
        }
        if (shape.name == "Cube" || IsPlane(shape))
            continue;
        // No triangle of a round shape runs the long way round the seam:
        // its corners lie within one segment, a tenth of a turn.
        for (const CTavrinJson& triangle : node.at("geometry").at("triangles")) {
            std::vector<double> u;
            for (int k = 0; k < 3; ++k)
                u.push_back(coordinates.at(triangle.at(k).get<size_t>()).at(0).get<double>());
            EXPECT_LE(*std::max_element(u.begin(), u.end()) - *std::min_element(u.begin(), u.end()), 0.1 + 1e-6);
        }
    }
    // The sphere's v is its latitude: 0 and 1 at the poles, 0.5 on the
    // equator.
    const CTavrinJson sphere = ImportShape("def Sphere \"Shape\" { double radius = 2 }");
    const std::vector<Vector> vertices = VectorsOf(sphere.at("geometry").at("vertices"));
    for (size_t i = 0; i < vertices.size(); ++i) {
        const double v = sphere.at("textureCoordinates").at(i).at(1).get<double>();
        if (vertices[i][2] == 0.0) {
            EXPECT_EQ(v, 0.5) << i;
        }
        if (std::abs(vertices[i][2]) == 2.0) {
            EXPECT_EQ(v, vertices[i][2] > 0 ? 1.0 : 0.0) << i;
        }
    }
    // Each face of the cube shows the whole texture: its four vertices
    // carry the unit square's four corners.
    const CTavrinJson cube = ImportShape("def Cube \"Shape\" {}");
    std::vector<std::pair<double, double>> corners;
    for (const CTavrinJson& uv : cube.at("textureCoordinates"))
        corners.emplace_back(uv.at(0).get<double>(), uv.at(1).get<double>());
    for (const auto& corner : std::vector<std::pair<double, double>>{{0, 0}, {1, 0}, {1, 1}, {0, 1}})
        EXPECT_EQ(std::count(corners.begin(), corners.end(), corner), 6);
}

TEST(ImplicitShapes, AShapeIsPlacedNamedAndDressedLikeAMesh)
{
    const ImportResult result = ImportText(ZUpScene(R"(
def Xform "World" {
    double3 xformOp:translate = (1, 2, 3)
    uniform token[] xformOpOrder = ["xformOp:translate"]
    def Sphere "Ball" {
        double radius = 0.5
        double3 xformOp:translate.timeSamples = { 0: (0, 0, 0), 2: (0, 0, 4) }
        uniform token[] xformOpOrder = ["xformOp:translate"]
        color3f[] primvars:displayColor = [(0.5, 0.25, 1)]
        rel material:binding = </Looks/Red>
        def Xform "Handle" {}
    }
    def Cube "Box" {
        color3f[] primvars:displayColor = [(0, 1, 0)]
        float[] primvars:displayOpacity = [0.5]
    }
}
def Scope "Looks" {
    def Material "Red" {
        token outputs:surface.connect = </Looks/Red/Surface.outputs:surface>
        def Shader "Surface" {
            uniform token info:id = "UsdPreviewSurface"
            color3f inputs:diffuseColor = (1, 0, 0)
            token outputs:surface
        }
    }
}
)"));
    const CTavrinJson world = NodeNamed(result.json, "World");
    const CTavrinJson ball = NodeNamed(result.json, "Ball");
    ASSERT_FALSE(ball.is_null());
    EXPECT_EQ(ball.at("type"), "3DObject");
    EXPECT_EQ(ball.at("parent"), world.at("id"));
    EXPECT_THAT(TranslationOf(ball.at("localMatrix")), ElementsAre(0, 0, 0));
    // The bound material overrides the display colour.
    EXPECT_EQ(ball.at("material").at("name"), "Red");
    EXPECT_EQ(ball.at("material").at("set").at("Color"), CTavrinJson::parse("[1, 0, 0]"));
    EXPECT_EQ(NodeNamed(result.json, "Handle").at("parent"), ball.at("id"));
    const std::vector<KeyFrame> keys = KeyFramesOf(result.json, "Ball");
    ASSERT_THAT(StartsOf(keys), ElementsAre(0, 2));
    EXPECT_THAT(keys[1].Translation(), ElementsAre(0, 0, 4));

    // Unbound: the display colour and opacity only.
    const CTavrinJson box = NodeNamed(result.json, "Box");
    EXPECT_EQ(box.at("material").at("name"), "");
    EXPECT_EQ(box.at("material").at("set").at("Color"), CTavrinJson::parse("[0, 1, 0]"));
    EXPECT_EQ(box.at("material").at("set").at("Alpha"), 0.5);
}

TEST(ImplicitShapes, WithTheOptionOffAShapeMakesNoNode)
{
    ScratchFolder scratch;
    const std::string path = scratch.Write("shapes.usda", ZUpScene(R"(
def Xform "World" {
    def Cube "Box" {
        def Xform "Lid" {}
    }
}
)"));
    const ImportResult result = ImportFile(path, (scratch.Path() / "textures").string(), true,
                                           [](CTavrinUSDReaderHandler& handler) { handler.options.shapes = false; });
    EXPECT_THAT(NodeNames(result.json), ElementsAre("World", "Lid"));
    // Like any prim the import does not read, the cube lends its path to
    // its parent's node.
    EXPECT_EQ(NodeNamed(result.json, "Lid").at("parent"), NodeNamed(result.json, "World").at("id"));
}

TEST(ImplicitShapes, SizesWithoutASurfaceSkipTheShapeWithAWarning)
{
    const char* const cases[] = {
        "def Cube \"Shape\" { double size = -1 }",
        "def Cube \"Shape\" { double size = 0 }",
        "def Cube \"Shape\" { double size = nan }",
        "def Sphere \"Shape\" { double radius = inf }",
        // Beyond single precision, and below its smallest normal number.
        "def Sphere \"Shape\" { double radius = 1e39 }",
        "def Sphere \"Shape\" { double radius = 1e-50 }",
        "def Cylinder \"Shape\" { double height = -2 }",
        "def Cone \"Shape\" { double radius = -inf }",
        "def Capsule \"Shape\" { double radius = 0 }",
        "def Capsule \"Shape\" { double height = -0.5 }",
        // Each fits single precision, their sum does not.
        "def Capsule \"Shape\" { double height = 6e38\n double radius = 3e38 }",
        "def Plane \"Shape\" { double width = 0 }",
        "def Plane \"Shape\" { double length = 1e300 }",
        "def Cube \"Shape\" { string size = \"large\" }",
    };
    for (const char* prim : cases) {
        SCOPED_TRACE(prim);
        TfDiagnosticCapture capture;
        const ImportResult result = ImportText(ZUpScene(std::string(prim) + "\ndef Xform \"After\" {}\n"));
        EXPECT_TRUE(NodeNamed(result.json, "Shape").is_null());
        EXPECT_FALSE(NodeNamed(result.json, "After").is_null());
        EXPECT_TRUE(capture.Contains(TF_DIAGNOSTIC_WARNING_TYPE, "</Shape>"));
    }
}

TEST(ImplicitShapes, ACapsuleWithoutHeightIsASphereAndAnUnknownAxisIsZ)
{
    const CTavrinJson capsule = ImportShape("def Capsule \"Shape\" { double height = 0\n double radius = 1 }");
    for (const Vector& p : VectorsOf(capsule.at("geometry").at("vertices")))
        EXPECT_NEAR(Length(p), 1.0, 1e-6);

    TfDiagnosticCapture capture;
    const CTavrinJson cylinder =
        ImportShape("def Cylinder \"Shape\" { double height = 4\n uniform token axis = \"sideways\" }");
    EXPECT_TRUE(capture.Contains(TF_DIAGNOSTIC_WARNING_TYPE, "sideways"));
    double highest = 0.0;
    for (const Vector& p : VectorsOf(cylinder.at("geometry").at("vertices")))
        highest = std::max(highest, p[2]);
    EXPECT_EQ(highest, 2.0);
}

} // namespace
