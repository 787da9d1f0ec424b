// The host queries that the animation model relies on: what a transform
// places, joints and common parents above nodes, visiting the tree, the
// users of a material or of a vector table.

#include "AnimationTestEntities.h"
#include "host/CTavrinGeometry.h"
#include "host/CTavrinLight.h"
#include "host/CTavrinMaterial.h"
#include "host/CTavrinNodeQueries.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace Tavrin;

namespace {

class HostQueries : public ::testing::Test {
protected:
    template <class Node>
    Node* Under(CTavrinSceneNode* parent, const char* name) {
        Node* node = Node::Create(entities.Document());
        node->SetName(CTavrinString(name));
        node->SetParent(parent);
        return node;
    }

    AnimationTestEntities entities;
    CTavrinDocument* document = entities.Document();
};

// Records the names of the visited nodes; stops after stopAfter visits.
class NameRecorder : public CTavrinNodeVisitor {
public:
    explicit NameRecorder(int stopAfter = -1) : m_stopAfter(stopAfter) {}
    bool Visit(CTavrinSceneNode* node) override {
        names.push_back(node->Name().toStdString());
        return static_cast<int>(names.size()) != m_stopAfter;
    }
    std::vector<std::string> names;

private:
    int m_stopAfter;
};

} // namespace

TEST_F(HostQueries, TransformPlacesTheObjectsAndLightsBelowItsNodes) {
    CTavrinTransform* transform = entities.NewTransformEntity();
    auto* arm = Under<CTavrinTransformNode>(nullptr, "arm");
    arm->SetLocalTransform(transform);
    auto* hand = Under<CTavrin3DObject>(arm, "hand");
    auto* ring = Under<CTavrin3DObject>(hand, "ring");
    auto* lamp = Under<CTavrinLightSource>(hand, "lamp");
    Under<CTavrin3DObject>(nullptr, "elsewhere");
    EXPECT_EQ(ListAll3DObjectsThisTransformAffect(transform), (std::vector<CTavrin3DObject*>{hand, ring}));
    EXPECT_EQ(ListAllLightSourcesThisTransformAffect(transform), (std::vector<CTavrinLightSource*>{lamp}));
    EXPECT_TRUE(ListAll3DObjectsThisTransformAffect(entities.NewTransformEntity()).empty());
}

TEST_F(HostQueries, NearestJointParentSkipsOtherNodes) {
    auto* hip = Under<CTavrinSkeletonJoint>(nullptr, "hip");
    auto* offset = Under<CTavrinTransformNode>(hip, "offset");
    auto* knee = Under<CTavrinSkeletonJoint>(offset, "knee");
    auto* shin = Under<CTavrin3DObject>(knee, "shin");
    EXPECT_EQ(GetNearestJointParent(shin), knee);
    EXPECT_EQ(GetNearestJointParent(knee), hip);
    EXPECT_EQ(GetNearestJointParent(hip), nullptr);
}

TEST_F(HostQueries, NearestCommonParent) {
    auto* root = Under<CTavrinTransformNode>(nullptr, "root");
    auto* left = Under<CTavrinTransformNode>(root, "left");
    auto* right = Under<CTavrinTransformNode>(root, "right");
    auto* leaf = Under<CTavrinTransformNode>(left, "leaf");
    auto* other = Under<CTavrinTransformNode>(nullptr, "other");
    EXPECT_EQ(NearestCommonParent(leaf, right), root);
    EXPECT_EQ(NearestCommonParent(leaf, left), left);
    EXPECT_EQ(NearestCommonParent(left, left), left);
    EXPECT_EQ(NearestCommonParent(leaf, other), nullptr);
}

TEST_F(HostQueries, PathToTheRoot) {
    auto* root = Under<CTavrinTransformNode>(nullptr, "root");
    auto* middle = Under<CTavrinTransformNode>(root, "middle");
    auto* leaf = Under<CTavrinTransformNode>(middle, "leaf");
    EXPECT_EQ(leaf->NodePathToRoot(true).Nodes(), (std::vector<CTavrinSceneNode*>{root, middle, leaf}));
    EXPECT_EQ(leaf->NodePathToRoot(false).Nodes(), (std::vector<CTavrinSceneNode*>{root, middle}));
    EXPECT_EQ(root->NodePathToRoot(false).Last(), nullptr);
}

TEST_F(HostQueries, VisitorGoesParentsFirstAndCanStop) {
    auto* root = Under<CTavrinTransformNode>(nullptr, "root");
    auto* left = Under<CTavrinTransformNode>(root, "left");
    Under<CTavrinTransformNode>(left, "leaf");
    Under<CTavrinTransformNode>(root, "right");
    Under<CTavrinTransformNode>(nullptr, "second root");
    NameRecorder all;
    EXPECT_TRUE(all.TraverseDocument(document));
    EXPECT_EQ(all.names, (std::vector<std::string>{"root", "left", "leaf", "right", "second root"}));
    NameRecorder subtree;
    EXPECT_TRUE(subtree.Traverse(left));
    EXPECT_EQ(subtree.names, (std::vector<std::string>{"left", "leaf"}));
    NameRecorder stopping(2);
    EXPECT_FALSE(stopping.TraverseDocument(document));
    EXPECT_EQ(stopping.names, (std::vector<std::string>{"root", "left"}));
}

TEST_F(HostQueries, MaterialUsersAndReplacement) {
    CTavrinMaterial* wood = CTavrinMaterial::Create(document);
    auto* table = Under<CTavrin3DObject>(nullptr, "table");
    auto* chair = Under<CTavrin3DObject>(nullptr, "chair");
    Under<CTavrin3DObject>(nullptr, "lamp");
    table->SetMaterial(wood);
    chair->SetMaterial(wood);
    EXPECT_EQ(wood->GetObjectsReferencingThisMaterial(), (std::vector<CTavrin3DObject*>{table, chair}));

    CTavrinBasicGeneralMaterial source;
    source.SetAlpha(0.25, true);
    wood->ReplaceWith(source);
    ASSERT_NE(wood->BasicMaterial(), nullptr);
    EXPECT_NE(wood->BasicMaterial(), &source);
    EXPECT_EQ(wood->BasicMaterial()->Values().Value(enumMaterialValue::Alpha)[0], 0.25);
}

TEST_F(HostQueries, GeometriesUsingAVectorTable) {
    CTavrinVerticiesTable* points = CTavrinVerticiesTable::Create(document, true);
    CTavrinVerticiesNormalsTable* normals = CTavrinVerticiesNormalsTable::Create(document, true);
    CTavrinGeometry* first = CTavrinGeometry::Create(document);
    CTavrinGeometry* second = CTavrinGeometry::Create(document);
    first->SetVerticiesTable(points);
    second->SetVerticiesTable(points);
    second->SetVerticiesNormalsTable(normals);
    EXPECT_EQ(points->ListGeometriesReferencingThisTable(), (std::vector<CTavrinGeometry*>{first, second}));
    EXPECT_EQ(normals->ListGeometriesReferencingThisTable(), (std::vector<CTavrinGeometry*>{second}));
}
