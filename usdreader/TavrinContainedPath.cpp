#include "usdreader/TavrinContainedPath.h"

#include <string>
#include <vector>

namespace Tavrin {

namespace {

bool IsSeparator(wchar_t character)
{
    return character == L'/' || character == L'\\';
}

// "C:" at the start names a drive, which makes the path absolute where
// drives exist and is never meant as a folder name in a package.
bool StartsWithDrive(const std::wstring& text)
{
    return text.size() >= 2 && text[1] == L':';
}

} // namespace

CTavrinContainedPath ResolveContainedPath(const CTavrinString& relative)
{
    CTavrinContainedPath result;
    const std::wstring& text = relative.toStdWString();
    if ((!text.empty() && IsSeparator(text.front())) || StartsWithDrive(text))
        return result;

    std::vector<std::wstring> kept;
    std::wstring component;
    bool lastIsName = false;
    // One pass; the sentinel at the end closes the last component.
    for (std::size_t i = 0; i <= text.size(); ++i) {
        if (i < text.size() && !IsSeparator(text[i])) {
            component.push_back(text[i]);
            continue;
        }
        lastIsName = false;
        if (component == L"..") {
            if (kept.empty())
                return result;
            kept.pop_back();
        } else if (!component.empty() && component != L".") {
            kept.push_back(component);
            lastIsName = true;
        }
        component.clear();
    }

    std::wstring joined;
    for (const std::wstring& name : kept) {
        if (!joined.empty())
            joined.push_back(CTavrinString::SystemSeparator);
        joined += name;
    }
    result.contained = true;
    result.namesFile = lastIsName;
    result.path = CTavrinString(joined);
    return result;
}

} // namespace Tavrin
