#pragma once
// A camera as a value: where it stands, where it looks, its lens and depth
// of field. Cameras of the document load and give out this value, and camera
// key frames of the animation model keep and blend it.

#include "host/CTavrin3DVertex.h"
#include "host/CTavrinArchive.h"
#include "host/CTavrinMatrix.h"

namespace Tavrin {

class CTavrinBasicCamera : public CTavrinArchivable {
public:
    // At the origin, looking down -Z with +Y up, the target one unit ahead.
    CTavrinBasicCamera() = default;
    CTavrinBasicCamera(const CTavrin3DVertex& position, const CTavrin3DVertex& lookAt, const CTavrin3DVertex& up);

    CTavrin3DVertex Position() const { return m_position; }
    CTavrin3DVertex LookAt() const { return m_position + m_direction * m_distanceToTarget; }
    CTavrin3DVertex CamDir() const { return m_direction; }
    CTavrin3DVertex CamUp() const { return m_up; }
    void SetPosition(const CTavrin3DVertex& position) { m_position = position; }
    // Keeps the direction unit length; a zero vector leaves it unchanged.
    void SetDir(const CTavrin3DVertex& direction);
    void SetCamUp(const CTavrin3DVertex& up);
    // Aims from position at lookAt; the target distance becomes their distance.
    void SetLookAtAndPositionFromLookAtTarget(const CTavrin3DVertex& lookAt, const CTavrin3DVertex& position);

    double FOV() const { return m_fieldOfView; }
    void SetFOV(double degrees) { m_fieldOfView = degrees; }
    bool DOFEnabled() const { return m_depthOfFieldEnabled; }
    double DOFDistance() const { return m_depthOfFieldDistance; }
    double DOFFieldStop() const { return m_depthOfFieldFieldStop; }
    void SetDOF(bool enabled, double distance, double fieldStop);
    double DistanceFromTarget() const { return m_distanceToTarget; }
    void SetDistanceToTarget(double distance) { m_distanceToTarget = distance; }

    // Moves position and target by the transform; the up vector turns with it.
    void ModifyByTransform(const CTavrinMatrix& matrix);
    // Camera space to world: the camera looks down its local -Z, +Y up,
    // standing at its position.
    CTavrinMatrix ComputeLocalToWorld() const;

    bool ReadFromArchive(CTavrinArchiveBase* archive) override;
    bool WriteIntoArchive(CTavrinArchiveBase* archive) override;

private:
    // Reads or writes every field, by the archive's direction.
    bool ArchiveFields(CTavrinArchiveBase* archive);

    CTavrin3DVertex m_position;
    CTavrin3DVertex m_direction{0, 0, -1};
    CTavrin3DVertex m_up{0, 1, 0};
    double m_distanceToTarget = 1.0;
    double m_fieldOfView = 30.0;
    bool m_depthOfFieldEnabled = false;
    double m_depthOfFieldDistance = 5.0;
    double m_depthOfFieldFieldStop = 1.4;
};

} // namespace Tavrin
