#include <QFileInfo>

#include "host/CTavrinUUID.h"
#include "usdreader/CTavrinUSDReaderHandler.h"
#include "usdreader/CTavrinUnzipper.h"
#include "utilities/TavrinTempFolder.h"

PXR_NAMESPACE_USING_DIRECTIVE

namespace Tavrin {

namespace {

// A fresh folder name under the temporary folder, with a final separator.
CTavrinString NewTemporaryFolder()
{
    CTavrinString folder = GetTempFolder();
    folder.ReplaceSlashWithSystemSlash();
    CTavrinUUID name;
    name.Generate();
    folder = folder + CTavrinString(name) + CTavrinString::SystemSeparator;
    folder.ReplaceSlashWithSystemSlash();
    return folder;
}

// Empty when the file does not exist.
CTavrinString CanonicalPath(const std::string& path)
{
    return CTavrinString(QFileInfo(QString::fromStdString(path)).canonicalFilePath().toStdWString());
}

} // namespace

// Every import gets a folder of its own, also when the file is no package:
// textures are looked up in it either way. The folder stays after the import.
void CTavrinUSDReaderHandler::UnpackToTemporaryFolder(const CTavrinString& source)
{
    unpackFolder = NewTemporaryFolder();
    CTavrinUnzipper().ExtractAll(source, unpackFolder);
}

CTavrinString CTavrinUSDReaderHandler::UnpackedFolderOf(const std::string& package)
{
    const CTavrinString key = CanonicalPath(package);
    if (key.IsEmpty())
        return CTavrinString();
    // The imported file was unpacked at the start. USD may know it by the
    // temporary copy's name: the copy has the same entries.
    if (stage && key == CanonicalPath(stage->GetRootLayer()->GetRealPath()))
        return unpackFolder;
    CTavrinString& folder = packageFolders[key];
    if (folder.IsEmpty()) {
        folder = NewTemporaryFolder();
        CTavrinUnzipper().ExtractAll(key, folder);
    }
    return folder;
}

} // namespace Tavrin
