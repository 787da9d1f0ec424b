#pragma once
// A snapshot of several entities' key frame data at one moment, as older
// documents stored their animation.

#include "TavrinAnimation/src/TavrinKeyFrameData.h"

#include <map>

namespace Tavrin {

class CTavrinKeyFrame {
public:
    CTavrinKeyFrame() = default;
    // Every entry is copied (CreateCopy(false)), not shared.
    CTavrinKeyFrame(const CTavrinKeyFrame& other);
    CTavrinKeyFrame& operator=(const CTavrinKeyFrame&) = delete;
    virtual ~CTavrinKeyFrame() = default;

    // Replaces the entries with those of the record; false at the first
    // value that fails (entries read before it stay).
    virtual bool ReadFromArchive(CTavrinArchiveBase& archive);

    const std::map<CTavrinID, CTavrinKeyFrameDataPtr>& Entries() const { return m_entries; }
    void Set(const CTavrinID& entity, CTavrinKeyFrameDataPtr data) { m_entries[entity] = std::move(data); }

private:
    std::map<CTavrinID, CTavrinKeyFrameDataPtr> m_entries;
};

} // namespace Tavrin
