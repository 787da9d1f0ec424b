#include "host/CTavrinID.h"

#include "host/CTavrinDocument.h"

namespace Tavrin {

namespace {
bool readingTavFile = false;
}

void CTavrinID::setDefault()
{
    m_document.Reset();
    m_serial = -1;
}

CTavrinDocument* CTavrinID::Document() const
{
    return IsDefault() ? nullptr : CTavrinDocument::FindDocument(m_document);
}

CTavrinEntity* CTavrinID::Entity() const
{
    CTavrinDocument* document = Document();
    return document ? document->EntityBySerial(m_serial) : nullptr;
}

enumEntityType CTavrinID::EntityType() const
{
    const CTavrinEntity* entity = Entity();
    return entity ? entity->EntityType() : ENTITY_NONE;
}

bool CTavrinID::operator==(const CTavrinID& other) const
{
    if (IsDefault() || other.IsDefault())
        return IsDefault() == other.IsDefault();
    return m_serial == other.m_serial && m_document == other.m_document;
}

bool CTavrinID::operator<(const CTavrinID& other) const
{
    if (IsDefault() || other.IsDefault())
        return IsDefault() && !other.IsDefault();
    if (m_document != other.m_document)
        return m_document < other.m_document;
    return m_serial < other.m_serial;
}

bool CTavrinID::ReadFromArchive(CTavrinArchiveBase* archive)
{
    std::int32_t serial;
    if (!m_document.ReadFromArchive(archive) || !archive->ReadInt32(serial) || serial < -1)
        return false;
    m_serial = serial;
    if (m_serial < 0)
        m_document.Reset();
    return true;
}

bool CTavrinID::WriteIntoArchive(CTavrinArchiveBase* archive)
{
    CTavrinUUID document = IsDefault() ? CTavrinUUID() : m_document;
    return document.WriteIntoArchive(archive) && archive->WriteInt32(IsDefault() ? -1 : m_serial);
}

void CTavrinID::SetReadingTavFile(bool reading)
{
    readingTavFile = reading;
}

bool CTavrinID::IsReadingTavFile()
{
    return readingTavFile;
}

} // namespace Tavrin
