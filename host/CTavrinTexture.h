#pragma once

#include "host/CTavrinString.h"

namespace Tavrin {

// A texture map: the full path of its image file. Empty when default-made.
class CTavrinTexture {
public:
    CTavrinTexture() = default;
    explicit CTavrinTexture(CTavrinString fullFilename) : m_fullFilename(std::move(fullFilename)) {}

    bool IsEmpty() const { return m_fullFilename.IsEmpty(); }
    void Clear() { m_fullFilename = CTavrinString(); }
    // systemSeparators turns every "/" and "\" into the system separator.
    void SetFilename(CTavrinString fullFilename, bool systemSeparators);
    // The full path, or without its extension when withExtension is false.
    CTavrinString FullFilename(bool withExtension = true) const;
    // The last element of the path.
    CTavrinString Filename() const;
    // Moves the file name into folder.
    void SetPath(const CTavrinString& folder) { m_fullFilename.SetPath(folder); }

    bool operator==(const CTavrinTexture& other) const { return m_fullFilename == other.m_fullFilename; }

private:
    CTavrinString m_fullFilename;
};

} // namespace Tavrin
