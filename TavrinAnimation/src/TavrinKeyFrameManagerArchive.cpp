// The key frame manager's archive record. Serial numbers are written dense
// per entity (1, 2, 3, ...) and restored in memory afterwards, so a document
// saved twice gives the same file whatever was added and removed meanwhile.

#include "TavrinAnimation/src/TavrinKeyFrameManager.h"

#include "TavrinAnimation/src/TavrinKeyFrameDataMorph.h"
#include "host/CTavrinArchive.h"
#include "host/CTavrinCamera.h"
#include "host/CTavrinGeometry.h"
#include "host/CTavrinTransform.h"

#include <algorithm>
#include <iterator>

namespace Tavrin {

namespace {

// Archive versions at which the manager's record changed.
constexpr unsigned int kSavableFlagVersion = 10003;   // entries may be skipped as not savable
constexpr unsigned int kSerialCountersVersion = 10006;
constexpr unsigned int kBaseRecordVersion = 10059;    // the named-object record leads
constexpr unsigned int kPerTargetMorphVersion = 13014; // one morph key frame per target
constexpr unsigned int kCameraTransformVersion = 10014; // cameras animated through their local transform

template <typename Value>
unsigned int CountNonDefaultKeys(const std::map<CTavrinID, Value>& map) {
    unsigned int count = 0;
    for (const auto& entry : map)
        count += entry.first.IsDefault() ? 0 : 1;
    return count;
}

bool WriteID(CTavrinArchiveBase& archive, CTavrinID id) {
    return archive.ReadWrite(id);
}

} // namespace

bool CTavrinKeyFrameManager::ArchiveReadWrite(CTavrinArchiveBase& archive) {
    if (!archive.IsReaderArchive()) {
        RenumberSerialNumbers();
        const bool written = WriteRecord(archive);
        RestoreSerialNumbers();
        return written;
    }
    CTavrinID::SetReadingTavFile(true);
    const bool read = ReadRecord(archive);
    CTavrinID::SetReadingTavFile(false);
    if (!m_tracks.empty() && FileVersionBeingRead() < kCameraTransformVersion)
        MoveCameraTracksToTransforms();
    if (!m_tracks.empty() && FileVersionBeingRead() < kPerTargetMorphVersion)
        ExpandLegacyMorphWeights();
    return read;
}

// Files before cameras had local transforms animated cameras on the camera
// itself. Its track, its serial counter and the redirects that led to it move
// to the camera's local transform, made when the camera has none.
void CTavrinKeyFrameManager::MoveCameraTracksToTransforms() {
    std::vector<CTavrinKeyFrameDataPtr> moved;
    for (auto track = m_tracks.begin(); track != m_tracks.end();) {
        auto* camera = dynamic_cast<CTavrinCamera*>(track->first.Entity());
        if (!camera) {
            ++track;
            continue;
        }
        if (!camera->LocalTransform())
            camera->SetLocalTransform(CTavrinTransform::Create(camera->Document()));
        const CTavrinID transform = camera->LocalTransform()->ID();
        for (auto& entry : track->second) {
            entry.second->SetEntityID(transform);
            moved.push_back(entry.second);
        }
        for (auto& redirect : m_entityRedirects) {
            if (redirect.second == track->first)
                redirect.second = transform;
        }
        const auto counter = m_serialCounters.find(track->first);
        if (counter != m_serialCounters.end()) {
            m_serialCounters[transform] = counter->second;
            m_serialCounters.erase(counter);
        }
        track = m_tracks.erase(track);
    }
    for (CTavrinKeyFrameDataPtr& data : moved)
        AddKeyFrameData(data, false);
}

// Files before the per-target layout kept all of an object's morph weights in
// one key frame on the object's track. Each weight becomes a key frame of its
// own on the track of the morph geometry of the same index; weights beyond
// the object's geometries are dropped. Key frames whose entity is no 3D
// object with morph geometries are left as read.
void CTavrinKeyFrameManager::ExpandLegacyMorphWeights() {
    std::vector<CTavrinKeyFrameDataPtr> expanded;
    for (auto track = m_tracks.begin(); track != m_tracks.end();) {
        auto* object = dynamic_cast<CTavrin3DObject*>(track->first.Entity());
        if (!object || !object->HasMorphingGeometry()) {
            ++track;
            continue;
        }
        const auto& targets = object->MorphingTable()->ListAllMorphGeometries();
        for (auto entry = track->second.begin(); entry != track->second.end();) {
            auto* legacy = dynamic_cast<CTavrinKeyFrameDataMorph*>(entry->second.get());
            if (!legacy || legacy->LegacyWeights().empty()) {
                ++entry;
                continue;
            }
            const size_t count = std::min(legacy->LegacyWeights().size(), targets.size());
            for (size_t i = 0; i < count; ++i) {
                CTavrinKeyFrameDataPtr weight(
                    new CTavrinKeyFrameDataMorph(targets[i]->ID(), object->ID(), legacy->LegacyWeights()[i]));
                weight->SetEndFrame(legacy->EndFrame(), false);
                weight->SetStartFrame(legacy->StartFrame(), false);
                weight->SetEaseInMode(legacy->EaseInMode());
                weight->SetEaseOutMode(legacy->EaseOutMode());
                weight->SetSerialNumber(legacy->SerialNumber());
                expanded.push_back(weight);
            }
            entry = track->second.erase(entry);
        }
        track = track->second.empty() ? m_tracks.erase(track) : std::next(track);
    }
    for (CTavrinKeyFrameDataPtr& data : expanded)
        AddKeyFrameData(data, false);
}

void CTavrinKeyFrameManager::RenumberSerialNumbers() {
    for (auto& [entity, track] : m_tracks) {
        std::map<int, int> denseNumbers;
        for (auto& entry : track) {
            if (entry.second->IsSavable())
                denseNumbers.emplace(entry.second->SerialNumber(), 0);
        }
        int next = 0;
        for (auto& numbers : denseNumbers)
            numbers.second = ++next;
        for (auto& entry : track) {
            CTavrinKeyFrameData* data = entry.second.get();
            if (!data->IsSavable())
                continue;
            m_savedSerialNumbers[data] = data->SerialNumber();
            data->SetSerialNumber(denseNumbers[data->SerialNumber()]);
        }
        int& counter = m_serialCounters[entity];
        m_savedCounters[entity] = counter;
        counter = next;
    }
}

void CTavrinKeyFrameManager::RestoreSerialNumbers() {
    for (const auto& [data, serial] : m_savedSerialNumbers)
        data->SetSerialNumber(serial);
    for (const auto& [entity, counter] : m_savedCounters)
        m_serialCounters[entity] = counter;
    m_savedSerialNumbers.clear();
    m_savedCounters.clear();
}

bool CTavrinKeyFrameManager::WriteRecord(CTavrinArchiveBase& archive) {
    const unsigned int version = archive.Version();
    if (version >= kBaseRecordVersion && !CTavrinArchivable::ArchiveReadWrite(archive))
        return false;

    unsigned int count = CountNonDefaultKeys(m_tracks);
    if (!archive.ReadWrite(count))
        return false;
    for (auto& [entity, track] : m_tracks) {
        if (!entity.IsDefault() && (!WriteID(archive, entity) || !WriteTrack(archive, track)))
            return false;
    }

    count = CountNonDefaultKeys(m_entityRedirects);
    if (!archive.ReadWrite(count))
        return false;
    for (const auto& [from, to] : m_entityRedirects) {
        if (!from.IsDefault() && (!WriteID(archive, from) || !WriteID(archive, to)))
            return false;
    }

    if (!archive.ReadWrite(m_reservedFrameValue) || !archive.ReadWrite(m_rangeStart) ||
        !archive.ReadWrite(m_rangeEnd))
        return false;

    if (version < kSerialCountersVersion)
        return true;
    count = CountNonDefaultKeys(m_serialCounters);
    if (!archive.ReadWrite(count))
        return false;
    for (const auto& [entity, counter] : m_serialCounters) {
        unsigned int value = static_cast<unsigned int>(counter);
        if (!entity.IsDefault() && (!WriteID(archive, entity) || !archive.ReadWrite(value)))
            return false;
    }
    return true;
}

bool CTavrinKeyFrameManager::WriteTrack(CTavrinArchiveBase& archive, Track& track) {
    unsigned int count = static_cast<unsigned int>(track.size());
    if (!archive.ReadWrite(count))
        return false;
    for (auto& [start, data] : track) {
        if (archive.Version() >= kSavableFlagVersion) {
            bool savable = data->IsSavable();
            if (!archive.ReadWrite(savable))
                return false;
            if (!savable)
                continue;
        }
        unsigned int key = static_cast<unsigned int>(start);
        unsigned int type = static_cast<unsigned int>(data->Type());
        if (!archive.ReadWrite(key) || !archive.ReadWrite(type) || !archive.ReadWrite(*data))
            return false;
    }
    return true;
}

bool CTavrinKeyFrameManager::ReadRecord(CTavrinArchiveBase& archive) {
    const unsigned int version = archive.Version();
    if (version >= kBaseRecordVersion && !CTavrinArchivable::ArchiveReadWrite(archive))
        return false;

    m_animatedEntities.clear();
    unsigned int count = 0;
    if (!archive.ReadWrite(count))
        return false;
    for (unsigned int i = 0; i < count; ++i) {
        CTavrinID entity;
        Track track;
        if (!archive.ReadWrite(entity) || !ReadTrack(archive, entity, track))
            return false;
        if (track.empty())
            continue;
        m_tracks[entity] = std::move(track);
        m_animatedEntities.insert(entity);
    }

    if (!archive.ReadWrite(count))
        return false;
    for (unsigned int i = 0; i < count; ++i) {
        CTavrinID from, to;
        if (!archive.ReadWrite(from) || !archive.ReadWrite(to))
            return false;
        m_entityRedirects[from] = to;
    }

    if (!archive.ReadWrite(m_reservedFrameValue) || !archive.ReadWrite(m_rangeStart) ||
        !archive.ReadWrite(m_rangeEnd))
        return false;

    if (version < kSerialCountersVersion)
        return true;
    if (!archive.ReadWrite(count))
        return false;
    for (unsigned int i = 0; i < count; ++i) {
        CTavrinID entity;
        unsigned int counter = 0;
        if (!archive.ReadWrite(entity) || !archive.ReadWrite(counter))
            return false;
        m_serialCounters[entity] = static_cast<int>(counter);
    }
    return true;
}

bool CTavrinKeyFrameManager::ReadTrack(CTavrinArchiveBase& archive, const CTavrinID& entity, Track& track) {
    unsigned int count = 0;
    if (!archive.ReadWrite(count))
        return false;
    for (unsigned int i = 0; i < count; ++i) {
        bool savable = true;
        if (archive.Version() >= kSavableFlagVersion && !archive.ReadWrite(savable))
            return false;
        if (!savable)
            continue;
        unsigned int key = 0;
        unsigned int type = 0;
        if (!archive.ReadWrite(key) || !archive.ReadWrite(type))
            return false;
        CTavrinKeyFrameDataPtr data(CreateKeyFrameData(entity, static_cast<int>(type)));
        if (!data || !archive.ReadWrite(*data))
            return false;
        track[static_cast<int>(key)] = data;
    }
    return true;
}

} // namespace Tavrin
