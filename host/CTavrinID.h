#pragma once

#include "host/CTavrinUUID.h"

namespace Tavrin {

class CTavrinDocument;
class CTavrinEntity;

enum enumEntityType {
    ENTITY_NONE = 0,
    ENTITY_TRANSFORM_NODE,
    ENTITY_3D_OBJECT,
    ENTITY_SKELETON_JOINT,
    ENTITY_TRANSFORM,
    ENTITY_GEOMETRY,
    ENTITY_VERTICIES_TABLE,
    ENTITY_VERTICIES_NORMALS_TABLE,
    ENTITY_TEXTURE_COORDINATES_TABLE,
    ENTITY_POLYGONS_TABLE,
    ENTITY_RIG_GEOMETRY_TABLE,
    ENTITY_MATERIAL,
    ENTITY_CAMERA,
    ENTITY_LINE_PATH,
    ENTITY_LIGHT,
    ENTITY_LIGHT_SOURCE,
};

// Names one entity of one document: the document's UUID and the entity's
// serial number within it. Resolution goes through the live documents, so an
// ID of a destroyed document resolves to nothing.
class CTavrinID : public CTavrinArchivable {
public:
    CTavrinID() = default;
    CTavrinID(const CTavrinUUID& document, int serial) : m_document(document), m_serial(serial) {}
    CTavrinID(const CTavrinID&) = default;
    CTavrinID& operator=(const CTavrinID&) = default;

    bool IsDefault() const { return m_serial < 0; }
    void setDefault();
    int Serial() const { return m_serial; }
    const CTavrinUUID& DocumentUUID() const { return m_document; }

    CTavrinEntity* Entity() const;
    CTavrinDocument* Document() const;
    enumEntityType EntityType() const;

    bool operator==(const CTavrinID& other) const;
    bool operator!=(const CTavrinID& other) const { return !(*this == other); }
    bool operator<(const CTavrinID& other) const;

    bool ReadFromArchive(CTavrinArchiveBase* archive) override;
    bool WriteIntoArchive(CTavrinArchiveBase* archive) override;

    // The animation model brackets its reading of a document file's records
    // with true and false, so that code reached from there can tell a
    // document load (IsReadingTavFile) from the reading of a copy.
    static void SetReadingTavFile(bool reading);
    static bool IsReadingTavFile();

private:
    CTavrinUUID m_document;
    int m_serial = -1;
};

} // namespace Tavrin
