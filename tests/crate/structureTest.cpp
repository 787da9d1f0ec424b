#include "usdcore/sdf/crate/structure.h"

#include "corpusFiles.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

PXR_NAMESPACE_USING_DIRECTIVE

namespace {

class CrateStructureOfOldestFile : public ::testing::Test
{
protected:
    void SetUp() override
    {
        bytes = ReadCorpusFile(kOldestCrateFile);
        if (bytes.empty()) {
            GTEST_SKIP() << "corpus file absent: " << kOldestCrateFile;
        }
        ASSERT_TRUE(Sdf_CrateReadStructure(bytes, &structure, &error)) << error.GetMessage();
    }
    std::string bytes;
    Sdf_CrateStructure structure;
    Sdf_CrateError error;
};

TEST_F(CrateStructureOfOldestFile, TokensIncludeTheEmptyOne)
{
    EXPECT_TRUE(structure.version == Sdf_CrateVersion(0, 0, 1));
    const std::vector<std::string_view> expected = {"specifier", "",         "AirConditioner",
                                                    "Scope",     "typeName", "primChildren"};
    EXPECT_EQ(structure.tokens, expected);
    EXPECT_TRUE(structure.strings.empty());
}

TEST_F(CrateStructureOfOldestFile, FieldsSkipTheirPaddingWord)
{
    // specifier = def (inlined), typeName = token 3 (inlined), primChildren =
    // a token vector at offset 88.
    ASSERT_EQ(structure.fields.size(), 3u);
    EXPECT_EQ(structure.fields[0].tokenIndex, 0u);
    EXPECT_EQ(structure.fields[0].valueRep, 0x402A000000000000ull);
    EXPECT_EQ(structure.fields[1].tokenIndex, 4u);
    EXPECT_EQ(structure.fields[1].valueRep, 0x400B000000000003ull);
    EXPECT_EQ(structure.fields[2].tokenIndex, 5u);
    EXPECT_EQ(structure.fields[2].valueRep, 0x0029000000000058ull);
    const std::vector<uint32_t> sets = {0, Sdf_CrateFieldSetEnd, 0, 1, Sdf_CrateFieldSetEnd, 2,
                                        Sdf_CrateFieldSetEnd};
    EXPECT_EQ(structure.fieldSets, sets);
}

TEST_F(CrateStructureOfOldestFile, PathTreeFollowsChildAndSiblingBits)
{
    // Root (has child) -> AirConditioner (has sibling) -> Scope (leaf).
    EXPECT_EQ(structure.pathCount, 3u);
    ASSERT_EQ(structure.pathSteps.size(), 3u);
    EXPECT_EQ(structure.pathSteps[0].pathIndex, 0u);
    EXPECT_EQ(structure.pathSteps[1].pathIndex, 1u);
    EXPECT_EQ(structure.pathSteps[1].parentIndex, 0u);
    EXPECT_EQ(structure.pathSteps[1].tokenIndex, 2u);
    EXPECT_EQ(structure.pathSteps[2].pathIndex, 2u);
    EXPECT_EQ(structure.pathSteps[2].parentIndex, 0u) << "a sibling keeps its parent";
    EXPECT_EQ(structure.pathSteps[2].tokenIndex, 3u);
    EXPECT_FALSE(structure.pathSteps[2].isProperty);
}

TEST_F(CrateStructureOfOldestFile, SpecsSkipTheirPaddingWord)
{
    ASSERT_EQ(structure.specs.size(), 3u);
    EXPECT_EQ(structure.specs[0].pathIndex, 1u);
    EXPECT_EQ(structure.specs[0].fieldSetIndex, 0u);
    EXPECT_EQ(structure.specs[0].specType, 6u);
    EXPECT_EQ(structure.specs[1].fieldSetIndex, 2u);
    EXPECT_EQ(structure.specs[2].pathIndex, 0u);
    EXPECT_EQ(structure.specs[2].fieldSetIndex, 5u);
    EXPECT_EQ(structure.specs[2].specType, 7u);
}

// Overwrites the little-endian u32 at \p offset of a copy of \p bytes.
std::string WithU32(std::string bytes, size_t offset, uint32_t value)
{
    std::memcpy(&bytes[offset], &value, sizeof(value));
    return bytes;
}

TEST_F(CrateStructureOfOldestFile, BadIndicesAreRefused)
{
    // Offsets in this file: field 0's token index at 0xC2, the first field set
    // entry at 0xF6, the root path header's index at 0x11E, the first spec's
    // type at 0x15E and its field set at 0x15A, the TOC offset at 0x10.
    const struct {
        size_t offset;
        uint32_t value;
        const char* expected;
    } cases[] = {
        {0xC2, 6, "field name refers to token 6"},
        {0xF6, 3, "field set refers to field 3"},
        {0x11E, 3, "path index 3 is out of range"},
        {0x132, 6, "path element refers to token 6"},
        {0x15E, 12, "unknown spec type 12"},
        {0x15E, 0, "unknown spec type 0"},
        {0x15A, 1, "does not start a run"},
        {0x10, 0x7FFFFFFF, "past the end"},
        // Scope's header claims path 1 again: a tree that revisits a path
        // could also loop, so this is corrupt.
        {0x13E, 1, "appears twice"},
    };
    for (const auto& c : cases) {
        Sdf_CrateStructure damaged;
        Sdf_CrateError damageError;
        EXPECT_FALSE(Sdf_CrateReadStructure(WithU32(bytes, c.offset, c.value), &damaged,
                                            &damageError))
            << c.expected;
        EXPECT_NE(damageError.GetMessage().find(c.expected), std::string::npos)
            << damageError.GetMessage();
    }
}

TEST(CrateStructure, NonCrateBytesAreRefused)
{
    Sdf_CrateStructure structure;
    Sdf_CrateError error;
    EXPECT_FALSE(Sdf_CrateReadStructure("#usda 1.0\n", &structure, &error));
    EXPECT_NE(error.GetMessage().find("too small"), std::string::npos) << error.GetMessage();
    Sdf_CrateError magicError;
    EXPECT_FALSE(Sdf_CrateReadStructure(std::string(100, 'x'), &structure, &magicError));
    EXPECT_NE(magicError.GetMessage().find("PXR-USDC"), std::string::npos);
}

} // namespace
