#include "usdcore/tf/pathUtils.h"

#include "usdcore/tf/stringUtils.h"

#include <unistd.h>
#include <vector>

PXR_NAMESPACE_OPEN_SCOPE

std::string TfNormPath(const std::string& path)
{
    const bool absolute = !path.empty() && path[0] == '/';
    std::vector<std::string> parts;
    for (const std::string& part : TfStringSplit(path, "/")) {
        if (part.empty() || part == ".") {
            continue;
        }
        if (part == "..") {
            if (!parts.empty() && parts.back() != "..") {
                parts.pop_back();
                continue;
            }
            if (absolute) {
                continue; // "/.." is "/"
            }
        }
        parts.push_back(part);
    }
    const std::string joined = TfStringJoin(parts, "/");
    if (absolute) {
        return "/" + joined;
    }
    return joined.empty() ? "." : joined;
}

std::string TfAbsPath(const std::string& path)
{
    if (path.empty() || path[0] == '/') {
        return path.empty() ? path : TfNormPath(path);
    }
    std::vector<char> buffer(4096);
    if (!::getcwd(buffer.data(), buffer.size())) {
        return TfNormPath(path);
    }
    return TfNormPath(std::string(buffer.data()) + "/" + path);
}

std::string TfGetExtension(const std::string& path)
{
    return TfStringGetSuffix(TfGetBaseName(path));
}

PXR_NAMESPACE_CLOSE_SCOPE
