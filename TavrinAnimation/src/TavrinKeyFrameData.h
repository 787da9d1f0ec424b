#pragma once
// Payload of one key frame of one animated entity: the frames it covers, how
// it eases into and out of its neighbours, and (in the members of the family)
// the state it gives the entity.

#include "host/CTavrinDataMembersManager.h"
#include "host/CTavrinID.h"
#include "host/CTavrinReferenced.h"
#include "host/CTavrinUUID.h"

namespace Tavrin {

class CTavrinArchiveBase;
class CTavrinKeyFrameManager;

// Type codes, as stored in the archive before each key frame.
enum KeyFrameDataType : int {
    KEYFRAME_TRANSFORM = 0,
    KEYFRAME_MATERIAL = 1,
    KEYFRAME_CAMERA = 2,
    KEYFRAME_VERTICES = 3,
    KEYFRAME_LIGHT = 4,
    KEYFRAME_ROUND_TABLE = 5,
    KEYFRAME_BSPLINE_FOLLOWER = 6,
    KEYFRAME_SPHERICAL_CAMERA = 7,
    KEYFRAME_HIDE_SHOW = 8,
    KEYFRAME_MORPH = 9,
};

// Archive versions at which the key frame data records changed.
namespace KeyFrameVersion {
constexpr unsigned int SerialNumbers = 10006;     // serial numbers and the transform pivot
constexpr unsigned int EaseModes = 12201;         // ease modes replace the legacy value
constexpr unsigned int LinkedGuids = 12503;       // the two linked GUIDs
} // namespace KeyFrameVersion

// The file version that read records branch on: the version of the document
// being read, as the documents container reports it.
unsigned int FileVersionBeingRead();

class CTavrinKeyFrameData : public CTavrinDataMembersManager {
public:
    explicit CTavrinKeyFrameData(const CTavrinID& entity);
    CTavrinKeyFrameData(const CTavrinKeyFrameData& other);
    CTavrinKeyFrameData& operator=(const CTavrinKeyFrameData&) = delete;
    ~CTavrinKeyFrameData() override;

    bool ReadFromArchive(CTavrinArchiveBase* archive) override;
    bool WriteIntoArchive(CTavrinArchiveBase* archive) override;
    CTavrinDataMembersManager* MakeCopy() const override;

    virtual int Type() const = 0;
    virtual void ApplyFromManager(CTavrinKeyFrameManager* manager) = 0;
    virtual void Apply() = 0;
    // false: a full copy; true: a single-frame snapshot at the working frame.
    // The copy is returned with a reference count of 0.
    virtual CTavrinKeyFrameData* CreateCopy(bool atWorkingFrame) const = 0;
    virtual int SetStartFrame(int frame, bool extendEnd);
    virtual int SetEndFrame(int frame, bool extendStart);
    virtual void ShiftFrames(int offset);
    virtual void ScaleFrames(double factor);
    virtual void PrepareForPlayback();
    virtual bool IsSavable();

    int StartFrame() const { return m_startFrame; }
    int EndFrame() const { return m_endFrame; }
    int ConstantSpeedStartFrame() const { return m_constantSpeedStartFrame; }
    int ConstantSpeedEndFrame() const { return m_constantSpeedEndFrame; }
    void SetConstantSpeedStartFrame(int frame);
    void SetConstantSpeedEndFrame(int frame);
    int WorkingFrame() const;
    void SetWorkingFrame(int frame) { m_workingFrame = frame; }
    void SetAllFrames(int frame);
    int EaseInMode() const { return m_easeInMode; }
    void SetEaseInMode(int mode) { m_easeInMode = mode; }
    int EaseOutMode() const { return m_easeOutMode; }
    void SetEaseOutMode(int mode) { m_easeOutMode = mode; }
    int SerialNumber() const { return m_serialNumber; }
    void SetSerialNumber(int serial) { m_serialNumber = serial; }
    int LegacyValue() const { return m_legacyValue; }
    CTavrinID EntityID() const { return m_entityID; }
    CTavrinID OriginalEntityID() const { return m_originalEntityID; }
    void SetOriginalEntityID(const CTavrinID& id) { m_originalEntityID = id; }
    // Moves the data to another entity's track (the manager re-files it).
    void SetEntityID(const CTavrinID& id) { m_entityID = id; }
    CTavrinUUID LinkedGuid() const { return m_linkedGuid; }
    CTavrinUUID SecondLinkedGuid() const { return m_secondLinkedGuid; }
    void SetLinkedGuids(const CTavrinUUID& first, const CTavrinUUID& second);
    bool HasLinkedGuids() const;
    void ClearLinkedGuids();

protected:
    // Keeps both constant-speed frames inside [start, end]: first raised to
    // the start frame, then lowered to the end frame.
    void ClampConstantSpeedFrames();
    // Number of named data members of the host base, after which the members
    // of the family are numbered.
    int BaseDataMembersCount();
    enum class FrameMember { Start, End, ConstantSpeedStart, ConstantSpeedEnd };
    // The frame published as an int member: "Start Frame", "End Frame",
    // "Constant Speed Start Frame" or "Constant Speed End Frame". An edit
    // goes through the frame's setter; start and end push the other along.
    void* FrameDataMember(FrameMember member, enumDataMemberType& type, CTavrinString& name, bool changed);
    // Storage of the start frame, published as a named data member.
    int* StartFrameStorage() { return &m_startFrame; }
    int* ConstantSpeedStartFrameStorage() { return &m_constantSpeedStartFrame; }
    int* ConstantSpeedEndFrameStorage() { return &m_constantSpeedEndFrame; }

private:
    int m_startFrame = 0;
    int m_endFrame = 0;
    int m_constantSpeedStartFrame = 0;
    int m_constantSpeedEndFrame = 0;
    CTavrinUUID m_linkedGuid;
    CTavrinUUID m_secondLinkedGuid;
    CTavrinID m_originalEntityID;
    CTavrinID m_entityID;
    int m_workingFrame = 0;
    int m_legacyValue = 0;
    int m_easeInMode = 0;
    int m_easeOutMode = 0;
    int m_serialNumber = 0;
};

using CTavrinKeyFrameDataPtr = CTavrinPtr<CTavrinKeyFrameData>;

// The factory used when reading tracks: a new object of the member that the
// type code names, for entity, or null for a code outside 0..9.
CTavrinKeyFrameData* CreateKeyFrameData(const CTavrinID& entity, int type);

} // namespace Tavrin
