#include "usdcore/sdf/listOp.h"
#include "usdcore/sdf/reference.h"

#include <gtest/gtest.h>

#include <sstream>

PXR_NAMESPACE_USING_DIRECTIVE

namespace {

using Ints = std::vector<int>;

Ints Apply(const SdfIntListOp& op, Ints list)
{
    op.ApplyOperations(&list);
    return list;
}

} // namespace

TEST(SdfListOpApply, ExplicitReplacesTheListAndDropsDuplicates)
{
    const SdfIntListOp op = SdfIntListOp::CreateExplicit({3, 1, 3, 2});
    EXPECT_TRUE(op.IsExplicit());
    EXPECT_EQ(Apply(op, {9, 8}), (Ints{3, 1, 2}));
    EXPECT_EQ(Apply(SdfIntListOp::CreateExplicit({}), {9, 8}), Ints{});
}

TEST(SdfListOpApply, DeleteAddPrependAppendInThatOrder)
{
    SdfIntListOp op;
    op.SetDeletedItems({2, 7});
    op.SetAddedItems({5, 1});
    op.SetPrependedItems({4, 3});
    op.SetAppendedItems({1, 6});
    // [1 2 3] -delete 2,7-> [1 3] -add 5 (1 present)-> [1 3 5]
    // -prepend 4,3 (3 moves)-> [4 3 1 5] -append 1,6 (1 moves)-> [4 3 5 1 6]
    EXPECT_EQ(Apply(op, {1, 2, 3}), (Ints{4, 3, 5, 1, 6}));
    EXPECT_FALSE(op.IsExplicit());
}

TEST(SdfListOpApply, RepeatedItemsInPrependAndAppend)
{
    // Prepend keeps the first occurrence's place, append the last one's.
    EXPECT_EQ(Apply(SdfIntListOp::Create({1, 2, 1}), {9}), (Ints{1, 2, 9}));
    EXPECT_EQ(Apply(SdfIntListOp::Create({}, {1, 2, 1}), {9}), (Ints{9, 2, 1}));
}

TEST(SdfListOpApply, OrderedItemsCarryTheirFollowers)
{
    SdfIntListOp op;
    op.SetOrderedItems({3, 1});
    // Runs: [1 2] led by 1, [3 4 5] led by 3; nothing before 1.
    EXPECT_EQ(Apply(op, {1, 2, 3, 4, 5}), (Ints{3, 4, 5, 1, 2}));
    // 7 and 8 precede every ordered item, so they stay in front; 9 is not
    // in the list and is ignored.
    op.SetOrderedItems({9, 1, 3});
    EXPECT_EQ(Apply(op, {7, 8, 3, 1}), (Ints{7, 8, 1, 3}));
    std::vector<int> items{5, 6, 4};
    SdfApplyListOrdering(&items, Ints{4, 5});
    EXPECT_EQ(items, (Ints{4, 5, 6}));
}

TEST(SdfListOpApply, CallbackMapsAndDropsItems)
{
    const SdfIntListOp op = SdfIntListOp::Create({1, 2, 3});
    std::vector<int> list;
    op.ApplyOperations(&list, [](SdfListOpType type, const int& item) -> std::optional<int> {
        EXPECT_EQ(type, SdfListOpTypePrepended);
        if (item == 2) {
            return std::nullopt;
        }
        return item * 10;
    });
    EXPECT_EQ(list, (Ints{10, 30}));
}

TEST(SdfListOpCompose, StrongerOverWeakerMatchesApplyingBoth)
{
    const SdfIntListOp weaker = SdfIntListOp::Create({1, 2}, {3, 4}, {5});
    const SdfIntListOp stronger = SdfIntListOp::Create({4}, {1}, {2, 6});
    const std::optional<SdfIntListOp> composed = stronger.ApplyOperations(weaker);
    ASSERT_TRUE(composed);
    // deleted: weaker {5} + stronger {2 6}, minus re-added 4 and 1 -> [5 2 6]
    // prepended: stronger [4] + weaker [1 2] minus 4, 1, 2 -> [4]
    // appended: weaker [3 4] minus 4, 1, 2 -> [3], then stronger [1] -> [3 1]
    EXPECT_EQ(composed->GetDeletedItems(), (Ints{5, 2, 6}));
    EXPECT_EQ(composed->GetPrependedItems(), (Ints{4}));
    EXPECT_EQ(composed->GetAppendedItems(), (Ints{3, 1}));

    for (const Ints& base : {Ints{}, Ints{5, 2, 7}, Ints{6, 1, 3}}) {
        Ints both = base;
        weaker.ApplyOperations(&both);
        stronger.ApplyOperations(&both);
        EXPECT_EQ(Apply(*composed, base), both);
    }
}

TEST(SdfListOpCompose, ExplicitOnEitherSide)
{
    const SdfIntListOp explicitOp = SdfIntListOp::CreateExplicit({1, 2, 3});
    const SdfIntListOp edit = SdfIntListOp::Create({0}, {}, {2});
    EXPECT_EQ(*explicitOp.ApplyOperations(edit), explicitOp);
    const std::optional<SdfIntListOp> composed = edit.ApplyOperations(explicitOp);
    ASSERT_TRUE(composed);
    EXPECT_TRUE(composed->IsExplicit());
    EXPECT_EQ(composed->GetExplicitItems(), (Ints{0, 1, 3}));
}

TEST(SdfListOpCompose, AddedOrOrderedItemsCannotBeComposed)
{
    SdfIntListOp ordered;
    ordered.SetOrderedItems({2, 0});
    EXPECT_FALSE(ordered.ApplyOperations(SdfIntListOp::Create({1})));
    EXPECT_FALSE(SdfIntListOp::Create({1}).ApplyOperations(ordered));
    SdfIntListOp added;
    added.SetAddedItems({0});
    EXPECT_FALSE(added.ApplyOperations(SdfIntListOp::CreateExplicit({1})));
}

TEST(SdfListOpState, ModeSwitchClearsTheOtherLists)
{
    SdfTokenListOp op;
    EXPECT_FALSE(op.HasKeys());
    op.SetPrependedItems({TfToken("a")});
    op.SetAppendedItems({TfToken("b")});
    EXPECT_TRUE(op.HasKeys());
    EXPECT_TRUE(op.HasItem(TfToken("b")));
    op.SetExplicitItems({TfToken("c")});
    EXPECT_TRUE(op.GetPrependedItems().empty());
    EXPECT_FALSE(op.HasItem(TfToken("a")));
    op.SetDeletedItems({TfToken("d")});
    EXPECT_FALSE(op.IsExplicit());
    EXPECT_TRUE(op.GetExplicitItems().empty());
    op.ClearAndMakeExplicit();
    EXPECT_TRUE(op.IsExplicit());
    EXPECT_TRUE(op.HasKeys());
    EXPECT_EQ(op.GetItems(SdfListOpTypeDeleted).size(), 0u);
    op.Clear();
    EXPECT_FALSE(op.IsExplicit());
    EXPECT_FALSE(op.HasKeys());
}

TEST(SdfListOpState, EqualityAndPrinting)
{
    SdfPathListOp a = SdfPathListOp::Create({SdfPath("/A")});
    SdfPathListOp b = SdfPathListOp::Create({SdfPath("/A")});
    EXPECT_EQ(a, b);
    b.SetDeletedItems({SdfPath("/B")});
    EXPECT_NE(a, b);
    std::ostringstream out;
    out << b;
    EXPECT_EQ(out.str(), "SdfListOp(Deleted Items: [/B], Prepended Items: [/A])");
    a.Swap(b);
    EXPECT_EQ(a.GetDeletedItems(), SdfPathVector{SdfPath("/B")});
}

TEST(SdfListOpApply, ReferencesAreMatchedByValue)
{
    SdfReferenceListOp op;
    op.SetPrependedItems({SdfReference("a.usda", SdfPath("/X"))});
    op.SetDeletedItems({SdfReference("b.usda")});
    SdfReferenceVector refs{SdfReference("b.usda"), SdfReference("c.usda")};
    op.ApplyOperations(&refs);
    ASSERT_EQ(refs.size(), 2u);
    EXPECT_EQ(refs[0], SdfReference("a.usda", SdfPath("/X")));
    EXPECT_EQ(refs[1].GetAssetPath(), "c.usda");
}
