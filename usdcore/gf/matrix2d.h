#pragma once

#include "usdcore/gf/matrixBase.h"
#include "usdcore/gf/vec2d.h"

PXR_NAMESPACE_OPEN_SCOPE

class GfMatrix2d : public Gf_MatrixBase<GfMatrix2d, double, 2>
{
public:
    using Gf_MatrixBase::Gf_MatrixBase;
    GfMatrix2d() = default;
};

PXR_NAMESPACE_CLOSE_SCOPE
