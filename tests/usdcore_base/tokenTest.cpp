#include "usdcore/tf/staticTokens.h"
#include "usdcore/tf/token.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <thread>
#include <unordered_set>

PXR_NAMESPACE_USING_DIRECTIVE

#define TEST_TOKENS(X) X(points, "points") X(primvarsSt, "primvars:st")
TF_DECLARE_PUBLIC_TOKENS(TestTokens, TEST_TOKENS);
TF_DEFINE_PUBLIC_TOKENS(TestTokens, TEST_TOKENS);

TEST(Token, EqualStringsShareOneInternedEntry)
{
    const std::string built = std::string("fa") + "ceVertexCounts";
    TfToken a("faceVertexCounts");
    TfToken b(built);
    TfToken c(std::string_view("faceVertexCountsXX").substr(0, 16));
    EXPECT_EQ(a, b);
    EXPECT_EQ(a, c);
    // Interned: the text lives once, so every handle points at the same bytes.
    EXPECT_EQ(a.GetText(), b.GetText());
    EXPECT_EQ(a.GetText(), c.GetText());
    EXPECT_EQ(sizeof(TfToken), sizeof(void*));
    EXPECT_NE(TfToken("points"), TfToken("point"));
}

TEST(Token, EmptyTokenIsTheDefault)
{
    TfToken empty;
    EXPECT_TRUE(empty.IsEmpty());
    EXPECT_EQ(empty, TfToken(""));
    EXPECT_EQ(empty.GetString(), "");
    EXPECT_STREQ(empty.GetText(), "");
    EXPECT_EQ(empty.Hash(), TfToken().Hash());
    EXPECT_FALSE(TfToken("x").IsEmpty());
}

TEST(Token, FindDoesNotIntern)
{
    EXPECT_TRUE(TfToken::Find("neverInternedBeforeThisTest_42").IsEmpty());
    TfToken made("internedByThisTest_43");
    EXPECT_EQ(TfToken::Find("internedByThisTest_43"), made);
}

TEST(Token, OrdersByCharactersNotByAddress)
{
    // Interned in reverse order so that addresses would not give this order.
    TfTokenVector tokens = {TfToken("zebra"), TfToken("Zebra"), TfToken("apple"), TfToken("applesauce")};
    std::sort(tokens.begin(), tokens.end());
    EXPECT_EQ(TfToStringVector(tokens),
              (std::vector<std::string>{"Zebra", "apple", "applesauce", "zebra"}));
    EXPECT_FALSE(TfToken("a") < TfToken("a"));
}

TEST(Token, ComparesWithStrings)
{
    TfToken t("xformOp:translate");
    EXPECT_TRUE(t == "xformOp:translate");
    EXPECT_TRUE(std::string("xformOp:translate") == t);
    EXPECT_TRUE(t != "xformOp");
}

TEST(Token, HashesAgreeWithEquality)
{
    std::unordered_set<TfToken, TfToken::HashFunctor> set;
    set.insert(TfToken("a"));
    set.insert(TfToken(std::string("a")));
    set.insert(TfToken("b"));
    EXPECT_EQ(set.size(), 2u);
    EXPECT_EQ(std::hash<TfToken>()(TfToken("a")), TfToken("a").Hash());
}

TEST(Token, ConcurrentInterningYieldsOneEntry)
{
    std::vector<const char*> seen(8);
    std::vector<std::thread> threads;
    for (size_t i = 0; i < seen.size(); ++i) {
        threads.emplace_back([&seen, i] {
            for (int n = 0; n < 200; ++n) {
                TfToken(std::to_string(n) + "_concurrent");
            }
            seen[i] = TfToken("199_concurrent").GetText();
        });
    }
    for (auto& t : threads) t.join();
    for (const char* text : seen) EXPECT_EQ(text, seen[0]);
}

TEST(StaticTokens, TableMembersAndAllTokens)
{
    EXPECT_EQ(TestTokens->points, TfToken("points"));
    EXPECT_EQ(TestTokens->primvarsSt.GetString(), "primvars:st");
    ASSERT_EQ(TestTokens->allTokens.size(), 2u);
    EXPECT_EQ(TestTokens->allTokens[1], TestTokens->primvarsSt);
}
