#include "usdcore/tf/diagnostic.h"

#include "usdcore/tf/stringUtils.h"

#include <algorithm>
#include <cstdarg>
#include <cstdio>

PXR_NAMESPACE_OPEN_SCOPE

namespace {

// The live captures, innermost last. Leaked on purpose: diagnostics may be
// posted from static destructors after this translation unit's statics die.
struct CaptureStack {
    std::mutex mutex;
    std::vector<TfDiagnosticCapture*> captures;
};

CaptureStack& GetCaptureStack()
{
    static CaptureStack* stack = new CaptureStack;
    return *stack;
}

const char* TypeLabel(TfDiagnosticType type)
{
    switch (type) {
    case TF_DIAGNOSTIC_CODING_ERROR_TYPE: return "Coding Error";
    case TF_DIAGNOSTIC_RUNTIME_ERROR_TYPE: return "Runtime Error";
    case TF_DIAGNOSTIC_WARNING_TYPE: return "Warning";
    case TF_DIAGNOSTIC_STATUS_TYPE: return "Status";
    }
    return "Diagnostic";
}

} // namespace

TfDiagnostic::TfDiagnostic(TfDiagnosticType type, const TfCallContext& context,
                           std::string commentary)
    : _type(type)
    , _commentary(std::move(commentary))
    , _file(context.file ? context.file : "")
    , _function(context.function ? context.function : "")
    , _line(context.line > 0 ? size_t(context.line) : 0)
{
}

bool TfDiagnostic::IsError() const
{
    return _type == TF_DIAGNOSTIC_CODING_ERROR_TYPE || _type == TF_DIAGNOSTIC_RUNTIME_ERROR_TYPE;
}

std::string TfDiagnostic::FormatForOutput() const
{
    if (_type == TF_DIAGNOSTIC_STATUS_TYPE) {
        return _commentary;
    }
    return TfStringPrintf("%s: in %s at line %zu of %s -- %s", TypeLabel(_type),
                          _function.c_str(), _line, _file.c_str(), _commentary.c_str());
}

TfDiagnosticCapture::TfDiagnosticCapture()
{
    CaptureStack& stack = GetCaptureStack();
    std::lock_guard<std::mutex> lock(stack.mutex);
    stack.captures.push_back(this);
}

TfDiagnosticCapture::~TfDiagnosticCapture()
{
    CaptureStack& stack = GetCaptureStack();
    std::lock_guard<std::mutex> lock(stack.mutex);
    stack.captures.erase(std::remove(stack.captures.begin(), stack.captures.end(), this),
                         stack.captures.end());
}

std::vector<TfDiagnostic> TfDiagnosticCapture::GetDiagnostics() const
{
    std::lock_guard<std::mutex> lock(_mutex);
    return _diagnostics;
}

size_t TfDiagnosticCapture::Count(TfDiagnosticType type) const
{
    std::lock_guard<std::mutex> lock(_mutex);
    return std::count_if(_diagnostics.begin(), _diagnostics.end(),
                         [type](const TfDiagnostic& d) { return d.GetDiagnosticCode() == type; });
}

size_t TfDiagnosticCapture::GetErrorCount() const
{
    std::lock_guard<std::mutex> lock(_mutex);
    return std::count_if(_diagnostics.begin(), _diagnostics.end(),
                         [](const TfDiagnostic& d) { return d.IsError(); });
}

bool TfDiagnosticCapture::Contains(TfDiagnosticType type, const std::string& text) const
{
    std::lock_guard<std::mutex> lock(_mutex);
    return std::any_of(_diagnostics.begin(), _diagnostics.end(), [&](const TfDiagnostic& d) {
        return d.GetDiagnosticCode() == type && d.GetCommentary().find(text) != std::string::npos;
    });
}

bool TfDiagnosticCapture::Contains(const std::string& text) const
{
    std::lock_guard<std::mutex> lock(_mutex);
    return std::any_of(_diagnostics.begin(), _diagnostics.end(), [&](const TfDiagnostic& d) {
        return d.GetCommentary().find(text) != std::string::npos;
    });
}

void TfDiagnosticCapture::Clear()
{
    std::lock_guard<std::mutex> lock(_mutex);
    _diagnostics.clear();
}

void Tf_DeliverDiagnostic(TfDiagnostic&& diagnostic)
{
    CaptureStack& stack = GetCaptureStack();
    std::lock_guard<std::mutex> lock(stack.mutex);
    if (!stack.captures.empty()) {
        TfDiagnosticCapture* capture = stack.captures.back();
        std::lock_guard<std::mutex> captureLock(capture->_mutex);
        capture->_diagnostics.push_back(std::move(diagnostic));
        return;
    }
    const std::string line = diagnostic.FormatForOutput();
    std::fprintf(stderr, "%s\n", line.c_str());
}

void Tf_PostDiagnostic(TfDiagnosticType type, const TfCallContext& context,
                       const std::string& message)
{
    Tf_DeliverDiagnostic(TfDiagnostic(type, context, message));
}

void Tf_PostDiagnostic(TfDiagnosticType type, const TfCallContext& context,
                       const char* format, ...)
{
    va_list args;
    va_start(args, format);
    std::string message = TfVStringPrintf(format, args);
    va_end(args);
    Tf_DeliverDiagnostic(TfDiagnostic(type, context, std::move(message)));
}

bool Tf_FailedVerify(const TfCallContext& context, const char* condition)
{
    Tf_PostDiagnostic(TF_DIAGNOSTIC_CODING_ERROR_TYPE, context,
                      std::string("Failed verification: ' ") + condition + " '");
    return false;
}

bool Tf_FailedVerify(const TfCallContext& context, const char* condition,
                     const char* format, ...)
{
    va_list args;
    va_start(args, format);
    const std::string message = TfVStringPrintf(format, args);
    va_end(args);
    Tf_PostDiagnostic(TF_DIAGNOSTIC_CODING_ERROR_TYPE, context,
                      std::string("Failed verification: ' ") + condition + " ' -- " + message);
    return false;
}

PXR_NAMESPACE_CLOSE_SCOPE
