#pragma once

#include "host/CTavrinString.h"

// The small layer that keeps the Windows-born logic of the plug-in the same
// on other systems. The path separator itself is CTavrinString::SystemSeparator.
namespace Tavrin {

// True when the variable is defined, also with an empty value. Values are
// wide text on Windows and UTF-8 elsewhere.
bool ReadEnvironmentVariable(const char* name, CTavrinString& value);

// The shared public folder, without a final separator: FOLDERID_Public on
// Windows; elsewhere the XDG public-share folder when it exists, else the
// home folder's Public, else the temporary folder.
CTavrinString GetPublicFolder();

// Whether narrow (char) paths are UTF-8, so that any path can be given to a
// library that takes only those: true on Linux and macOS, not on Windows,
// where they are in the system code page.
#ifdef _WIN32
inline constexpr bool narrowPathsAreUtf8 = false;
#else
inline constexpr bool narrowPathsAreUtf8 = true;
#endif

} // namespace Tavrin
