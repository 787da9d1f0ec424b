#include "TavrinAnimation/src/TavrinSequence.h"

#include "TavrinAnimation/src/TavrinAnimationCollapsingGroup.h"
#include "TavrinAnimation/src/TavrinSequenceContainer.h"
#include "TavrinAnimation/src/TavrinSequenceMessage.h"
#include "TavrinAnimation/src/TavrinArchiveValues.h"

#include <memory>

namespace Tavrin {

namespace {
// Names new sequences Sequence1, Sequence2, ...; never reset in a process.
int s_sequenceCounter = 0;
} // namespace

CTavrinSequence::CTavrinSequence() {
    m_sequenceUUID.Generate();
}

CTavrinSequence* CTavrinSequence::Create() {
    // Owned here until it is complete, so that running out of memory half
    // way leaves nothing behind.
    auto sequence = std::make_unique<CTavrinSequence>();
    sequence->SetName(CTavrinString("Sequence") + CTavrinString(++s_sequenceCounter));
    CTavrinAnimationCollapsingGroup* defaultGroup = CTavrinSequenceContainer::GetInstance()->DefaultGroup();
    sequence->m_groupUUID = defaultGroup->Guid();
    defaultGroup->AddSequence(sequence.get());
    return sequence.release();
}

CTavrinSequence* CTavrinSequence::ReadSequence(CTavrinArchiveBase& archive) {
    auto* sequence = new CTavrinSequence();
    if (sequence->ArchiveReadWrite(archive))
        return sequence;
    delete sequence;
    return nullptr;
}

CTavrinUUID CTavrinSequence::Guid() {
    if (!m_sequenceUUID.IsValid())
        m_sequenceUUID.Generate();
    return m_sequenceUUID;
}

void CTavrinSequence::SetGroup(CTavrinAnimationCollapsingGroup* group) {
    if (!group)
        return;
    if (CTavrinAnimationCollapsingGroup* previous = Group())
        previous->RemoveSequence(this);
    m_groupUUID = group->Guid();
    group->AddSequence(this);
}

CTavrinAnimationCollapsingGroup* CTavrinSequence::Group() const {
    return CTavrinSequenceContainer::GetInstance()->FindGroup(m_groupUUID);
}

CTavrinSequence* CTavrinSequence::CreateEmptyCopy() {
    auto* copy = new CTavrinSequence();
    copy->SetName(Name() + CTavrinString("_copy"));
    copy->SetGroup(Group());
    copy->m_previewImage = m_previewImage;
    copy->m_persistedValue = m_persistedValue;
    return copy;
}

void CTavrinSequence::InsertIntoScene(double numberOfTimesToRepeat, bool blendSequences) {
    if (numberOfTimesToRepeat <= 1e-9)
        return;
    DistributeInsertSequenceMessage(*this, numberOfTimesToRepeat, blendSequences);
}

void CTavrinSequence::Clear() {
    CTavrinKeyFrameManager::Clear();
    m_previewImage.Clear();
    m_notSaved = false;
    m_sequenceUUID.Reset();
}

void CTavrinSequence::SetPreviewImageFile(CTavrinString file) {
    m_previewImage.SetFilename(file, true);
}

bool CTavrinSequence::ArchiveReadWrite(CTavrinArchiveBase& archive) {
    const unsigned int version = archive.Version();
    if (version < SequenceRecordVersion || !archive.IsDocumentArchive())
        return true;
    if (!CTavrinKeyFrameManager::ArchiveReadWrite(archive) || !archive.ReadWrite(m_sequenceUUID))
        return false;
    if (version >= SequenceGroupsVersion &&
        (!archive.ReadWrite(m_persistedCounter) || !archive.ReadWrite(m_groupUUID)))
        return false;
    if (version >= SequencePreviewVersion && !ReadWriteTexture(archive, m_previewImage))
        return false;
    return version < SequenceValueVersion || archive.ReadWrite(m_persistedValue);
}

} // namespace Tavrin
