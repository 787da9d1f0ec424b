#include "usdcore/tf/diagnostic.h"

#include <gtest/gtest.h>

PXR_NAMESPACE_USING_DIRECTIVE

TEST(Diagnostic, CaptureCollectsFormattedMessagesWithTheirKind)
{
    TfDiagnosticCapture capture;
    TF_WARN("layer '%s' has %d prims", "a.usda", 3);
    TF_RUNTIME_ERROR(std::string("cannot open"));
    TF_CODING_ERROR("bad index %zu", size_t(7));
    TF_STATUS("done");

    const std::vector<TfDiagnostic> all = capture.GetDiagnostics();
    ASSERT_EQ(all.size(), 4u);
    EXPECT_EQ(all[0].GetDiagnosticCode(), TF_DIAGNOSTIC_WARNING_TYPE);
    EXPECT_EQ(all[0].GetCommentary(), "layer 'a.usda' has 3 prims");
    EXPECT_EQ(all[1].GetDiagnosticCode(), TF_DIAGNOSTIC_RUNTIME_ERROR_TYPE);
    EXPECT_EQ(all[2].GetCommentary(), "bad index 7");
    EXPECT_EQ(capture.GetErrorCount(), 2u);
    EXPECT_EQ(capture.Count(TF_DIAGNOSTIC_STATUS_TYPE), 1u);
    EXPECT_TRUE(capture.Contains(TF_DIAGNOSTIC_WARNING_TYPE, "3 prims"));
    EXPECT_FALSE(capture.Contains(TF_DIAGNOSTIC_RUNTIME_ERROR_TYPE, "3 prims"));
    EXPECT_NE(all[0].GetSourceFileName().find("diagnosticTest.cpp"), std::string::npos);
    EXPECT_GT(all[0].GetSourceLineNumber(), 0u);
}

TEST(Diagnostic, InnermostCaptureReceives)
{
    TfDiagnosticCapture outer;
    {
        TfDiagnosticCapture inner;
        TF_WARN("inner");
        EXPECT_EQ(inner.GetDiagnostics().size(), 1u);
    }
    TF_WARN("outer");
    ASSERT_EQ(outer.GetDiagnostics().size(), 1u);
    EXPECT_EQ(outer.GetDiagnostics()[0].GetCommentary(), "outer");
}

TEST(Diagnostic, VerifyReturnsTheConditionAndReportsFailures)
{
    TfDiagnosticCapture capture;
    EXPECT_TRUE(TF_VERIFY(2 > 1));
    EXPECT_FALSE(TF_VERIFY(1 > 2, "count %d", 5));
    ASSERT_EQ(capture.GetErrorCount(), 1u);
    EXPECT_TRUE(capture.Contains(TF_DIAGNOSTIC_CODING_ERROR_TYPE, "1 > 2"));
    EXPECT_TRUE(capture.Contains("count 5"));
}

TEST(Diagnostic, OutputLineNamesKindPlaceAndMessage)
{
    TfDiagnostic d(TF_DIAGNOSTIC_WARNING_TYPE, TfCallContext{"layer.cpp", "Open", 12}, "oops");
    EXPECT_EQ(d.FormatForOutput(), "Warning: in Open at line 12 of layer.cpp -- oops");
    TfDiagnostic status(TF_DIAGNOSTIC_STATUS_TYPE, TfCallContext{"a.cpp", "f", 1}, "just so");
    EXPECT_EQ(status.FormatForOutput(), "just so");
}
