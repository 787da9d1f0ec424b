#pragma once
// Joints are known by name across skeletons and animations: the last element
// of the joint's token, entered among the prim paths as a one-element
// relative path that no absolute prim path can equal.

#include "host/CTavrinString.h"
#include "usdreader/UsdApi.h"

namespace Tavrin {

CTavrinString JointName(const PXR_NS::TfToken& joint);
// Empty for a name that is no valid path element.
PXR_NS::SdfPath JointKey(const CTavrinString& name);

} // namespace Tavrin
