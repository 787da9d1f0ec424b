#pragma once

#include "host/CTavrinString.h"

namespace Tavrin {

// Where temporary files go. TAVRIN_TEMP_DIR, when defined (even empty), is
// returned unchanged. Otherwise the system's temporary folder with system
// separators and one final separator, created when missing (a folder that
// cannot be created is not reported).
CTavrinString GetTempFolder();

} // namespace Tavrin
