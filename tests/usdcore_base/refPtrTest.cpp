#include "usdcore/tf/declarePtrs.h"

#include <gtest/gtest.h>

PXR_NAMESPACE_USING_DIRECTIVE

namespace {

int liveCount = 0;

TF_DECLARE_WEAK_AND_REF_PTRS(Counted);

class Counted : public TfRefBase, public TfWeakBase
{
public:
    explicit Counted(int v) : value(v) { ++liveCount; }
    ~Counted() override { --liveCount; }
    int value;
};

class Derived : public Counted
{
public:
    Derived() : Counted(9) {}
};

} // namespace

TEST(RefPtr, LastOwnerDeletes)
{
    liveCount = 0;
    {
        CountedRefPtr a = TfCreateRefPtr(new Counted(1));
        EXPECT_EQ(a->GetCurrentCount(), 1u);
        {
            CountedRefPtr b = a;
            EXPECT_EQ(a->GetCurrentCount(), 2u);
            EXPECT_EQ(a, b);
        }
        EXPECT_TRUE(a->IsUnique());
        EXPECT_EQ(liveCount, 1);
    }
    EXPECT_EQ(liveCount, 0);
}

TEST(RefPtr, NullAndConversions)
{
    CountedRefPtr none = TfNullPtr;
    EXPECT_FALSE(none);
    EXPECT_TRUE(none == nullptr);

    TfRefPtr<Derived> derived = TfCreateRefPtr(new Derived);
    CountedRefPtr base = derived;
    CountedConstRefPtr constBase = base;
    EXPECT_EQ(constBase->value, 9);
    EXPECT_EQ(TfDynamic_cast<Derived>(base), derived);
    EXPECT_EQ(derived->GetCurrentCount(), 3u);
}

TEST(WeakPtr, ExpiresWithItsObject)
{
    CountedPtr weak;
    {
        CountedRefPtr owner = TfCreateRefPtr(new Counted(5));
        weak = owner;
        ASSERT_TRUE(weak);
        EXPECT_EQ(weak->value, 5);
        EXPECT_EQ(owner->GetCurrentCount(), 1u); // weak pointers do not own
        CountedRefPtr again = weak;
        EXPECT_EQ(owner->GetCurrentCount(), 2u);
    }
    EXPECT_TRUE(weak.IsExpired());
    EXPECT_FALSE(weak);
    EXPECT_EQ(weak.get(), nullptr);
    CountedRefPtr revived = weak;
    EXPECT_FALSE(revived);
}

TEST(WeakPtr, NeverSetIsNotExpired)
{
    CountedPtr weak;
    EXPECT_FALSE(weak.IsExpired());
    EXPECT_FALSE(weak);
}
