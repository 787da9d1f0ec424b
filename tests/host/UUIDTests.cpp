#include <gtest/gtest.h>

#include "host/CTavrinUUID.h"

using namespace Tavrin;

TEST(UUID, DefaultIsInvalidAndGenerateMakesItValid)
{
    CTavrinUUID uuid;
    EXPECT_FALSE(uuid.IsValid());
    uuid.Generate();
    EXPECT_TRUE(uuid.IsValid());
    const CTavrinString text = uuid;
    ASSERT_EQ(text.Length(), 36);
    EXPECT_EQ(text[8], L'-');
    // Version 4 and the RFC 4122 variant.
    EXPECT_EQ(text[14], L'4');
    EXPECT_TRUE(text[19] == L'8' || text[19] == L'9' || text[19] == L'a' || text[19] == L'b');
    uuid.Reset();
    EXPECT_FALSE(uuid.IsValid());
}

TEST(UUID, TwoGeneratedValuesDiffer)
{
    CTavrinUUID a, b;
    a.Generate();
    b.Generate();
    EXPECT_NE(a, b);
    EXPECT_TRUE(a < b || b < a);
}

TEST(UUID, ParsesItsTextWithOrWithoutBraces)
{
    const CTavrinUUID parsed(CTavrinString("0123abcd-4567-89ab-cdef-0123456789AB"));
    ASSERT_TRUE(parsed.IsValid());
    EXPECT_EQ(parsed.ToString(), CTavrinString("0123abcd-4567-89ab-cdef-0123456789ab"));
    EXPECT_EQ(CTavrinUUID(CTavrinString("{0123abcd-4567-89ab-cdef-0123456789ab}")), parsed);

    CTavrinUUID generated;
    generated.Generate();
    EXPECT_EQ(CTavrinUUID(generated.ToString()), generated);
}

TEST(UUID, MalformedTextIsInvalid)
{
    EXPECT_FALSE(CTavrinUUID(CTavrinString("")).IsValid());
    EXPECT_FALSE(CTavrinUUID(CTavrinString("0123abcd-4567-89ab-cdef-0123456789a")).IsValid());
    EXPECT_FALSE(CTavrinUUID(CTavrinString("0123abcd+4567-89ab-cdef-0123456789ab")).IsValid());
    EXPECT_FALSE(CTavrinUUID(CTavrinString("0123abcd-4567-89ab-cdef-0123456789ag")).IsValid());
}

TEST(UUID, OrderFollowsTheBytes)
{
    EXPECT_TRUE(CTavrinUUID(CTavrinString("00000000-0000-0000-0000-000000000001")) <
                CTavrinUUID(CTavrinString("10000000-0000-0000-0000-000000000000")));
}
