#include "host/CTavrinUUID.h"
#include "usdreader/CTavrinUSDReaderHandler.h"
#include "usdreader/CTavrinUnzipper.h"
#include "utilities/TavrinTempFolder.h"

namespace Tavrin {

// Every import gets a folder of its own, also when the file is no package:
// textures are looked up in it either way. The folder stays after the import.
void CTavrinUSDReaderHandler::UnpackToTemporaryFolder(const CTavrinString& source)
{
    CTavrinString folder = GetTempFolder();
    folder.ReplaceSlashWithSystemSlash();
    CTavrinUUID name;
    name.Generate();
    unpackFolder = folder + CTavrinString(name) + CTavrinString::SystemSeparator;
    unpackFolder.ReplaceSlashWithSystemSlash();
    CTavrinUnzipper().ExtractAll(source, unpackFolder);
}

} // namespace Tavrin
