#include "host/CTavrinArchive.h"

#include <cstring>

#include "host/CTavrinID.h"

namespace Tavrin {

bool CTavrinArchivable::ArchiveReadWrite(CTavrinArchiveBase& archive)
{
    return archive.IsReaderArchive() ? ReadFromArchive(&archive) : WriteIntoArchive(&archive);
}

bool CTavrinArchiveBase::ReadWrite(int& value)
{
    std::int32_t stored = value;
    if (!m_isReader)
        return WriteInt32(stored);
    if (!ReadInt32(stored))
        return false;
    value = stored;
    return true;
}

bool CTavrinArchiveBase::ReadWrite(unsigned int& value)
{
    std::int32_t stored = static_cast<std::int32_t>(value);
    if (!m_isReader)
        return WriteInt32(stored);
    if (!ReadInt32(stored))
        return false;
    value = static_cast<unsigned int>(stored);
    return true;
}

bool CTavrinArchiveBase::ReadWrite(double& value)
{
    return m_isReader ? ReadDouble(value) : WriteDouble(value);
}

bool CTavrinArchiveBase::ReadWrite(bool& value)
{
    return m_isReader ? ReadBool(value) : WriteBool(value);
}

bool CTavrinArchiveBase::ReadWrite(CTavrinString& value)
{
    return m_isReader ? ReadString(value) : WriteString(value);
}

bool CTavrinArchiveBase::ReadWrite(CTavrinArchivable& value)
{
    return value.ArchiveReadWrite(*this);
}

bool CTavrinArchiveBase::ReadWrite(std::set<CTavrinID>& values)
{
    unsigned int count = static_cast<unsigned int>(values.size());
    if (!ReadWrite(count))
        return false;
    if (!m_isReader) {
        for (CTavrinID id : values) {
            if (!id.ArchiveReadWrite(*this))
                return false;
        }
        return true;
    }
    // The count comes from the file: read element by element rather than
    // reserving for it, so a corrupt count fails at the end of the bytes.
    values.clear();
    for (unsigned int i = 0; i < count; ++i) {
        CTavrinID id;
        if (!id.ArchiveReadWrite(*this))
            return false;
        values.insert(id);
    }
    return true;
}

bool CTavrinArchiveBase::ReadWriteArchivablePointer(
    CTavrinArchivable*& object, const std::function<CTavrinArchivable*()>& create)
{
    bool present = object != nullptr;
    if (!ReadWrite(present))
        return false;
    if (!present)
        return true;
    if (m_isReader && !object)
        object = create ? create() : nullptr;
    return object && object->ArchiveReadWrite(*this);
}

void CTavrinBinaryArchiveWriter::Append(const void* data, std::size_t size)
{
    const auto* bytes = static_cast<const std::uint8_t*>(data);
    m_bytes.insert(m_bytes.end(), bytes, bytes + size);
}

bool CTavrinBinaryArchiveWriter::WriteInt32(std::int32_t value)
{
    const std::uint32_t bits = static_cast<std::uint32_t>(value);
    const std::uint8_t bytes[4] = {static_cast<std::uint8_t>(bits), static_cast<std::uint8_t>(bits >> 8),
                                   static_cast<std::uint8_t>(bits >> 16), static_cast<std::uint8_t>(bits >> 24)};
    Append(bytes, sizeof bytes);
    return true;
}

bool CTavrinBinaryArchiveWriter::WriteBool(bool value)
{
    const std::uint8_t byte = value ? 1 : 0;
    Append(&byte, 1);
    return true;
}

bool CTavrinBinaryArchiveWriter::WriteDouble(double value)
{
    std::uint64_t bits;
    std::memcpy(&bits, &value, sizeof bits);
    std::uint8_t bytes[8];
    for (int i = 0; i < 8; ++i)
        bytes[i] = static_cast<std::uint8_t>(bits >> (8 * i));
    Append(bytes, sizeof bytes);
    return true;
}

bool CTavrinBinaryArchiveWriter::WriteString(const CTavrinString& value)
{
    const std::string utf8 = value.toStdString();
    if (!WriteInt32(static_cast<std::int32_t>(utf8.size())))
        return false;
    Append(utf8.data(), utf8.size());
    return true;
}

bool CTavrinBinaryArchiveWriter::ReadInt32(std::int32_t&) { return false; }
bool CTavrinBinaryArchiveWriter::ReadBool(bool&) { return false; }
bool CTavrinBinaryArchiveWriter::ReadDouble(double&) { return false; }
bool CTavrinBinaryArchiveWriter::ReadString(CTavrinString&) { return false; }

bool CTavrinBinaryArchiveReader::Take(void* data, std::size_t size)
{
    if (size > m_bytes.size() - m_position)
        return false;
    std::memcpy(data, m_bytes.data() + m_position, size);
    m_position += size;
    return true;
}

bool CTavrinBinaryArchiveReader::ReadInt32(std::int32_t& value)
{
    std::uint8_t bytes[4];
    if (!Take(bytes, sizeof bytes))
        return false;
    const std::uint32_t bits = std::uint32_t(bytes[0]) | (std::uint32_t(bytes[1]) << 8) |
                               (std::uint32_t(bytes[2]) << 16) | (std::uint32_t(bytes[3]) << 24);
    value = static_cast<std::int32_t>(bits);
    return true;
}

bool CTavrinBinaryArchiveReader::ReadBool(bool& value)
{
    std::uint8_t byte;
    if (!Take(&byte, 1) || byte > 1)
        return false;
    value = byte == 1;
    return true;
}

bool CTavrinBinaryArchiveReader::ReadDouble(double& value)
{
    std::uint8_t bytes[8];
    if (!Take(bytes, sizeof bytes))
        return false;
    std::uint64_t bits = 0;
    for (int i = 0; i < 8; ++i)
        bits |= std::uint64_t(bytes[i]) << (8 * i);
    std::memcpy(&value, &bits, sizeof value);
    return true;
}

bool CTavrinBinaryArchiveReader::ReadString(CTavrinString& value)
{
    std::int32_t size;
    if (!ReadInt32(size) || size < 0 || static_cast<std::size_t>(size) > m_bytes.size() - m_position)
        return false;
    std::string utf8(size, '\0');
    if (!Take(utf8.data(), utf8.size()))
        return false;
    value = CTavrinString(utf8);
    return true;
}

bool CTavrinBinaryArchiveReader::WriteInt32(std::int32_t) { return false; }
bool CTavrinBinaryArchiveReader::WriteBool(bool) { return false; }
bool CTavrinBinaryArchiveReader::WriteDouble(double) { return false; }
bool CTavrinBinaryArchiveReader::WriteString(const CTavrinString&) { return false; }

} // namespace Tavrin
