#pragma once
// Key frame data that moves its entity along a line path over the key
// frame's span: accelerating up to the constant-speed start frame, at
// constant speed to the constant-speed end frame, then slowing to a stop at
// the path's end.

#include "TavrinAnimation/src/TavrinKeyFrameDataTransform.h"

namespace Tavrin {

class CTavrinKeyFrameDataTransformBSplineFollower : public CTavrinKeyFrameDataTransform {
public:
    CTavrinKeyFrameDataTransformBSplineFollower(const CTavrinID& entity, const CTavrinMatrix& matrix);
    CTavrinKeyFrameDataTransformBSplineFollower(const CTavrinKeyFrameDataTransformBSplineFollower& other) = default;

    bool ReadFromArchive(CTavrinArchiveBase* archive) override;
    bool WriteIntoArchive(CTavrinArchiveBase* archive) override;
    bool RestoreFromCopy(const CTavrinDataMembersManager* copy) override;
    // "Start Frame", "End Frame", "Constant Speed Start Frame", "Constant
    // Speed End Frame".
    void* DataMemberSearch(int index, enumDataMemberType& type, CTavrinString& name, bool changed) override;

    int Type() const override { return KEYFRAME_BSPLINE_FOLLOWER; }
    // A full copy, or a plain transform snapshot of the placement at the
    // working frame.
    CTavrinKeyFrameData* CreateCopy(bool atWorkingFrame) const override;
    int SetStartFrame(int frame, bool extendEnd) override;
    int SetEndFrame(int frame, bool extendStart) override;
    // Only a follower with a path is worth saving.
    bool IsSavable() override;
    // With a path: path placement · translation to the point reached at the
    // working frame · orientation · offset. Without one (no path named, or
    // the path is gone or empty): the stored matrix.
    CTavrinMatrix Matrix() const override;
    // Stores the placement at the working frame as the stored matrix, so the
    // entity stays where the path took it once the path is gone.
    void ApplyPathPlacement();
    // Share of the path covered at the working frame, 0 to 1.
    double PathProgress() const;

    CTavrinID PathID() const { return m_pathID; }
    CTavrinID FollowedNodeID() const { return m_followedNodeID; }
    void SetPath(const CTavrinID& path, const CTavrinID& followedNode);
    // From the path's own space into the space the entity is placed in.
    CTavrinMatrix PathPlacement() const { return m_pathPlacement; }
    void SetPathPlacement(const CTavrinMatrix& matrix) { m_pathPlacement = matrix; }
    // The turn the entity keeps while it travels.
    CTavrinMatrix Orientation() const { return m_orientation; }
    void SetOrientation(const CTavrinMatrix& matrix) { m_orientation = matrix; }
    // Where the entity sits relative to the point on the path.
    CTavrinMatrix Offset() const { return m_offset; }
    void SetOffset(const CTavrinMatrix& matrix) { m_offset = matrix; }

private:
    CTavrinMatrix m_pathPlacement;
    // The line path (a CTavrinLinePath).
    CTavrinID m_pathID;
    CTavrinMatrix m_orientation;
    CTavrinMatrix m_offset;
    // The scene node that travels (the owner of the animated transform).
    CTavrinID m_followedNodeID;
};

} // namespace Tavrin
