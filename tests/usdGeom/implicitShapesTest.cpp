// The implicit shape schemas: their fallbacks, and the extents their sizes
// give.

#include "geomTestUtils.h"

#include "usdcore/usdGeom/capsule.h"
#include "usdcore/usdGeom/cone.h"
#include "usdcore/usdGeom/cube.h"
#include "usdcore/usdGeom/cylinder.h"
#include "usdcore/usdGeom/plane.h"
#include "usdcore/usdGeom/sphere.h"
#include "usdcore/usdGeom/tokens.h"
#include "usdcore/vt/types.h"

#include <gmock/gmock.h>

#include <cmath>
#include <limits>

using namespace geomtest;

namespace {

const char* const kScene = R"(
def Cube "Cube" {}
def Sphere "Sphere" {}
def Cylinder "Cylinder" {}
def Cone "Cone" {}
def Capsule "Capsule" {}
def Plane "Plane" {}
def Cube "Sized" {
    double size = 5
}
)";

double DoubleOf(const UsdAttribute& attribute)
{
    double value = std::numeric_limits<double>::quiet_NaN();
    EXPECT_TRUE(attribute.Get(&value)) << attribute.GetName().GetString();
    return value;
}

TfToken TokenOf(const UsdAttribute& attribute)
{
    TfToken value;
    EXPECT_TRUE(attribute.Get(&value)) << attribute.GetName().GetString();
    return value;
}

VtVec3fArray ExtentOf(const UsdGeomBoundable& boundable)
{
    VtVec3fArray extent;
    EXPECT_TRUE(boundable.GetExtentAttr().Get(&extent));
    return extent;
}

VtVec3fArray Box(float minX, float minY, float minZ, float maxX, float maxY, float maxZ)
{
    return VtVec3fArray{GfVec3f(minX, minY, minZ), GfVec3f(maxX, maxY, maxZ)};
}

} // namespace

TEST(ImplicitShapes, UnauthoredAttributesReadTheSchemasFallbacks)
{
    const UsdStageRefPtr stage = StageFromText(kScene);
    ASSERT_TRUE(stage);
    const UsdGeomCube cube = UsdGeomCube::Get(stage, SdfPath("/Cube"));
    ASSERT_TRUE(cube);
    EXPECT_EQ(DoubleOf(cube.GetSizeAttr()), 2.0);
    EXPECT_EQ(ExtentOf(cube), Box(-1, -1, -1, 1, 1, 1));
    EXPECT_EQ(DoubleOf(UsdGeomCube::Get(stage, SdfPath("/Sized")).GetSizeAttr()), 5.0);

    const UsdGeomSphere sphere = UsdGeomSphere::Get(stage, SdfPath("/Sphere"));
    ASSERT_TRUE(sphere);
    EXPECT_EQ(DoubleOf(sphere.GetRadiusAttr()), 1.0);
    EXPECT_EQ(ExtentOf(sphere), Box(-1, -1, -1, 1, 1, 1));

    const UsdGeomCylinder cylinder = UsdGeomCylinder::Get(stage, SdfPath("/Cylinder"));
    ASSERT_TRUE(cylinder);
    EXPECT_EQ(DoubleOf(cylinder.GetHeightAttr()), 2.0);
    EXPECT_EQ(DoubleOf(cylinder.GetRadiusAttr()), 1.0);
    EXPECT_EQ(TokenOf(cylinder.GetAxisAttr()), UsdGeomTokens->z);
    EXPECT_EQ(ExtentOf(cylinder), Box(-1, -1, -1, 1, 1, 1));

    const UsdGeomCone cone = UsdGeomCone::Get(stage, SdfPath("/Cone"));
    ASSERT_TRUE(cone);
    EXPECT_EQ(DoubleOf(cone.GetHeightAttr()), 2.0);
    EXPECT_EQ(DoubleOf(cone.GetRadiusAttr()), 1.0);
    EXPECT_EQ(TokenOf(cone.GetAxisAttr()), UsdGeomTokens->z);
    EXPECT_EQ(ExtentOf(cone), Box(-1, -1, -1, 1, 1, 1));

    const UsdGeomCapsule capsule = UsdGeomCapsule::Get(stage, SdfPath("/Capsule"));
    ASSERT_TRUE(capsule);
    EXPECT_EQ(DoubleOf(capsule.GetHeightAttr()), 1.0);
    EXPECT_EQ(DoubleOf(capsule.GetRadiusAttr()), 0.5);
    EXPECT_EQ(TokenOf(capsule.GetAxisAttr()), UsdGeomTokens->z);
    EXPECT_EQ(ExtentOf(capsule), Box(-0.5f, -0.5f, -1, 0.5f, 0.5f, 1));

    const UsdGeomPlane plane = UsdGeomPlane::Get(stage, SdfPath("/Plane"));
    ASSERT_TRUE(plane);
    EXPECT_EQ(DoubleOf(plane.GetWidthAttr()), 2.0);
    EXPECT_EQ(DoubleOf(plane.GetLengthAttr()), 2.0);
    EXPECT_EQ(TokenOf(plane.GetAxisAttr()), UsdGeomTokens->z);
    bool doubleSided = false;
    EXPECT_TRUE(plane.GetDoubleSidedAttr().Get(&doubleSided));
    EXPECT_TRUE(doubleSided);
    EXPECT_EQ(ExtentOf(plane), Box(-1, -1, 0, 1, 1, 0));
}

TEST(ImplicitShapes, EachSchemaAcceptsItsOwnPrimsOnly)
{
    const UsdStageRefPtr stage = StageFromText(kScene);
    ASSERT_TRUE(stage);
    EXPECT_TRUE(UsdGeomGprim::Get(stage, SdfPath("/Plane")));
    EXPECT_FALSE(UsdGeomCube::Get(stage, SdfPath("/Sphere")));
    EXPECT_FALSE(UsdGeomCylinder::Get(stage, SdfPath("/Cone")));
    EXPECT_FALSE(UsdGeomCapsule::Get(stage, SdfPath("/Cylinder")));
    EXPECT_FALSE(UsdGeomPlane::Get(stage, SdfPath("/Cube")));
}

TEST(ImplicitShapes, ExtentsFollowTheSizesAndTheAxis)
{
    // A height of 4 and a radius of 1: 2 either way along the axis, 1
    // across it; a capsule's hemispheres add the radius along the axis. A
    // plane 6 wide and 2 long faces its axis: width along X (along Z when
    // facing X), length along Y (along Z when facing Y).
    struct Case {
        const char* shape;
        TfToken axis;
        VtVec3fArray extent;
    };
    const Case cases[] = {
        {"Cylinder", UsdGeomTokens->x, Box(-2, -1, -1, 2, 1, 1)},
        {"Cylinder", UsdGeomTokens->y, Box(-1, -2, -1, 1, 2, 1)},
        {"Cylinder", UsdGeomTokens->z, Box(-1, -1, -2, 1, 1, 2)},
        {"Cone", UsdGeomTokens->x, Box(-2, -1, -1, 2, 1, 1)},
        {"Cone", UsdGeomTokens->y, Box(-1, -2, -1, 1, 2, 1)},
        {"Capsule", UsdGeomTokens->y, Box(-1, -3, -1, 1, 3, 1)},
        {"Capsule", UsdGeomTokens->z, Box(-1, -1, -3, 1, 1, 3)},
        {"Plane", UsdGeomTokens->x, Box(0, -1, -3, 0, 1, 3)},
        {"Plane", UsdGeomTokens->y, Box(-3, 0, -1, 3, 0, 1)},
        {"Plane", UsdGeomTokens->z, Box(-3, -1, 0, 3, 1, 0)},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(std::string(c.shape) + " along " + c.axis.GetString());
        VtVec3fArray extent;
        const std::string shape = c.shape;
        const bool computed = shape == "Cylinder" ? UsdGeomCylinder::ComputeExtent(4.0, 1.0, c.axis, &extent)
                              : shape == "Cone"   ? UsdGeomCone::ComputeExtent(4.0, 1.0, c.axis, &extent)
                              : shape == "Capsule" ? UsdGeomCapsule::ComputeExtent(4.0, 1.0, c.axis, &extent)
                                                   : UsdGeomPlane::ComputeExtent(6.0, 2.0, c.axis, &extent);
        EXPECT_TRUE(computed);
        EXPECT_EQ(extent, c.extent);
    }
    VtVec3fArray extent;
    EXPECT_TRUE(UsdGeomCube::ComputeExtent(3.0, &extent));
    EXPECT_EQ(extent, Box(-1.5f, -1.5f, -1.5f, 1.5f, 1.5f, 1.5f));
    EXPECT_TRUE(UsdGeomSphere::ComputeExtent(0.25, &extent));
    EXPECT_EQ(extent, Box(-0.25f, -0.25f, -0.25f, 0.25f, 0.25f, 0.25f));
}

TEST(ImplicitShapes, AnAxisOtherThanXYOrZHasNoExtent)
{
    VtVec3fArray extent = Box(7, 7, 7, 7, 7, 7);
    EXPECT_FALSE(UsdGeomCylinder::ComputeExtent(2.0, 1.0, TfToken("W"), &extent));
    EXPECT_FALSE(UsdGeomCone::ComputeExtent(2.0, 1.0, TfToken("x"), &extent));
    EXPECT_FALSE(UsdGeomCapsule::ComputeExtent(2.0, 1.0, TfToken(), &extent));
    EXPECT_FALSE(UsdGeomPlane::ComputeExtent(2.0, 1.0, TfToken("Zed"), &extent));
    EXPECT_EQ(extent, Box(7, 7, 7, 7, 7, 7));
}
