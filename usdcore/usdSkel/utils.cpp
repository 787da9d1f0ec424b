#include "usdcore/usdSkel/utils.h"

#include "usdcore/tf/diagnostic.h"

PXR_NAMESPACE_OPEN_SCOPE

void UsdSkelMakeTransform(const GfVec3f& translate, const GfQuatf& rotate, const GfVec3h& scale,
                          GfMatrix4d* xform)
{
    if (!xform) {
        TF_CODING_ERROR("'xform' is null");
        return;
    }
    // The rotation block is worked out in single precision, as the animation
    // stores it, so that matrices match other readers of the same data bit
    // for bit. Row r of the block is the image of axis r, scaled by scale[r].
    const float w = rotate.GetReal();
    const GfVec3f& v = rotate.GetImaginary();
    const float x = v[0], y = v[1], z = v[2];
    const float rows[3][3] = {
        {float(1.0 - 2.0 * (y * y + z * z)), float(2.0 * (x * y + z * w)), float(2.0 * (z * x - y * w))},
        {float(2.0 * (x * y - z * w)), float(1.0 - 2.0 * (z * z + x * x)), float(2.0 * (y * z + x * w))},
        {float(2.0 * (z * x + y * w)), float(2.0 * (y * z - x * w)), float(1.0 - 2.0 * (y * y + x * x))},
    };
    for (size_t r = 0; r < 3; ++r) {
        const float s = scale[r];
        for (size_t c = 0; c < 3; ++c) (*xform)[r][c] = rows[r][c] * s;
        (*xform)[r][3] = 0.0;
    }
    for (size_t c = 0; c < 3; ++c) (*xform)[3][c] = translate[c];
    (*xform)[3][3] = 1.0;
}

bool UsdSkelMakeTransforms(const GfVec3f* translations, const GfQuatf* rotations, const GfVec3h* scales,
                           GfMatrix4d* xforms, size_t count)
{
    if (count > 0 && !(translations && rotations && scales && xforms)) {
        TF_CODING_ERROR("null component or matrix array for %zu joints", count);
        return false;
    }
    for (size_t i = 0; i < count; ++i) UsdSkelMakeTransform(translations[i], rotations[i], scales[i], &xforms[i]);
    return true;
}

bool UsdSkelMakeTransforms(const VtVec3fArray& translations, const VtQuatfArray& rotations,
                           const VtVec3hArray& scales, VtMatrix4dArray* xforms)
{
    if (!xforms) {
        TF_CODING_ERROR("'xforms' pointer is null.");
        return false;
    }
    const size_t count = translations.size();
    if (rotations.size() != count) {
        TF_WARN("Size of rotations [%zu] != size of translations [%zu]", rotations.size(), count);
        return false;
    }
    if (scales.size() != count) {
        TF_WARN("Size of scales [%zu] != size of translations [%zu]", scales.size(), count);
        return false;
    }
    xforms->resize(count);
    return UsdSkelMakeTransforms(translations.cdata(), rotations.cdata(), scales.cdata(), xforms->data(), count);
}

PXR_NAMESPACE_CLOSE_SCOPE
