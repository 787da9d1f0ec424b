#pragma once
// A key frame manager with an identity: the animation clip that the
// application lists, plays and inserts into the scene.

#include "TavrinAnimation/src/TavrinKeyFrameManager.h"
#include "host/CTavrinString.h"
#include "host/CTavrinTexture.h"
#include "host/CTavrinUUID.h"

namespace Tavrin {

class CTavrinAnimationCollapsingGroup;

// Archive versions at which sequences and their groups changed.
constexpr unsigned int SequenceRecordVersion = 11007;    // sequences are archived
constexpr unsigned int SequenceGroupsVersion = 11012;    // groups, and each sequence's group
constexpr unsigned int SequencePreviewVersion = 11013;   // the preview image
constexpr unsigned int SequenceValueVersion = 12520;     // the persisted value

class CTavrinSequence : public CTavrinKeyFrameManager {
public:
    CTavrinSequence();

    // A new sequence named "Sequence" + a process-wide running number, placed
    // in the default group of the process-wide container. The caller owns it
    // until the container takes it (AddSequence).
    static CTavrinSequence* Create();
    // A new sequence read from archive, or null (and nothing left) on failure.
    static CTavrinSequence* ReadSequence(CTavrinArchiveBase& archive);

    bool ArchiveReadWrite(CTavrinArchiveBase& archive) override;

    CTavrinUUID Guid();
    CTavrinUUID GroupGuid() const { return m_groupUUID; }
    void SetGroup(CTavrinAnimationCollapsingGroup* group);
    CTavrinAnimationCollapsingGroup* Group() const;
    CTavrinSequence* CreateEmptyCopy();
    // Asks the application to insert the sequence's key frames into the
    // scene; a repeat count of (about) zero sends nothing.
    void InsertIntoScene(double numberOfTimesToRepeat, bool blendSequences);
    void Clear();

    bool IsNotSaved() const { return m_notSaved; }
    void SetNotSaved(bool notSaved) { m_notSaved = notSaved; }
    bool SecondFlag() const { return m_secondFlag; }
    void SetSecondFlag(bool flag) { m_secondFlag = flag; }
    unsigned int PersistedCounter() const { return m_persistedCounter; }
    void SetPersistedCounter(unsigned int counter) { m_persistedCounter = counter; }
    CTavrinString Text() const { return m_text; }
    void SetText(CTavrinString text) { m_text = text; }
    const CTavrinTexture& PreviewImage() const { return m_previewImage; }
    void SetPreviewImage(const CTavrinTexture& image) { m_previewImage = image; }
    void SetPreviewImageFile(CTavrinString file);
    double PersistedValue() const { return m_persistedValue; }
    void SetPersistedValue(double value) { m_persistedValue = value; }

private:
    bool m_notSaved = false;
    bool m_secondFlag = false;
    unsigned int m_persistedCounter = 0;
    CTavrinUUID m_groupUUID;
    CTavrinString m_text;
    CTavrinTexture m_previewImage;
    CTavrinUUID m_sequenceUUID;
    double m_persistedValue = -1.0;
};

using CTavrinSequencePtr = CTavrinPtr<CTavrinSequence>;

} // namespace Tavrin
