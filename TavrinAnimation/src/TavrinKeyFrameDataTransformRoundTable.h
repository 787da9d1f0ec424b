#pragma once
// Key frame data of a turntable: over its span the entity turns by Angle
// degrees about Normal, between a first and a second placement matrix.

#include "TavrinAnimation/src/TavrinKeyFrameDataTransform.h"
#include "host/CTavrinSmallValues.h"

namespace Tavrin {

class CTavrinKeyFrameDataTransformRoundTable : public CTavrinKeyFrameDataTransform {
public:
    CTavrinKeyFrameDataTransformRoundTable(const CTavrinID& entity, const CTavrinMatrix& matrix);
    CTavrinKeyFrameDataTransformRoundTable(const CTavrinKeyFrameDataTransformRoundTable& other) = default;

    bool ReadFromArchive(CTavrinArchiveBase* archive) override;
    bool WriteIntoArchive(CTavrinArchiveBase* archive) override;
    bool RestoreFromCopy(const CTavrinDataMembersManager* copy) override;
    // "Start Frame", "End Frame", "Angle", "Normal", "Constant Speed Start
    // Frame", "Constant Speed End Frame".
    void* DataMemberSearch(int index, enumDataMemberType& type, CTavrinString& name, bool changed) override;

    int Type() const override { return KEYFRAME_ROUND_TABLE; }
    // A full copy, or a plain transform snapshot of the placement at the
    // working frame.
    CTavrinKeyFrameData* CreateCopy(bool atWorkingFrame) const override;
    // stored · first · turn(Angle · progress about Normal) · second, the
    // progress running from 0 at the start frame to 1 at the end frame.
    CTavrinMatrix Matrix() const override;

    double Angle() const { return m_angle; }
    void SetAngle(double degrees) { m_angle = degrees; }
    CTavrinNormal Normal() const { return m_normal; }
    void SetNormal(const CTavrinNormal& normal) { m_normal = normal; }
    CTavrinMatrix FirstMatrix() const { return m_firstMatrix; }
    void SetFirstMatrix(const CTavrinMatrix& matrix) { m_firstMatrix = matrix; }
    CTavrinMatrix SecondMatrix() const { return m_secondMatrix; }
    void SetSecondMatrix(const CTavrinMatrix& matrix) { m_secondMatrix = matrix; }

private:
    CTavrinMatrix m_firstMatrix;
    double m_angle = 0.0;
    CTavrinNormal m_normal;
    CTavrinMatrix m_secondMatrix;
};

} // namespace Tavrin
