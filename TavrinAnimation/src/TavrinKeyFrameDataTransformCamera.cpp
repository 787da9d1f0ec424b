#include "TavrinAnimation/src/TavrinKeyFrameDataTransformCamera.h"

#include "TavrinAnimation/src/TavrinArchiveValues.h"
#include "host/CTavrinNodeQueries.h"
#include "host/CTavrinTransform.h"

#include <algorithm>

namespace Tavrin {

namespace {

// File versions of the camera record.
constexpr unsigned int kCameraLayoutVersion = 10014;       // before: a whole basic camera
constexpr unsigned int kFieldOfViewVersion = 10050;
constexpr unsigned int kDepthOfFieldVersion = 10071;
constexpr double kPi = 3.14159265358979323846;

} // namespace

CTavrinKeyFrameDataTransformCamera::CTavrinKeyFrameDataTransformCamera(const CTavrinID& entity,
                                                                       const CTavrinBasicCamera& camera)
    : CTavrinKeyFrameDataTransform(entity, camera.ComputeLocalToWorld()) {
    TakeFromCamera(camera);
}

CTavrinKeyFrameDataTransformCamera::CTavrinKeyFrameDataTransformCamera(const CTavrinID& entity,
                                                                       const CTavrinCamera* camera)
    : CTavrinKeyFrameDataTransform(entity, CTavrinMatrix()) {
    if (!camera)
        return;
    const CTavrinMatrix toLocal = LocalToWorldMatrix(camera).Inverse();
    CTavrin3DVertex position = camera->Position();
    CTavrin3DVertex lookAt = camera->LookAt();
    position.ModifyByTransform(toLocal);
    lookAt.ModifyByTransform(toLocal);
    m_distanceToTarget = lookAt.Distance(position);
    if (camera->LocalTransform())
        m_matrix = camera->LocalTransform()->Matrix();
    SetFieldOfView(camera->FOV());
    SetDepthOfField(camera->DOFEnabled(), camera->DOFDistance(), camera->DOFFieldStop());
}

void CTavrinKeyFrameDataTransformCamera::TakeFromCamera(const CTavrinBasicCamera& camera) {
    m_matrix = camera.ComputeLocalToWorld();
    m_distanceToTarget = camera.DistanceFromTarget();
    SetFieldOfView(camera.FOV());
    SetDepthOfField(camera.DOFEnabled(), camera.DOFDistance(), camera.DOFFieldStop());
}

void CTavrinKeyFrameDataTransformCamera::SetFieldOfView(double degrees) {
    m_fieldOfView = std::clamp(degrees, MinFieldOfView, MaxFieldOfView);
}

void CTavrinKeyFrameDataTransformCamera::SetDepthOfField(bool enabled, double distance, double fieldStop) {
    m_depthOfFieldEnabled = enabled;
    m_depthOfFieldDistance = distance;
    m_depthOfFieldFieldStop = fieldStop;
}

int CTavrinKeyFrameDataTransformCamera::SetStartFrame(int frame, bool extendEnd) {
    const int set = CTavrinKeyFrameData::SetStartFrame(frame, extendEnd);
    ClampConstantSpeedFrames();
    return set;
}

int CTavrinKeyFrameDataTransformCamera::SetEndFrame(int frame, bool extendStart) {
    const int set = CTavrinKeyFrameData::SetEndFrame(frame, extendStart);
    ClampConstantSpeedFrames();
    return set;
}

CTavrinMatrix CTavrinKeyFrameDataTransformCamera::Matrix() const {
    if (!m_memberSet || EndFrame() <= StartFrame())
        return m_matrix;
    // Orbit about the vertical through the target, Angle degrees over the span.
    const double fraction =
        static_cast<double>(WorkingFrame() - StartFrame()) / static_cast<double>(EndFrame() - StartFrame());
    const CTavrin3DVertex target = m_matrix.TransformPoint(CTavrin3DVertex(0, 0, -m_distanceToTarget));
    return CTavrinMatrix::CreateTranslation(target.X(), target.Y(), target.Z()) *
           CTavrinMatrix::DefineByRotation(m_angle * fraction * kPi / 180.0, 0, 1, 0) *
           CTavrinMatrix::CreateTranslation(-target.X(), -target.Y(), -target.Z()) * m_matrix;
}

CTavrinBasicCamera CTavrinKeyFrameDataTransformCamera::BasicCamera() const {
    const CTavrinMatrix placement = Matrix();
    const CTavrin3DVertex position = placement.TransformPoint(CTavrin3DVertex());
    const CTavrin3DVertex lookAt = placement.TransformPoint(CTavrin3DVertex(0, 0, -m_distanceToTarget));
    const CTavrin3DVertex up = placement.TransformPoint(CTavrin3DVertex(0, 1, 0)) - position;
    CTavrinBasicCamera camera(position, lookAt, up);
    camera.SetFOV(m_fieldOfView);
    camera.SetDOF(m_depthOfFieldEnabled, m_depthOfFieldDistance, m_depthOfFieldFieldStop);
    return camera;
}

void CTavrinKeyFrameDataTransformCamera::Transform(CTavrinMatrix m, bool premultiply) {
    // The target moves with the change, so its distance is measured again.
    const CTavrinMatrix before = m_matrix;
    const CTavrin3DVertex lookAt = before.TransformPoint(CTavrin3DVertex(0, 0, -m_distanceToTarget));
    CTavrinKeyFrameDataTransform::Transform(m, premultiply);
    const CTavrinMatrix change = m_matrix * before.Inverse();
    m_distanceToTarget =
        change.TransformPoint(lookAt).Distance(m_matrix.TransformPoint(CTavrin3DVertex()));
}

void* CTavrinKeyFrameDataTransformCamera::DataMemberSearch(int index, enumDataMemberType& type, CTavrinString& name,
                                                           bool changed) {
    enumDataMemberType countType = DATA_MEMBER_NONE;
    CTavrinString countName;
    if (m_memberSet)
        CTavrinKeyFrameData::DataMemberSearch(SPECIAL_COMMAND_COUNT_MEMBERS, countType, countName, false);
    else
        CTavrinKeyFrameDataTransform::DataMemberSearch(SPECIAL_COMMAND_COUNT_MEMBERS, countType, countName, false);
    const int first = m_dataMembersCount;
    const int orbitMembers = m_memberSet ? 3 : 0;
    if (index == SPECIAL_COMMAND_COUNT_MEMBERS) {
        m_dataMembersCount = first + orbitMembers + 4;
        return nullptr;
    }
    if (index < first) {
        return m_memberSet ? CTavrinKeyFrameData::DataMemberSearch(index, type, name, changed)
                           : CTavrinKeyFrameDataTransform::DataMemberSearch(index, type, name, changed);
    }
    int member = index - first;
    if (member < orbitMembers) {
        switch (member) {
        case 0:
            return FrameDataMember(FrameMember::Start, type, name, changed);
        case 1:
            return FrameDataMember(FrameMember::End, type, name, changed);
        default:
            type = DATA_MEMBER_DOUBLE;
            name = CTavrinString("Angle");
            return &m_angle;
        }
    }
    member -= orbitMembers;
    switch (member) {
    case 0:
        type = DATA_MEMBER_DOUBLE;
        name = CTavrinString("Field Of View [ ") + CTavrinString(static_cast<int>(MinFieldOfView)) +
               CTavrinString(" - ") + CTavrinString(static_cast<int>(MaxFieldOfView)) + CTavrinString(" ]");
        if (changed)
            SetFieldOfView(m_fieldOfView);
        return &m_fieldOfView;
    case 1:
        type = DATA_MEMBER_BOOL;
        name = CTavrinString("Depth Of Field Enabled");
        return &m_depthOfFieldEnabled;
    case 2:
        type = DATA_MEMBER_DOUBLE;
        name = CTavrinString("Depth Of Field");
        return &m_depthOfFieldDistance;
    case 3:
        type = DATA_MEMBER_DOUBLE;
        name = CTavrinString("DOF Field Stop");
        return &m_depthOfFieldFieldStop;
    default:
        return nullptr;
    }
}

CTavrinKeyFrameData* CTavrinKeyFrameDataTransformCamera::CreateCopy(bool atWorkingFrame) const {
    if (!atWorkingFrame)
        return new CTavrinKeyFrameDataTransformCamera(*this);
    auto* snapshot = new CTavrinKeyFrameDataTransformCamera(EntityID(), BasicCamera());
    snapshot->SetPivot(Pivot());
    snapshot->m_angle = m_angle;
    snapshot->m_cameraBlend = m_cameraBlend;
    snapshot->SetAllFrames(WorkingFrame());
    snapshot->SetOriginalEntityID(OriginalEntityID());
    return snapshot;
}

bool CTavrinKeyFrameDataTransformCamera::RestoreFromCopy(const CTavrinDataMembersManager* copy) {
    auto* source = dynamic_cast<const CTavrinKeyFrameDataTransformCamera*>(copy);
    if (!source || !CTavrinKeyFrameDataTransform::RestoreFromCopy(copy))
        return false;
    m_distanceToTarget = source->m_distanceToTarget;
    m_angle = source->m_angle;
    m_firstFlag = source->m_firstFlag;
    m_memberSet = source->m_memberSet;
    m_cameraBlend = source->m_cameraBlend;
    m_fieldOfView = source->m_fieldOfView;
    SetDepthOfField(source->m_depthOfFieldEnabled, source->m_depthOfFieldDistance, source->m_depthOfFieldFieldStop);
    return true;
}

bool CTavrinKeyFrameDataTransformCamera::WriteIntoArchive(CTavrinArchiveBase* archive) {
    return CTavrinKeyFrameData::WriteIntoArchive(archive) && WriteCameraFields(archive);
}

bool CTavrinKeyFrameDataTransformCamera::WriteCameraFields(CTavrinArchiveBase* archive) {
    if (!ReadWriteMatrix(*archive, m_matrix) || !archive->ReadWrite(m_pivot) ||
        !archive->ReadWrite(m_distanceToTarget) || !archive->ReadWrite(m_angle) ||
        !archive->ReadWrite(m_firstFlag) || !archive->ReadWrite(m_memberSet) || !archive->ReadWrite(m_cameraBlend) ||
        !archive->ReadWrite(m_fieldOfView) || !archive->ReadWrite(m_depthOfFieldDistance) ||
        !archive->ReadWrite(m_depthOfFieldFieldStop) || !archive->ReadWrite(m_depthOfFieldEnabled))
        return false;
    if (archive->Version() < KeyFrameVersion::EaseModes)
        return true;
    int constantSpeedStart = ConstantSpeedStartFrame();
    int constantSpeedEnd = ConstantSpeedEndFrame();
    return archive->ReadWrite(constantSpeedStart) && archive->ReadWrite(constantSpeedEnd);
}

bool CTavrinKeyFrameDataTransformCamera::ReadFromArchive(CTavrinArchiveBase* archive) {
    return CTavrinKeyFrameData::ReadFromArchive(archive) && ReadCameraFields(archive);
}

bool CTavrinKeyFrameDataTransformCamera::ReadCameraFields(CTavrinArchiveBase* archive) {
    const unsigned int fileVersion = FileVersionBeingRead();
    if (fileVersion < kCameraLayoutVersion) {
        // The older layout kept a whole camera; its key frames always
        // orbited and blended as cameras.
        CTavrinBasicCamera camera;
        if (!archive->ReadWrite(m_firstFlag) || !archive->ReadWrite(m_angle) || !camera.ReadFromArchive(archive))
            return false;
        m_matrix = camera.ComputeLocalToWorld();
        m_distanceToTarget = camera.DistanceFromTarget();
        m_memberSet = true;
        m_cameraBlend = true;
        return true;
    }
    if (!ReadWriteMatrix(*archive, m_matrix) || !archive->ReadWrite(m_pivot) ||
        !archive->ReadWrite(m_distanceToTarget) || !archive->ReadWrite(m_angle) ||
        !archive->ReadWrite(m_firstFlag) || !archive->ReadWrite(m_memberSet) || !archive->ReadWrite(m_cameraBlend))
        return false;
    m_fieldOfView = 30.0;
    if (fileVersion >= kFieldOfViewVersion && !archive->ReadWrite(m_fieldOfView))
        return false;
    SetDepthOfField(false, 5.0, 1.4);
    if (fileVersion >= kDepthOfFieldVersion &&
        (!archive->ReadWrite(m_depthOfFieldDistance) || !archive->ReadWrite(m_depthOfFieldFieldStop) ||
         !archive->ReadWrite(m_depthOfFieldEnabled)))
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
