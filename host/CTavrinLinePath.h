#pragma once
// A path drawn in the document: a polyline that path-following key frames
// move their entity along.

#include "host/CTavrin3DVertex.h"
#include "host/CTavrinEntity.h"

#include <vector>

namespace Tavrin {

class CTavrinLinePath : public CTavrinEntity {
public:
    static CTavrinLinePath* Create(CTavrinDocument* document);
    enumEntityType EntityType() const override { return ENTITY_LINE_PATH; }

    // The path's points in its own space, in drawing order.
    const std::vector<CTavrin3DVertex>& BasicPath() const { return m_points; }
    void SetBasicPath(std::vector<CTavrin3DVertex> points) { m_points = std::move(points); }
    // The point at fraction (0 to 1, clamped) of the path's length; the
    // origin for a path without points.
    CTavrin3DVertex PointAtFraction(double fraction) const;

private:
    std::vector<CTavrin3DVertex> m_points;
};

} // namespace Tavrin
