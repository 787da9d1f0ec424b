#pragma once

#include "usdcore/gf/matrix4Base.h"
#include "usdcore/gf/quatf.h"
#include "usdcore/gf/vec3f.h"
#include "usdcore/gf/vec4f.h"

PXR_NAMESPACE_OPEN_SCOPE

class GfMatrix4d;

class GfMatrix4f : public Gf_Matrix4Base<GfMatrix4f, float>
{
public:
    using Gf_Matrix4Base::Gf_Matrix4Base;
    GfMatrix4f() = default;
    explicit GfMatrix4f(const GfMatrix4d& m);
};

PXR_NAMESPACE_CLOSE_SCOPE

#include "usdcore/gf/matrix4d.h"

PXR_NAMESPACE_OPEN_SCOPE

inline GfMatrix4d::GfMatrix4d(const GfMatrix4f& m)
{
    for (size_t i = 0; i < 16; ++i) data()[i] = double(m.data()[i]);
}

inline GfMatrix4f::GfMatrix4f(const GfMatrix4d& m)
{
    for (size_t i = 0; i < 16; ++i) data()[i] = float(m.data()[i]);
}

PXR_NAMESPACE_CLOSE_SCOPE
