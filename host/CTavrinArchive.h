#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <set>
#include <vector>

#include "host/CTavrinString.h"

namespace Tavrin {

class CTavrinArchiveBase;
class CTavrinID;

// Base of everything saved in a document. A false return stops the archive.
class CTavrinArchivable {
public:
    virtual ~CTavrinArchivable() = default;
    // Reads or writes by the archive's direction.
    virtual bool ArchiveReadWrite(CTavrinArchiveBase& archive);
    virtual bool ReadFromArchive(CTavrinArchiveBase* archive) = 0;
    virtual bool WriteIntoArchive(CTavrinArchiveBase* archive) = 0;
};

// The document archive: one object either reads or writes, and carries the
// format version of the file so that readers can branch on older layouts.
class CTavrinArchiveBase {
public:
    static constexpr unsigned int CurrentVersion = 13014;

    CTavrinArchiveBase(bool isReader, unsigned int version, bool isDocumentArchive)
        : m_isReader(isReader), m_version(version), m_isDocumentArchive(isDocumentArchive) {}
    virtual ~CTavrinArchiveBase() = default;

    bool IsReaderArchive() const { return m_isReader; }
    unsigned int Version() const { return m_version; }

    virtual bool WriteInt32(std::int32_t value) = 0;
    virtual bool WriteBool(bool value) = 0;
    virtual bool WriteDouble(double value) = 0;
    virtual bool WriteString(const CTavrinString& value) = 0;
    virtual bool ReadInt32(std::int32_t& value) = 0;
    virtual bool ReadBool(bool& value) = 0;
    virtual bool ReadDouble(double& value) = 0;
    virtual bool ReadString(CTavrinString& value) = 0;
    // True when the archive holds a whole document; a copy of a few objects
    // (clipboard, undo) answers false, and document-level records such as
    // sequences and groups are then left out.
    virtual bool IsDocumentArchive() const { return m_isDocumentArchive; }

    bool ReadWrite(int& value);
    bool ReadWrite(unsigned int& value);
    bool ReadWrite(double& value);
    bool ReadWrite(bool& value);
    bool ReadWrite(CTavrinString& value);
    bool ReadWrite(CTavrinArchivable& value);
    bool ReadWrite(std::set<CTavrinID>& values);
    // Writes whether the pointer is set, then the object. Reading into a null
    // pointer makes the object with create first; the caller owns it.
    bool ReadWriteArchivablePointer(CTavrinArchivable*& object,
                                    const std::function<CTavrinArchivable*()>& create);

private:
    bool m_isReader;
    unsigned int m_version;
    bool m_isDocumentArchive;
};

// Little-endian binary archive over a byte buffer.
class CTavrinBinaryArchiveWriter : public CTavrinArchiveBase {
public:
    explicit CTavrinBinaryArchiveWriter(unsigned int version = CurrentVersion,
                                        bool isDocumentArchive = true)
        : CTavrinArchiveBase(false, version, isDocumentArchive) {}

    bool WriteInt32(std::int32_t value) override;
    bool WriteBool(bool value) override;
    bool WriteDouble(double value) override;
    bool WriteString(const CTavrinString& value) override;
    bool ReadInt32(std::int32_t& value) override;
    bool ReadBool(bool& value) override;
    bool ReadDouble(double& value) override;
    bool ReadString(CTavrinString& value) override;

    const std::vector<std::uint8_t>& Bytes() const { return m_bytes; }

private:
    void Append(const void* data, std::size_t size);
    std::vector<std::uint8_t> m_bytes;
};

class CTavrinBinaryArchiveReader : public CTavrinArchiveBase {
public:
    CTavrinBinaryArchiveReader(std::vector<std::uint8_t> bytes,
                               unsigned int version = CurrentVersion,
                               bool isDocumentArchive = true)
        : CTavrinArchiveBase(true, version, isDocumentArchive), m_bytes(std::move(bytes)) {}

    bool WriteInt32(std::int32_t value) override;
    bool WriteBool(bool value) override;
    bool WriteDouble(double value) override;
    bool WriteString(const CTavrinString& value) override;
    bool ReadInt32(std::int32_t& value) override;
    bool ReadBool(bool& value) override;
    bool ReadDouble(double& value) override;
    bool ReadString(CTavrinString& value) override;

    bool AtEnd() const { return m_position == m_bytes.size(); }

private:
    bool Take(void* data, std::size_t size);
    std::vector<std::uint8_t> m_bytes;
    std::size_t m_position = 0;
};

} // namespace Tavrin
