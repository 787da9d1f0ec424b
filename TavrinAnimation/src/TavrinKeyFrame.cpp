#include "TavrinAnimation/src/TavrinKeyFrame.h"

#include "host/CTavrinArchive.h"

namespace Tavrin {

CTavrinKeyFrame::CTavrinKeyFrame(const CTavrinKeyFrame& other) {
    for (const auto& [entity, data] : other.m_entries)
        m_entries[entity] = CTavrinKeyFrameDataPtr(data->CreateCopy(false));
}

bool CTavrinKeyFrame::ReadFromArchive(CTavrinArchiveBase& archive) {
    m_entries.clear();
    int count = 0;
    if (!archive.ReadWrite(count))
        return false;
    for (int i = 0; i < count; ++i) {
        CTavrinID entity;
        int type = 0;
        if (!entity.ReadFromArchive(&archive) || !archive.ReadWrite(type))
            return false;
        CTavrinKeyFrameDataPtr data(CreateKeyFrameData(entity, type));
        if (!data || !data->ReadFromArchive(&archive))
            return false;
        m_entries[entity] = data;
    }
    return true;
}

} // namespace Tavrin
