#include "TavrinAnimation/src/TavrinKeyFrameData.h"

#include "TavrinAnimation/src/TavrinKeyFrameManager.h"
#include "host/CTavrinArchive.h"
#include "host/CTavrinDocumentsContainer.h"
#include "host/CTavrinEntity.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace Tavrin {

unsigned int FileVersionBeingRead() {
    return CTavrinDocumentsContainer::DocumentsContainer()->VersionOfLastTavFileReadFromArchive();
}

CTavrinKeyFrameData::CTavrinKeyFrameData(const CTavrinID& entity)
    : CTavrinDataMembersManager(false),
      m_originalEntityID(CTavrinKeyFrameManager::GetInstance()->ResolveEntityID(entity)),
      m_entityID(m_originalEntityID) {}

CTavrinKeyFrameData::CTavrinKeyFrameData(const CTavrinKeyFrameData& other) = default;

CTavrinKeyFrameData::~CTavrinKeyFrameData() = default;

CTavrinDataMembersManager* CTavrinKeyFrameData::MakeCopy() const {
    return CreateCopy(false);
}

int CTavrinKeyFrameData::BaseDataMembersCount() {
    enumDataMemberType type = DATA_MEMBER_NONE;
    CTavrinString name;
    CTavrinDataMembersManager::DataMemberSearch(SPECIAL_COMMAND_COUNT_MEMBERS, type, name, false);
    return m_dataMembersCount;
}

void* CTavrinKeyFrameData::FrameDataMember(FrameMember member, enumDataMemberType& type, CTavrinString& name,
                                           bool changed) {
    type = DATA_MEMBER_INT;
    switch (member) {
    case FrameMember::Start:
        name = CTavrinString("Start Frame");
        if (changed)
            SetStartFrame(m_startFrame, true);
        return &m_startFrame;
    case FrameMember::End:
        name = CTavrinString("End Frame");
        if (changed)
            SetEndFrame(m_endFrame, true);
        return &m_endFrame;
    case FrameMember::ConstantSpeedStart:
        name = CTavrinString("Constant Speed Start Frame");
        if (changed)
            SetConstantSpeedStartFrame(m_constantSpeedStartFrame);
        return &m_constantSpeedStartFrame;
    case FrameMember::ConstantSpeedEnd:
        name = CTavrinString("Constant Speed End Frame");
        if (changed)
            SetConstantSpeedEndFrame(m_constantSpeedEndFrame);
        return &m_constantSpeedEndFrame;
    }
    return nullptr;
}

int CTavrinKeyFrameData::SetStartFrame(int frame, bool extendEnd) {
    frame = std::max(frame, 0);
    if (extendEnd && frame > m_endFrame)
        m_endFrame = frame;
    m_startFrame = frame;
    if (m_workingFrame < frame)
        m_workingFrame = frame;
    return frame;
}

int CTavrinKeyFrameData::SetEndFrame(int frame, bool extendStart) {
    frame = std::max(frame, 0);
    if (extendStart && frame < m_startFrame)
        m_startFrame = frame;
    m_endFrame = frame;
    if (m_workingFrame > frame)
        m_workingFrame = frame;
    return frame;
}

void CTavrinKeyFrameData::ClampConstantSpeedFrames() {
    m_constantSpeedStartFrame = std::min(std::max(m_constantSpeedStartFrame, m_startFrame), m_endFrame);
    m_constantSpeedEndFrame = std::min(std::max(m_constantSpeedEndFrame, m_startFrame), m_endFrame);
}

void CTavrinKeyFrameData::SetConstantSpeedStartFrame(int frame) {
    frame = std::max(frame, 0);
    if (frame > m_constantSpeedEndFrame)
        m_constantSpeedEndFrame = frame;
    m_constantSpeedStartFrame = frame;
    ClampConstantSpeedFrames();
}

void CTavrinKeyFrameData::SetConstantSpeedEndFrame(int frame) {
    frame = std::max(frame, 0);
    if (frame < m_constantSpeedStartFrame)
        m_constantSpeedStartFrame = frame;
    m_constantSpeedEndFrame = frame;
    ClampConstantSpeedFrames();
}

int CTavrinKeyFrameData::WorkingFrame() const {
    return m_startFrame == m_endFrame ? m_startFrame : m_workingFrame;
}

void CTavrinKeyFrameData::SetAllFrames(int frame) {
    m_startFrame = m_endFrame = frame;
    m_constantSpeedStartFrame = m_constantSpeedEndFrame = frame;
    m_workingFrame = frame;
}

void CTavrinKeyFrameData::ShiftFrames(int offset) {
    if (m_startFrame + offset < 0)
        return;
    m_startFrame += offset;
    m_endFrame = std::max(m_endFrame + offset, 0);
    m_constantSpeedStartFrame += offset;
    m_constantSpeedEndFrame += offset;
    m_workingFrame = std::min(std::max(m_workingFrame + offset, m_startFrame), m_endFrame);
}

void CTavrinKeyFrameData::ScaleFrames(double factor) {
    if (factor < 1.0)
        return;
    const auto scaled = [factor](int frame) {
        const double product = std::trunc(frame * factor);
        return static_cast<int>(std::clamp(product, static_cast<double>(std::numeric_limits<int>::min()),
                                           static_cast<double>(std::numeric_limits<int>::max())));
    };
    m_workingFrame = scaled(m_workingFrame);
    m_startFrame = std::max(scaled(m_startFrame), 0);
    m_workingFrame = std::max(m_workingFrame, m_startFrame);
    m_endFrame = std::max(scaled(m_endFrame), 0);
    m_workingFrame = std::min(m_workingFrame, m_endFrame);
    m_constantSpeedStartFrame = scaled(m_constantSpeedStartFrame);
    m_constantSpeedEndFrame = scaled(m_constantSpeedEndFrame);
}

void CTavrinKeyFrameData::PrepareForPlayback() {}

bool CTavrinKeyFrameData::IsSavable() {
    return true;
}

void CTavrinKeyFrameData::SetLinkedGuids(const CTavrinUUID& first, const CTavrinUUID& second) {
    m_linkedGuid = first;
    m_secondLinkedGuid = second;
}

bool CTavrinKeyFrameData::HasLinkedGuids() const {
    return m_linkedGuid.IsValid() && m_secondLinkedGuid.IsValid();
}

void CTavrinKeyFrameData::ClearLinkedGuids() {
    if (!HasLinkedGuids())
        return;
    m_linkedGuid.Reset();
    m_secondLinkedGuid.Reset();
}

bool CTavrinKeyFrameData::WriteIntoArchive(CTavrinArchiveBase* archive) {
    return archive->ReadWrite(m_originalEntityID) && archive->ReadWrite(m_entityID) &&
           archive->ReadWrite(m_startFrame) && archive->ReadWrite(m_endFrame) &&
           archive->ReadWrite(m_workingFrame) && archive->ReadWrite(m_easeInMode) &&
           archive->ReadWrite(m_easeOutMode) && archive->ReadWrite(m_serialNumber) &&
           archive->ReadWrite(m_linkedGuid) && archive->ReadWrite(m_secondLinkedGuid);
}

bool CTavrinKeyFrameData::ReadFromArchive(CTavrinArchiveBase* archive) {
    if (!archive->ReadWrite(m_originalEntityID) || !archive->ReadWrite(m_entityID) ||
        !archive->ReadWrite(m_startFrame) || !archive->ReadWrite(m_endFrame) ||
        !archive->ReadWrite(m_workingFrame))
        return false;
    // Frames are never negative in memory (the setters see to it); a record
    // that says otherwise is damaged, and differences of frames must not
    // overflow.
    m_startFrame = std::max(m_startFrame, 0);
    m_endFrame = std::max(m_endFrame, 0);
    m_workingFrame = std::max(m_workingFrame, 0);
    if (m_startFrame == m_endFrame)
        m_constantSpeedStartFrame = m_constantSpeedEndFrame = m_startFrame;

    const unsigned int fileVersion = FileVersionBeingRead();
    if (fileVersion < KeyFrameVersion::EaseModes) {
        if (!archive->ReadWrite(m_legacyValue))
            return false;
    } else if (!archive->ReadWrite(m_easeInMode) || !archive->ReadWrite(m_easeOutMode)) {
        return false;
    }
    if (fileVersion >= KeyFrameVersion::SerialNumbers && !archive->ReadWrite(m_serialNumber))
        return false;
    if (fileVersion < KeyFrameVersion::LinkedGuids)
        return true;

    if (!archive->ReadWrite(m_linkedGuid))
        return false;
    // The linked entity may have been re-created under a new GUID while the
    // document was read: follow the documents container's replacement.
    const CTavrinDocumentsContainer* documents = CTavrinDocumentsContainer::DocumentsContainer();
    CTavrinEntity* linked = documents->GetEntityByGuid(m_linkedGuid);
    if (!linked)
        linked = documents->GetEntityByGuid(documents->ReplacedUUID(m_linkedGuid));
    if (linked)
        m_linkedGuid = linked->GetGuid();
    return archive->ReadWrite(m_secondLinkedGuid);
}

} // namespace Tavrin
