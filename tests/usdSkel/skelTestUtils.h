#pragma once

#include "usdcore/sdf/layer.h"
#include "usdcore/usd/stage.h"

#include <gtest/gtest.h>

#include <string>

namespace skeltest {

using namespace usdcore;

/// A stage over a layer written in the test.
inline UsdStageRefPtr StageFromText(const std::string& usda)
{
    const SdfLayerRefPtr layer = SdfLayer::OpenFromString("#usda 1.0\n" + usda, "test.usda");
    EXPECT_TRUE(layer) << usda;
    return layer ? UsdStage::Open(layer) : UsdStageRefPtr();
}

} // namespace skeltest
