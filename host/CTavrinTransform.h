#pragma once

#include "host/CTavrinEntity.h"
#include "host/CTavrinMatrix.h"

namespace Tavrin {

// The local transform entity of a scene node; animation key frames address it
// by its ID.
class CTavrinTransform : public CTavrinEntity {
public:
    static CTavrinTransform* Create(CTavrinDocument* document);

    enumEntityType EntityType() const override { return ENTITY_TRANSFORM; }
    const CTavrinMatrix& Matrix() const { return m_matrix; }
    void LoadMatrix(const CTavrinMatrix& matrix) { m_matrix = matrix; }
    // The basis in which the transform is edited and interpolated; the
    // identity unless the application sets one.
    const CTavrinMatrix& UniformizationMatrix() const { return m_uniformization; }
    void SetUniformizationMatrix(const CTavrinMatrix& matrix) { m_uniformization = matrix; }

private:
    CTavrinMatrix m_matrix;
    CTavrinMatrix m_uniformization;
};

} // namespace Tavrin
