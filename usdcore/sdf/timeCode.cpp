#include "usdcore/sdf/timeCode.h"

#include <ostream>

PXR_NAMESPACE_OPEN_SCOPE

std::ostream& operator<<(std::ostream& out, const SdfTimeCode& timeCode)
{
    return out << timeCode.GetValue();
}

PXR_NAMESPACE_CLOSE_SCOPE
