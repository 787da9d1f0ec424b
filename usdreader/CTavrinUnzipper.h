#pragma once

#include <cstdint>

#include "host/CTavrinString.h"

namespace Tavrin {

// What one extraction may write, so that a small hostile package (one entry
// of a gigabyte of zeros, or thousands of entries sharing one stored body)
// cannot fill the user's disk. A package as exporters write it (stored
// entries, every byte once) stays far inside.
struct CTavrinUnpackLimits {
    // All entries together.
    std::uint64_t totalBytes = 0;
    std::uint64_t entryCount = 0;
    // An entry larger than smallEntryBytes may not write more than this
    // many bytes per compressed byte; such an entry is removed.
    std::uint64_t expansionRatio = 0;
    std::uint64_t smallEntryBytes = 0;

    // At least 256 MiB in all, and 64 times the archive beyond that.
    static CTavrinUnpackLimits ForArchiveOfSize(std::uint64_t archiveBytes);
};

// Unpacks a zip archive (a .usdz package) into a folder, one local object per
// extraction. Entry names that would land outside the folder (absolute names,
// ".." climbing above it) are skipped; unreadable entries and files that
// cannot be written are skipped silently; entries past a limit are skipped
// with a warning on the diagnostic sink, and the rest is still unpacked.
class CTavrinUnzipper {
public:
    // True when the archive was opened and closed without error; a file that
    // is not a zip archive extracts nothing and makes no folder. Without
    // limits, those for the archive's size hold.
    bool ExtractAll(CTavrinString archive, CTavrinString folder);
    bool ExtractAll(CTavrinString archive, CTavrinString folder, const CTavrinUnpackLimits& limits);
};

} // namespace Tavrin
