#include <gtest/gtest.h>

#include "host/CTavrinDataMembersManager.h"

using namespace Tavrin;

namespace {

// A subclass numbering its members after the base's, as host objects do.
class Wheel : public CTavrinDataMembersManager {
public:
    double radius = 1.0;
    int spokes = 8;

    void* DataMemberSearch(int index, enumDataMemberType& type, CTavrinString& name, bool changed) override
    {
        CTavrinDataMembersManager::DataMemberSearch(SPECIAL_COMMAND_COUNT_MEMBERS, type, name, false);
        const int first = m_dataMembersCount;
        if (index == SPECIAL_COMMAND_COUNT_MEMBERS) {
            m_dataMembersCount = first + 2;
            return nullptr;
        }
        if (index == first) {
            if (changed && radius < 0)
                radius = 0;
            type = DATA_MEMBER_DOUBLE;
            name = "Radius";
            return &radius;
        }
        if (index == first + 1) {
            type = DATA_MEMBER_INT;
            name = "Spokes";
            return &spokes;
        }
        return CTavrinDataMembersManager::DataMemberSearch(index, type, name, changed);
    }
};

} // namespace

TEST(DataMembers, CountIncludesTheBaseMembers)
{
    Wheel wheel;
    EXPECT_EQ(wheel.DataMembersCount(), 3);
    CTavrinDataMembersManager unnamed(false);
    EXPECT_EQ(unnamed.DataMembersCount(), 0);
}

TEST(DataMembers, MembersAreFoundByIndexWithTypeAndName)
{
    Wheel wheel;
    enumDataMemberType type = DATA_MEMBER_NONE;
    CTavrinString name;
    EXPECT_NE(wheel.DataMember(0, type, name), nullptr);
    EXPECT_EQ(type, DATA_MEMBER_STRING);
    EXPECT_EQ(name, CTavrinString("Name"));
    EXPECT_EQ(wheel.DataMember(1, type, name), &wheel.radius);
    EXPECT_EQ(type, 16);
    EXPECT_EQ(name, CTavrinString("Radius"));
    EXPECT_EQ(wheel.DataMember(2, type, name), &wheel.spokes);
    EXPECT_EQ(type, 64);
    EXPECT_EQ(wheel.DataMember(3, type, name), nullptr);
    EXPECT_EQ(wheel.DataMember(-5, type, name), nullptr);
}

TEST(DataMembers, ValueChangedAssignsAndNormalises)
{
    Wheel wheel;
    EXPECT_TRUE(wheel.DataMemberValueChanged(-5.0, 1));
    EXPECT_EQ(wheel.radius, 0.0);
    EXPECT_TRUE(wheel.DataMemberValueChanged(12, 2));
    EXPECT_EQ(wheel.spokes, 12);
    EXPECT_TRUE(wheel.DataMemberValueChanged(CTavrinString("Front"), 0));
    EXPECT_EQ(wheel.Name(), CTavrinString("Front"));
}

TEST(DataMembers, ValueOfTheWrongTypeIsRefused)
{
    Wheel wheel;
    EXPECT_FALSE(wheel.DataMemberValueChanged(3, 1));
    EXPECT_EQ(wheel.radius, 1.0);
    EXPECT_FALSE(wheel.DataMemberValueChanged(true, 2));
    EXPECT_FALSE(wheel.DataMemberValueChanged(CTavrinColor(1, 0, 0, 1), 1));
    EXPECT_FALSE(wheel.DataMemberValueChanged(2.0, 7));
}

TEST(DataMembers, NamesRoundTripThroughTheArchive)
{
    Wheel wheel;
    wheel.SetName("Front");
    wheel.SetDisplayName("Front wheel");
    CTavrinBinaryArchiveWriter writer;
    ASSERT_TRUE(wheel.ArchiveReadWrite(writer));
    CTavrinBinaryArchiveReader reader(writer.Bytes());
    Wheel read;
    ASSERT_TRUE(read.ArchiveReadWrite(reader));
    EXPECT_EQ(read.Name(), CTavrinString("Front"));
    EXPECT_EQ(read.DisplayName(), CTavrinString("Front wheel"));
}
