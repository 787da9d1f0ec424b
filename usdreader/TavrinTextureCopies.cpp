#include "usdreader/TavrinTextureCopies.h"

#include <QDir>
#include <QFileInfo>

#include "usdreader/TavrinFileHelpers.h"

namespace Tavrin {

namespace {

CTavrinString CanonicalPath(const CTavrinString& path)
{
    const QFileInfo info(QDir::fromNativeSeparators(QString::fromStdWString(path.toStdWString())));
    const QString canonical = info.canonicalFilePath();
    return canonical.isEmpty() ? path : CTavrinString(canonical.toStdWString());
}

CTavrinString LowerCase(CTavrinString text)
{
    text.ToLower();
    return text;
}

// name, or name with "_1", "_2"... before its extension, whichever is free.
CTavrinString FreeName(const CTavrinString& name, const std::set<CTavrinString>& taken)
{
    if (!taken.count(LowerCase(name)))
        return name;
    const CTavrinString extension = name.Extension();
    CTavrinString stem = name;
    stem.RemoveExt();
    const CTavrinString suffix = extension.IsEmpty() ? CTavrinString() : CTavrinString(".") + extension;
    for (int number = 1;; ++number) {
        const CTavrinString candidate = stem + CTavrinString("_") + CTavrinString(number) + suffix;
        if (!taken.count(LowerCase(candidate)))
            return candidate;
    }
}

} // namespace

CTavrinString CTavrinTextureCopies::Copy(const CTavrinString& source, const CTavrinString& folder)
{
    const CTavrinString key = CanonicalPath(source);
    const auto known = m_copies.find(key);
    if (known != m_copies.end())
        return known->second;

    CTavrinString name = source;
    name.ReplaceSlashWithSystemSlash();
    name.RemovePath();
    name = FreeName(name, m_takenNames);
    // An older file of that name in the folder is from an earlier import:
    // it is replaced, as the document now refers to this source.
    const CTavrinString destination = folder + name;
    const bool copied = CopyFileReplacing(source, destination, true);
    if (copied)
        m_takenNames.insert(LowerCase(name));
    return m_copies[key] = copied ? destination : CTavrinString();
}

} // namespace Tavrin
