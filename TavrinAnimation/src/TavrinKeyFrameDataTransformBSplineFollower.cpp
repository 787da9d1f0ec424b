#include "TavrinAnimation/src/TavrinKeyFrameDataTransformBSplineFollower.h"

#include "TavrinAnimation/src/TavrinArchiveValues.h"
#include "TavrinAnimation/src/TavrinTransformInterpolation.h"
#include "host/CTavrinDocumentsContainer.h"
#include "host/CTavrinLinePath.h"

namespace Tavrin {

namespace {
// Versions of the follower's record.
constexpr unsigned int kConstantSpeedFramesVersion = 10047; // file: constant-speed frames stored
constexpr unsigned int kLinePathIDVersion = 11000;          // archive: the path named directly
constexpr int kOwnMembers = 4;
} // namespace

CTavrinKeyFrameDataTransformBSplineFollower::CTavrinKeyFrameDataTransformBSplineFollower(const CTavrinID& entity,
                                                                                         const CTavrinMatrix& matrix)
    : CTavrinKeyFrameDataTransform(entity, matrix) {}

void CTavrinKeyFrameDataTransformBSplineFollower::SetPath(const CTavrinID& path, const CTavrinID& followedNode) {
    m_pathID = path;
    m_followedNodeID = followedNode;
}

int CTavrinKeyFrameDataTransformBSplineFollower::SetStartFrame(int frame, bool extendEnd) {
    const int set = CTavrinKeyFrameData::SetStartFrame(frame, extendEnd);
    ClampConstantSpeedFrames();
    return set;
}

int CTavrinKeyFrameDataTransformBSplineFollower::SetEndFrame(int frame, bool extendStart) {
    const int set = CTavrinKeyFrameData::SetEndFrame(frame, extendStart);
    ClampConstantSpeedFrames();
    return set;
}

bool CTavrinKeyFrameDataTransformBSplineFollower::IsSavable() {
    return !m_pathID.IsDefault();
}

double CTavrinKeyFrameDataTransformBSplineFollower::PathProgress() const {
    const int span = EndFrame() - StartFrame();
    if (span <= 0)
        return 0.0;
    return PhasedFraction(span, WorkingFrame() - StartFrame(), ConstantSpeedStartFrame() - StartFrame(),
                          ConstantSpeedEndFrame() - StartFrame());
}

CTavrinMatrix CTavrinKeyFrameDataTransformBSplineFollower::Matrix() const {
    const auto* path = dynamic_cast<const CTavrinLinePath*>(m_pathID.Entity());
    if (!path || path->BasicPath().empty())
        return m_matrix;
    CTavrin3DVertex point = path->PointAtFraction(PathProgress());
    point.ModifyByTransform(m_pathPlacement);
    return CTavrinMatrix::CreateTranslation(point.X(), point.Y(), point.Z()) * m_orientation * m_offset;
}

void CTavrinKeyFrameDataTransformBSplineFollower::ApplyPathPlacement() {
    m_matrix = Matrix();
}

CTavrinKeyFrameData* CTavrinKeyFrameDataTransformBSplineFollower::CreateCopy(bool atWorkingFrame) const {
    if (atWorkingFrame)
        return CTavrinKeyFrameDataTransform::CreateCopy(true);
    return new CTavrinKeyFrameDataTransformBSplineFollower(*this);
}

bool CTavrinKeyFrameDataTransformBSplineFollower::RestoreFromCopy(const CTavrinDataMembersManager* copy) {
    auto* source = dynamic_cast<const CTavrinKeyFrameDataTransformBSplineFollower*>(copy);
    if (!source || !CTavrinKeyFrameDataTransform::RestoreFromCopy(copy))
        return false;
    m_pathPlacement = source->m_pathPlacement;
    m_pathID = source->m_pathID;
    m_orientation = source->m_orientation;
    m_offset = source->m_offset;
    m_followedNodeID = source->m_followedNodeID;
    return true;
}

void* CTavrinKeyFrameDataTransformBSplineFollower::DataMemberSearch(int index, enumDataMemberType& type,
                                                                    CTavrinString& name, bool changed) {
    const int first = BaseDataMembersCount();
    if (index == SPECIAL_COMMAND_COUNT_MEMBERS) {
        m_dataMembersCount = first + kOwnMembers;
        return nullptr;
    }
    if (index < first)
        return CTavrinKeyFrameData::DataMemberSearch(index, type, name, changed);
    if (index - first >= kOwnMembers)
        return nullptr;
    return FrameDataMember(static_cast<FrameMember>(index - first), type, name, changed);
}

bool CTavrinKeyFrameDataTransformBSplineFollower::WriteIntoArchive(CTavrinArchiveBase* archive) {
    int constantSpeedStart = ConstantSpeedStartFrame();
    int constantSpeedEnd = ConstantSpeedEndFrame();
    return CTavrinKeyFrameData::WriteIntoArchive(archive) && ReadWriteMatrix(*archive, m_matrix) &&
           archive->ReadWrite(m_pivot) && ReadWriteMatrix(*archive, m_pathPlacement) &&
           archive->ReadWrite(m_pathID) && ReadWriteMatrix(*archive, m_orientation) &&
           ReadWriteMatrix(*archive, m_offset) && archive->ReadWrite(m_followedNodeID) &&
           archive->ReadWrite(constantSpeedStart) && archive->ReadWrite(constantSpeedEnd);
}

bool CTavrinKeyFrameDataTransformBSplineFollower::ReadFromArchive(CTavrinArchiveBase* archive) {
    if (!CTavrinKeyFrameData::ReadFromArchive(archive) || !ReadWriteMatrix(*archive, m_matrix) ||
        !archive->ReadWrite(m_pivot) || !ReadWriteMatrix(*archive, m_pathPlacement) ||
        !archive->ReadWrite(m_pathID))
        return false;
    if (archive->Version() < kLinePathIDVersion)
        m_pathID = CTavrinDocumentsContainer::DocumentsContainer()->GetLinePathIDFor(m_pathID);
    if (!ReadWriteMatrix(*archive, m_orientation) || !ReadWriteMatrix(*archive, m_offset) ||
        !archive->ReadWrite(m_followedNodeID))
        return false;

    const unsigned int fileVersion = FileVersionBeingRead();
    int constantSpeedStart = StartFrame();
    int constantSpeedEnd = EndFrame();
    if (fileVersion >= kConstantSpeedFramesVersion &&
        (!archive->ReadWrite(constantSpeedStart) || !archive->ReadWrite(constantSpeedEnd)))
        return false;
    SetConstantSpeedEndFrame(constantSpeedEnd);
    SetConstantSpeedStartFrame(constantSpeedStart);
    if (fileVersion >= KeyFrameVersion::EaseModes)
        return true;
    // Before ease modes the constant-speed window alone told whether the
    // follower eased in and out.
    if (ConstantSpeedStartFrame() > StartFrame())
        SetEaseInMode(1);
    else if (ConstantSpeedStartFrame() == StartFrame())
        SetEaseInMode(0);
    if (ConstantSpeedEndFrame() < EndFrame())
        SetEaseOutMode(2);
    else if (ConstantSpeedEndFrame() == EndFrame())
        SetEaseOutMode(0);
    return true;
}

} // namespace Tavrin
