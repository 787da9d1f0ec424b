#include <gtest/gtest.h>

#include <memory>

#include "host/CTavrinDocument.h"
#include "host/CTavrinGeometry.h"
#include "host/CTavrinMaterial.h"
#include "host/CTavrinTransform.h"

using namespace Tavrin;

namespace {
struct DocumentTest : ::testing::Test {
    std::unique_ptr<CTavrinDocument> document{CTavrinDocument::Create(true)};
};
} // namespace

TEST_F(DocumentTest, NodesStartAsRootsAndHangUnderTheirParent)
{
    CTavrinTransformNode* world = CTavrinTransformNode::Create(document.get());
    CTavrin3DObject* mesh = CTavrin3DObject::Create(document.get());
    CTavrinTransformNode* lonely = CTavrinTransformNode::Create(document.get());
    EXPECT_EQ(mesh->SetParent(world), world->ID());

    std::vector<CTavrinSceneNode*> roots;
    document->ListRootSceneNodes(roots);
    EXPECT_EQ(roots, (std::vector<CTavrinSceneNode*>{world, lonely}));
    EXPECT_EQ(world->Children(), (std::vector<CTavrinSceneNode*>{mesh}));
    EXPECT_EQ(document->SceneNodes(), (std::vector<CTavrinSceneNode*>{world, mesh, lonely}));
}

TEST_F(DocumentTest, ReparentingMovesTheNodeAndCyclesAreRefused)
{
    CTavrinTransformNode* a = CTavrinTransformNode::Create(document.get());
    CTavrinTransformNode* b = CTavrinTransformNode::Create(document.get());
    CTavrinTransformNode* c = CTavrinTransformNode::Create(document.get());
    b->SetParent(a);
    c->SetParent(b);
    EXPECT_TRUE(a->SetParent(c).IsDefault());
    EXPECT_EQ(a->Parent(), nullptr);
    EXPECT_TRUE(a->SetParent(a).IsDefault());

    c->SetParent(a);
    EXPECT_TRUE(b->Children().empty());
    EXPECT_EQ(a->Children(), (std::vector<CTavrinSceneNode*>{b, c}));
    c->SetParent(nullptr);
    EXPECT_EQ(c->Parent(), nullptr);
    EXPECT_EQ(a->Children(), (std::vector<CTavrinSceneNode*>{b}));
}

TEST_F(DocumentTest, LocalTransformExistsFromTheFirstLocalMatrix)
{
    CTavrinTransformNode* node = CTavrinTransformNode::Create(document.get());
    EXPECT_EQ(node->LocalTransform(), nullptr);
    node->SetLocalMatrix(CTavrinMatrix::CreateTranslation(1, 2, 3));
    CTavrinTransform* transform = node->LocalTransform();
    ASSERT_NE(transform, nullptr);
    EXPECT_EQ(transform->Matrix(), CTavrinMatrix::CreateTranslation(1, 2, 3));
    node->SetLocalMatrix(CTavrinMatrix::CreateScalling(2, 2, 2));
    EXPECT_EQ(node->LocalTransform(), transform);
    EXPECT_EQ(transform->Matrix(), CTavrinMatrix::CreateScalling(2, 2, 2));
    EXPECT_TRUE(transform->UniformizationMatrix().IsIdentity());
}

TEST_F(DocumentTest, IdsResolveWhileTheDocumentLives)
{
    CTavrinSkeletonJoint* joint = CTavrinSkeletonJoint::Create(document.get());
    const CTavrinID id = joint->ID();
    EXPECT_FALSE(id.IsDefault());
    EXPECT_EQ(id.Entity(), joint);
    EXPECT_EQ(id.Document(), document.get());
    EXPECT_EQ(id.EntityType(), ENTITY_SKELETON_JOINT);
    EXPECT_TRUE(joint->GetGuid().IsValid());

    CTavrinID copy = id;
    copy.setDefault();
    EXPECT_TRUE(copy.IsDefault());
    EXPECT_EQ(copy.Entity(), nullptr);
    EXPECT_TRUE(copy < id);

    document.reset();
    EXPECT_EQ(id.Entity(), nullptr);
    EXPECT_EQ(id.EntityType(), ENTITY_NONE);
}

TEST_F(DocumentTest, SkeletonRootIsTheTopJointAboveAJoint)
{
    CTavrinTransformNode* skelRoot = CTavrinTransformNode::Create(document.get());
    CTavrinSkeletonJoint* hips = CTavrinSkeletonJoint::Create(document.get());
    CTavrinSkeletonJoint* spine = CTavrinSkeletonJoint::Create(document.get());
    hips->SetParent(skelRoot);
    spine->SetParent(hips);
    EXPECT_EQ(spine->FindSkeletonRoot(), hips);
    EXPECT_EQ(hips->FindSkeletonRoot(), hips);
    EXPECT_EQ(spine->InvBindMatrix(), nullptr);
    spine->SetInvBindMatrix(CTavrinMatrix::CreateTranslation(0, -1, 0));
    ASSERT_NE(spine->InvBindMatrix(), nullptr);
    EXPECT_EQ(spine->InvBindMatrix()->M(1, 3), -1);
}

TEST_F(DocumentTest, VectorTablesAppendAndOverwriteInPlace)
{
    CTavrinVerticiesNormalsTable* normals = CTavrinVerticiesNormalsTable::Create(document.get(), true);
    normals->AddVertex(0, 0, 1);
    normals->AddVertex(0, 1, 0);
    EXPECT_EQ(normals->GetCount(), 2);
    EXPECT_TRUE(normals->SetVertex(1, {1, 0, 0}));
    EXPECT_EQ(*normals->GetVertex(1), CTavrin3DVertex(1, 0, 0));
    EXPECT_FALSE(normals->SetVertex(2, {1, 0, 0}));
    EXPECT_EQ(normals->GetVertex(2), nullptr);
    EXPECT_EQ(normals->GetVertex(-1), nullptr);

    CTavrinTextureCoordinatesTable* uvs = CTavrinTextureCoordinatesTable::Create(document.get(), true);
    uvs->AddCoordinate(0.25, 0.75);
    EXPECT_TRUE(uvs->SetCoordinate(0, 0.5, 0.5));
    EXPECT_EQ(uvs->GetCoordinate(0)->U(), 0.5);
    EXPECT_FALSE(uvs->SetCoordinate(1, 0, 0));
    EXPECT_EQ(uvs->GetCoordinate(1), nullptr);
}

TEST_F(DocumentTest, RigWeightsByVertexWithLaterWeightReplacingEarlier)
{
    CTavrinSkeletonJoint* hips = CTavrinSkeletonJoint::Create(document.get());
    CTavrinSkeletonJoint* spine = CTavrinSkeletonJoint::Create(document.get());
    CTavrinRigGeometryTable* rig = CTavrinRigGeometryTable::Create(document.get());
    rig->SetSkeletonJointData(hips, 4, 0.5);
    rig->SetSkeletonJointData(spine, 4, 0.5);
    rig->SetSkeletonJointData(hips, 1, 1.0);
    rig->SetSkeletonJointData(hips, 4, 0.25);

    const auto four = rig->GetSkeletonJointWeight(4);
    ASSERT_EQ(four.size(), 2u);
    EXPECT_EQ(four.at(hips), 0.25);
    EXPECT_EQ(four.at(spine), 0.5);
    EXPECT_EQ(rig->GetSkeletonJointWeight(1).at(hips), 1.0);
    EXPECT_TRUE(rig->GetSkeletonJointWeight(2).empty());
    EXPECT_EQ(rig->Entries().size(), 3u);
}

TEST_F(DocumentTest, MaterialRecordsOnlyTheValuesAssigned)
{
    CTavrinMaterial* material = CTavrinMaterial::Create(document.get());
    CTavrinBasicGeneralMaterial* basic = CTavrinBasicGeneralMaterial::Create();
    basic->SetColor(1, 0.5, 0, 1.0, true);
    basic->SetColor(0.2, 0.3, 0.4, 1.0, true);
    basic->DisplacementAmount = 0.125;
    material->LoadBasicMaterial(basic, false);

    const CTavrinMaterialValues& values = material->BasicMaterial()->Values();
    EXPECT_TRUE(values.WasAssigned(enumMaterialValue::Color));
    EXPECT_EQ(values.Value(enumMaterialValue::Color), (std::array<double, 3>{0.2, 0.3, 0.4}));
    EXPECT_TRUE(values.WasAssigned(enumMaterialValue::DisplacementAmount));
    EXPECT_EQ(double(basic->DisplacementAmount), 0.125);
    EXPECT_FALSE(values.WasAssigned(enumMaterialValue::Alpha));
    // Unassigned values keep the host's default.
    EXPECT_EQ(values.Value(enumMaterialValue::Alpha)[0], 1.0);
}

TEST(Texture, FileNameOperations)
{
    CTavrinTexture texture;
    EXPECT_TRUE(texture.IsEmpty());
    texture.SetFilename("/maps/wood.png", false);
    EXPECT_FALSE(texture.IsEmpty());
    EXPECT_EQ(texture.Filename(), CTavrinString("wood.png"));
    EXPECT_EQ(texture.FullFilename(false), CTavrinString("/maps/wood"));
    texture.Clear();
    EXPECT_TRUE(texture.IsEmpty());
}
