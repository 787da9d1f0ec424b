#pragma once

#include "usdcore/pxr.h"

#include <cstdarg>
#include <string>
#include <vector>

PXR_NAMESPACE_OPEN_SCOPE

std::string TfStringPrintf(const char* format, ...) __attribute__((format(printf, 1, 2)));
std::string TfVStringPrintf(const char* format, va_list args);

bool TfStringStartsWith(const std::string& s, const std::string& prefix);
bool TfStringEndsWith(const std::string& s, const std::string& suffix);
bool TfStringContains(const std::string& s, const std::string& substring);
std::string TfStringToLower(const std::string& s);

/// Splits at every occurrence of \p separator; "" gives no pieces, and
/// adjacent separators give empty pieces (as OpenUSD's TfStringSplit).
std::vector<std::string> TfStringSplit(const std::string& s, const std::string& separator);
std::string TfStringJoin(const std::vector<std::string>& strings, const char* separator = " ");

/// Removes leading and trailing characters found in \p trimChars.
std::string TfStringTrim(const std::string& s, const char* trimChars = " \n\t\r");

/// The extension after the last \p delimiter ("a/b.usda" -> "usda"), or ""
/// when there is none or the name only starts with it (".hidden").
std::string TfStringGetSuffix(const std::string& name, char delimiter = '.');

/// "dir/sub/file.usda" -> "dir/sub/" (keeps the slash), "file" -> "".
std::string TfGetPathName(const std::string& path);
/// "dir/sub/file.usda" -> "file.usda".
std::string TfGetBaseName(const std::string& path);

PXR_NAMESPACE_CLOSE_SCOPE
