#include <gtest/gtest.h>

#include <utility>
#include <vector>

#include "usdreader/CTavrinImportHandler.h"

using Tavrin::CTavrinString;

namespace {
// Reports the way the import driver does.
struct Driver : CTavrinImportHandler {
    void Run() const
    {
        ReportProgress("Initilizing", 1);
        ReportProgress("Done", 100);
    }
};
} // namespace

TEST(ImportHandler, WithoutACallbackNothingIsReported)
{
    Driver driver;
    driver.Run();
    SUCCEED();
}

TEST(ImportHandler, ReportsReachTheCallbackInOrder)
{
    std::vector<std::pair<CTavrinString, int>> reports;
    Driver driver;
    driver.SetProgressCallback([&reports](CTavrinString message, int value) { reports.emplace_back(message, value); });
    driver.Run();
    const std::vector<std::pair<CTavrinString, int>> expected{{CTavrinString("Initilizing"), 1},
                                                              {CTavrinString("Done"), 100}};
    EXPECT_EQ(reports, expected);
}

TEST(ImportHandler, AnEmptyCallbackEmptiesTheStore)
{
    int calls = 0;
    Driver driver;
    driver.SetProgressCallback([&calls](CTavrinString, int) { ++calls; });
    driver.SetProgressCallback(CTavrinProgressCallback());
    driver.Run();
    EXPECT_EQ(calls, 0);
}

TEST(ImportHandler, TheCallbackIsCopied)
{
    int calls = 0;
    Driver driver;
    {
        CTavrinProgressCallback callback = [&calls](CTavrinString, int) { ++calls; };
        driver.SetProgressCallback(callback);
    }
    driver.Run();
    EXPECT_EQ(calls, 2);
}
