#include "usdreader/TavrinFileHelpers.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace Tavrin {

namespace {

QString ToQt(const CTavrinString& text)
{
    return QDir::fromNativeSeparators(QString::fromStdWString(text.toStdWString()));
}

const CTavrinString DoubleSeparator =
    CTavrinString() + CTavrinString::SystemSeparator + CTavrinString::SystemSeparator;

// Where the separator is a backslash, a path with one leading backslash is
// taken for a network path that lost half of its prefix. Where it is a slash,
// one leading slash is simply the root and must stay as it is.
bool LostNetworkPrefix(const CTavrinString& path)
{
    return CTavrinString::SystemSeparator == L'\\' && path.Length() > 0 &&
           path[0] == L'\\' && (path.Length() == 1 || path[1] != L'\\');
}

// Equal absolute paths, or two names (links) of one existing file: copying
// would then delete the source before reading it.
bool SameFile(const QString& first, const QString& second)
{
    const QFileInfo firstInfo(first);
    const QFileInfo secondInfo(second);
    if (firstInfo.absoluteFilePath() == secondInfo.absoluteFilePath())
        return true;
    return firstInfo.exists() && secondInfo.exists() &&
           firstInfo.canonicalFilePath() == secondInfo.canonicalFilePath();
}

} // namespace

bool CopyFileReplacing(CTavrinString source, CTavrinString destination, bool replace)
{
    destination.ReplaceSlashWithSystemSlash();
    if (LostNetworkPrefix(destination))
        destination = CTavrinString() + CTavrinString::SystemSeparator + destination;

    const QString from = ToQt(source);
    const QString to = ToQt(destination);
    if (SameFile(from, to))
        return true;
    if (!QFile::exists(from))
        return false;
    if (!to.isEmpty() && QFile::exists(to)) {
        if (!replace)
            return true;
        QFile::remove(to);
    }
    MakeFolder(destination.Path(CTavrinString::SystemSeparator));
    return QFile::copy(from, to);
}

bool RemoveFile(CTavrinString path)
{
    const CTavrinString normalized = NormalizePath(path, false);
    if (normalized.IsEmpty())
        return false;
    return QFile::remove(ToQt(normalized));
}

CTavrinString NormalizePath(CTavrinString path, bool createFolder)
{
    CTavrinString result = path;
    result.ReplaceSlashWithSystemSlash();
    while (result.Contains(DoubleSeparator))
        result.Replace(DoubleSeparator, CTavrinString() + CTavrinString::SystemSeparator);

    if (createFolder) {
        path.ReplaceSlashWithSystemSlash();
        MakeFolder(path.Path(CTavrinString::SystemSeparator));
    }

    if (FileExists(result))
        return result;
    const CTavrinString network = CTavrinString() + CTavrinString::SystemSeparator + result;
    return FileExists(network) ? network : result;
}

bool FileExists(const CTavrinString& path)
{
    const QString name = ToQt(path);
    return QFile::exists(name) && QFileInfo(name).isFile();
}

CTavrinString MakeFolder(const CTavrinString& folder)
{
    if (folder.IsEmpty())
        return CTavrinString();
    const QString absolute = QFileInfo(ToQt(folder)).absoluteFilePath();
    QDir().mkpath(absolute + QLatin1Char('/'));
    if (!QFileInfo(absolute).isDir())
        return CTavrinString();
    CTavrinString result(QDir::toNativeSeparators(absolute).toStdWString());
    if (result.LastCh() != CTavrinString::SystemSeparator)
        result = result + CTavrinString::SystemSeparator;
    return result;
}

} // namespace Tavrin
