#pragma once

#include "usdcore/pxr.h"

PXR_NAMESPACE_OPEN_SCOPE

/// Element types of buffers handed to the imaging utilities.
enum HdType {
    HdTypeInvalid = -1,
    HdTypeBool = 0,
    HdTypeUInt8,
    HdTypeUInt16,
    HdTypeInt8,
    HdTypeInt16,
    HdTypeInt32,
    HdTypeInt32Vec2,
    HdTypeInt32Vec3,
    HdTypeInt32Vec4,
    HdTypeUInt32,
    HdTypeUInt32Vec2,
    HdTypeUInt32Vec3,
    HdTypeUInt32Vec4,
    HdTypeFloat,
    HdTypeFloatVec2,
    HdTypeFloatVec3,
    HdTypeFloatVec4,
    HdTypeFloatMat3,
    HdTypeFloatMat4,
    HdTypeDouble,
    HdTypeDoubleVec2,
    HdTypeDoubleVec3,
    HdTypeDoubleVec4,
    HdTypeDoubleMat3,
    HdTypeDoubleMat4,
    HdTypeHalfFloat,
    HdTypeHalfFloatVec2,
    HdTypeHalfFloatVec3,
    HdTypeHalfFloatVec4,
    HdTypeInt32_2_10_10_10_REV,
    HdTypeCount
};

PXR_NAMESPACE_CLOSE_SCOPE
