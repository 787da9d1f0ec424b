#pragma once
// Key frame data that sets the weight of one morph target (the entity, a
// geometry) on a morphed 3D object.

#include "TavrinAnimation/src/TavrinKeyFrameData.h"

#include <vector>

namespace Tavrin {

class CTavrinKeyFrameDataMorph : public CTavrinKeyFrameData {
public:
    CTavrinKeyFrameDataMorph(const CTavrinID& target, const CTavrinID& morphedObject, double weight);
    CTavrinKeyFrameDataMorph(const CTavrinKeyFrameDataMorph& other) = default;

    bool ArchiveReadWrite(CTavrinArchiveBase& archive) override;

    int Type() const override { return KEYFRAME_MORPH; }
    void ApplyFromManager(CTavrinKeyFrameManager*) override {}
    void Apply() override;
    CTavrinKeyFrameData* CreateCopy(bool atWorkingFrame) const override;

    CTavrinID MorphedObjectID() const { return m_morphedObjectID; }
    double Weight() const { return m_weight; }
    void SetWeight(double weight) { m_weight = weight; }
    // One weight per morph geometry of the object, as files written before
    // the per-target layout stored them.
    const std::vector<double>& LegacyWeights() const { return m_legacyWeights; }

private:
    std::vector<double> m_legacyWeights;
    CTavrinID m_morphedObjectID;
    double m_weight = 0.0;
};

} // namespace Tavrin
