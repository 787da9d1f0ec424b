// The one conversion from USD's row-vector matrices to the host's
// column-vector matrices, and matrices authored in scenes.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/usdreader/ImportSupport.h"

PXR_NAMESPACE_USING_DIRECTIVE

using namespace Tavrin;
using namespace TavrinReaderTests;

namespace {

TEST(ConvertMatrix, TheTranslationMovesFromTheLastRowToTheLastColumn)
{
    CTavrinUSDReaderHandler handler;
    GfMatrix4d usd(1.0);
    usd.SetTranslate(GfVec3d(1, 2, 3));
    const CTavrinMatrix host = handler.ConvertMatrix(usd);
    EXPECT_EQ(host.M(0, 3), 1.0);
    EXPECT_EQ(host.M(1, 3), 2.0);
    EXPECT_EQ(host.M(2, 3), 3.0);
    EXPECT_EQ(host.M(3, 0), 0.0);
    EXPECT_EQ(host.M(3, 3), 1.0);
}

TEST(ConvertMatrix, EveryEntryIsTransposed)
{
    CTavrinUSDReaderHandler handler;
    const GfMatrix4d usd(1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16);
    const CTavrinMatrix host = handler.ConvertMatrix(usd);
    EXPECT_EQ(host, CTavrinMatrix(1, 5, 9, 13, 2, 6, 10, 14, 3, 7, 11, 15, 4, 8, 12, 16));
}

TEST(ConvertMatrix, AConvertedMatrixMovesPointsAsUSDDoes)
{
    CTavrinUSDReaderHandler handler;
    // Row vectors: a quarter turn about Z takes x to y, then a move by (5, 0, 0).
    const GfMatrix4d usd(0, 1, 0, 0, -1, 0, 0, 0, 0, 0, 1, 0, 5, 0, 0, 1);
    const CTavrin3DVertex moved = handler.ConvertMatrix(usd).TransformPoint(CTavrin3DVertex(1, 0, 0));
    EXPECT_DOUBLE_EQ(moved.X(), 5.0);
    EXPECT_DOUBLE_EQ(moved.Y(), 1.0);
    EXPECT_DOUBLE_EQ(moved.Z(), 0.0);
}

TEST(ConvertMatrix, AnAuthoredTransformOpAndAStackOfOpsGiveTheComposedMatrix)
{
    const ImportResult result = ImportText(R"(#usda 1.0
(
    upAxis = "Z"
    metersPerUnit = 1
)
def Xform "Authored" {
    matrix4d xformOp:transform = ((2, 0, 0, 0), (0, 3, 0, 0), (0, 0, 4, 0), (7, 8, 9, 1))
    uniform token[] xformOpOrder = ["xformOp:transform"]
}
def Xform "Stacked" {
    double3 xformOp:translate = (10, 0, 0)
    float xformOp:rotateZ = 90
    float3 xformOp:scale = (2, 2, 2)
    uniform token[] xformOpOrder = ["xformOp:translate", "xformOp:rotateZ", "xformOp:scale"]
}
)");
    EXPECT_EQ(NodeNamed(result.json, "Authored").at("localMatrix"),
              CTavrinJson::parse("[2,0,0,7, 0,3,0,8, 0,0,4,9, 0,0,0,1]"));
    // Scale first, then the turn, then the move: (1, 0, 0) -> (2, 0, 0) ->
    // (0, 2, 0) -> (10, 2, 0).
    const CTavrinJson m = NodeNamed(result.json, "Stacked").at("localMatrix");
    const double x = m.at(0).get<double>() + m.at(3).get<double>();
    const double y = m.at(4).get<double>() + m.at(7).get<double>();
    const double z = m.at(8).get<double>() + m.at(11).get<double>();
    EXPECT_NEAR(x, 10.0, 1e-9);
    EXPECT_NEAR(y, 2.0, 1e-9);
    EXPECT_NEAR(z, 0.0, 1e-9);
}

} // namespace
