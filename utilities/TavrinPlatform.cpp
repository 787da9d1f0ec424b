#include "utilities/TavrinPlatform.h"

#include <cstdlib>

#include <QDir>
#include <QFile>
#include <QTextStream>

#include "utilities/TavrinTempFolder.h"

#ifdef _WIN32
#include <shlobj.h>
#endif

namespace Tavrin {

bool ReadEnvironmentVariable(const char* name, CTavrinString& value)
{
#ifdef _WIN32
    const std::string narrow(name);
    const wchar_t* text = _wgetenv(std::wstring(narrow.begin(), narrow.end()).c_str());
#else
    const char* text = std::getenv(name);
#endif
    if (!text)
        return false;
    value = CTavrinString(text);
    return true;
}

namespace {

QString WithoutFinalSeparator(QString folder)
{
    while (folder.size() > 1 && (folder.endsWith('/') || folder.endsWith('\\')))
        folder.chop(1);
    return folder;
}

#ifndef _WIN32
// XDG_PUBLICSHARE_DIR from user-dirs.dirs: a quoted absolute path or one
// starting with $HOME/.
QString XdgPublicShareFolder(const QString& home)
{
    CTavrinString configHome;
    QString configFolder = ReadEnvironmentVariable("XDG_CONFIG_HOME", configHome) && !configHome.IsEmpty()
                               ? QString::fromStdWString(configHome.toStdWString())
                               : home + "/.config";
    QFile file(configFolder + "/user-dirs.dirs");
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return QString();
    QTextStream stream(&file);
    stream.setCodec("UTF-8");
    const QString key = "XDG_PUBLICSHARE_DIR=";
    while (!stream.atEnd()) {
        const QString line = stream.readLine().trimmed();
        if (!line.startsWith(key))
            continue;
        QString value = line.mid(key.size());
        if (value.size() < 2 || !value.startsWith('"') || !value.endsWith('"'))
            return QString();
        value = value.mid(1, value.size() - 2);
        if (value.startsWith("$HOME"))
            value = home + value.mid(5);
        return value.startsWith('/') ? value : QString();
    }
    return QString();
}
#endif

} // namespace

CTavrinString GetPublicFolder()
{
#ifdef _WIN32
    PWSTR path = nullptr;
    CTavrinString folder;
    if (SUCCEEDED(SHGetKnownFolderPath(FOLDERID_Public, 0, nullptr, &path)))
        folder = CTavrinString(path);
    CoTaskMemFree(path);
    return folder;
#else
    const QString home = QDir::homePath();
    QString candidates[] = {XdgPublicShareFolder(home), home + "/Public"};
    for (const QString& candidate : candidates) {
        if (!candidate.isEmpty() && QDir(candidate).exists())
            return CTavrinString(WithoutFinalSeparator(candidate).toStdWString());
    }
    CTavrinString temp = GetTempFolder();
    return CTavrinString(WithoutFinalSeparator(QString::fromStdWString(temp.toStdWString())).toStdWString());
#endif
}

} // namespace Tavrin
