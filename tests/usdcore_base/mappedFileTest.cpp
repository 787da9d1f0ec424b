#include "usdcore/tf/mappedFile.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <unistd.h>

PXR_NAMESPACE_USING_DIRECTIVE

namespace {

std::string WriteTempFile(const std::string& name, const std::string& contents)
{
    const std::string path = ::testing::TempDir() + name + std::to_string(::getpid());
    std::ofstream(path, std::ios::binary) << contents;
    return path;
}

} // namespace

TEST(MappedFile, GivesTheFileBytes)
{
    const std::string contents("#usda 1.0\n\0binary", 17);
    const std::string path = WriteTempFile("mapped", contents);
    auto file = TfMappedFile::Open(path);
    ASSERT_TRUE(file);
    EXPECT_EQ(file->GetBytes(), contents);
    EXPECT_EQ(file->GetSize(), 17u);
    EXPECT_EQ(file->GetPath(), path);
    std::remove(path.c_str());
}

TEST(MappedFile, EmptyFileIsAnEmptySpan)
{
    const std::string path = WriteTempFile("empty", "");
    auto file = TfMappedFile::Open(path);
    ASSERT_TRUE(file);
    EXPECT_TRUE(file->GetBytes().empty());
    std::remove(path.c_str());
}

TEST(MappedFile, MissingFilesAndDirectoriesFailWithAReason)
{
    std::string why;
    EXPECT_FALSE(TfMappedFile::Open("/nonexistent/dir/file.usda", &why));
    EXPECT_NE(why.find("/nonexistent/dir/file.usda"), std::string::npos);
    why.clear();
    EXPECT_FALSE(TfMappedFile::Open(::testing::TempDir(), &why));
    EXPECT_NE(why.find("not a regular file"), std::string::npos);
}
