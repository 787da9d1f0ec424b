#pragma once

#include "usdcore/gf/matrix4Base.h"
#include "usdcore/gf/quatd.h"
#include "usdcore/gf/vec3d.h"
#include "usdcore/gf/vec4d.h"

PXR_NAMESPACE_OPEN_SCOPE

class GfMatrix4f;

class GfMatrix4d : public Gf_Matrix4Base<GfMatrix4d, double>
{
public:
    using Gf_Matrix4Base::Gf_Matrix4Base;
    GfMatrix4d() = default;
    explicit GfMatrix4d(const GfMatrix4f& m);
};

PXR_NAMESPACE_CLOSE_SCOPE

#include "usdcore/gf/matrix4f.h"
