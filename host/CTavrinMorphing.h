#pragma once
// The morph targets of a 3D object: geometries with the same vertices as the
// object's own, each blended in by a weight.

#include <vector>

namespace Tavrin {

class CTavrinGeometry;

class CTavrinMorphingTable {
public:
    // Registers target with weight 0; a target registered before is kept.
    void AddMorphGeometry(const CTavrinGeometry* target);
    // Whether index names a registered target (in registration order).
    bool HasMorphIndex(int index) const;
    // 0 for a geometry that is not a target.
    double GetMorphWeight(const CTavrinGeometry* target) const;
    // Ignored for a geometry that is not a target.
    void SetMorphWeight(const CTavrinGeometry* target, double weight);
    const std::vector<const CTavrinGeometry*>& ListAllMorphGeometries() const { return m_targets; }

private:
    int IndexOf(const CTavrinGeometry* target) const;

    std::vector<const CTavrinGeometry*> m_targets;
    std::vector<double> m_weights;
};

} // namespace Tavrin
