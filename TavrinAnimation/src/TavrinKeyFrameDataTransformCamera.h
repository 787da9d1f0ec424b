#pragma once
// Key frame data of a camera: its placement (the transform member's matrix),
// the distance to its target and its lens. With the member-set flag the
// camera orbits its target by Angle degrees over the key frame's span.

#include "TavrinAnimation/src/TavrinKeyFrameDataTransform.h"
#include "host/CTavrinBasicCamera.h"
#include "host/CTavrinCamera.h"

namespace Tavrin {

class CTavrinKeyFrameDataTransformCamera : public CTavrinKeyFrameDataTransform {
public:
    static constexpr double MinFieldOfView = 1.0;
    static constexpr double MaxFieldOfView = 179.0;

    // Placement, target distance and lens taken from camera.
    CTavrinKeyFrameDataTransformCamera(const CTavrinID& entity, const CTavrinBasicCamera& camera);
    // From a camera node: the node's local matrix, the target distance
    // measured in the node's local space, and the camera's lens. Without a
    // camera the defaults hold.
    CTavrinKeyFrameDataTransformCamera(const CTavrinID& entity, const CTavrinCamera* camera);
    CTavrinKeyFrameDataTransformCamera(const CTavrinKeyFrameDataTransformCamera& other) = default;

    bool ReadFromArchive(CTavrinArchiveBase* archive) override;
    bool WriteIntoArchive(CTavrinArchiveBase* archive) override;
    bool RestoreFromCopy(const CTavrinDataMembersManager* copy) override;
    // Without the member-set flag: the transform's members, then the lens.
    // With it: "Start Frame", "End Frame", "Angle", then the lens.
    void* DataMemberSearch(int index, enumDataMemberType& type, CTavrinString& name, bool changed) override;

    int Type() const override { return KEYFRAME_CAMERA; }
    CTavrinKeyFrameData* CreateCopy(bool atWorkingFrame) const override;
    int SetStartFrame(int frame, bool extendEnd) override;
    int SetEndFrame(int frame, bool extendStart) override;
    void Transform(CTavrinMatrix m, bool premultiply) override;
    CTavrinMatrix Matrix() const override;

    // The camera at the working frame.
    CTavrinBasicCamera BasicCamera() const;

    double DistanceToTarget() const { return m_distanceToTarget; }
    double Angle() const { return m_angle; }
    void SetAngle(double degrees) { m_angle = degrees; }
    bool HasMemberSet() const { return m_memberSet; }
    void SetMemberSet(bool memberSet) { m_memberSet = memberSet; }
    bool BlendsCameras() const { return m_cameraBlend; }
    void SetBlendsCameras(bool blend) { m_cameraBlend = blend; }
    double FieldOfView() const { return m_fieldOfView; }
    void SetFieldOfView(double degrees);
    double DepthOfFieldDistance() const { return m_depthOfFieldDistance; }
    double DepthOfFieldFieldStop() const { return m_depthOfFieldFieldStop; }
    bool DepthOfFieldEnabled() const { return m_depthOfFieldEnabled; }
    void SetDepthOfField(bool enabled, double distance, double fieldStop);

protected:
    // The record after the base record, shared with the spherical camera.
    bool ReadCameraFields(CTavrinArchiveBase* archive);
    bool WriteCameraFields(CTavrinArchiveBase* archive);

private:
    void TakeFromCamera(const CTavrinBasicCamera& camera);

    double m_distanceToTarget = 1.0;
    double m_angle = 360.0;
    bool m_firstFlag = false;
    bool m_memberSet = false;
    bool m_cameraBlend = false;
    double m_fieldOfView = 30.0;
    double m_depthOfFieldDistance = 5.0;
    double m_depthOfFieldFieldStop = 1.4;
    bool m_depthOfFieldEnabled = false;
};

} // namespace Tavrin
