#pragma once

#include "host/CTavrinString.h"

namespace Tavrin {

// A relative path from a file (a zip entry name, a texture's asset path),
// resolved without touching the disk so that it can be checked to stay inside
// the folder it is meant for.
struct CTavrinContainedPath {
    // False when the path is absolute (leading separator or drive) or when its
    // ".." components climb above the folder it starts in.
    bool contained = false;
    // The last component is a name, not empty, "." or "..": the path can name
    // a file rather than a folder.
    bool namesFile = false;
    // The remaining components joined with the system separator, without
    // ".", ".." or empty components; empty when nothing remains.
    CTavrinString path;
};

// Both "/" and "\" separate components.
CTavrinContainedPath ResolveContainedPath(const CTavrinString& relative);

} // namespace Tavrin
