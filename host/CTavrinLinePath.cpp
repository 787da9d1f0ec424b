#include "host/CTavrinLinePath.h"

#include "host/CTavrinDocument.h"

#include <algorithm>
#include <memory>

namespace Tavrin {

CTavrinLinePath* CTavrinLinePath::Create(CTavrinDocument* document) {
    return document ? document->Adopt(std::make_unique<CTavrinLinePath>()) : nullptr;
}

CTavrin3DVertex CTavrinLinePath::PointAtFraction(double fraction) const {
    if (m_points.empty())
        return CTavrin3DVertex();
    double length = 0.0;
    for (std::size_t i = 1; i < m_points.size(); ++i)
        length += m_points[i].Distance(m_points[i - 1]);
    double remaining = std::clamp(fraction, 0.0, 1.0) * length;
    for (std::size_t i = 1; i < m_points.size(); ++i) {
        const double segment = m_points[i].Distance(m_points[i - 1]);
        if (remaining <= segment && segment > 0.0)
            return m_points[i - 1] + (m_points[i] - m_points[i - 1]) * (remaining / segment);
        remaining -= segment;
    }
    return m_points.back();
}

} // namespace Tavrin
