#pragma once

// The reader's one window on USD. Every converter includes this header and
// writes PXR_NAMESPACE_USING_DIRECTIVE, so it names USD's classes exactly as
// OpenUSD does. The build decides what stands behind the names: the built-in
// core by default, or a real OpenUSD install when CMake is given
// TAVRIN_OPENUSD_ROOT (which defines TAVRIN_USE_OPENUSD). OpenUSD has the
// plane's mesh generator from 24.11 on.

#ifdef TAVRIN_USE_OPENUSD

#include <pxr/pxr.h>
#include <pxr/base/gf/matrix4d.h>
#include <pxr/base/gf/vec2f.h>
#include <pxr/base/gf/vec3f.h>
#include <pxr/base/tf/token.h>
#include <pxr/base/vt/array.h>
#include <pxr/base/vt/types.h>
#include <pxr/base/vt/value.h>
#include <pxr/imaging/geomUtil/capsuleMeshGenerator.h>
#include <pxr/imaging/geomUtil/coneMeshGenerator.h>
#include <pxr/imaging/geomUtil/cuboidMeshGenerator.h>
#include <pxr/imaging/geomUtil/cylinderMeshGenerator.h>
#include <pxr/imaging/geomUtil/planeMeshGenerator.h>
#include <pxr/imaging/geomUtil/sphereMeshGenerator.h>
#include <pxr/imaging/hd/flatNormals.h>
#include <pxr/imaging/hd/meshTopology.h>
#include <pxr/imaging/hd/meshUtil.h>
#include <pxr/imaging/hd/smoothNormals.h>
#include <pxr/imaging/hd/vertexAdjacency.h>
#include <pxr/imaging/pxOsd/meshTopology.h>
#include <pxr/imaging/pxOsd/tokens.h>
#include <pxr/usd/ar/packageUtils.h>
#include <pxr/usd/sdf/assetPath.h>
#include <pxr/usd/sdf/layer.h>
#include <pxr/usd/sdf/path.h>
#include <pxr/usd/usd/attribute.h>
#include <pxr/usd/usd/prim.h>
#include <pxr/usd/usd/primRange.h>
#include <pxr/usd/usd/relationship.h>
#include <pxr/usd/usd/stage.h>
#include <pxr/usd/usd/timeCode.h>
#include <pxr/base/tf/diagnostic.h>
#include <pxr/usd/usdGeom/capsule.h>
#include <pxr/usd/usdGeom/cone.h>
#include <pxr/usd/usdGeom/cube.h>
#include <pxr/usd/usdGeom/cylinder.h>
#include <pxr/usd/usdGeom/mesh.h>
#include <pxr/usd/usdGeom/plane.h>
#include <pxr/usd/usdGeom/pointInstancer.h>
#include <pxr/usd/usdGeom/sphere.h>
#include <pxr/usd/usdGeom/primvar.h>
#include <pxr/usd/usdGeom/primvarsAPI.h>
#include <pxr/usd/usdGeom/subset.h>
#include <pxr/usd/usdGeom/tokens.h>
#include <pxr/usd/usdGeom/metrics.h>
#include <pxr/usd/usdGeom/xform.h>
#include <pxr/usd/usdGeom/xformable.h>
#include <pxr/usd/usdShade/connectableAPI.h>
#include <pxr/usd/usdShade/input.h>
#include <pxr/usd/usdShade/material.h>
#include <pxr/usd/usdShade/output.h>
#include <pxr/usd/usdShade/shader.h>
#include <pxr/usd/usdShade/tokens.h>
#include <pxr/usd/usdSkel/animation.h>
#include <pxr/usd/usdSkel/bindingAPI.h>
#include <pxr/usd/usdSkel/root.h>
#include <pxr/usd/usdSkel/skeleton.h>
#include <pxr/usd/usdSkel/tokens.h>
#include <pxr/usd/usdSkel/topology.h>

#else

#include "usdcore/pxr.h"
#include "usdcore/gf/matrix4d.h"
#include "usdcore/gf/vec2f.h"
#include "usdcore/gf/vec3f.h"
#include "usdcore/tf/token.h"
#include "usdcore/vt/array.h"
#include "usdcore/vt/types.h"
#include "usdcore/vt/value.h"
#include "usdcore/geomUtil/capsuleMeshGenerator.h"
#include "usdcore/geomUtil/coneMeshGenerator.h"
#include "usdcore/geomUtil/cuboidMeshGenerator.h"
#include "usdcore/geomUtil/cylinderMeshGenerator.h"
#include "usdcore/geomUtil/planeMeshGenerator.h"
#include "usdcore/geomUtil/sphereMeshGenerator.h"
#include "usdcore/hd/flatNormals.h"
#include "usdcore/hd/meshTopology.h"
#include "usdcore/hd/meshUtil.h"
#include "usdcore/hd/smoothNormals.h"
#include "usdcore/hd/vertexAdjacency.h"
#include "usdcore/pxOsd/meshTopology.h"
#include "usdcore/pxOsd/tokens.h"
#include "usdcore/sdf/usdz/packageUtils.h"
#include "usdcore/sdf/assetPath.h"
#include "usdcore/sdf/layer.h"
#include "usdcore/sdf/path.h"
#include "usdcore/usd/attribute.h"
#include "usdcore/usd/prim.h"
#include "usdcore/usd/primRange.h"
#include "usdcore/usd/relationship.h"
#include "usdcore/usd/stage.h"
#include "usdcore/usd/timeCode.h"
#include "usdcore/tf/diagnostic.h"
#include "usdcore/usdGeom/capsule.h"
#include "usdcore/usdGeom/cone.h"
#include "usdcore/usdGeom/cube.h"
#include "usdcore/usdGeom/cylinder.h"
#include "usdcore/usdGeom/mesh.h"
#include "usdcore/usdGeom/plane.h"
#include "usdcore/usdGeom/pointInstancer.h"
#include "usdcore/usdGeom/sphere.h"
#include "usdcore/usdGeom/primvar.h"
#include "usdcore/usdGeom/primvarsAPI.h"
#include "usdcore/usdGeom/subset.h"
#include "usdcore/usdGeom/tokens.h"
#include "usdcore/usdGeom/metrics.h"
#include "usdcore/usdGeom/xform.h"
#include "usdcore/usdGeom/xformable.h"
#include "usdcore/usdShade/connectableAPI.h"
#include "usdcore/usdShade/input.h"
#include "usdcore/usdShade/material.h"
#include "usdcore/usdShade/output.h"
#include "usdcore/usdShade/shader.h"
#include "usdcore/usdShade/tokens.h"
#include "usdcore/usdSkel/animation.h"
#include "usdcore/usdSkel/bindingAPI.h"
#include "usdcore/usdSkel/root.h"
#include "usdcore/usdSkel/skeleton.h"
#include "usdcore/usdSkel/tokens.h"
#include "usdcore/usdSkel/topology.h"

#endif
