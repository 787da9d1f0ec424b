#pragma once
// Key frame data that animates a document's vector table (vertex positions
// or normals) frame by frame: one table of vectors per frame of the span,
// lent to the document's table while the key frame is applied.

#include "TavrinAnimation/src/TavrinKeyFrameData.h"
#include "host/CTavrinBasicTables.h"

#include <memory>
#include <vector>

namespace Tavrin {

class CTavrinKeyFrameDataVertices : public CTavrinKeyFrameData {
public:
    // Takes ownership of table, the vectors of the start frame (none when null).
    CTavrinKeyFrameDataVertices(const CTavrinID& entity, CTavrinBasic3DVectorsTable* table);
    CTavrinKeyFrameDataVertices(const CTavrinKeyFrameDataVertices& other);
    // Takes back a table still lent to the entity.
    ~CTavrinKeyFrameDataVertices() override;

    bool ReadFromArchive(CTavrinArchiveBase* archive) override;
    bool WriteIntoArchive(CTavrinArchiveBase* archive) override;

    int Type() const override { return KEYFRAME_VERTICES; }
    void ApplyFromManager(CTavrinKeyFrameManager*) override {}
    // Lends the table of the working frame to the entity's vector table, or
    // lets it show its own vectors when the key frame has no table there.
    void Apply() override;
    // A full copy (tables copied), or a single-frame key frame holding a copy
    // of the working frame's table.
    CTavrinKeyFrameData* CreateCopy(bool atWorkingFrame) const override;

    int TableCount() const { return static_cast<int>(m_tables.size()); }
    // The table of frame StartFrame() + index, or null.
    const CTavrinBasic3DVectorsTable* Table(int index) const;
    // The table of the working frame, or null.
    const CTavrinBasic3DVectorsTable* WorkingFrameTable() const;
    // Appends the table of the next frame; takes ownership.
    void AddTable(CTavrinBasic3DVectorsTable* table);
    // Takes back a table lent to the entity, then drops every table.
    void ReleaseTables();
    bool IsReading() const { return m_reading; }

private:
    void TakeBackLentTable();

    std::vector<std::unique_ptr<CTavrinBasic3DVectorsTable>> m_tables;
    bool m_reading = false;
};

} // namespace Tavrin
