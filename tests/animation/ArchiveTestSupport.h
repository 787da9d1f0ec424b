#pragma once
// Archives over byte buffers for the animation tests, a writer of records
// built field by field, and the file version that readers branch on.

#include "TavrinAnimation/src/TavrinArchiveValues.h"
#include "TavrinAnimation/src/TavrinKeyFrameManager.h"
#include "host/CTavrin3DVertex.h"
#include "host/CTavrinArchive.h"
#include "host/CTavrinDocumentsContainer.h"
#include "host/CTavrinMatrix.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

constexpr unsigned int NewestArchiveVersion = Tavrin::CTavrinArchiveBase::CurrentVersion;

class TestWriter {
public:
    explicit TestWriter(unsigned int version) : m_version(version), m_archive(version) {}
    Tavrin::CTavrinArchiveBase& archive() { return m_archive; }
    std::vector<std::uint8_t> Bytes() const { return m_archive.Bytes(); }
    unsigned int Version() const { return m_version; }

private:
    unsigned int m_version;
    Tavrin::CTavrinBinaryArchiveWriter m_archive;
};

class TestReader {
public:
    TestReader(std::vector<std::uint8_t> bytes, unsigned int version) : m_archive(std::move(bytes), version) {}
    Tavrin::CTavrinArchiveBase& archive() { return m_archive; }
    bool AtEnd() const { return m_archive.AtEnd(); }

private:
    Tavrin::CTavrinBinaryArchiveReader m_archive;
};

// Makes readers see a document of the given version while in scope.
class FileVersionScope {
public:
    explicit FileVersionScope(unsigned int version)
        : m_previous(Tavrin::CTavrinDocumentsContainer::DocumentsContainer()->VersionOfLastTavFileReadFromArchive()) {
        Tavrin::CTavrinDocumentsContainer::DocumentsContainer()->SetVersionOfLastTavFileReadFromArchive(version);
    }
    ~FileVersionScope() {
        Tavrin::CTavrinDocumentsContainer::DocumentsContainer()->SetVersionOfLastTavFileReadFromArchive(m_previous);
    }

private:
    unsigned int m_previous;
};

// Reads what writer holds into target, as a document of the writer's version
// would: true when the record was read and nothing of it was left over.
template <class Archivable>
bool ReadBack(const TestWriter& writer, Archivable& target) {
    FileVersionScope file(writer.Version());
    TestReader reader(writer.Bytes(), writer.Version());
    return target.ArchiveReadWrite(reader.archive()) && reader.AtEnd();
}

// Writes source at the newest version and reads it back into target.
template <class Archivable>
bool RoundTrip(Archivable& source, Archivable& target) {
    TestWriter writer(NewestArchiveVersion);
    return source.ArchiveReadWrite(writer.archive()) && ReadBack(writer, target);
}

// Writes a record one field at a time, as an older version laid it out.
class RecordWriter {
public:
    explicit RecordWriter(Tavrin::CTavrinArchiveBase& archive) : m_archive(archive) {}

    RecordWriter& Int(int value) { return Check(m_archive.ReadWrite(value)); }
    RecordWriter& UInt(unsigned int value) { return Check(m_archive.ReadWrite(value)); }
    RecordWriter& Bool(bool value) { return Check(m_archive.ReadWrite(value)); }
    RecordWriter& Double(double value) { return Check(m_archive.ReadWrite(value)); }
    RecordWriter& ID(Tavrin::CTavrinID value) { return Check(m_archive.ReadWrite(value)); }
    RecordWriter& UUID(Tavrin::CTavrinUUID value) { return Check(m_archive.ReadWrite(value)); }
    RecordWriter& Matrix(Tavrin::CTavrinMatrix value) { return Check(Tavrin::ReadWriteMatrix(m_archive, value)); }
    RecordWriter& Vertex(Tavrin::CTavrin3DVertex value) { return Check(m_archive.ReadWrite(value)); }
    // The named-object record that leads a manager's record from 10059 on.
    RecordWriter& Manager() {
        Tavrin::CTavrinKeyFrameManager unnamed;
        return Check(unnamed.Tavrin::CTavrinArchivable::ArchiveReadWrite(m_archive));
    }

private:
    RecordWriter& Check(bool written) {
        EXPECT_TRUE(written);
        return *this;
    }
    Tavrin::CTavrinArchiveBase& m_archive;
};
