#pragma once

#include "usdcore/tf/diagnostic.h"
#include "usdcore/usd/stage.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace usdtest {

using namespace usdcore;

inline std::string DataPath(const std::string& name)
{
    return std::string(TAVRIN_TEST_DATA_DIR) + "/usd/" + name;
}

inline UsdStageRefPtr OpenStage(const std::string& name, UsdStage::InitialLoadSet load = UsdStage::LoadAll)
{
    return UsdStage::Open(DataPath(name), load);
}

inline UsdAttribute Attribute(const UsdStageRefPtr& stage, const std::string& primPath, const std::string& name)
{
    return stage->GetPrimAtPath(SdfPath(primPath)).GetAttribute(TfToken(name));
}

/// The double at \p time, or NaN when there is none, so a missing value
/// fails the comparison that follows.
inline double DoubleAt(const UsdStageRefPtr& stage, const std::string& primPath, const std::string& name,
                       UsdTimeCode time = UsdTimeCode::Default())
{
    double value = 0.0;
    if (!Attribute(stage, primPath, name).Get(&value, time)) return std::nan("");
    return value;
}

inline std::vector<std::string> Paths(const std::vector<SdfPath>& paths)
{
    std::vector<std::string> result;
    for (const SdfPath& path : paths) result.push_back(path.GetString());
    return result;
}

inline std::vector<std::string> Names(const std::vector<TfToken>& tokens)
{
    std::vector<std::string> result;
    for (const TfToken& token : tokens) result.push_back(token.GetString());
    return result;
}

template <class Range>
std::vector<std::string> PrimPaths(const Range& range)
{
    std::vector<std::string> result;
    for (const UsdPrim& prim : range) result.push_back(prim.GetPath().GetString());
    return result;
}

} // namespace usdtest
