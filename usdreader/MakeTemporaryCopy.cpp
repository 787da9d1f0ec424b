#include "usdreader/CTavrinUSDReaderHandler.h"
#include "usdreader/TavrinFileHelpers.h"
#include "utilities/TavrinPlatform.h"

namespace Tavrin {

// USD takes narrow paths only, so a file whose path has other characters is
// read from this one fixed name. Its extension does not follow the source:
// a failed copy is left for the open to notice.
std::string CTavrinUSDReaderHandler::MakeTemporaryCopy(const CTavrinString& source)
{
    const CTavrinString copy =
        GetPublicFolder() + CTavrinString::SystemSeparator + CTavrinString("TempUSDZ.usdz");
    CopyFileReplacing(source, copy, true);
    return copy.toStdString();
}

} // namespace Tavrin
