#include "usdcore/sdf/usdz/package.h"

#include "usdcore/sdf/usdz/packageUtils.h"
#include "usdcore/tf/diagnostic.h"
#include "usdcore/tf/mappedFile.h"
#include "usdcore/tf/stringUtils.h"

#include <cstdarg>
#include <cstring>
#include <mutex>

PXR_NAMESPACE_OPEN_SCOPE

namespace {

// Zip record signatures and fixed sizes (PKWARE APPNOTE).
constexpr uint32_t kEndOfDirectorySignature = 0x06054b50;
constexpr uint32_t kZip64EndLocatorSignature = 0x07064b50;
constexpr uint32_t kZip64EndOfDirectorySignature = 0x06064b50;
constexpr uint32_t kDirectoryEntrySignature = 0x02014b50;
constexpr uint32_t kLocalHeaderSignature = 0x04034b50;
constexpr uint64_t kEndOfDirectorySize = 22;
constexpr uint64_t kZip64EndLocatorSize = 20;
constexpr uint64_t kZip64EndOfDirectorySize = 56;
constexpr uint64_t kDirectoryEntrySize = 46;
constexpr uint64_t kLocalHeaderSize = 30;
constexpr uint64_t kMaxCommentSize = 0xffff;
constexpr uint16_t kZip64ExtraId = 0x0001;
constexpr uint16_t kEncryptedFlag = 0x0001;

// Nested packages are named by authored asset paths; bound the depth.
constexpr int kMaxPackageNesting = 8;

/// Little-endian reads that fail instead of leaving the bytes.
class ByteReader
{
public:
    explicit ByteReader(std::string_view bytes) : _bytes(bytes) {}

    bool Contains(uint64_t offset, uint64_t size) const
    {
        return offset <= _bytes.size() && size <= _bytes.size() - offset;
    }
    template <class T>
    bool Read(uint64_t offset, T* value) const
    {
        if (!Contains(offset, sizeof(T))) return false;
        T result = 0;
        for (size_t i = 0; i < sizeof(T); ++i) {
            result |= T(uint8_t(_bytes[offset + i])) << (8 * i);
        }
        *value = result;
        return true;
    }
    template <class T>
    T ReadOr(uint64_t offset, T fallback) const
    {
        T value;
        return Read(offset, &value) ? value : fallback;
    }
    std::string_view View(uint64_t offset, uint64_t size) const
    {
        return Contains(offset, size) ? _bytes.substr(offset, size) : std::string_view();
    }

private:
    std::string_view _bytes;
};

struct DirectoryLocation {
    uint64_t entryCount;
    uint64_t offset;
    uint64_t size;
};

bool IsUsdLayerPath(const std::string& innerPath)
{
    const std::string extension = TfStringToLower(TfStringGetSuffix(TfGetBaseName(innerPath)));
    return extension == "usd" || extension == "usda" || extension == "usdc";
}

std::string WithoutLeadingDotSlash(const std::string& path)
{
    size_t start = 0;
    while (path.compare(start, 2, "./") == 0) start += 2;
    return path.substr(start);
}

struct PackageCache {
    std::mutex mutex;
    std::unordered_map<std::string, std::weak_ptr<const SdfUsdzPackage>> packages;
};

PackageCache& GetPackageCache()
{
    static PackageCache* cache = new PackageCache;
    return *cache;
}

std::shared_ptr<const SdfUsdzPackage> OpenPackageFile(const std::string& path)
{
    std::string whyNot;
    std::shared_ptr<const TfMappedFile> file = TfMappedFile::Open(path, &whyNot);
    if (!file) {
        TF_RUNTIME_ERROR("Cannot open usdz package: %s", whyNot.c_str());
        return nullptr;
    }
    return SdfUsdzPackage::OpenFromBytes(file->GetBytes(), path, file);
}

} // namespace

bool SdfUsdzPackage::_Fail(const char* format, ...) const
{
    va_list args;
    va_start(args, format);
    const std::string reason = TfVStringPrintf(format, args);
    va_end(args);
    TF_RUNTIME_ERROR("Invalid usdz package '%s': %s", _identifier.c_str(), reason.c_str());
    return false;
}

std::shared_ptr<const SdfUsdzPackage> SdfUsdzPackage::OpenFromBytes(
    std::string_view bytes, const std::string& identifier, std::shared_ptr<const void> owner)
{
    std::shared_ptr<SdfUsdzPackage> package(new SdfUsdzPackage(identifier, bytes, std::move(owner)));
    if (!package->_ReadDirectory()) {
        return nullptr;
    }
    return package;
}

std::shared_ptr<const SdfUsdzPackage> SdfUsdzPackage::Open(const std::string& path)
{
    PackageCache& cache = GetPackageCache();
    {
        std::lock_guard<std::mutex> lock(cache.mutex);
        if (auto open = cache.packages[path].lock()) {
            return open;
        }
    }

    // Outermost package from the file, then each nested one from its
    // parent's entry: "a.usdz[b.usdz[c.usdz]]" opens a, b, c in turn.
    std::pair<std::string, std::string> split = ArSplitPackageRelativePathOuter(path);
    std::shared_ptr<const SdfUsdzPackage> package = OpenPackageFile(split.first);
    for (int depth = 0; package && !split.second.empty(); ++depth) {
        if (depth == kMaxPackageNesting) {
            TF_RUNTIME_ERROR("Usdz packages in '%s' nest deeper than %d levels", path.c_str(),
                             kMaxPackageNesting);
            return nullptr;
        }
        split = ArSplitPackageRelativePathOuter(split.second);
        std::string_view bytes;
        if (!package->GetEntryBytes(split.first, &bytes)) {
            return nullptr;
        }
        const std::string identifier =
            ArJoinPackageRelativePath(package->GetIdentifier(), split.first);
        package = OpenFromBytes(bytes, identifier, package);
    }
    if (package) {
        std::lock_guard<std::mutex> lock(cache.mutex);
        cache.packages[path] = package;
    }
    return package;
}

const SdfUsdzPackage::Entry* SdfUsdzPackage::FindEntry(const std::string& innerPath) const
{
    const std::string key = WithoutLeadingDotSlash(innerPath);
    const auto it = _index.find(key);
    return it == _index.end() ? nullptr : &_entries[it->second];
}

bool SdfUsdzPackage::GetEntryBytes(const std::string& innerPath, std::string_view* bytes) const
{
    const Entry* entry = FindEntry(innerPath);
    if (!entry) {
        TF_RUNTIME_ERROR("No file '%s' in usdz package '%s'", innerPath.c_str(),
                         _identifier.c_str());
        return false;
    }
    if (!entry->IsStored()) {
        TF_RUNTIME_ERROR("File '%s' in usdz package '%s' is %s; usdz files must be stored "
                         "uncompressed and unencrypted",
                         innerPath.c_str(), _identifier.c_str(),
                         entry->encrypted ? "encrypted" : "compressed");
        return false;
    }
    *bytes = _bytes.substr(entry->dataOffset, entry->size);
    return true;
}

namespace {

/// Finds the end-of-central-directory record: the last signature within
/// the final 22 + 65535 bytes whose comment fits in the file.
bool FindEndOfDirectory(const ByteReader& reader, uint64_t fileSize, uint64_t* at)
{
    if (fileSize < kEndOfDirectorySize) return false;
    const uint64_t last = fileSize - kEndOfDirectorySize;
    const uint64_t first = last > kMaxCommentSize ? last - kMaxCommentSize : 0;
    for (uint64_t offset = last + 1; offset-- > first;) {
        if (reader.ReadOr<uint32_t>(offset, 0) != kEndOfDirectorySignature) continue;
        const uint16_t commentSize = reader.ReadOr<uint16_t>(offset + 20, 0);
        if (offset + kEndOfDirectorySize + commentSize <= fileSize) {
            *at = offset;
            return true;
        }
    }
    return false;
}

/// Reads the zip64 end record through its locator, if the archive has one.
/// Returns false only for a locator that points at garbage.
bool ReadZip64Location(const ByteReader& reader, uint64_t endOfDirectory, bool* found,
                       DirectoryLocation* location)
{
    *found = false;
    if (endOfDirectory < kZip64EndLocatorSize) return true;
    const uint64_t locator = endOfDirectory - kZip64EndLocatorSize;
    if (reader.ReadOr<uint32_t>(locator, 0) != kZip64EndLocatorSignature) return true;
    const uint64_t record = reader.ReadOr<uint64_t>(locator + 8, UINT64_MAX);
    if (!reader.Contains(record, kZip64EndOfDirectorySize) ||
        reader.ReadOr<uint32_t>(record, 0) != kZip64EndOfDirectorySignature) {
        return false;
    }
    *found = true;
    location->entryCount = reader.ReadOr<uint64_t>(record + 32, 0);
    location->size = reader.ReadOr<uint64_t>(record + 40, 0);
    location->offset = reader.ReadOr<uint64_t>(record + 48, 0);
    return reader.ReadOr<uint32_t>(record + 16, 1) == 0 && reader.ReadOr<uint32_t>(record + 20, 1) == 0;
}

/// Replaces saturated 32-bit sizes and offset with the 64-bit values of a
/// zip64 extra field, which lists only the saturated ones, in this order.
bool ApplyZip64Extra(std::string_view extra, SdfUsdzPackage::Entry* entry)
{
    const ByteReader reader(extra);
    for (uint64_t at = 0; reader.Contains(at, 4);) {
        const uint16_t id = reader.ReadOr<uint16_t>(at, 0);
        const uint16_t size = reader.ReadOr<uint16_t>(at + 2, 0);
        if (!reader.Contains(at + 4, size)) return false;
        if (id == kZip64ExtraId) {
            uint64_t field = at + 4;
            const uint64_t end = field + size;
            for (uint64_t* value : {&entry->uncompressedSize, &entry->size, &entry->localHeaderOffset}) {
                if (*value != UINT32_MAX) continue;
                if (field + 8 > end || !reader.Read(field, value)) return false;
                field += 8;
            }
            return true;
        }
        at += 4 + uint64_t(size);
    }
    return true;
}

} // namespace

bool SdfUsdzPackage::_ReadDirectory()
{
    const ByteReader reader(_bytes);
    uint64_t end = 0;
    if (!FindEndOfDirectory(reader, _bytes.size(), &end)) {
        return _Fail("not a zip archive (no end of central directory)");
    }
    DirectoryLocation location{reader.ReadOr<uint16_t>(end + 10, 0),
                               reader.ReadOr<uint32_t>(end + 16, 0),
                               reader.ReadOr<uint32_t>(end + 12, 0)};
    bool zip64 = false;
    if (!ReadZip64Location(reader, end, &zip64, &location)) {
        return _Fail("corrupt zip64 end of central directory");
    }
    if (!zip64 && (reader.ReadOr<uint16_t>(end + 4, 1) != 0 || reader.ReadOr<uint16_t>(end + 6, 1) != 0)) {
        return _Fail("archives split over several disks are not supported");
    }
    if (!reader.Contains(location.offset, location.size)) {
        return _Fail("central directory (%llu bytes at %llu) lies outside the %zu-byte archive",
                     (unsigned long long)location.size, (unsigned long long)location.offset,
                     _bytes.size());
    }
    // Each record takes at least 46 bytes: a larger count is a lie, and
    // must not size an allocation.
    if (location.entryCount > location.size / kDirectoryEntrySize) {
        return _Fail("central directory of %llu bytes cannot hold %llu entries",
                     (unsigned long long)location.size, (unsigned long long)location.entryCount);
    }
    if (location.entryCount == 0) {
        return _Fail("the archive holds no files");
    }

    const ByteReader directory(reader.View(location.offset, location.size));
    _entries.reserve(location.entryCount);
    uint64_t at = 0;
    for (uint64_t i = 0; i < location.entryCount; ++i) {
        if (!directory.Contains(at, kDirectoryEntrySize) ||
            directory.ReadOr<uint32_t>(at, 0) != kDirectoryEntrySignature) {
            return _Fail("central directory entry %llu is malformed", (unsigned long long)i);
        }
        const uint16_t flags = directory.ReadOr<uint16_t>(at + 8, 0);
        const uint16_t nameSize = directory.ReadOr<uint16_t>(at + 28, 0);
        const uint16_t extraSize = directory.ReadOr<uint16_t>(at + 30, 0);
        const uint16_t commentSize = directory.ReadOr<uint16_t>(at + 32, 0);
        const uint64_t nameAt = at + kDirectoryEntrySize;
        if (!directory.Contains(nameAt, uint64_t(nameSize) + extraSize + commentSize)) {
            return _Fail("central directory entry %llu runs past the directory",
                         (unsigned long long)i);
        }
        Entry entry;
        entry.path = std::string(directory.View(nameAt, nameSize));
        entry.compressionMethod = directory.ReadOr<uint16_t>(at + 10, 0);
        entry.encrypted = (flags & kEncryptedFlag) != 0;
        entry.size = directory.ReadOr<uint32_t>(at + 20, 0);
        entry.uncompressedSize = directory.ReadOr<uint32_t>(at + 24, 0);
        entry.localHeaderOffset = directory.ReadOr<uint32_t>(at + 42, 0);
        if (!ApplyZip64Extra(directory.View(nameAt + nameSize, extraSize), &entry)) {
            return _Fail("file '%s' has a malformed zip64 extra field", entry.path.c_str());
        }

        // The data follows the local header, whose name and extra field
        // lengths may differ from the central directory's.
        const uint64_t local = entry.localHeaderOffset;
        if (!reader.Contains(local, kLocalHeaderSize) ||
            reader.ReadOr<uint32_t>(local, 0) != kLocalHeaderSignature) {
            return _Fail("file '%s' has no local header at offset %llu", entry.path.c_str(),
                         (unsigned long long)local);
        }
        entry.dataOffset = local + kLocalHeaderSize + reader.ReadOr<uint16_t>(local + 26, 0) +
                           reader.ReadOr<uint16_t>(local + 28, 0);
        if (!reader.Contains(entry.dataOffset, entry.size)) {
            return _Fail("file '%s' (%llu bytes at %llu) runs past the end of the archive",
                         entry.path.c_str(), (unsigned long long)entry.size,
                         (unsigned long long)entry.dataOffset);
        }
        if (entry.IsStored() && entry.size != entry.uncompressedSize) {
            return _Fail("stored file '%s' has differing sizes", entry.path.c_str());
        }
        _entries.push_back(std::move(entry));
        at = nameAt + nameSize + extraSize + commentSize;
    }

    size_t unreadable = 0;
    for (size_t i = 0; i < _entries.size(); ++i) {
        const Entry& entry = _entries[i];
        if (!_index.emplace(entry.path, i).second) {
            TF_WARN("Usdz package '%s' holds '%s' more than once; using the first",
                    _identifier.c_str(), entry.path.c_str());
        }
        if (entry.localHeaderOffset < _entries[_rootIndex].localHeaderOffset) {
            _rootIndex = i;
        }
        unreadable += entry.IsStored() ? 0 : 1;
    }

    const Entry& root = _entries[_rootIndex];
    if (!IsUsdLayerPath(root.path)) {
        return _Fail("its first file '%s' is not a USD layer", root.path.c_str());
    }
    if (!root.IsStored()) {
        return _Fail("its root layer '%s' is compressed or encrypted", root.path.c_str());
    }
    if (unreadable) {
        TF_WARN("Usdz package '%s' has %zu compressed or encrypted files, which cannot be read",
                _identifier.c_str(), unreadable);
    }
    return true;
}

bool SdfUsdzReadPackagedAsset(const std::string& packageRelativePath,
                              std::shared_ptr<const SdfUsdzPackage>* package,
                              std::string_view* bytes)
{
    const std::pair<std::string, std::string> split =
        ArSplitPackageRelativePathInner(packageRelativePath);
    if (split.second.empty()) {
        TF_RUNTIME_ERROR("'%s' does not name a file inside a package",
                         packageRelativePath.c_str());
        return false;
    }
    std::shared_ptr<const SdfUsdzPackage> opened = SdfUsdzPackage::Open(split.first);
    if (!opened || !opened->GetEntryBytes(split.second, bytes)) {
        return false;
    }
    *package = std::move(opened);
    return true;
}

PXR_NAMESPACE_CLOSE_SCOPE
