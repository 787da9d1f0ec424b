#include <gtest/gtest.h>

#include <memory>

#include "host/CTavrinDocument.h"
#include "host/CTavrinDocumentJson.h"
#include "host/CTavrinGeometry.h"
#include "host/CTavrinMaterial.h"

using namespace Tavrin;

namespace {

// World(0) > Hips(1) > Spine(3), World > Cube(2): a skinned triangle with a
// material, nodes numbered in creation order.
struct SmallScene {
    std::unique_ptr<CTavrinDocument> document{CTavrinDocument::Create(true)};
    CTavrinSkeletonJoint* spine = nullptr;

    SmallScene()
    {
        CTavrinDocument* d = document.get();
        CTavrinTransformNode* world = CTavrinTransformNode::Create(d);
        world->SetName("World");
        world->SetParent(nullptr);
        world->SetLocalMatrix(CTavrinMatrix::CreateTranslation(1, 2, 3));

        CTavrinSkeletonJoint* hips = CTavrinSkeletonJoint::Create(d);
        hips->SetName("Hips");
        hips->SetParent(world);
        hips->SetInvBindMatrix(CTavrinMatrix::CreateTranslation(0, -1, 0));

        CTavrin3DObject* cube = CTavrin3DObject::Create(d);
        cube->SetName("Cube");
        cube->SetParent(world);

        spine = CTavrinSkeletonJoint::Create(d);
        spine->SetName("Spine");
        spine->SetParent(hips);

        CTavrinGeometry* geometry = CTavrinGeometry::Create(d);
        CTavrinVerticiesTable* vertices = CTavrinVerticiesTable::Create(d, true);
        vertices->AddVertex(0.1, 0, 0);
        vertices->AddVertex(1, 0, 0);
        vertices->AddVertex(0, 1, 0);
        geometry->SetVerticiesTable(vertices);
        CTavrinPolygonsTable* polygons = CTavrinPolygonsTable::Create(d);
        polygons->AddTriangle(0, 1, 2);
        geometry->SetPolygonsTable(polygons);
        CTavrinRigGeometryTable* rig = CTavrinRigGeometryTable::Create(d);
        rig->SetSkeletonJointData(spine, 1, 0.75);
        rig->SetSkeletonJointData(hips, 1, 0.25);
        rig->SetSkeletonJointData(hips, 0, 1.0);
        geometry->SetRigGeometryTable(rig);
        cube->SetGeometry(geometry);

        CTavrinTextureCoordinatesTable* uvs = CTavrinTextureCoordinatesTable::Create(d, true);
        uvs->AddCoordinate(0, 0);
        uvs->AddCoordinate(1, 0);
        uvs->AddCoordinate(0, 1);
        cube->SetTextureCoordinatesTable(uvs);

        CTavrinMaterial* material = CTavrinMaterial::Create(d);
        material->SetName("Red");
        CTavrinBasicGeneralMaterial* basic = CTavrinBasicGeneralMaterial::Create();
        basic->SetAlpha(0.5, true);
        basic->SetColor(1, 0, 0, 1.0, true);
        basic->NormalTexture = CTavrinTexture(CTavrinString("/t/n.png"));
        basic->SetTexture(CTavrinTexture(CTavrinString("/t/d.png")), TEXTURE_TYPE_DIFFUSE);
        basic->SetSpecularMap(CTavrinTexture());
        basic->DisplacementAmount = 0.125;
        material->LoadBasicMaterial(basic, false);
        cube->SetMaterial(material);
    }
};

} // namespace

TEST(DocumentJson, SmallSceneMatchesTheHandWrittenText)
{
    SmallScene scene;
    CTavrinImportRecord record;
    record.source = CTavrinString("robot.usda");
    record.progress = {{CTavrinString("Initilizing"), 1}, {CTavrinString("Done"), 100}};
    record.document = scene.document.get();
    const CTavrinSequenceJsonWriter sequence = [&scene](const CTavrinNodeIdLookup& nodeId) {
        return CTavrinJson{{"node", nodeId(scene.spine)}};
    };

    const std::string expected =
        R"({"format":"tavrin-document/1","source":"robot.usda",)"
        R"("progress":[["Initilizing",1],["Done",100]],"document":{"nodes":[)"
        R"({"id":0,"type":"TransformNode","name":"World","parent":null,)"
        R"("localMatrix":[1.0,0.0,0.0,1.0,0.0,1.0,0.0,2.0,0.0,0.0,1.0,3.0,0.0,0.0,0.0,1.0]},)"
        R"({"id":1,"type":"SkeletonJoint","name":"Hips","parent":0,"localMatrix":null,)"
        R"("invBindMatrix":[1.0,0.0,0.0,0.0,0.0,1.0,0.0,-1.0,0.0,0.0,1.0,0.0,0.0,0.0,0.0,1.0]},)"
        R"({"id":2,"type":"3DObject","name":"Cube","parent":0,"localMatrix":null,)"
        R"("material":{"name":"Red","set":{"Color":[1.0,0.0,0.0],"Alpha":0.5,"DisplacementAmount":0.125},)"
        R"("textures":{"Texture":"/t/d.png","NormalTexture":"/t/n.png"}},)"
        R"("geometry":{"vertices":[[0.1,0.0,0.0],[1.0,0.0,0.0],[0.0,1.0,0.0]],"normals":null,)"
        R"("triangles":[[0,1,2]],"rig":[[0,1,1.0],[1,1,0.25],[1,3,0.75]]},)"
        R"("textureCoordinates":[[0.0,0.0],[1.0,0.0],[0.0,1.0]]},)"
        R"({"id":3,"type":"SkeletonJoint","name":"Spine","parent":1,"localMatrix":null,"invBindMatrix":null}],)"
        R"("sequence":{"node":3}}})";
    EXPECT_EQ(ImportRecordToJson(record, sequence).dump(), expected);
}

TEST(DocumentJson, FailedImportHasNullDocument)
{
    CTavrinImportRecord record;
    record.source = CTavrinString("missing.usda");
    record.progress = {{CTavrinString("Initilizing"), 1}, {CTavrinString("Trying to read empty file"), -1}};
    EXPECT_EQ(ImportRecordToJson(record, nullptr).dump(),
              R"({"format":"tavrin-document/1","source":"missing.usda",)"
              R"("progress":[["Initilizing",1],["Trying to read empty file",-1]],"document":null})");
}

TEST(DocumentJson, MissingSequenceWriterAndUnattachedTablesWriteNull)
{
    std::unique_ptr<CTavrinDocument> document(CTavrinDocument::Create(true));
    CTavrin3DObject* object = CTavrin3DObject::Create(document.get());
    object->SetGeometry(CTavrinGeometry::Create(document.get()));
    const CTavrinJson json = DocumentToJson(*document, nullptr);
    EXPECT_EQ(json.dump(),
              R"({"nodes":[{"id":0,"type":"3DObject","name":"","parent":null,"localMatrix":null,)"
              R"("material":null,"geometry":{"vertices":[],"normals":null,"triangles":null,"rig":null},)"
              R"("textureCoordinates":null}],"sequence":null})");
}

TEST(DocumentJson, NumbersReadBackToTheSameDouble)
{
    std::unique_ptr<CTavrinDocument> document(CTavrinDocument::Create(true));
    CTavrinTransformNode* node = CTavrinTransformNode::Create(document.get());
    const double third = 1.0 / 3.0;
    node->SetLocalMatrix(CTavrinMatrix::CreateTranslation(third, 1e-300, -2.5e17));
    CTavrinImportRecord record;
    record.document = document.get();
    const CTavrinJson parsed = CTavrinJson::parse(ImportRecordToJsonText(record, nullptr));
    const auto& matrix = parsed["document"]["nodes"][0]["localMatrix"];
    EXPECT_EQ(matrix[3].get<double>(), third);
    EXPECT_EQ(matrix[7].get<double>(), 1e-300);
    EXPECT_EQ(matrix[11].get<double>(), -2.5e17);
    EXPECT_NE(ImportRecordToJsonText(record, nullptr).find("0.3333333333333333,"), std::string::npos);
}

TEST(DocumentJson, TextWrittenNodeByNodeIsTheIndentedDumpOfTheWhole)
{
    SmallScene scene;
    const CTavrinSequenceJsonWriter sequence = [&scene](const CTavrinNodeIdLookup& nodeId) {
        return CTavrinJson{{"node", nodeId(scene.spine)}, {"keys", {1, 2}}};
    };
    std::unique_ptr<CTavrinDocument> empty(CTavrinDocument::Create(true));
    const auto dumped = [](const CTavrinImportRecord& record, const CTavrinSequenceJsonWriter& writer) {
        return ImportRecordToJson(record, writer).dump(2, ' ', false, CTavrinJson::error_handler_t::replace);
    };
    CTavrinImportRecord record;
    record.source = CTavrinString("robot.usda");
    record.progress = {{CTavrinString("Initilizing"), 1}};
    const CTavrinDocument* documents[] = {scene.document.get(), empty.get(), nullptr};
    for (const CTavrinDocument* document : documents) {
        record.document = document;
        EXPECT_EQ(ImportRecordToJsonText(record, sequence), dumped(record, sequence));
        EXPECT_EQ(ImportRecordToJsonText(record, nullptr), dumped(record, nullptr));
    }
    // A name that is not UTF-8 is replaced, not thrown on.
    record.source = CTavrinString(std::string("bad\xff.usda"));
    EXPECT_EQ(ImportRecordToJsonText(record, nullptr), dumped(record, nullptr));
}
