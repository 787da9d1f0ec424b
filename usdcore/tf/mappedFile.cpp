#include "usdcore/tf/mappedFile.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

PXR_NAMESPACE_OPEN_SCOPE

namespace {

bool Fail(std::string* whyNot, const std::string& path, const char* what)
{
    if (whyNot) {
        *whyNot = "cannot " + std::string(what) + " '" + path + "': " + std::strerror(errno);
    }
    return false;
}

} // namespace

TfMappedFile::TfMappedFile(std::string path, const char* data, size_t size)
    : _path(std::move(path)), _data(data), _size(size)
{
}

TfMappedFile::~TfMappedFile()
{
    if (_size) {
        ::munmap(const_cast<char*>(_data), _size);
    }
}

std::shared_ptr<const TfMappedFile> TfMappedFile::Open(const std::string& path,
                                                       std::string* whyNot)
{
    const int fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (fd < 0) {
        Fail(whyNot, path, "open");
        return nullptr;
    }
    struct stat info {};
    if (::fstat(fd, &info) != 0) {
        Fail(whyNot, path, "stat");
        ::close(fd);
        return nullptr;
    }
    if (!S_ISREG(info.st_mode)) {
        if (whyNot) {
            *whyNot = "'" + path + "' is not a regular file";
        }
        ::close(fd);
        return nullptr;
    }
    const size_t size = size_t(info.st_size);
    // mmap refuses zero lengths; an empty file is simply an empty span.
    const char* data = "";
    if (size) {
        void* mapping = ::mmap(nullptr, size, PROT_READ, MAP_PRIVATE, fd, 0);
        if (mapping == MAP_FAILED) {
            Fail(whyNot, path, "map");
            ::close(fd);
            return nullptr;
        }
        data = static_cast<const char*>(mapping);
    }
    ::close(fd);
    return std::shared_ptr<const TfMappedFile>(new TfMappedFile(path, data, size));
}

PXR_NAMESPACE_CLOSE_SCOPE
