#pragma once

#include "usdcore/pxr.h"

#include <string>

PXR_NAMESPACE_OPEN_SCOPE

/// Lexically normalised path: repeated and trailing slashes dropped, "."
/// removed, "dir/.." folded; ".." above a relative start is kept and above
/// the root is dropped. "" becomes ".". No file system access.
std::string TfNormPath(const std::string& path);

/// \p path made absolute against the current directory, then normalised.
std::string TfAbsPath(const std::string& path);

/// The extension of the last path component without the dot
/// ("dir/a.b.usdz" -> "usdz"); "" when there is none.
std::string TfGetExtension(const std::string& path);

PXR_NAMESPACE_CLOSE_SCOPE
