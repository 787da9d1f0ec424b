#pragma once

// Helpers shared by the text layer tests: read a usda string, fetch fields.

#include "usdcore/sdf/data.h"
#include "usdcore/sdf/schema.h"
#include "usdcore/sdf/usda/usdaReader.h"
#include "usdcore/tf/diagnostic.h"
#include "usdcore/vt/dictionary.h"

#include <gtest/gtest.h>

#include <string>

namespace usdaTest {

using namespace usdcore;

// Reads \p text, expecting success and no diagnostics.
inline SdfData Read(const std::string& text)
{
    TfDiagnosticCapture capture;
    SdfData data;
    EXPECT_TRUE(SdfUsdaReadData(text, "test.usda", &data)) << text;
    EXPECT_EQ(capture.GetErrorCount(), 0u);
    return data;
}

// The value of \p field at \p path, which must hold a T.
template <class T>
T Field(const SdfData& data, const char* path, const TfToken& field)
{
    T value{};
    EXPECT_TRUE(data.Has(SdfPath(path), field, &value)) << path << " " << field.GetString();
    return value;
}

// The entry \p key of \p dictionary, which must be there.
inline VtValue Entry(const VtDictionary& dictionary, const std::string& key)
{
    const auto found = dictionary.find(key);
    EXPECT_TRUE(found != dictionary.end()) << key;
    return found != dictionary.end() ? found->second : VtValue();
}

} // namespace usdaTest
