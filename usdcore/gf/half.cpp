#include "usdcore/gf/half.h"

#include <ostream>

PXR_NAMESPACE_OPEN_SCOPE

std::ostream& operator<<(std::ostream& out, GfHalf h)
{
    return out << float(h);
}

PXR_NAMESPACE_CLOSE_SCOPE
