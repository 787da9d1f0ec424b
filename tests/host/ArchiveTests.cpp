#include <gtest/gtest.h>

#include <memory>

#include "host/CTavrin3DVertex.h"
#include "host/CTavrinArchive.h"
#include "host/CTavrinID.h"

using namespace Tavrin;

namespace {

// Writes every primitive through ReadWrite, so one function serves both
// directions exactly as archivable records do.
struct Record : CTavrinArchivable {
    int integer = 0;
    unsigned int unsignedInteger = 0;
    double real = 0;
    bool flag = false;
    CTavrinString text;
    CTavrinUUID uuid;
    CTavrinID id;
    std::set<CTavrinID> ids;
    CTavrin3DVertex vertex;

    bool Both(CTavrinArchiveBase& a)
    {
        return a.ReadWrite(integer) && a.ReadWrite(unsignedInteger) && a.ReadWrite(real) && a.ReadWrite(flag) &&
               a.ReadWrite(text) && a.ReadWrite(uuid) && a.ReadWrite(id) && a.ReadWrite(ids) &&
               a.ReadWrite(vertex);
    }
    bool ReadFromArchive(CTavrinArchiveBase* a) override { return Both(*a); }
    bool WriteIntoArchive(CTavrinArchiveBase* a) override { return Both(*a); }
};

CTavrinUUID Uuid(const char* text)
{
    return CTavrinUUID(CTavrinString(text));
}

} // namespace

TEST(Archive, EveryPrimitiveRoundTrips)
{
    Record written;
    written.integer = -7;
    written.unsignedInteger = 4000000000u;
    written.real = -0.1;
    written.flag = true;
    written.text = CTavrinString(L"H\u00fcfte");
    written.uuid = Uuid("0123abcd-4567-89ab-cdef-0123456789ab");
    written.id = CTavrinID(written.uuid, 12);
    written.ids = {CTavrinID(written.uuid, 3), CTavrinID(written.uuid, 1)};
    written.vertex = CTavrin3DVertex(1.5, -2.25, 1e-300);

    CTavrinBinaryArchiveWriter writer(11012);
    EXPECT_FALSE(writer.IsReaderArchive());
    ASSERT_TRUE(written.ArchiveReadWrite(writer));

    CTavrinBinaryArchiveReader reader(writer.Bytes(), 11012);
    EXPECT_TRUE(reader.IsReaderArchive());
    EXPECT_EQ(reader.Version(), 11012u);
    Record read;
    ASSERT_TRUE(read.ArchiveReadWrite(reader));
    EXPECT_TRUE(reader.AtEnd());

    EXPECT_EQ(read.integer, -7);
    EXPECT_EQ(read.unsignedInteger, 4000000000u);
    EXPECT_EQ(read.real, -0.1);
    EXPECT_TRUE(read.flag);
    EXPECT_EQ(read.text, written.text);
    EXPECT_EQ(read.uuid, written.uuid);
    EXPECT_EQ(read.id, written.id);
    EXPECT_EQ(read.id.Serial(), 12);
    EXPECT_EQ(read.ids, written.ids);
    EXPECT_EQ(read.vertex, written.vertex);
}

TEST(Archive, IntegersAreLittleEndian)
{
    CTavrinBinaryArchiveWriter writer;
    int value = 0x01020304;
    ASSERT_TRUE(writer.ReadWrite(value));
    EXPECT_EQ(writer.Bytes(), (std::vector<std::uint8_t>{4, 3, 2, 1}));
}

TEST(Archive, ReadingPastTheEndFails)
{
    CTavrinBinaryArchiveWriter writer;
    int value = 5;
    ASSERT_TRUE(writer.ReadWrite(value));
    CTavrinBinaryArchiveReader reader(writer.Bytes());
    int read = 0;
    EXPECT_TRUE(reader.ReadWrite(read));
    EXPECT_EQ(read, 5);
    EXPECT_FALSE(reader.ReadWrite(read));
    double real = 0;
    EXPECT_FALSE(reader.ReadWrite(real));
}

TEST(Archive, TruncatedOrHostileStringsFail)
{
    CTavrinBinaryArchiveWriter writer;
    CTavrinString text("abc");
    ASSERT_TRUE(writer.ReadWrite(text));
    std::vector<std::uint8_t> truncated = writer.Bytes();
    truncated.pop_back();
    CTavrinBinaryArchiveReader cut(truncated);
    EXPECT_FALSE(cut.ReadWrite(text));

    // Length -1 and a length far past the bytes.
    CTavrinBinaryArchiveReader negative({0xff, 0xff, 0xff, 0xff});
    EXPECT_FALSE(negative.ReadWrite(text));
    CTavrinBinaryArchiveReader huge({0xff, 0xff, 0xff, 0x7f, 'a'});
    EXPECT_FALSE(huge.ReadWrite(text));
}

TEST(Archive, BoolBytesOtherThanZeroOrOneFail)
{
    CTavrinBinaryArchiveReader reader({2});
    bool flag = false;
    EXPECT_FALSE(reader.ReadWrite(flag));
}

TEST(Archive, HugeIdSetCountFailsAtTheEndOfTheBytes)
{
    CTavrinBinaryArchiveReader reader({0xff, 0xff, 0xff, 0x7f});
    std::set<CTavrinID> ids;
    EXPECT_FALSE(reader.ReadWrite(ids));
}

TEST(Archive, WrongDirectionFails)
{
    CTavrinBinaryArchiveWriter writer;
    int value = 0;
    EXPECT_FALSE(writer.ReadInt32(value));
    CTavrinBinaryArchiveReader reader({});
    EXPECT_FALSE(reader.WriteInt32(1));
}

TEST(Archive, ArchivablePointerRecordsPresence)
{
    CTavrinBinaryArchiveWriter writer;
    CTavrinArchivable* absent = nullptr;
    CTavrin3DVertex vertex(1, 2, 3);
    CTavrinArchivable* present = &vertex;
    ASSERT_TRUE(writer.ReadWriteArchivablePointer(absent, nullptr));
    ASSERT_TRUE(writer.ReadWriteArchivablePointer(present, nullptr));

    CTavrinBinaryArchiveReader reader(writer.Bytes());
    std::unique_ptr<CTavrin3DVertex> made;
    auto create = [&made]() -> CTavrinArchivable* {
        made = std::make_unique<CTavrin3DVertex>();
        return made.get();
    };
    CTavrinArchivable* first = nullptr;
    ASSERT_TRUE(reader.ReadWriteArchivablePointer(first, create));
    EXPECT_EQ(first, nullptr);
    CTavrinArchivable* second = nullptr;
    ASSERT_TRUE(reader.ReadWriteArchivablePointer(second, create));
    ASSERT_EQ(second, made.get());
    EXPECT_EQ(*made, CTavrin3DVertex(1, 2, 3));
}

TEST(Archive, EveryTruncationOfARecordFailsCleanly)
{
    Record written;
    written.text = CTavrinString("abc");
    written.uuid.Generate();
    written.id = CTavrinID(written.uuid, 2);
    written.ids = {written.id};
    CTavrinBinaryArchiveWriter writer;
    ASSERT_TRUE(written.ArchiveReadWrite(writer));
    const std::vector<std::uint8_t>& bytes = writer.Bytes();
    for (std::size_t size = 0; size < bytes.size(); ++size) {
        CTavrinBinaryArchiveReader reader(std::vector<std::uint8_t>(bytes.begin(), bytes.begin() + size));
        Record read;
        EXPECT_FALSE(read.ArchiveReadWrite(reader)) << "cut at " << size;
    }
}
