#pragma once

// Every value type USD stores in arrays, listed once. VT_ARRAY_VALUE_TYPES
// expands X(CppType, Name) for each; the VtNameArray typedefs below (and
// anything else that must cover every type) are generated from it.

#include "usdcore/gf/half.h"
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
#include "usdcore/gf/vec2i.h"
#include "usdcore/gf/vec3d.h"
#include "usdcore/gf/vec3f.h"
#include "usdcore/gf/vec3h.h"
#include "usdcore/gf/vec3i.h"
#include "usdcore/gf/vec4d.h"
#include "usdcore/gf/vec4f.h"
#include "usdcore/gf/vec4h.h"
#include "usdcore/gf/vec4i.h"
#include "usdcore/pxr.h"
#include "usdcore/tf/token.h"
#include "usdcore/vt/array.h"

#include <cstdint>
#include <string>

#define VT_BUILTIN_ARRAY_VALUE_TYPES(X)                                       \
    X(bool, Bool)                                                             \
    X(char, Char)                                                             \
    X(unsigned char, UChar)                                                   \
    X(short, Short)                                                           \
    X(unsigned short, UShort)                                                 \
    X(int, Int)                                                               \
    X(unsigned int, UInt)                                                     \
    X(int64_t, Int64)                                                         \
    X(uint64_t, UInt64)                                                       \
    X(GfHalf, Half)                                                           \
    X(float, Float)                                                           \
    X(double, Double)                                                         \
    X(std::string, String)                                                    \
    X(TfToken, Token)

#define VT_GF_ARRAY_VALUE_TYPES(X)                                            \
    X(GfVec2d, Vec2d)                                                         \
    X(GfVec2f, Vec2f)                                                         \
    X(GfVec2h, Vec2h)                                                         \
    X(GfVec2i, Vec2i)                                                         \
    X(GfVec3d, Vec3d)                                                         \
    X(GfVec3f, Vec3f)                                                         \
    X(GfVec3h, Vec3h)                                                         \
    X(GfVec3i, Vec3i)                                                         \
    X(GfVec4d, Vec4d)                                                         \
    X(GfVec4f, Vec4f)                                                         \
    X(GfVec4h, Vec4h)                                                         \
    X(GfVec4i, Vec4i)                                                         \
    X(GfMatrix2d, Matrix2d)                                                   \
    X(GfMatrix3d, Matrix3d)                                                   \
    X(GfMatrix4d, Matrix4d)                                                   \
    X(GfMatrix4f, Matrix4f)                                                   \
    X(GfQuatd, Quatd)                                                         \
    X(GfQuatf, Quatf)                                                         \
    X(GfQuath, Quath)

#define VT_ARRAY_VALUE_TYPES(X)                                               \
    VT_BUILTIN_ARRAY_VALUE_TYPES(X)                                           \
    VT_GF_ARRAY_VALUE_TYPES(X)

PXR_NAMESPACE_OPEN_SCOPE

#define VT_DECLARE_ARRAY_TYPEDEF_(type, name) using Vt##name##Array = VtArray<type>;
VT_ARRAY_VALUE_TYPES(VT_DECLARE_ARRAY_TYPEDEF_)
#undef VT_DECLARE_ARRAY_TYPEDEF_

PXR_NAMESPACE_CLOSE_SCOPE
