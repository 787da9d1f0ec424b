// Turntable key frame data: the turn over the span, its named members, and
// its archive record at the versions that changed it.

#include "TavrinAnimation/src/TavrinKeyFrameDataTransformRoundTable.h"
#include "ArchiveTestSupport.h"
#include "MatrixExpectations.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace Tavrin;

namespace {

constexpr double kPi = 3.14159265358979323846;
using RoundTablePtr = CTavrinPtr<CTavrinKeyFrameDataTransformRoundTable>;

// Turns 90 degrees about Z from frame 0 to frame 2.
RoundTablePtr QuarterTurn() {
    RoundTablePtr table(new CTavrinKeyFrameDataTransformRoundTable(CTavrinID(), Translation(5, 0, 0)));
    table->SetEndFrame(2, false);
    table->SetAngle(90);
    table->SetNormal(CTavrinNormal(0, 0, 1));
    return table;
}

} // namespace

TEST(RoundTableKeyFrame, FactoryDefaults) {
    CTavrinKeyFrameDataPtr data(CreateKeyFrameData(CTavrinID(), KEYFRAME_ROUND_TABLE));
    auto& table = dynamic_cast<CTavrinKeyFrameDataTransformRoundTable&>(*data);
    EXPECT_EQ(table.Type(), KEYFRAME_ROUND_TABLE);
    EXPECT_EQ(table.Angle(), 0.0);
    EXPECT_EQ(table.Normal(), CTavrinNormal());
    ExpectMatrixNear(table.Matrix(), CTavrinMatrix(), 0.0);
}

TEST(RoundTableKeyFrame, TurnsOverTheSpan) {
    RoundTablePtr table = QuarterTurn();
    table->SetWorkingFrame(1); // half way: 45 degrees
    ExpectMatrixNear(table->Matrix(), Translation(5, 0, 0) * CTavrinMatrix::DefineByRotation(kPi / 4, 0, 0, 1));
    table->SetWorkingFrame(2);
    const CTavrinMatrix end = table->Matrix();
    EXPECT_NEAR(end.M(0, 0), 0, 1e-12);
    EXPECT_NEAR(end.M(1, 0), 1, 1e-12); // X turned onto Y
    EXPECT_EQ(end.M(0, 3), 5.0);
}

TEST(RoundTableKeyFrame, SnapshotIsAPlainTransformOfThePlacement) {
    RoundTablePtr table = QuarterTurn();
    table->SetWorkingFrame(1);
    CTavrinKeyFrameDataPtr snapshot(table->CreateCopy(true));
    EXPECT_EQ(snapshot->Type(), KEYFRAME_TRANSFORM);
    EXPECT_EQ(snapshot->StartFrame(), 1);
    ExpectMatrixNear(dynamic_cast<CTavrinKeyFrameDataTransform&>(*snapshot).Matrix(), table->Matrix());
    CTavrinKeyFrameDataPtr copy(table->CreateCopy(false));
    EXPECT_EQ(copy->Type(), KEYFRAME_ROUND_TABLE);
    EXPECT_EQ(copy->EndFrame(), 2);
}

TEST(RoundTableKeyFrame, NamedMembers) {
    RoundTablePtr table = QuarterTurn();
    ASSERT_EQ(table->DataMembersCount(), 6);
    const char* names[] = {"Start Frame", "Angle", "Normal"};
    const int indices[] = {0, 2, 3};
    const enumDataMemberType types[] = {DATA_MEMBER_INT, DATA_MEMBER_DOUBLE, DATA_MEMBER_NORMAL};
    for (int i = 0; i < 3; ++i) {
        enumDataMemberType type = DATA_MEMBER_NONE;
        CTavrinString name;
        table->DataMember(indices[i], type, name);
        EXPECT_EQ(name, CTavrinString(names[i]));
        EXPECT_EQ(type, types[i]);
    }
    EXPECT_TRUE(table->DataMemberValueChanged(6, 0)); // start past the end drags it along
    EXPECT_EQ(table->EndFrame(), 6);
    EXPECT_TRUE(table->DataMemberValueChanged(1, 1));
    EXPECT_EQ(table->StartFrame(), 1);
    EXPECT_TRUE(table->DataMemberValueChanged(3, 4));
    EXPECT_EQ(table->ConstantSpeedStartFrame(), 1); // clamped into [1, 1]
    EXPECT_TRUE(table->DataMemberValueChanged(30.0, 2));
    EXPECT_EQ(table->Angle(), 30.0);
}

TEST(RoundTableKeyFrame, NewestRecordRoundTrips) {
    RoundTablePtr table = QuarterTurn();
    table->SetFirstMatrix(Translation(0, 1, 0));
    table->SetSecondMatrix(CTavrinMatrix::CreateScalling(2, 2, 2));
    table->SetConstantSpeedEndFrame(2);
    table->SetConstantSpeedStartFrame(1);
    RoundTablePtr read(new CTavrinKeyFrameDataTransformRoundTable(CTavrinID(), CTavrinMatrix()));
    ASSERT_TRUE(RoundTrip(*table, *read));
    EXPECT_EQ(read->Angle(), 90.0);
    EXPECT_EQ(read->Normal(), CTavrinNormal(0, 0, 1));
    ExpectMatrixNear(read->FirstMatrix(), Translation(0, 1, 0), 0.0);
    ExpectMatrixNear(read->SecondMatrix(), CTavrinMatrix::CreateScalling(2, 2, 2), 0.0);
    EXPECT_EQ(read->ConstantSpeedStartFrame(), 1);
    EXPECT_EQ(read->ConstantSpeedEndFrame(), 2);
}

TEST(RoundTableKeyFrame, FileOf10001HasNoFirstMatrixNorConstantSpeed) {
    TestWriter writer(10001);
    RecordWriter out(writer.archive());
    out.ID(CTavrinID()).ID(CTavrinID()).Int(0).Int(4).Int(0).Int(0); // base with the legacy value
    out.Matrix(CTavrinMatrix()).Vertex(CTavrin3DVertex()).Matrix(Translation(0, 0, 3)).Double(180);
    out.Double(1).Double(0).Double(0);
    RoundTablePtr read(new CTavrinKeyFrameDataTransformRoundTable(CTavrinID(), CTavrinMatrix()));
    read->SetFirstMatrix(Translation(9, 9, 9));
    read->SetEaseOutMode(3);
    ASSERT_TRUE(ReadBack(writer, *read));
    EXPECT_EQ(read->Normal(), CTavrinNormal(1, 0, 0));
    ExpectMatrixNear(read->SecondMatrix(), Translation(0, 0, 3), 0.0);
    ExpectMatrixNear(read->FirstMatrix(), Translation(9, 9, 9), 0.0); // not in the record
    EXPECT_EQ(read->ConstantSpeedStartFrame(), 0);
    EXPECT_EQ(read->ConstantSpeedEndFrame(), 4);
    EXPECT_EQ(read->EaseOutMode(), 0);
}
