#pragma once

#include "usdcore/pxr.h"

#include <memory>
#include <string>
#include <string_view>

PXR_NAMESPACE_OPEN_SCOPE

/// A whole file mapped read-only into memory. Readers work on GetBytes()
/// in place; holders of views into it keep the shared_ptr alive.
class TfMappedFile
{
public:
    /// Maps the regular file at \p path. Returns null and, when \p whyNot is
    /// given, the reason; posts no diagnostic (callers know the context).
    /// An empty file maps to an empty span.
    static std::shared_ptr<const TfMappedFile> Open(const std::string& path,
                                                    std::string* whyNot = nullptr);

    ~TfMappedFile();
    TfMappedFile(const TfMappedFile&) = delete;
    TfMappedFile& operator=(const TfMappedFile&) = delete;

    std::string_view GetBytes() const { return std::string_view(_data, _size); }
    size_t GetSize() const { return _size; }
    const std::string& GetPath() const { return _path; }

private:
    TfMappedFile(std::string path, const char* data, size_t size);

    std::string _path;
    const char* _data;
    size_t _size;
};

PXR_NAMESPACE_CLOSE_SCOPE
