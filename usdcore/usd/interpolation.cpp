#include "usdcore/usd/interpolation.h"

#include "usdcore/gf/half.h"
#include "usdcore/gf/math.h"
#include "usdcore/gf/matrix2d.h"
#include "usdcore/gf/matrix3d.h"
#include "usdcore/gf/matrix4d.h"
#include "usdcore/gf/matrix4f.h"
#include "usdcore/gf/quatd.h"
#include "usdcore/gf/quatf.h"
#include "usdcore/gf/quath.h"
#include "usdcore/gf/vec2d.h"
#include "usdcore/gf/vec2f.h"
#include "usdcore/gf/vec2h.h"
#include "usdcore/gf/vec3d.h"
#include "usdcore/gf/vec3f.h"
#include "usdcore/gf/vec3h.h"
#include "usdcore/gf/vec4d.h"
#include "usdcore/gf/vec4f.h"
#include "usdcore/gf/vec4h.h"
#include "usdcore/vt/array.h"

PXR_NAMESPACE_OPEN_SCOPE

namespace {

// The types that blend; each also blends as an array, element by element.
#define USD_INTERPOLATED_TYPES(X)                                             \
    X(GfHalf) X(float) X(double)                                              \
    X(GfVec2h) X(GfVec2f) X(GfVec2d)                                          \
    X(GfVec3h) X(GfVec3f) X(GfVec3d)                                          \
    X(GfVec4h) X(GfVec4f) X(GfVec4d)                                          \
    X(GfMatrix2d) X(GfMatrix3d) X(GfMatrix4d) X(GfMatrix4f)                   \
    X(GfQuath) X(GfQuatf) X(GfQuatd)

template <class T>
T Blend(double alpha, const T& lower, const T& upper)
{
    return GfLerp(alpha, lower, upper);
}

GfHalf Blend(double alpha, const GfHalf& lower, const GfHalf& upper)
{
    return GfHalf(static_cast<float>(GfLerp(alpha, double(float(lower)), double(float(upper)))));
}

template <class S>
Gf_Quat<S> Blend(double alpha, const Gf_Quat<S>& lower, const Gf_Quat<S>& upper)
{
    return GfSlerp(alpha, lower, upper);
}

template <class T>
bool BlendAs(const VtValue& lower, const VtValue& upper, double alpha, VtValue* result)
{
    if (lower.IsHolding<T>()) {
        *result = VtValue(Blend(alpha, lower.UncheckedGet<T>(), upper.UncheckedGet<T>()));
        return true;
    }
    if (lower.IsHolding<VtArray<T>>()) {
        const VtArray<T>& a = lower.UncheckedGet<VtArray<T>>();
        const VtArray<T>& b = upper.UncheckedGet<VtArray<T>>();
        if (a.size() != b.size()) {
            return false;
        }
        VtArray<T> blended(a.size());
        T* out = blended.data();
        for (size_t i = 0; i < a.size(); ++i) {
            out[i] = Blend(alpha, a[i], b[i]);
        }
        *result = VtValue::Take(blended);
        return true;
    }
    return false;
}

} // namespace

bool Usd_InterpolateValue(const VtValue& lower, const VtValue& upper, double alpha, VtValue* result)
{
    if (lower.GetType() != upper.GetType()) {
        return false;
    }
#define USD_BLEND_IF_HELD(T)                                                  \
    if (BlendAs<T>(lower, upper, alpha, result)) return true;
    USD_INTERPOLATED_TYPES(USD_BLEND_IF_HELD)
#undef USD_BLEND_IF_HELD
    return false;
}

PXR_NAMESPACE_CLOSE_SCOPE
