#include "host/CTavrinMorphing.h"

#include <algorithm>

namespace Tavrin {

int CTavrinMorphingTable::IndexOf(const CTavrinGeometry* target) const {
    const auto found = std::find(m_targets.begin(), m_targets.end(), target);
    return found == m_targets.end() ? -1 : static_cast<int>(found - m_targets.begin());
}

void CTavrinMorphingTable::AddMorphGeometry(const CTavrinGeometry* target) {
    if (!target || IndexOf(target) >= 0)
        return;
    m_targets.push_back(target);
    m_weights.push_back(0.0);
}

bool CTavrinMorphingTable::HasMorphIndex(int index) const {
    return index >= 0 && index < static_cast<int>(m_targets.size());
}

double CTavrinMorphingTable::GetMorphWeight(const CTavrinGeometry* target) const {
    const int index = IndexOf(target);
    return index < 0 ? 0.0 : m_weights[index];
}

void CTavrinMorphingTable::SetMorphWeight(const CTavrinGeometry* target, double weight) {
    const int index = IndexOf(target);
    if (index >= 0)
        m_weights[index] = weight;
}

} // namespace Tavrin
