#pragma once

#include "usdcore/pxr.h"
#include "usdcore/tf/staticTokens.h"

// Attribute names, their allowed values, and the metadata keys of the
// geometry schemas.
#define USDGEOM_TOKENS(X)                                                     \
    X(axis, "axis")                                                           \
    X(bilinear, "bilinear")                                                   \
    X(boundaries, "boundaries")                                               \
    X(catmullClark, "catmullClark")                                           \
    X(constant, "constant")                                                   \
    X(cornerIndices, "cornerIndices")                                         \
    X(cornerSharpnesses, "cornerSharpnesses")                                 \
    X(cornersOnly, "cornersOnly")                                             \
    X(cornersPlus1, "cornersPlus1")                                           \
    X(cornersPlus2, "cornersPlus2")                                           \
    X(creaseIndices, "creaseIndices")                                         \
    X(creaseLengths, "creaseLengths")                                         \
    X(creaseSharpnesses, "creaseSharpnesses")                                 \
    X(default_, "default")                                                    \
    X(doubleSided, "doubleSided")                                             \
    X(edge, "edge")                                                           \
    X(edgeAndCorner, "edgeAndCorner")                                         \
    X(edgeOnly, "edgeOnly")                                                   \
    X(elementSize, "elementSize")                                             \
    X(elementType, "elementType")                                             \
    X(extent, "extent")                                                       \
    X(face, "face")                                                           \
    X(faceVarying, "faceVarying")                                             \
    X(faceVaryingLinearInterpolation, "faceVaryingLinearInterpolation")       \
    X(faceVertexCounts, "faceVertexCounts")                                   \
    X(faceVertexIndices, "faceVertexIndices")                                 \
    X(familyName, "familyName")                                               \
    X(guide, "guide")                                                         \
    X(height, "height")                                                       \
    X(holeIndices, "holeIndices")                                             \
    X(ids, "ids")                                                             \
    X(inactiveIds, "inactiveIds")                                             \
    X(indices, "indices")                                                     \
    X(inherited, "inherited")                                                 \
    X(interpolateBoundary, "interpolateBoundary")                             \
    X(interpolation, "interpolation")                                         \
    X(invisible, "invisible")                                                 \
    X(invisibleIds, "invisibleIds")                                           \
    X(leftHanded, "leftHanded")                                               \
    X(length, "length")                                                       \
    X(loop, "loop")                                                           \
    X(metersPerUnit, "metersPerUnit")                                         \
    X(none, "none")                                                           \
    X(normals, "normals")                                                     \
    X(orientation, "orientation")                                             \
    X(orientations, "orientations")                                           \
    X(point, "point")                                                         \
    X(points, "points")                                                       \
    X(positions, "positions")                                                 \
    X(primvarsDisplayColor, "primvars:displayColor")                          \
    X(primvarsDisplayOpacity, "primvars:displayOpacity")                      \
    X(protoIndices, "protoIndices")                                           \
    X(prototypes, "prototypes")                                               \
    X(proxy, "proxy")                                                         \
    X(purpose, "purpose")                                                     \
    X(radius, "radius")                                                       \
    X(render, "render")                                                       \
    X(rightHanded, "rightHanded")                                             \
    X(scales, "scales")                                                       \
    X(size, "size")                                                           \
    X(smooth, "smooth")                                                       \
    X(subdivisionScheme, "subdivisionScheme")                                 \
    X(triangleSubdivisionRule, "triangleSubdivisionRule")                     \
    X(uniform, "uniform")                                                     \
    X(upAxis, "upAxis")                                                       \
    X(varying, "varying")                                                     \
    X(velocities, "velocities")                                               \
    X(vertex, "vertex")                                                       \
    X(visibility, "visibility")                                               \
    X(width, "width")                                                         \
    X(x, "X")                                                                 \
    X(xformOpOrder, "xformOpOrder")                                           \
    X(y, "Y")                                                                 \
    X(z, "Z")

PXR_NAMESPACE_OPEN_SCOPE

TF_DECLARE_PUBLIC_TOKENS(UsdGeomTokens, USDGEOM_TOKENS);

PXR_NAMESPACE_CLOSE_SCOPE
