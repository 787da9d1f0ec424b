#pragma once

#include "host/CTavrinString.h"

namespace Tavrin {

// Unpacks a zip archive (a .usdz package) into a folder, one local object per
// extraction. Entry names that would land outside the folder (absolute names,
// ".." climbing above it) are skipped; unreadable entries and files that
// cannot be written are skipped silently.
class CTavrinUnzipper {
public:
    // True when the archive was opened and closed without error; a file that
    // is not a zip archive extracts nothing and makes no folder.
    bool ExtractAll(CTavrinString archive, CTavrinString folder);
};

} // namespace Tavrin
