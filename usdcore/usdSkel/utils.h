#pragma once

#include "usdcore/gf/matrix4d.h"
#include "usdcore/gf/quatf.h"
#include "usdcore/gf/vec3f.h"
#include "usdcore/gf/vec3h.h"
#include "usdcore/pxr.h"
#include "usdcore/vt/types.h"

#include <cstddef>

PXR_NAMESPACE_OPEN_SCOPE

/// The joint-local matrix of a translation, a rotation and a scale, applied
/// to row vectors in the order scale, rotation, translation. The rotation is
/// used as given, without normalising it.
void UsdSkelMakeTransform(const GfVec3f& translate, const GfQuatf& rotate, const GfVec3h& scale,
                          GfMatrix4d* xform);

/// One matrix per joint from the three component arrays, which must all hold
/// \p count entries.
bool UsdSkelMakeTransforms(const GfVec3f* translations, const GfQuatf* rotations, const GfVec3h* scales,
                           GfMatrix4d* xforms, size_t count);

/// One matrix per joint; \p xforms is resized to the joint count. False, with
/// a warning and \p xforms left as it was, when the arrays differ in size.
bool UsdSkelMakeTransforms(const VtVec3fArray& translations, const VtQuatfArray& rotations,
                           const VtVec3hArray& scales, VtMatrix4dArray* xforms);

PXR_NAMESPACE_CLOSE_SCOPE
