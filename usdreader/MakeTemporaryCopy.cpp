#include "usdreader/CTavrinUSDReaderHandler.h"
#include "usdreader/TavrinFileHelpers.h"
#include "utilities/TavrinPlatform.h"

namespace Tavrin {

// Where narrow paths cannot name every file, a file whose path has other
// characters is read from this one fixed name. The copy keeps the source's
// extension, which tells USD the file's format. A failed copy is left for the
// open to notice.
std::string CTavrinUSDReaderHandler::MakeTemporaryCopy(const CTavrinString& source)
{
    const CTavrinString copy = GetPublicFolder() + CTavrinString::SystemSeparator + CTavrinString("TempUSDZ.") +
                               source.Extension();
    CopyFileReplacing(source, copy, true);
    return copy.toStdString();
}

} // namespace Tavrin
