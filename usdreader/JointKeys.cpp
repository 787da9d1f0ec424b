#include "usdreader/JointKeys.h"

PXR_NAMESPACE_USING_DIRECTIVE

namespace Tavrin {

CTavrinString JointName(const TfToken& joint)
{
    CTavrinString name(joint.GetString());
    name.RemovePath();
    return name;
}

SdfPath JointKey(const CTavrinString& name)
{
    return SdfPath(name.toStdString());
}

} // namespace Tavrin
