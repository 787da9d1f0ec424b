#include "TavrinAnimation/src/TavrinKeyFrameDataVertices.h"

#include "host/CTavrinApplicationServices.h"
#include "host/CTavrinArchive.h"
#include "host/CTavrinTables.h"

namespace Tavrin {

CTavrinKeyFrameDataVertices::CTavrinKeyFrameDataVertices(const CTavrinID& entity, CTavrinBasic3DVectorsTable* table)
    : CTavrinKeyFrameData(entity) {
    if (table)
        m_tables.emplace_back(table);
}

CTavrinKeyFrameDataVertices::CTavrinKeyFrameDataVertices(const CTavrinKeyFrameDataVertices& other)
    : CTavrinKeyFrameData(other), m_reading(other.m_reading) {
    m_tables.reserve(other.m_tables.size());
    for (const auto& table : other.m_tables)
        m_tables.push_back(std::make_unique<CTavrinBasic3DVectorsTable>(*table));
}

CTavrinKeyFrameDataVertices::~CTavrinKeyFrameDataVertices() {
    TakeBackLentTable();
}

const CTavrinBasic3DVectorsTable* CTavrinKeyFrameDataVertices::Table(int index) const {
    if (index < 0 || index >= TableCount())
        return nullptr;
    return m_tables[index].get();
}

const CTavrinBasic3DVectorsTable* CTavrinKeyFrameDataVertices::WorkingFrameTable() const {
    return Table(WorkingFrame() - StartFrame());
}

void CTavrinKeyFrameDataVertices::AddTable(CTavrinBasic3DVectorsTable* table) {
    if (table)
        m_tables.emplace_back(table);
}

void CTavrinKeyFrameDataVertices::TakeBackLentTable() {
    auto* shown = dynamic_cast<CTavrin3DVectorsTable*>(EntityID().Entity());
    if (!shown)
        return;
    for (const auto& table : m_tables) {
        if (shown->LentBasicTable() == table.get())
            shown->ReferenceBasicTable(nullptr);
    }
}

void CTavrinKeyFrameDataVertices::ReleaseTables() {
    if (auto* shown = dynamic_cast<CTavrin3DVectorsTable*>(EntityID().Entity()))
        shown->ReferenceBasicTable(nullptr);
    m_tables.clear();
}

void CTavrinKeyFrameDataVertices::Apply() {
    auto* shown = dynamic_cast<CTavrin3DVectorsTable*>(EntityID().Entity());
    if (!shown || m_reading)
        return;
    shown->ReplaceBasicTable(WorkingFrameTable());
}

CTavrinKeyFrameData* CTavrinKeyFrameDataVertices::CreateCopy(bool atWorkingFrame) const {
    if (!atWorkingFrame)
        return new CTavrinKeyFrameDataVertices(*this);
    const CTavrinBasic3DVectorsTable* table = WorkingFrameTable();
    auto* snapshot =
        new CTavrinKeyFrameDataVertices(EntityID(), table ? new CTavrinBasic3DVectorsTable(*table) : nullptr);
    snapshot->SetAllFrames(WorkingFrame());
    snapshot->SetOriginalEntityID(OriginalEntityID());
    return snapshot;
}

bool CTavrinKeyFrameDataVertices::WriteIntoArchive(CTavrinArchiveBase* archive) {
    int count = TableCount();
    if (!CTavrinKeyFrameData::WriteIntoArchive(archive) || !archive->ReadWrite(count))
        return false;
    for (const auto& table : m_tables) {
        if (!table->ArchiveReadWrite(*archive))
            return false;
    }
    return true;
}

bool CTavrinKeyFrameDataVertices::ReadFromArchive(CTavrinArchiveBase* archive) {
    if (!CTavrinKeyFrameData::ReadFromArchive(archive))
        return false;
    // The entity must not go on showing a table that is about to go.
    TakeBackLentTable();
    m_tables.clear();
    m_reading = true;
    int count = 0;
    bool read = archive->ReadWrite(count) && count >= 0;
    for (int i = 0; read && i < count; ++i) {
        std::unique_ptr<CTavrinBasic3DVectorsTable> table(
            CTavrinTablesCreator::getInstance()->CreateBasic3DVectorsTable());
        read = table && table->ArchiveReadWrite(*archive);
        if (read)
            m_tables.push_back(std::move(table));
    }
    m_reading = false;
    return read;
}

} // namespace Tavrin
