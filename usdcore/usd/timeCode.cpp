#include "usdcore/usd/timeCode.h"

#include <ostream>

PXR_NAMESPACE_OPEN_SCOPE

std::ostream& operator<<(std::ostream& out, const UsdTimeCode& time)
{
    if (time.IsDefault()) {
        return out << "DEFAULT";
    }
    return out << time.GetValue();
}

PXR_NAMESPACE_CLOSE_SCOPE
