#pragma once
// Key frame data that gives an entity's local transform a matrix; the member
// the importer creates for animated nodes and skeleton joints.

#include "TavrinAnimation/src/TavrinKeyFrameData.h"
#include "host/CTavrin3DVertex.h"
#include "host/CTavrinMatrix.h"

namespace Tavrin {

class CTavrinKeyFrameDataTransform : public CTavrinKeyFrameData {
public:
    // New data for entity (resolved through the process-wide manager), with
    // a copy of matrix, the pivot at the origin, all frames 0 and a
    // reference count of 0.
    static CTavrinKeyFrameDataTransform* Create(const CTavrinID& entity, const CTavrinMatrix& matrix);

    CTavrinKeyFrameDataTransform(const CTavrinID& entity, const CTavrinMatrix& matrix);
    CTavrinKeyFrameDataTransform(const CTavrinKeyFrameDataTransform& other) = default;

    bool ReadFromArchive(CTavrinArchiveBase* archive) override;
    bool WriteIntoArchive(CTavrinArchiveBase* archive) override;
    bool RestoreFromCopy(const CTavrinDataMembersManager* copy) override;
    void* DataMemberSearch(int index, enumDataMemberType& type, CTavrinString& name, bool changed) override;

    int Type() const override { return KEYFRAME_TRANSFORM; }
    void ApplyFromManager(CTavrinKeyFrameManager*) override {}
    void Apply() override;
    CTavrinKeyFrameData* CreateCopy(bool atWorkingFrame) const override;

    // m · stored (premultiply) or stored · m.
    virtual void Transform(CTavrinMatrix m, bool premultiply);
    // The matrix at the working frame.
    virtual CTavrinMatrix Matrix() const;
    void SetMatrix(const CTavrinMatrix& matrix) { m_matrix = matrix; }

    CTavrin3DVertex Pivot() const { return m_pivot; }
    void SetPivot(CTavrin3DVertex pivot) { m_pivot = pivot; }

protected:
    CTavrinMatrix m_matrix;
    CTavrin3DVertex m_pivot;
};

} // namespace Tavrin
