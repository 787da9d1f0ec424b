#pragma once

#include "usdcore/sdf/layer.h"
#include "usdcore/tf/diagnostic.h"
#include "usdcore/usd/stage.h"

#include <gtest/gtest.h>

#include <string>

namespace geomtest {

using namespace usdcore;

/// A stage over a text layer written in the test ("#usda 1.0" is added).
inline UsdStageRefPtr StageFromText(const std::string& body)
{
    const SdfLayerRefPtr layer = SdfLayer::OpenFromString("#usda 1.0\n" + body);
    EXPECT_TRUE(layer) << body;
    return layer ? UsdStage::Open(SdfLayerHandle(layer)) : UsdStageRefPtr();
}

} // namespace geomtest
