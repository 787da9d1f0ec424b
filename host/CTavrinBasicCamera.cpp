#include "host/CTavrinBasicCamera.h"

namespace Tavrin {

CTavrinBasicCamera::CTavrinBasicCamera(const CTavrin3DVertex& position, const CTavrin3DVertex& lookAt,
                                       const CTavrin3DVertex& up) {
    SetCamUp(up);
    SetLookAtAndPositionFromLookAtTarget(lookAt, position);
}

void CTavrinBasicCamera::SetDir(const CTavrin3DVertex& direction) {
    if (direction.Length() == 0.0)
        return;
    m_direction = direction;
    m_direction.Normalize();
}

void CTavrinBasicCamera::SetCamUp(const CTavrin3DVertex& up) {
    if (up.Length() == 0.0)
        return;
    m_up = up;
    m_up.Normalize();
}

void CTavrinBasicCamera::SetLookAtAndPositionFromLookAtTarget(const CTavrin3DVertex& lookAt,
                                                              const CTavrin3DVertex& position) {
    m_position = position;
    SetDir(lookAt - position);
    m_distanceToTarget = lookAt.Distance(position);
}

void CTavrinBasicCamera::SetDOF(bool enabled, double distance, double fieldStop) {
    m_depthOfFieldEnabled = enabled;
    m_depthOfFieldDistance = distance;
    m_depthOfFieldFieldStop = fieldStop;
}

void CTavrinBasicCamera::ModifyByTransform(const CTavrinMatrix& matrix) {
    CTavrin3DVertex lookAt = LookAt();
    CTavrin3DVertex upPoint = m_position + m_up;
    CTavrin3DVertex position = m_position;
    lookAt.ModifyByTransform(matrix);
    upPoint.ModifyByTransform(matrix);
    position.ModifyByTransform(matrix);
    SetCamUp(upPoint - position);
    SetLookAtAndPositionFromLookAtTarget(lookAt, position);
}

CTavrinMatrix CTavrinBasicCamera::ComputeLocalToWorld() const {
    CTavrin3DVertex right = m_direction ^ m_up;
    right.Normalize();
    CTavrin3DVertex up = right ^ m_direction;
    up.Normalize();
    return CTavrinMatrix(right.X(), up.X(), -m_direction.X(), m_position.X(),
                         right.Y(), up.Y(), -m_direction.Y(), m_position.Y(),
                         right.Z(), up.Z(), -m_direction.Z(), m_position.Z(),
                         0, 0, 0, 1);
}

bool CTavrinBasicCamera::ArchiveFields(CTavrinArchiveBase* archive) {
    return archive->ReadWrite(m_position) && archive->ReadWrite(m_direction) && archive->ReadWrite(m_up) &&
           archive->ReadWrite(m_distanceToTarget) && archive->ReadWrite(m_fieldOfView) &&
           archive->ReadWrite(m_depthOfFieldEnabled) && archive->ReadWrite(m_depthOfFieldDistance) &&
           archive->ReadWrite(m_depthOfFieldFieldStop);
}

bool CTavrinBasicCamera::WriteIntoArchive(CTavrinArchiveBase* archive) {
    return ArchiveFields(archive);
}

bool CTavrinBasicCamera::ReadFromArchive(CTavrinArchiveBase* archive) {
    // Files are not trusted to hold unit vectors.
    if (!ArchiveFields(archive))
        return false;
    SetDir(m_direction);
    SetCamUp(m_up);
    return true;
}

} // namespace Tavrin
