// Spherical camera key frame data: the views of each layout, the grid kept
// in range with one frame per view, its named data members, the archive
// record before and after the centre was stored, snapshots and blending.

#include "TavrinAnimation/src/TavrinKeyFrameDataTransformSphericalCamera.h"
#include "TavrinAnimation/src/TavrinKeyFrameManager.h"
#include "AnimationTestEntities.h"
#include "DataMemberNames.h"
#include "ArchiveTestSupport.h"
#include "MatrixExpectations.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace Tavrin;

namespace {

using SphericalPtr = CTavrinPtr<CTavrinKeyFrameDataTransformSphericalCamera>;

// Five units in front of the origin (+Z), looking at it.
CTavrinBasicCamera CameraOnZ(double distance = 5.0) {
    return CTavrinBasicCamera(CTavrin3DVertex(0, 0, distance), CTavrin3DVertex(0, 0, 0), CTavrin3DVertex(0, 1, 0));
}

SphericalPtr NewSpherical(int start, int layout, int rows, int columns, bool wrap = false) {
    SphericalPtr camera(new CTavrinKeyFrameDataTransformSphericalCamera(CTavrinID(), CameraOnZ()));
    camera->SetStartFrame(start, true);
    camera->SetGrid(layout, rows, columns, wrap);
    return camera;
}

CTavrin3DVertex PositionAt(CTavrinKeyFrameDataTransformSphericalCamera& camera, int frame) {
    camera.SetWorkingFrame(frame);
    return camera.BasicCamera().Position();
}

} // namespace

TEST(SphericalCameraViews, FactoryMakesOneViewAroundTheDefaultTarget) {
    CTavrinKeyFrameDataPtr data(CreateKeyFrameData(CTavrinID(), KEYFRAME_SPHERICAL_CAMERA));
    auto& camera = dynamic_cast<CTavrinKeyFrameDataTransformSphericalCamera&>(*data);
    EXPECT_EQ(camera.Type(), KEYFRAME_SPHERICAL_CAMERA);
    EXPECT_EQ(camera.LayoutType(), 0);
    EXPECT_EQ(camera.Rows(), 1);
    EXPECT_EQ(camera.Columns(), 1);
    EXPECT_FALSE(camera.VerticalWrap());
    EXPECT_EQ(camera.FieldOfView(), 30.0);
    ExpectPointNear(camera.Centre(), 0, 0, -1);
    ExpectMatrixNear(camera.Matrix(), CTavrinMatrix());
}

// The camera 5 units out on +Z looking at the origin, one view per frame from frame start.
TEST(SphericalCameraViews, EachLayoutVisitsItsViewsInOrder) {
    struct View {
        int frame;
        double x, y, z;
    };
    const struct {
        const char* name;
        int start, layout, rows, columns;
        bool wrap;
        int end;
        std::vector<View> views;
    } cases[] = {
        {"round table turns a quarter per frame", 10, 0, 1, 4, false, 13,
         {{10, 0, 0, 5}, {11, 5, 0, 0}, {12, 0, 0, -5}, {13, -5, 0, 0}}},
        {"hemisphere climbs from the horizon to the top", 0, 1, 2, 4, false, 7,
         {{1, 5, 0, 0}, {4, 0, 5, 0}, {5, 0, 5, 0}}},
        {"sphere runs from pole to pole", 0, 2, 3, 1, false, 2, {{0, 0, -5, 0}, {1, 0, 0, 5}, {2, 0, 5, 0}}},
        {"vertical wrap goes round over the top", 0, 2, 4, 1, true, 3,
         {{0, 0, 0, 5}, {1, 0, 5, 0}, {2, 0, 0, -5}, {3, 0, -5, 0}}},
    };
    for (const auto& test : cases) {
        SCOPED_TRACE(test.name);
        SphericalPtr camera = NewSpherical(test.start, test.layout, test.rows, test.columns, test.wrap);
        EXPECT_EQ(camera->EndFrame(), test.end);
        for (const View& view : test.views) {
            SCOPED_TRACE(view.frame);
            ExpectPointNear(PositionAt(*camera, view.frame), view.x, view.y, view.z);
            // Every view still looks at the centre.
            ExpectPointNear(camera->BasicCamera().LookAt(), 0, 0, 0);
        }
    }
}

TEST(SphericalCameraViews, ViewsTurnAboutTheCentre) {
    SphericalPtr camera = NewSpherical(0, 0, 1, 2);
    camera->SetCentre(CTavrin3DVertex(0, 0, 3));
    ExpectPointNear(PositionAt(*camera, 1), 0, 0, 1);
}

TEST(SphericalCameraGrid, GridIsBroughtIntoRange) {
    SphericalPtr camera = NewSpherical(4, 1, 1, 0);
    EXPECT_EQ(camera->Rows(), 2);
    EXPECT_EQ(camera->Columns(), 1);
    EXPECT_EQ(camera->EndFrame(), 5);
    camera->SetGrid(7, 0, 3, false);
    EXPECT_EQ(camera->LayoutType(), 2);
    EXPECT_EQ(camera->Rows(), 2);
    EXPECT_EQ(camera->EndFrame(), 9);
}

TEST(SphericalCameraMembers, LayoutDecidesWhichMembersExist) {
    SphericalPtr camera = NewSpherical(0, 0, 1, 4);
    EXPECT_EQ(MemberNames(*camera), (std::vector<std::string>{"Type", "Start Frame", "Columns"}));
    camera->SetGrid(1, 2, 4, false);
    EXPECT_EQ(MemberNames(*camera), (std::vector<std::string>{"Type", "Start Frame", "Columns", "Rows"}));
    camera->SetGrid(2, 2, 4, false);
    EXPECT_EQ(MemberNames(*camera),
              (std::vector<std::string>{"Type", "Start Frame", "Columns", "Rows", "Vertical Wrap"}));
    enumDataMemberType type = DATA_MEMBER_NONE;
    CTavrinString name;
    auto* text = static_cast<CTavrinString*>(camera->DataMember(0, type, name));
    EXPECT_EQ(type, DATA_MEMBER_STRING);
    EXPECT_EQ(text->toStdString(), "Spherical");
}

TEST(SphericalCameraMembers, EditsKeepOneFramePerView) {
    SphericalPtr camera = NewSpherical(10, 1, 2, 3);
    EXPECT_EQ(camera->EndFrame(), 15);
    ASSERT_TRUE(camera->DataMemberValueChanged(6, 2)); // columns
    EXPECT_EQ(camera->EndFrame(), 21);
    ASSERT_TRUE(camera->DataMemberValueChanged(20, 1)); // start frame
    EXPECT_EQ(camera->StartFrame(), 20);
    EXPECT_EQ(camera->EndFrame(), 31);
    ASSERT_TRUE(camera->DataMemberValueChanged(1, 3)); // rows: a hemisphere needs two
    EXPECT_EQ(camera->Rows(), 2);
    ASSERT_TRUE(camera->DataMemberValueChanged(0, 2)); // columns: at least one
    EXPECT_EQ(camera->Columns(), 1);
    EXPECT_EQ(camera->EndFrame(), 21);
}

TEST(SphericalCameraMembers, TypeIsReadOnly) {
    SphericalPtr camera = NewSpherical(0, 1, 2, 2);
    ASSERT_TRUE(camera->DataMemberValueChanged(CTavrinString("Spherical"), 0));
    EXPECT_EQ(camera->LayoutType(), 1);
    enumDataMemberType type = DATA_MEMBER_NONE;
    CTavrinString name;
    EXPECT_EQ(static_cast<CTavrinString*>(camera->DataMember(0, type, name))->toStdString(), "Hemispherical");
}

TEST(SphericalCameraViews, ApplyPlacesTheCameraTransformAtTheView) {
    AnimationTestEntities entities;
    CTavrinTransform* transform = entities.NewTransformEntity();
    SphericalPtr camera(new CTavrinKeyFrameDataTransformSphericalCamera(transform->ID(), CameraOnZ()));
    camera->SetGrid(0, 1, 4, false);
    camera->SetWorkingFrame(2);
    camera->Apply();
    EXPECT_NEAR(transform->Matrix().M(2, 3), -5.0, 1e-9);
    EXPECT_NEAR(transform->Matrix().M(0, 3), 0.0, 1e-9);
}

TEST(SphericalCameraCopies, SnapshotKeepsTheViewOfTheWorkingFrame) {
    SphericalPtr camera = NewSpherical(10, 0, 1, 4);
    camera->SetWorkingFrame(11);
    CTavrinKeyFrameDataPtr snapshot(camera->CreateCopy(true));
    auto& view = dynamic_cast<CTavrinKeyFrameDataTransformSphericalCamera&>(*snapshot);
    EXPECT_EQ(view.StartFrame(), 11);
    EXPECT_EQ(view.EndFrame(), 11);
    EXPECT_EQ(view.Columns(), 1);
    ExpectPointNear(view.BasicCamera().Position(), 5, 0, 0);
    ExpectPointNear(view.BasicCamera().LookAt(), 0, 0, 0);
}

TEST(SphericalCameraCopies, FullCopyAndRestoreKeepTheGrid) {
    SphericalPtr camera = NewSpherical(3, 2, 3, 2, true);
    camera->SetCentre(CTavrin3DVertex(1, 2, 3));
    CTavrinKeyFrameDataPtr copy(camera->CreateCopy(false));
    SphericalPtr other = NewSpherical(0, 0, 1, 1);
    ASSERT_TRUE(other->RestoreFromCopy(copy.get()));
    EXPECT_EQ(other->LayoutType(), 2);
    EXPECT_EQ(other->Rows(), 3);
    EXPECT_EQ(other->Columns(), 2);
    EXPECT_TRUE(other->VerticalWrap());
    ExpectPointNear(other->Centre(), 1, 2, 3);
    EXPECT_EQ(other->StartFrame(), 3);
    EXPECT_EQ(other->EndFrame(), 8);
}

TEST(SphericalCameraArchive, NewestRecordRoundTrips) {
    SphericalPtr camera = NewSpherical(2, 2, 3, 4, true);
    camera->SetCentre(CTavrin3DVertex(1, 2, 3));
    camera->SetFieldOfView(50);
    SphericalPtr read = NewSpherical(0, 0, 1, 1);
    ASSERT_TRUE(RoundTrip(*camera, *read));
    EXPECT_EQ(read->LayoutType(), 2);
    EXPECT_EQ(read->Rows(), 3);
    EXPECT_EQ(read->Columns(), 4);
    EXPECT_TRUE(read->VerticalWrap());
    ExpectPointNear(read->Centre(), 1, 2, 3);
    EXPECT_EQ(read->FieldOfView(), 50.0);
    EXPECT_EQ(read->StartFrame(), 2);
    EXPECT_EQ(read->EndFrame(), 13);
}

TEST(SphericalCameraArchive, FileOf10063HasNoCentre) {
    TestWriter writer(10063);
    RecordWriter out(writer.archive());
    out.ID(CTavrinID()).ID(CTavrinID()).Int(0).Int(3).Int(0).Int(0).Int(1); // base, legacy value, serial
    out.Matrix(Translation(0, 0, 5)).Vertex(CTavrin3DVertex()).Double(5).Double(360).Bool(false).Bool(false);
    out.Bool(false).Double(40);                   // field of view, no depth of field yet
    out.Int(1).Int(2).Int(2).Bool(false);         // hemisphere, 2 rows, 2 columns
    SphericalPtr read = NewSpherical(0, 0, 1, 1);
    read->SetCentre(CTavrin3DVertex(9, 9, 9));
    ASSERT_TRUE(ReadBack(writer, *read));
    ExpectPointNear(read->Centre(), 0, 0, 0);
    EXPECT_EQ(read->FieldOfView(), 40.0);
    EXPECT_EQ(read->LayoutType(), 1);
    ExpectPointNear(PositionAt(*read, 2), 0, 5, 0);
}

TEST(SphericalCameraArchive, FileOf10013KeptAWholeCamera) {
    TestWriter writer(10013);
    RecordWriter out(writer.archive());
    out.ID(CTavrinID()).ID(CTavrinID()).Int(0).Int(3).Int(0).Int(0).Int(1); // base, legacy value, serial
    out.Bool(false).Double(360);
    CTavrinBasicCamera stored = CameraOnZ(5);
    ASSERT_TRUE(writer.archive().ReadWrite(stored));
    out.Int(0).Int(1).Int(4).Bool(false); // round table of four columns, no centre yet
    SphericalPtr read = NewSpherical(0, 0, 1, 1);
    ASSERT_TRUE(ReadBack(writer, *read));
    EXPECT_EQ(read->Columns(), 4);
    EXPECT_NEAR(read->DistanceToTarget(), 5.0, 1e-12);
    // The views turn about the origin, where the stored camera looked.
    ExpectPointNear(PositionAt(*read, 1), 5, 0, 0);
}

TEST(SphericalCameraArchive, ArchiveBefore12201HasNoConstantSpeedFrames) {
    TestWriter writer(12200);
    RecordWriter out(writer.archive());
    out.ID(CTavrinID()).ID(CTavrinID()).Int(2).Int(5).Int(2).Int(0).Int(1); // base, legacy value, serial
    out.Matrix(Translation(0, 0, 5)).Vertex(CTavrin3DVertex()).Double(5).Double(360).Bool(false).Bool(false);
    out.Bool(false).Double(30).Double(5).Double(1.4).Bool(false); // lens and depth of field
    out.Int(0).Int(1).Int(4).Bool(false).Vertex(CTavrin3DVertex());
    SphericalPtr read = NewSpherical(0, 0, 1, 1);
    read->SetEaseOutMode(3);
    ASSERT_TRUE(ReadBack(writer, *read));
    EXPECT_EQ(read->ConstantSpeedStartFrame(), 2);
    EXPECT_EQ(read->ConstantSpeedEndFrame(), 5);
    EXPECT_EQ(read->EaseOutMode(), 0);
    EXPECT_EQ(read->Columns(), 4);
}

TEST(SphericalCameraArchive, DamagedGridIsRepairedOnReading) {
    TestWriter writer(NewestArchiveVersion);
    SphericalPtr camera = NewSpherical(0, 0, 1, 1);
    ASSERT_TRUE(camera->ArchiveReadWrite(writer.archive()));
    std::vector<std::uint8_t> bytes = writer.Bytes();
    // Layout, rows and columns sit before the wrap flag (1 byte) and the
    // centre (3 doubles): make the columns zero and the layout 9.
    const std::size_t columnsAt = bytes.size() - 24 - 1 - 4;
    std::fill(bytes.begin() + columnsAt, bytes.begin() + columnsAt + 4, 0);
    bytes[columnsAt - 8] = 9;
    FileVersionScope file(NewestArchiveVersion);
    TestReader reader(bytes, NewestArchiveVersion);
    SphericalPtr read = NewSpherical(0, 0, 1, 1);
    ASSERT_TRUE(read->ArchiveReadWrite(reader.archive()));
    EXPECT_EQ(read->LayoutType(), 2);
    EXPECT_EQ(read->Columns(), 1);
    EXPECT_EQ(read->Rows(), 2);
    read->Matrix();
}

TEST(SphericalCameraEvaluation, GapBlendsTheTwoViewsWithTheirEase) {
    AnimationTestEntities entities;
    const CTavrinID camera = entities.NewEntity();
    CTavrinKeyFrameManager manager;
    CTavrinKeyFrameDataPtr first(new CTavrinKeyFrameDataTransformSphericalCamera(camera, CameraOnZ(5)));
    CTavrinKeyFrameDataPtr second(new CTavrinKeyFrameDataTransformSphericalCamera(camera, CameraOnZ(15)));
    second->SetAllFrames(10);
    manager.AddKeyFrameData(first, true);
    manager.AddKeyFrameData(second, true);

    CTavrinKeyFrameDataPtr linear = manager.KeyFrameDataAt(camera, 4);
    ASSERT_TRUE(linear);
    EXPECT_EQ(linear->Type(), KEYFRAME_SPHERICAL_CAMERA);
    ExpectPointNear(dynamic_cast<CTavrinKeyFrameDataTransformSphericalCamera&>(*linear).BasicCamera().Position(), 0,
                    0, 9);

    // Accelerating out of the first view: 4 of 10 frames cover 4 * 5 / 100.
    first->SetEaseOutMode(1);
    CTavrinKeyFrameDataPtr eased = manager.KeyFrameDataAt(camera, 4);
    ASSERT_TRUE(eased);
    ExpectPointNear(dynamic_cast<CTavrinKeyFrameDataTransformSphericalCamera&>(*eased).BasicCamera().Position(), 0,
                    0, 7);
}
