// The importer the initialised plug-in hands out, and the importer base that
// the application's side shares.

#include "InitialisedPlugin.h"

#include <cstdint>
#include <vector>

namespace {

using Tavrin::CTavrinString;

using UsdImporter = InitialisedPlugin;

TEST_F(UsdImporter, AppendsUsdzAfterTheExtensionsAlreadyListed)
{
    ASSERT_NE(Importer(), nullptr);
    std::vector<CTavrinString> extensions{"fbx", "obj"};
    Importer()->GetExtensions(extensions);
    EXPECT_EQ(extensions, (std::vector<CTavrinString>{"fbx", "obj", "usdz"}));

    std::vector<CTavrinString> none;
    Importer()->GetExtensions(none);
    EXPECT_EQ(none, std::vector<CTavrinString>{"usdz"});
}

TEST_F(UsdImporter, NamesItsFormatUsdz)
{
    ASSERT_NE(Importer(), nullptr);
    EXPECT_EQ(Importer()->GetFormatName(), CTavrinString("USDZ"));
}

TEST_F(UsdImporter, SetsOnlyTheFirstFlag)
{
    ASSERT_NE(Importer(), nullptr);
    const CTavrinImporterFlags flags = Importer()->GetFlags();
    EXPECT_TRUE(flags.flags[0]);
    for (std::size_t flag = 1; flag < flags.flags.size(); ++flag)
        EXPECT_FALSE(flags.flags[flag]) << "flag " << flag;
    EXPECT_EQ(flags.flags.size(), 11u);
    EXPECT_TRUE(flags.list.empty());
}

TEST_F(UsdImporter, KeepsTheBaseAnswersForItsRecordAndQueries)
{
    ASSERT_NE(Importer(), nullptr);
    const CTavrinImporterRecord record = Importer()->GetRecord();
    EXPECT_EQ(record.kind, 0u);
    EXPECT_EQ(record.options, 0u);
    EXPECT_EQ(record.value, 0.0);
    EXPECT_EQ(record.data, nullptr);
    EXPECT_FALSE(Importer()->QueryA());
    EXPECT_FALSE(Importer()->QueryB());
}

TEST_F(UsdImporter, KeepsTheItemsAndContextTheApplicationHandsIt)
{
    ASSERT_NE(Importer(), nullptr);
    int context = 0;
    Importer()->SetItems({7, 11});
    Importer()->SetContext(&context);
    EXPECT_EQ(Importer()->Items(), (std::vector<std::uintptr_t>{7, 11}));
    EXPECT_EQ(Importer()->Context(), &context);

    // New items replace the old ones rather than adding to them.
    Importer()->SetItems({3});
    EXPECT_EQ(Importer()->Items(), std::vector<std::uintptr_t>{3});
    Importer()->SetItems({});
    Importer()->SetContext(nullptr);
}

// An importer that answers only what an importer must.
class BareImporter : public CTavrinImporter {
public:
    Tavrin::CTavrinDocument* Import(const CTavrinImportRequest&) override { return nullptr; }
    void GetExtensions(std::vector<CTavrinString>&) override {}
    CTavrinString GetFormatName() override { return {}; }
};

TEST(ImporterBase, StartsWithoutItemsOrContextAndSetsNoFlag)
{
    BareImporter importer;
    EXPECT_TRUE(importer.Items().empty());
    EXPECT_EQ(importer.Context(), nullptr);
    const CTavrinImporterFlags flags = importer.GetFlags();
    for (bool flag : flags.flags)
        EXPECT_FALSE(flag);
    EXPECT_TRUE(flags.list.empty());
    EXPECT_FALSE(importer.QueryA());
    EXPECT_FALSE(importer.QueryB());
}

} // namespace
