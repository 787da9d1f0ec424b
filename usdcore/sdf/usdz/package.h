#pragma once

#include "usdcore/pxr.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

PXR_NAMESPACE_OPEN_SCOPE

/// A .usdz package read in place: a zip archive whose entries are stored
/// uncompressed, so each entry's bytes are a view into the mapped file. The
/// central directory is indexed once at open, making every lookup O(1).
///
/// A usdz package is valid when it is a well-formed zip and its first file
/// (the lowest in the archive) is a USD layer; that file is the root layer.
/// Entry names are kept exactly as stored and only ever used as lookup keys:
/// this reader never touches the file system with them.
class SdfUsdzPackage
{
public:
    struct Entry {
        std::string path;              ///< inner path, as stored
        uint64_t localHeaderOffset;    ///< where the entry starts in the archive
        uint64_t dataOffset;           ///< where its bytes start
        uint64_t size;                 ///< stored (compressed) size
        uint64_t uncompressedSize;
        uint16_t compressionMethod;    ///< 0 = stored
        bool encrypted;
        bool IsStored() const { return compressionMethod == 0 && !encrypted; }
    };

    /// Opens the package at \p path: a file, or a package-relative path
    /// naming a package nested in others ("a.usdz[sub/b.usdz]"). Packages
    /// still open elsewhere are shared rather than indexed again. Returns
    /// null, with a runtime error naming the package, when it cannot be
    /// read or is not a valid usdz package.
    static std::shared_ptr<const SdfUsdzPackage> Open(const std::string& path);

    /// Reads a package held in \p bytes (for example an entry of another
    /// package), which \p owner keeps alive. \p identifier names it in
    /// diagnostics and GetIdentifier().
    static std::shared_ptr<const SdfUsdzPackage> OpenFromBytes(std::string_view bytes,
                                                               const std::string& identifier,
                                                               std::shared_ptr<const void> owner);

    const std::string& GetIdentifier() const { return _identifier; }
    /// Inner path of the root layer (the first file of the package).
    const std::string& GetRootLayerPath() const { return _entries[_rootIndex].path; }
    /// Every entry, in central directory order.
    const std::vector<Entry>& GetEntries() const { return _entries; }
    /// The whole archive.
    std::string_view GetBytes() const { return _bytes; }

    /// The entry stored under \p innerPath (a leading "./" is ignored), or null.
    const Entry* FindEntry(const std::string& innerPath) const;

    /// The bytes of the entry \p innerPath, viewing this package's memory.
    /// Fails with a runtime error when there is no such entry or it is
    /// compressed or encrypted.
    bool GetEntryBytes(const std::string& innerPath, std::string_view* bytes) const;

private:
    SdfUsdzPackage(std::string identifier, std::string_view bytes, std::shared_ptr<const void> owner)
        : _identifier(std::move(identifier)), _bytes(bytes), _owner(std::move(owner))
    {
    }
    bool _ReadDirectory();
    bool _Fail(const char* format, ...) const __attribute__((format(printf, 2, 3)));

    std::string _identifier;
    std::string_view _bytes;
    std::shared_ptr<const void> _owner;
    std::vector<Entry> _entries;
    // Keys view the paths in _entries, which never change after indexing.
    std::unordered_map<std::string_view, size_t> _index;
    size_t _rootIndex = 0;
};

/// The bytes of the asset at a package-relative path ("a.usdz[tex.png]",
/// "a.usdz[b.usdz[c.usda]]"). \p package receives the innermost package,
/// which keeps \p bytes valid. Fails with a runtime error.
bool SdfUsdzReadPackagedAsset(const std::string& packageRelativePath,
                              std::shared_ptr<const SdfUsdzPackage>* package,
                              std::string_view* bytes);

PXR_NAMESPACE_CLOSE_SCOPE
