#pragma once

// Diagnostics of the USD core. Nothing in the core throws: problems are
// posted here and the operation reports failure through its return value.
// Posts go to the process-wide sink (stderr), or to the innermost live
// TfDiagnosticCapture, which is how tests observe them.

#include "usdcore/pxr.h"

#include <cstddef>
#include <mutex>
#include <string>
#include <vector>

PXR_NAMESPACE_OPEN_SCOPE

enum TfDiagnosticType {
    TF_DIAGNOSTIC_CODING_ERROR_TYPE,
    TF_DIAGNOSTIC_RUNTIME_ERROR_TYPE,
    TF_DIAGNOSTIC_WARNING_TYPE,
    TF_DIAGNOSTIC_STATUS_TYPE,
};

/// Where a diagnostic was posted from.
struct TfCallContext {
    const char* file;
    const char* function;
    int line;
};

#define TF_CALL_CONTEXT (::PXR_NS::TfCallContext{__FILE__, __func__, __LINE__})

class TfDiagnostic
{
public:
    TfDiagnostic(TfDiagnosticType type, const TfCallContext& context, std::string commentary);

    TfDiagnosticType GetDiagnosticCode() const { return _type; }
    const std::string& GetCommentary() const { return _commentary; }
    const std::string& GetSourceFileName() const { return _file; }
    const std::string& GetSourceFunction() const { return _function; }
    size_t GetSourceLineNumber() const { return _line; }
    bool IsError() const;

    /// The line printed to stderr, e.g.
    /// "Warning: in Open at line 12 of layer.cpp -- cannot open 'a.usda'".
    std::string FormatForOutput() const;

private:
    TfDiagnosticType _type;
    std::string _commentary;
    std::string _file;
    std::string _function;
    size_t _line;
};

/// Collects every diagnostic posted while it lives (from any thread) instead
/// of printing it. Captures nest; the innermost one receives.
class TfDiagnosticCapture
{
public:
    TfDiagnosticCapture();
    ~TfDiagnosticCapture();
    TfDiagnosticCapture(const TfDiagnosticCapture&) = delete;
    TfDiagnosticCapture& operator=(const TfDiagnosticCapture&) = delete;

    std::vector<TfDiagnostic> GetDiagnostics() const;
    size_t Count(TfDiagnosticType type) const;
    /// Number of coding and runtime errors.
    size_t GetErrorCount() const;
    /// True if a diagnostic of \p type contains \p text in its commentary.
    bool Contains(TfDiagnosticType type, const std::string& text) const;
    /// True if any diagnostic's commentary contains \p text.
    bool Contains(const std::string& text) const;
    void Clear();

private:
    friend void Tf_DeliverDiagnostic(TfDiagnostic&& diagnostic);
    mutable std::mutex _mutex;
    std::vector<TfDiagnostic> _diagnostics;
};

void Tf_PostDiagnostic(TfDiagnosticType type, const TfCallContext& context,
                       const char* format, ...) __attribute__((format(printf, 3, 4)));
void Tf_PostDiagnostic(TfDiagnosticType type, const TfCallContext& context,
                       const std::string& message);
bool Tf_FailedVerify(const TfCallContext& context, const char* condition);
bool Tf_FailedVerify(const TfCallContext& context, const char* condition,
                     const char* format, ...) __attribute__((format(printf, 3, 4)));

#define TF_WARN(...)                                                          \
    ::PXR_NS::Tf_PostDiagnostic(::PXR_NS::TF_DIAGNOSTIC_WARNING_TYPE,         \
                                TF_CALL_CONTEXT, __VA_ARGS__)
#define TF_STATUS(...)                                                        \
    ::PXR_NS::Tf_PostDiagnostic(::PXR_NS::TF_DIAGNOSTIC_STATUS_TYPE,          \
                                TF_CALL_CONTEXT, __VA_ARGS__)
#define TF_RUNTIME_ERROR(...)                                                 \
    ::PXR_NS::Tf_PostDiagnostic(::PXR_NS::TF_DIAGNOSTIC_RUNTIME_ERROR_TYPE,   \
                                TF_CALL_CONTEXT, __VA_ARGS__)
#define TF_CODING_ERROR(...)                                                  \
    ::PXR_NS::Tf_PostDiagnostic(::PXR_NS::TF_DIAGNOSTIC_CODING_ERROR_TYPE,    \
                                TF_CALL_CONTEXT, __VA_ARGS__)

/// Evaluates to the truth of \p cond; a false condition is posted as a coding
/// error (with an optional printf-style message) and execution continues.
#define TF_VERIFY(cond, ...)                                                  \
    (static_cast<bool>(cond)                                                  \
         ? true                                                               \
         : ::PXR_NS::Tf_FailedVerify(TF_CALL_CONTEXT, #cond, ##__VA_ARGS__))

PXR_NAMESPACE_CLOSE_SCOPE
