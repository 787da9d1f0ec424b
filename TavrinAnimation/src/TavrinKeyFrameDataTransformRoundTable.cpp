#include "TavrinAnimation/src/TavrinKeyFrameDataTransformRoundTable.h"

#include "TavrinAnimation/src/TavrinArchiveValues.h"

namespace Tavrin {

namespace {
// File version from which the first placement matrix is stored.
constexpr unsigned int kFirstMatrixVersion = 10002;
constexpr double kPi = 3.14159265358979323846;
constexpr int kOwnMembers = 6;
} // namespace

CTavrinKeyFrameDataTransformRoundTable::CTavrinKeyFrameDataTransformRoundTable(const CTavrinID& entity,
                                                                               const CTavrinMatrix& matrix)
    : CTavrinKeyFrameDataTransform(entity, matrix) {}

CTavrinMatrix CTavrinKeyFrameDataTransformRoundTable::Matrix() const {
    const double progress = EndFrame() > StartFrame() ? static_cast<double>(WorkingFrame() - StartFrame()) /
                                                            static_cast<double>(EndFrame() - StartFrame())
                                                      : 0.0;
    const CTavrinMatrix turn = CTavrinMatrix::DefineByRotation(m_angle * progress * kPi / 180.0, m_normal.X(),
                                                               m_normal.Y(), m_normal.Z());
    return m_matrix * m_firstMatrix * turn * m_secondMatrix;
}

CTavrinKeyFrameData* CTavrinKeyFrameDataTransformRoundTable::CreateCopy(bool atWorkingFrame) const {
    if (atWorkingFrame)
        return CTavrinKeyFrameDataTransform::CreateCopy(true);
    return new CTavrinKeyFrameDataTransformRoundTable(*this);
}

bool CTavrinKeyFrameDataTransformRoundTable::RestoreFromCopy(const CTavrinDataMembersManager* copy) {
    auto* source = dynamic_cast<const CTavrinKeyFrameDataTransformRoundTable*>(copy);
    if (!source || !CTavrinKeyFrameDataTransform::RestoreFromCopy(copy))
        return false;
    m_firstMatrix = source->m_firstMatrix;
    m_angle = source->m_angle;
    m_normal = source->m_normal;
    m_secondMatrix = source->m_secondMatrix;
    return true;
}

void* CTavrinKeyFrameDataTransformRoundTable::DataMemberSearch(int index, enumDataMemberType& type,
                                                               CTavrinString& name, bool changed) {
    const int first = BaseDataMembersCount();
    if (index == SPECIAL_COMMAND_COUNT_MEMBERS) {
        m_dataMembersCount = first + kOwnMembers;
        return nullptr;
    }
    if (index < first)
        return CTavrinKeyFrameData::DataMemberSearch(index, type, name, changed);
    switch (index - first) {
    case 0:
        return FrameDataMember(FrameMember::Start, type, name, changed);
    case 1:
        return FrameDataMember(FrameMember::End, type, name, changed);
    case 2:
        type = DATA_MEMBER_DOUBLE;
        name = CTavrinString("Angle");
        return &m_angle;
    case 3:
        type = DATA_MEMBER_NORMAL;
        name = CTavrinString("Normal");
        return &m_normal;
    case 4:
        return FrameDataMember(FrameMember::ConstantSpeedStart, type, name, changed);
    case 5:
        return FrameDataMember(FrameMember::ConstantSpeedEnd, type, name, changed);
    default:
        type = DATA_MEMBER_NONE;
        return nullptr;
    }
}

bool CTavrinKeyFrameDataTransformRoundTable::WriteIntoArchive(CTavrinArchiveBase* archive) {
    if (!CTavrinKeyFrameData::WriteIntoArchive(archive) || !ReadWriteMatrix(*archive, m_matrix) ||
        !archive->ReadWrite(m_pivot) || !ReadWriteMatrix(*archive, m_secondMatrix) || !archive->ReadWrite(m_angle) ||
        !ReadWriteNormal(*archive, m_normal) || !ReadWriteMatrix(*archive, m_firstMatrix))
        return false;
    if (archive->Version() < KeyFrameVersion::EaseModes)
        return true;
    return archive->ReadWrite(*ConstantSpeedStartFrameStorage()) &&
           archive->ReadWrite(*ConstantSpeedEndFrameStorage());
}

bool CTavrinKeyFrameDataTransformRoundTable::ReadFromArchive(CTavrinArchiveBase* archive) {
    if (!CTavrinKeyFrameData::ReadFromArchive(archive) || !ReadWriteMatrix(*archive, m_matrix) ||
        !archive->ReadWrite(m_pivot) || !ReadWriteMatrix(*archive, m_secondMatrix) || !archive->ReadWrite(m_angle) ||
        !ReadWriteNormal(*archive, m_normal))
        return false;
    if (FileVersionBeingRead() >= kFirstMatrixVersion && !ReadWriteMatrix(*archive, m_firstMatrix))
        return false;
    if (archive->Version() < KeyFrameVersion::EaseModes) {
        // Before ease modes the whole span ran at constant speed.
        SetConstantSpeedEndFrame(EndFrame());
        SetConstantSpeedStartFrame(StartFrame());
        SetEaseInMode(0);
        SetEaseOutMode(0);
        return true;
    }
    int constantSpeedStart = 0;
    int constantSpeedEnd = 0;
    if (!archive->ReadWrite(constantSpeedStart) || !archive->ReadWrite(constantSpeedEnd))
        return false;
    SetConstantSpeedEndFrame(constantSpeedEnd);
    SetConstantSpeedStartFrame(constantSpeedStart);
    return true;
}

} // namespace Tavrin
