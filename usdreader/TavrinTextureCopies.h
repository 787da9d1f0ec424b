#pragma once

#include <map>
#include <set>

#include "host/CTavrinString.h"

namespace Tavrin {

// The texture files of one import, copied flat into the document's folder.
// Each source file is copied once, however many inputs name it, and no two
// sources share a name there: a later source whose name is taken gets "_1",
// "_2"... before its extension.
class CTavrinTextureCopies {
public:
    // The path of source's copy in folder (which ends with a separator),
    // made when source is first met; empty when it cannot be copied.
    CTavrinString Copy(const CTavrinString& source, const CTavrinString& folder);

private:
    // By the source's canonical path, so that two spellings of one file
    // (a "./" or a link in between) share one copy.
    std::map<CTavrinString, CTavrinString> m_copies;
    // Lower case: on file systems that ignore case, names that differ only
    // in it would still land on one file.
    std::set<CTavrinString> m_takenNames;
};

} // namespace Tavrin
