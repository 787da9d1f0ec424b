#include "TavrinAnimation/src/TavrinKeyFrameManager.h"

#include "TavrinAnimation/src/TavrinKeyFrameDataVertices.h"
#include "TavrinAnimation/src/TavrinKeyFrameEvaluation.h"
#include "TavrinAnimation/src/TavrinProcessWideInstance.h"
#include "TavrinAnimation/src/TavrinSequenceContainer.h"

#include <algorithm>
#include <iterator>

namespace Tavrin {

CTavrinKeyFrameManager::CTavrinKeyFrameManager()
    : CTavrinDataMembersManager(true), m_sequenceContainer(CTavrinSequenceContainer::GetInstance()) {}

CTavrinKeyFrameManager::~CTavrinKeyFrameManager() {
    Clear();
}

CTavrinKeyFrameManager* CTavrinKeyFrameManager::GetInstance() {
    return CTavrinProcessWideInstance<CTavrinKeyFrameManager>::Get();
}

void CTavrinKeyFrameManager::SetInstance(CTavrinKeyFrameManager* instance) {
    CTavrinProcessWideInstance<CTavrinKeyFrameManager>::Set(instance);
}

CTavrinID CTavrinKeyFrameManager::ResolveEntityID(const CTavrinID& id) const {
    const auto redirect = m_entityRedirects.find(id);
    return redirect == m_entityRedirects.end() ? id : redirect->second;
}

const CTavrinKeyFrameManager::Track* CTavrinKeyFrameManager::FindTrack(const CTavrinID& entity) const {
    const auto track = m_tracks.find(entity);
    return track == m_tracks.end() ? nullptr : &track->second;
}

int CTavrinKeyFrameManager::SerialCounter(const CTavrinID& entity) const {
    const auto counter = m_serialCounters.find(entity);
    return counter == m_serialCounters.end() ? 0 : counter->second;
}

CTavrinKeyFrameManager::TrackRange CTavrinKeyFrameManager::CollectOverlapping(int start, int end, Track& track) {
    if (track.empty() || start > end)
        return {track.end(), track.end()};
    auto first = track.lower_bound(start);
    if (first != track.begin()) {
        const auto before = std::prev(first);
        if (before->second->EndFrame() >= start)
            first = before;
    }
    auto last = track.lower_bound(end);
    if (last != track.end() && last->first == end)
        ++last;
    return {first, last};
}

std::vector<CTavrinKeyFrameDataPtr> CTavrinKeyFrameManager::AddKeyFrameData(CTavrinKeyFrameDataPtr data,
                                                                            bool extendRange) {
    std::vector<CTavrinKeyFrameDataPtr> displaced;
    if (!data)
        return displaced;

    const CTavrinID entity = data->EntityID();
    Track& track = m_tracks[entity];
    const TrackRange overlapping = CollectOverlapping(data->StartFrame(), data->EndFrame(), track);
    for (auto entry = overlapping.first; entry != overlapping.second; ++entry)
        displaced.push_back(entry->second);
    track.erase(overlapping.first, overlapping.second);
    track[data->StartFrame()] = data;

    m_entityRedirects[data->OriginalEntityID()] = entity;
    if (data->SerialNumber() == 0)
        data->SetSerialNumber(++m_serialCounters[entity]);
    if (extendRange) {
        m_rangeStart = std::min(m_rangeStart, data->StartFrame());
        m_rangeEnd = std::max(m_rangeEnd, data->EndFrame());
    }
    return displaced;
}

CTavrinKeyFrameDataPtr CTavrinKeyFrameManager::KeyFrameDataAt(const CTavrinID& entity, int frame) {
    const auto found = m_tracks.find(entity);
    if (found == m_tracks.end())
        return nullptr;
    Track& track = found->second;

    const TrackRange covering = CollectOverlapping(frame, frame, track);
    if (covering.first != covering.second) {
        CTavrinKeyFrameData& key = *covering.first->second;
        key.SetWorkingFrame(frame);
        CTavrinKeyFrameDataPtr snapshot(key.CreateCopy(true));
        snapshot->SetWorkingFrame(frame);
        return snapshot;
    }

    const auto after = track.upper_bound(frame);
    CTavrinKeyFrameData* next = after == track.end() ? nullptr : after->second.get();
    CTavrinKeyFrameData* previous = after == track.begin() ? nullptr : std::prev(after)->second.get();
    if (!previous && !next)
        return nullptr;
    if (previous)
        previous->SetWorkingFrame(previous->EndFrame());
    if (next)
        next->SetWorkingFrame(next->StartFrame());
    if (!next)
        return CTavrinKeyFrameDataPtr(previous->CreateCopy(false));
    if (!previous)
        return CTavrinKeyFrameDataPtr(next->CreateCopy(false));

    CTavrinKeyFrameDataPtr between = InterpolateKeyFrameData(*previous, *next, frame);
    if (between)
        between->SetWorkingFrame(frame);
    return between;
}

void CTavrinKeyFrameManager::Clear() {
    // Vertices key frames lend their tables to document tables that outlive
    // this manager: take them back before the key frames may go.
    for (auto& [entity, track] : m_tracks) {
        for (auto& [frame, data] : track) {
            if (auto* vertices = dynamic_cast<CTavrinKeyFrameDataVertices*>(data.get()))
                vertices->ReleaseTables();
        }
    }
    m_tracks.clear();
    m_entityRedirects.clear();
    m_serialCounters.clear();
    m_savedSerialNumbers.clear();
    m_savedCounters.clear();
    m_animatedEntities.clear();
}

} // namespace Tavrin
