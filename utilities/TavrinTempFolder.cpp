#include "utilities/TavrinTempFolder.h"

#include <QDir>

#include "utilities/TavrinPlatform.h"

namespace Tavrin {

namespace {

// QDir::tempPath resolves the folder to its canonical path, which is empty on
// Unix when TMPDIR names a folder that does not exist yet. That folder is
// still the one meant, and it gets created below.
QString SystemTempPath()
{
    const QString resolved = QDir::tempPath();
    if (!resolved.isEmpty())
        return resolved;
    const QString configured = qEnvironmentVariable("TMPDIR");
    return configured.isEmpty() ? QStringLiteral("/tmp") : QDir::cleanPath(configured);
}

} // namespace

CTavrinString GetTempFolder()
{
    CTavrinString configured;
    if (ReadEnvironmentVariable("TAVRIN_TEMP_DIR", configured))
        return configured;

    const QString tempPath = SystemTempPath();
    if (!QDir(tempPath).exists())
        QDir().mkpath(tempPath);
    CTavrinString folder(tempPath.toStdWString());
    folder.ReplaceSlashWithSystemSlash();
    if (folder.LastCh() != CTavrinString::SystemSeparator)
        folder = folder + CTavrinString::SystemSeparator;
    return folder;
}

} // namespace Tavrin
