#include "TavrinAnimation/src/TavrinKeyFrameDataTransform.h"

#include "TavrinAnimation/src/TavrinArchiveValues.h"
#include "host/CTavrinTransform.h"

namespace Tavrin {

CTavrinKeyFrameDataTransform* CTavrinKeyFrameDataTransform::Create(const CTavrinID& entity,
                                                                   const CTavrinMatrix& matrix) {
    return new CTavrinKeyFrameDataTransform(entity, matrix);
}

CTavrinKeyFrameDataTransform::CTavrinKeyFrameDataTransform(const CTavrinID& entity, const CTavrinMatrix& matrix)
    : CTavrinKeyFrameData(entity), m_matrix(matrix) {}

bool CTavrinKeyFrameDataTransform::WriteIntoArchive(CTavrinArchiveBase* archive) {
    return CTavrinKeyFrameData::WriteIntoArchive(archive) && ReadWriteMatrix(*archive, m_matrix) &&
           archive->ReadWrite(m_pivot);
}

bool CTavrinKeyFrameDataTransform::ReadFromArchive(CTavrinArchiveBase* archive) {
    if (!CTavrinKeyFrameData::ReadFromArchive(archive) || !ReadWriteMatrix(*archive, m_matrix))
        return false;
    // Pivots arrived with serial numbers; older transforms turn about their origin.
    if (FileVersionBeingRead() < KeyFrameVersion::SerialNumbers)
        return true;
    return archive->ReadWrite(m_pivot);
}

bool CTavrinKeyFrameDataTransform::RestoreFromCopy(const CTavrinDataMembersManager* copy) {
    auto* source = dynamic_cast<const CTavrinKeyFrameDataTransform*>(copy);
    if (!source)
        return false;
    m_matrix = source->m_matrix;
    SetStartFrame(source->StartFrame(), false);
    SetEndFrame(source->EndFrame(), false);
    return true;
}

void* CTavrinKeyFrameDataTransform::DataMemberSearch(int index, enumDataMemberType& type, CTavrinString& name,
                                                     bool changed) {
    const int baseCount = BaseDataMembersCount();
    if (index == SPECIAL_COMMAND_COUNT_MEMBERS) {
        m_dataMembersCount = baseCount + 1;
        return nullptr;
    }
    if (index < baseCount)
        return CTavrinKeyFrameData::DataMemberSearch(index, type, name, changed);
    if (index != baseCount)
        return nullptr;
    type = DATA_MEMBER_INT;
    name = CTavrinString("Working Frame");
    int* frame = StartFrameStorage();
    if (changed) {
        // The member edits a single-frame key: the value lands in the start
        // frame's storage and the whole key frame moves to it.
        const int value = *frame;
        SetStartFrame(value, false);
        SetEndFrame(value, false);
        SetWorkingFrame(value);
    }
    return frame;
}

void CTavrinKeyFrameDataTransform::Apply() {
    if (auto* transform = dynamic_cast<CTavrinTransform*>(EntityID().Entity()))
        transform->LoadMatrix(Matrix());
}

CTavrinKeyFrameData* CTavrinKeyFrameDataTransform::CreateCopy(bool atWorkingFrame) const {
    if (!atWorkingFrame)
        return new CTavrinKeyFrameDataTransform(*this);
    auto* snapshot = Create(EntityID(), Matrix());
    snapshot->SetAllFrames(WorkingFrame());
    snapshot->SetOriginalEntityID(OriginalEntityID());
    return snapshot;
}

void CTavrinKeyFrameDataTransform::Transform(CTavrinMatrix m, bool premultiply) {
    m_matrix = premultiply ? m * m_matrix : m_matrix * m;
}

CTavrinMatrix CTavrinKeyFrameDataTransform::Matrix() const {
    return m_matrix;
}

} // namespace Tavrin
