#pragma once
// A camera of the document: a scene node that holds a camera value (in
// world space) with its lens and depth of field.

#include "host/CTavrinBasicCamera.h"
#include "host/CTavrinSceneNode.h"

namespace Tavrin {

class CTavrinCamera : public CTavrinSceneNode {
public:
    static CTavrinCamera* Create(CTavrinDocument* document);
    enumEntityType EntityType() const override { return ENTITY_CAMERA; }

    double FOV() const { return m_camera.FOV(); }
    void SetFOV(double degrees) { m_camera.SetFOV(degrees); }
    bool DOFEnabled() const { return m_camera.DOFEnabled(); }
    double DOFDistance() const { return m_camera.DOFDistance(); }
    double DOFFieldStop() const { return m_camera.DOFFieldStop(); }
    void SetDOF(bool enabled, double distance, double fieldStop) { m_camera.SetDOF(enabled, distance, fieldStop); }
    CTavrin3DVertex Position() const { return m_camera.Position(); }
    CTavrin3DVertex LookAt() const { return m_camera.LookAt(); }
    double DistanceFromTarget() const { return m_camera.DistanceFromTarget(); }

    CTavrinBasicCamera ComputeBasicCamera() const { return m_camera; }
    void LoadBasicCamera(const CTavrinBasicCamera& camera) { m_camera = camera; }

private:
    CTavrinBasicCamera m_camera;
};

} // namespace Tavrin
