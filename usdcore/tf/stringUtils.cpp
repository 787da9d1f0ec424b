#include "usdcore/tf/stringUtils.h"

#include <algorithm>
#include <cctype>
#include <cstdio>

PXR_NAMESPACE_OPEN_SCOPE

std::string TfVStringPrintf(const char* format, va_list args)
{
    va_list sizing;
    va_copy(sizing, args);
    const int length = std::vsnprintf(nullptr, 0, format, sizing);
    va_end(sizing);
    if (length <= 0) {
        return std::string();
    }
    std::string result(size_t(length) + 1, '\0');
    std::vsnprintf(result.data(), result.size(), format, args);
    result.resize(size_t(length));
    return result;
}

std::string TfStringPrintf(const char* format, ...)
{
    va_list args;
    va_start(args, format);
    std::string result = TfVStringPrintf(format, args);
    va_end(args);
    return result;
}

bool TfStringStartsWith(const std::string& s, const std::string& prefix)
{
    return s.size() >= prefix.size() && s.compare(0, prefix.size(), prefix) == 0;
}

bool TfStringEndsWith(const std::string& s, const std::string& suffix)
{
    return s.size() >= suffix.size() &&
           s.compare(s.size() - suffix.size(), suffix.size(), suffix) == 0;
}

bool TfStringContains(const std::string& s, const std::string& substring)
{
    return s.find(substring) != std::string::npos;
}

std::string TfStringToLower(const std::string& s)
{
    std::string result = s;
    std::transform(result.begin(), result.end(), result.begin(),
                   [](unsigned char c) { return char(std::tolower(c)); });
    return result;
}

std::vector<std::string> TfStringSplit(const std::string& s, const std::string& separator)
{
    std::vector<std::string> pieces;
    if (s.empty()) {
        return pieces;
    }
    if (separator.empty()) {
        pieces.push_back(s);
        return pieces;
    }
    size_t start = 0;
    for (size_t at = s.find(separator); at != std::string::npos;
         at = s.find(separator, start)) {
        pieces.push_back(s.substr(start, at - start));
        start = at + separator.size();
    }
    pieces.push_back(s.substr(start));
    return pieces;
}

std::string TfStringJoin(const std::vector<std::string>& strings, const char* separator)
{
    std::string result;
    for (size_t i = 0; i < strings.size(); ++i) {
        if (i) {
            result += separator;
        }
        result += strings[i];
    }
    return result;
}

std::string TfStringTrim(const std::string& s, const char* trimChars)
{
    const size_t first = s.find_first_not_of(trimChars);
    if (first == std::string::npos) {
        return std::string();
    }
    const size_t last = s.find_last_not_of(trimChars);
    return s.substr(first, last - first + 1);
}

std::string TfStringGetSuffix(const std::string& name, char delimiter)
{
    const size_t at = name.rfind(delimiter);
    if (at == std::string::npos || at == 0) {
        return std::string();
    }
    return name.substr(at + 1);
}

std::string TfGetPathName(const std::string& path)
{
    const size_t slash = path.rfind('/');
    return slash == std::string::npos ? std::string() : path.substr(0, slash + 1);
}

std::string TfGetBaseName(const std::string& path)
{
    const size_t slash = path.rfind('/');
    return slash == std::string::npos ? path : path.substr(slash + 1);
}

PXR_NAMESPACE_CLOSE_SCOPE
