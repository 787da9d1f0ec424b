#pragma once
// The animation of a set of entities: one track per animated entity, its key
// frame data ordered by start frame, kept free of overlaps, evaluated at any
// frame and archived with the document.

#include "TavrinAnimation/src/TavrinKeyFrameData.h"

#include <map>
#include <set>
#include <utility>
#include <vector>

namespace Tavrin {

class CTavrinSequenceContainer;

class CTavrinKeyFrameManager : public CTavrinDataMembersManager {
public:
    // Start frame -> key frame data; the track holds one reference to each.
    using Track = std::map<int, CTavrinKeyFrameDataPtr>;
    using TrackRange = std::pair<Track::iterator, Track::iterator>;

    CTavrinKeyFrameManager();
    CTavrinKeyFrameManager(const CTavrinKeyFrameManager&) = delete;
    CTavrinKeyFrameManager& operator=(const CTavrinKeyFrameManager&) = delete;
    ~CTavrinKeyFrameManager() override;

    bool ArchiveReadWrite(CTavrinArchiveBase& archive) override;

    // The redirect of id when one was recorded, else id (one step).
    CTavrinID ResolveEntityID(const CTavrinID& id) const;

    // Inserts data into its entity's track and returns the key frames it
    // displaced, in track order. Null data changes nothing.
    std::vector<CTavrinKeyFrameDataPtr> AddKeyFrameData(CTavrinKeyFrameDataPtr data, bool extendRange);

    // A new key frame data giving entity's state at frame; null when the
    // entity has no track or the state cannot be evaluated.
    CTavrinKeyFrameDataPtr KeyFrameDataAt(const CTavrinID& entity, int frame);

    // [first, last) of the entries whose start frame lies in [start, end],
    // plus the one before them when it still covers start.
    static TrackRange CollectOverlapping(int start, int end, Track& track);

    void Clear();

    const std::map<CTavrinID, Track>& Tracks() const { return m_tracks; }
    const Track* FindTrack(const CTavrinID& entity) const;
    int SerialCounter(const CTavrinID& entity) const;
    int RangeStart() const { return m_rangeStart; }
    int RangeEnd() const { return m_rangeEnd; }
    const std::set<CTavrinID>& AnimatedEntities() const { return m_animatedEntities; }
    CTavrinSequenceContainer* SequenceContainer() const { return m_sequenceContainer; }

    static CTavrinKeyFrameManager* GetInstance();
    static void SetInstance(CTavrinKeyFrameManager* instance);

private:
    bool WriteRecord(CTavrinArchiveBase& archive);
    bool ReadRecord(CTavrinArchiveBase& archive);
    bool WriteTrack(CTavrinArchiveBase& archive, Track& track);
    bool ReadTrack(CTavrinArchiveBase& archive, const CTavrinID& entity, Track& track);
    void RenumberSerialNumbers();
    void ExpandLegacyMorphWeights();
    void MoveCameraTracksToTransforms();
    void RestoreSerialNumbers();

    std::map<CTavrinID, Track> m_tracks;
    std::map<CTavrinID, CTavrinID> m_entityRedirects;
    std::map<CTavrinID, int> m_serialCounters;
    int m_reservedFrameValue = 0;
    int m_rangeStart = 0;
    int m_rangeEnd = 0;
    std::map<CTavrinKeyFrameData*, int> m_savedSerialNumbers;
    std::map<CTavrinID, int> m_savedCounters;
    CTavrinSequenceContainer* m_sequenceContainer;
    std::set<CTavrinID> m_animatedEntities;
};

} // namespace Tavrin
