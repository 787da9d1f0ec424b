#include "usdcore/gf/math.h"
#include "usdcore/gf/vec2i.h"
#include "usdcore/gf/vec3d.h"
#include "usdcore/gf/vec3f.h"
#include "usdcore/gf/vec3h.h"
#include "usdcore/gf/vec4d.h"

#include <gtest/gtest.h>

#include <sstream>
#include <type_traits>

PXR_NAMESPACE_USING_DIRECTIVE

TEST(GfVec, ArithmeticDotAndCross)
{
    const GfVec3d a(1, 2, 3), b(4, -5, 6);
    EXPECT_EQ(a + b, GfVec3d(5, -3, 9));
    EXPECT_EQ(a - b, GfVec3d(-3, 7, -3));
    EXPECT_EQ(a * 2.0, GfVec3d(2, 4, 6));
    EXPECT_EQ(2.0 * a, GfVec3d(2, 4, 6));
    EXPECT_EQ(b / 2.0, GfVec3d(2, -2.5, 3));
    EXPECT_EQ(-a, GfVec3d(-1, -2, -3));
    EXPECT_EQ(GfDot(a, b), 4 - 10 + 18);
    EXPECT_EQ(a * b, 12); // operator* of two vectors is the dot product
    // (2*6 - 3*-5, 3*4 - 1*6, 1*-5 - 2*4)
    EXPECT_EQ(GfCross(a, b), GfVec3d(27, 6, -13));
    EXPECT_EQ(a ^ b, GfVec3d(27, 6, -13));
    EXPECT_EQ(GfCross(GfVec3d::XAxis(), GfVec3d::YAxis()), GfVec3d::ZAxis());
    EXPECT_EQ(GfCompMult(a, b), GfVec3d(4, -10, 18));
}

TEST(GfVec, LengthAndNormalization)
{
    GfVec3f v(3, 0, 4);
    EXPECT_FLOAT_EQ(v.GetLength(), 5.0f);
    EXPECT_EQ(v.GetNormalized(), GfVec3f(0.6f, 0, 0.8f));
    EXPECT_FLOAT_EQ(v.Normalize(), 5.0f);
    EXPECT_FLOAT_EQ(v.GetLength(), 1.0f);
    const GfVec3d zero(0.0);
    EXPECT_EQ(zero.GetNormalized(), zero); // no NaN from a zero vector
    EXPECT_EQ(GfVec3d(2, 3, 0).GetProjection(GfVec3d::XAxis()), GfVec3d(2, 0, 0));
    EXPECT_EQ(GfVec3d(2, 3, 0).GetComplement(GfVec3d::XAxis()), GfVec3d(0, 3, 0));
}

TEST(GfVec, ConversionsWidenImplicitlyOnly)
{
    static_assert(std::is_convertible<GfVec3f, GfVec3d>::value, "");
    static_assert(std::is_convertible<GfVec3h, GfVec3f>::value, "");
    static_assert(!std::is_convertible<GfVec3d, GfVec3f>::value, "");
    static_assert(std::is_constructible<GfVec3f, GfVec3d>::value, "");
    static_assert(!std::is_constructible<GfVec2i, GfVec3d>::value, "");
    const GfVec3d d = GfVec3f(0.5f, 1, 2);
    EXPECT_EQ(d, GfVec3d(0.5, 1, 2));
    const GfVec3h h(GfVec3f(1.0f / 3.0f, 2, 65504));
    EXPECT_EQ(h[0].bits(), 0x3555);
    EXPECT_EQ(GfVec3f(h)[2], 65504.0f);
}

TEST(GfVec, AccessAndClose)
{
    GfVec4d v(1, 2, 3, 4);
    v[3] = 8;
    EXPECT_EQ(v.GetArray()[3], 8);
    EXPECT_EQ(GfVec4d::WAxis(), GfVec4d(0, 0, 0, 1));
    EXPECT_TRUE(GfIsClose(GfVec3d(1, 1, 1), GfVec3d(1, 1, 1.0005), 1e-3));
    EXPECT_FALSE(GfIsClose(GfVec3d(1, 1, 1), GfVec3d(1, 1, 1.01), 1e-3));
    std::ostringstream out;
    out << GfVec2i(3, -4);
    EXPECT_EQ(out.str(), "(3, -4)");
    EXPECT_EQ(GfVec2i(7, 9) / 2.0, GfVec2i(3, 4)); // int vectors truncate
}

TEST(GfMath, AnglesLerpAndClose)
{
    EXPECT_DOUBLE_EQ(GfDegreesToRadians(180), M_PI);
    EXPECT_DOUBLE_EQ(GfRadiansToDegrees(M_PI / 2), 90);
    EXPECT_TRUE(GfIsClose(1.0, 1.0 + 1e-7, 1e-6));
    EXPECT_FALSE(GfIsClose(1.0, 1.1, 1e-6));
    EXPECT_EQ(GfLerp(0.25, 2.0, 6.0), 3.0);
    EXPECT_EQ(GfLerp(0.5, GfVec3f(0, 0, 0), GfVec3f(2, 4, -6)), GfVec3f(1, 2, -3));
}
