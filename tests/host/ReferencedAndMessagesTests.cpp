#include <gtest/gtest.h>

#include <vector>

#include "host/CTavrinMessage.h"
#include "host/CTavrinReferenced.h"

using namespace Tavrin;

namespace {

struct Counted : CTavrinReferenced {
    explicit Counted(int& destroyed) : destroyed(destroyed) {}
    ~Counted() override { ++destroyed; }
    bool ReadFromArchive(CTavrinArchiveBase*) override { return true; }
    bool WriteIntoArchive(CTavrinArchiveBase*) override { return true; }
    int& destroyed;
};

struct Recorder : CTavrinMessageManager {
    int received = 0;
    void DistributeMessage(CTavrinMessage, CTavrinString) override { ++received; }
};

} // namespace

TEST(ReferencePointer, CopiesShareAndTheLastOneDestroys)
{
    int destroyed = 0;
    {
        CTavrinPtr<Counted> first(new Counted(destroyed));
        EXPECT_EQ(first->ReferenceCount(), 1);
        {
            CTavrinPtr<Counted> second = first;
            EXPECT_EQ(first->ReferenceCount(), 2);
            CTavrinPtr<CTavrinReferenced> base = second;
            EXPECT_EQ(first->ReferenceCount(), 3);
        }
        EXPECT_EQ(first->ReferenceCount(), 1);
        EXPECT_EQ(destroyed, 0);
    }
    EXPECT_EQ(destroyed, 1);
}

TEST(ReferencePointer, AssignmentMovesAndSelfAssignment)
{
    int destroyed = 0;
    CTavrinPtr<Counted> a(new Counted(destroyed));
    CTavrinPtr<Counted> b(new Counted(destroyed));
    a = b;
    EXPECT_EQ(destroyed, 1);
    EXPECT_EQ(a, b);
    EXPECT_EQ(b->ReferenceCount(), 2);
    CTavrinPtr<Counted>& alias = a;
    a = alias;
    EXPECT_EQ(b->ReferenceCount(), 2);
    CTavrinPtr<Counted> c = std::move(a);
    EXPECT_FALSE(a);
    EXPECT_EQ(c->ReferenceCount(), 2);
    b = CTavrinPtr<Counted>();
    c = CTavrinPtr<Counted>();
    EXPECT_EQ(destroyed, 2);
}

TEST(Messages, NamedValuesByType)
{
    CTavrinMessage message("SequenceChanged");
    message.SetNamedValue("name", "robot_Animation");
    message.SetNamedValue("frame", 12.5);
    message.SetNamedValue("visible", true);
    message.SetNamedValue("joints", CTavrinDefinedVariant<std::vector<int>>({1, 2}));
    EXPECT_EQ(message.Type(), CTavrinString("SequenceChanged"));
    EXPECT_EQ(*message.NamedValue<CTavrinString>("name"), CTavrinString("robot_Animation"));
    EXPECT_EQ(*message.NamedValue<double>("frame"), 12.5);
    EXPECT_TRUE(*message.NamedValue<bool>("visible"));
    EXPECT_EQ(*message.NamedValue<std::vector<int>>("joints"), (std::vector<int>{1, 2}));
    // Asking for the wrong type or a missing name gives nothing.
    EXPECT_EQ(message.NamedValue<double>("name"), nullptr);
    EXPECT_EQ(message.NamedValue<double>("missing"), nullptr);

    const CTavrinMessage copy = message;
    message.SetNamedValue("frame", 1.0);
    EXPECT_EQ(*copy.NamedValue<double>("frame"), 12.5);
}

TEST(Messages, DefaultManagerKeepsWhatWasDistributed)
{
    CTavrinMessageManager* manager = CTavrinMessageManager::Instance();
    manager->ClearDistributedMessages();
    manager->DistributeMessage(CTavrinMessage("A"), "file: x, line #1");
    manager->DistributeMessage(CTavrinMessage("B"), "file: y, line #2");
    ASSERT_EQ(manager->DistributedMessages().size(), 2u);
    EXPECT_EQ(manager->DistributedMessages()[1].first.Type(), CTavrinString("B"));
    EXPECT_EQ(manager->DistributedMessages()[1].second, CTavrinString("file: y, line #2"));
    manager->ClearDistributedMessages();
}

TEST(Messages, InstalledManagerReplacesTheDefaultUntilReset)
{
    CTavrinMessageManager* original = CTavrinMessageManager::Instance();
    Recorder recorder;
    CTavrinMessageManager::SetInstance(&recorder);
    CTavrinMessageManager::Instance()->DistributeMessage(CTavrinMessage("A"), "here");
    EXPECT_EQ(recorder.received, 1);
    CTavrinMessageManager::SetInstance(nullptr);
    EXPECT_EQ(CTavrinMessageManager::Instance(), original);
}
