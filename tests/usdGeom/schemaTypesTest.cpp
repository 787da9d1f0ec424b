// Schema views over prims: which prims a view accepts, and the attributes
// each geometry schema reads.

#include "geomTestUtils.h"

#include "usdcore/usdGeom/mesh.h"
#include "usdcore/usdGeom/scope.h"
#include "usdcore/usdGeom/subset.h"
#include "usdcore/usdGeom/xform.h"
#include "usdcore/vt/types.h"

#include <gmock/gmock.h>

using namespace geomtest;
using ::testing::ElementsAre;

namespace {

const char* const kScene = R"(
def Xform "World" {
    def Mesh "Box" {
        int[] faceVertexCounts = [4]
        int[] faceVertexIndices = [0, 1, 2, 3]
        point3f[] points = [(0, 0, 0), (1, 0, 0), (1, 1, 0), (0, 1, 0)]
        uniform token orientation = "leftHanded"
        normal3f[] normals = [(0, 0, 1)] (
            interpolation = "constant"
        )
        def GeomSubset "Top" {
            uniform token elementType = "face"
            int[] indices = [0]
            uniform token familyName = "materialBind"
        }
        def Scope "NotASubset" {}
        def GeomSubset "Bare" {}
    }
    def Mesh "Plain" {}
    def Scope "Looks" {}
}
)";

class SchemaTypes : public ::testing::Test
{
protected:
    void SetUp() override { ASSERT_TRUE(stage); }
    UsdPrim Prim(const char* path) const { return stage->GetPrimAtPath(SdfPath(path)); }

    UsdStageRefPtr stage = StageFromText(kScene);
};

} // namespace

TEST_F(SchemaTypes, ViewAcceptsItsTypeAndDerivedTypes)
{
    const UsdPrim mesh = Prim("/World/Box");
    const UsdPrim xform = Prim("/World");
    EXPECT_TRUE(UsdGeomMesh(mesh));
    EXPECT_TRUE(UsdGeomPointBased(mesh));
    EXPECT_TRUE(UsdGeomGprim(mesh));
    EXPECT_TRUE(UsdGeomBoundable(mesh));
    EXPECT_TRUE(UsdGeomXformable(mesh));
    EXPECT_TRUE(UsdGeomImageable(mesh));
    EXPECT_TRUE(UsdTyped(mesh));
    EXPECT_FALSE(UsdGeomXform(mesh));

    EXPECT_TRUE(UsdGeomXform(xform));
    EXPECT_TRUE(UsdGeomXformable(xform));
    EXPECT_FALSE(UsdGeomMesh(xform));
    EXPECT_FALSE(UsdGeomBoundable(xform));

    const UsdPrim scope = Prim("/World/Looks");
    EXPECT_TRUE(UsdGeomScope(scope));
    EXPECT_TRUE(UsdGeomImageable(scope));
    EXPECT_FALSE(UsdGeomXformable(scope));

    const UsdPrim subset = Prim("/World/Box/Top");
    EXPECT_TRUE(UsdGeomSubset(subset));
    EXPECT_FALSE(UsdGeomImageable(subset));
}

TEST_F(SchemaTypes, ViewOfMissingPrimIsFalse)
{
    EXPECT_FALSE(UsdGeomMesh());
    EXPECT_FALSE(UsdGeomXformable(Prim("/Nowhere")));
    EXPECT_FALSE(UsdGeomMesh::Get(stage, SdfPath("/Nowhere")));
}

TEST_F(SchemaTypes, GetFindsThePrimByPath)
{
    const UsdGeomMesh mesh = UsdGeomMesh::Get(stage, SdfPath("/World/Box"));
    EXPECT_TRUE(mesh);
    EXPECT_EQ(mesh.GetPath(), SdfPath("/World/Box"));
    EXPECT_EQ(mesh.GetPrim(), Prim("/World/Box"));
    EXPECT_TRUE(UsdGeomXform::Get(stage, SdfPath("/World")));
    EXPECT_FALSE(UsdGeomXform::Get(stage, SdfPath("/World/Box")));
    EXPECT_TRUE(UsdGeomSubset::Get(stage, SdfPath("/World/Box/Top")));
    EXPECT_FALSE(UsdGeomSubset::Get(stage, SdfPath("/World/Box/NotASubset")));
}

TEST_F(SchemaTypes, GetWithoutStageIsACodingError)
{
    TfDiagnosticCapture capture;
    EXPECT_FALSE(UsdGeomMesh::Get(UsdStagePtr(), SdfPath("/World/Box")));
    EXPECT_EQ(capture.Count(TF_DIAGNOSTIC_CODING_ERROR_TYPE), 1u);
}

TEST_F(SchemaTypes, ViewOfAnotherViewKeepsThePrim)
{
    const UsdGeomMesh mesh(Prim("/World/Box"));
    const UsdGeomXformable xformable(mesh);
    EXPECT_TRUE(xformable);
    EXPECT_EQ(xformable.GetPath(), SdfPath("/World/Box"));
    EXPECT_FALSE(UsdGeomXform(mesh));
    EXPECT_TRUE(Prim("/World/Box").IsA<UsdGeomPointBased>());
    EXPECT_FALSE(Prim("/World").IsA<UsdGeomPointBased>());
}

TEST_F(SchemaTypes, MeshAttributesReadAuthoredValues)
{
    const UsdGeomMesh mesh = UsdGeomMesh::Get(stage, SdfPath("/World/Box"));
    VtIntArray counts, indices;
    EXPECT_TRUE(mesh.GetFaceVertexCountsAttr().Get(&counts));
    EXPECT_THAT(std::vector<int>(counts.begin(), counts.end()), ElementsAre(4));
    EXPECT_TRUE(mesh.GetFaceVertexIndicesAttr().Get(&indices));
    EXPECT_THAT(std::vector<int>(indices.begin(), indices.end()), ElementsAre(0, 1, 2, 3));
    VtVec3fArray points;
    EXPECT_TRUE(mesh.GetPointsAttr().Get(&points));
    ASSERT_EQ(points.size(), 4u);
    EXPECT_EQ(points[2], GfVec3f(1, 1, 0));
    TfToken orientation;
    EXPECT_TRUE(mesh.GetOrientationAttr().Get(&orientation));
    EXPECT_EQ(orientation, UsdGeomTokens->leftHanded);
    EXPECT_EQ(mesh.GetPointsAttr().GetName(), UsdGeomTokens->points);
    EXPECT_EQ(mesh.GetDisplayColorAttr().GetName(), TfToken("primvars:displayColor"));
}

TEST_F(SchemaTypes, MeshAttributesFallBackWhenUnauthored)
{
    const UsdGeomMesh mesh = UsdGeomMesh::Get(stage, SdfPath("/World/Plain"));
    TfToken token;
    EXPECT_TRUE(mesh.GetSubdivisionSchemeAttr().Get(&token));
    EXPECT_EQ(token, UsdGeomTokens->catmullClark);
    EXPECT_TRUE(mesh.GetOrientationAttr().Get(&token));
    EXPECT_EQ(token, UsdGeomTokens->rightHanded);
    EXPECT_TRUE(mesh.GetInterpolateBoundaryAttr().Get(&token));
    EXPECT_EQ(token, UsdGeomTokens->edgeAndCorner);
    EXPECT_TRUE(mesh.GetFaceVaryingLinearInterpolationAttr().Get(&token));
    EXPECT_EQ(token, UsdGeomTokens->cornersPlus1);
    EXPECT_TRUE(mesh.GetPurposeAttr().Get(&token));
    EXPECT_EQ(token, UsdGeomTokens->default_);
    EXPECT_TRUE(mesh.GetVisibilityAttr().Get(&token));
    EXPECT_EQ(token, UsdGeomTokens->inherited);

    // Declared by the schema but without a fallback: valid, no value.
    VtVec3fArray points;
    EXPECT_TRUE(mesh.GetPointsAttr());
    EXPECT_FALSE(mesh.GetPointsAttr().Get(&points));
    VtIntArray counts;
    EXPECT_FALSE(mesh.GetFaceVertexCountsAttr().Get(&counts));
}

TEST_F(SchemaTypes, NormalsInterpolationIsMetadataOrVertex)
{
    EXPECT_EQ(UsdGeomMesh::Get(stage, SdfPath("/World/Box")).GetNormalsInterpolation(), UsdGeomTokens->constant);
    EXPECT_EQ(UsdGeomMesh::Get(stage, SdfPath("/World/Plain")).GetNormalsInterpolation(), UsdGeomTokens->vertex);
}

TEST_F(SchemaTypes, SubsetAttributesAndFallbacks)
{
    const UsdGeomSubset top = UsdGeomSubset::Get(stage, SdfPath("/World/Box/Top"));
    TfToken token;
    EXPECT_TRUE(top.GetFamilyNameAttr().Get(&token));
    EXPECT_EQ(token, TfToken("materialBind"));
    VtIntArray indices;
    EXPECT_TRUE(top.GetIndicesAttr().Get(&indices));
    EXPECT_THAT(std::vector<int>(indices.begin(), indices.end()), ElementsAre(0));

    const UsdGeomSubset bare = UsdGeomSubset::Get(stage, SdfPath("/World/Box/Bare"));
    EXPECT_TRUE(bare.GetElementTypeAttr().Get(&token));
    EXPECT_EQ(token, UsdGeomTokens->face);
    EXPECT_TRUE(bare.GetFamilyNameAttr().Get(&token));
    EXPECT_EQ(token, TfToken(""));
    EXPECT_TRUE(bare.GetIndicesAttr().Get(&indices));
    EXPECT_TRUE(indices.empty());
}

TEST_F(SchemaTypes, AllGeomSubsetsAreTheSubsetChildrenInOrder)
{
    const std::vector<UsdGeomSubset> subsets =
        UsdGeomSubset::GetAllGeomSubsets(UsdGeomMesh::Get(stage, SdfPath("/World/Box")));
    ASSERT_EQ(subsets.size(), 2u);
    EXPECT_EQ(subsets[0].GetPath(), SdfPath("/World/Box/Top"));
    EXPECT_EQ(subsets[1].GetPath(), SdfPath("/World/Box/Bare"));
    EXPECT_TRUE(UsdGeomSubset::GetAllGeomSubsets(UsdGeomMesh::Get(stage, SdfPath("/World/Plain"))).empty());
}
