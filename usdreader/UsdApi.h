#pragma once

// The reader's one window on USD. Every converter includes this header and
// writes PXR_NAMESPACE_USING_DIRECTIVE, so it names USD's classes exactly as
// OpenUSD does. The build decides what stands behind the names: the built-in
// core by default, or a real OpenUSD install when CMake is given
// TAVRIN_OPENUSD_ROOT (which defines TAVRIN_USE_OPENUSD).

#ifdef TAVRIN_USE_OPENUSD

#include <pxr/pxr.h>
#include <pxr/base/gf/matrix4d.h>
#include <pxr/base/gf/vec2f.h>
#include <pxr/base/gf/vec3f.h>
#include <pxr/base/tf/token.h>
#include <pxr/base/vt/array.h>
#include <pxr/base/vt/types.h>
#include <pxr/base/vt/value.h>
#include <pxr/imaging/hd/meshTopology.h>
#include <pxr/imaging/hd/meshUtil.h>
#include <pxr/usd/sdf/assetPath.h>
#include <pxr/usd/sdf/path.h>
#include <pxr/usd/usd/attribute.h>
#include <pxr/usd/usd/prim.h>
#include <pxr/usd/usd/primRange.h>
#include <pxr/usd/usd/relationship.h>
#include <pxr/usd/usd/stage.h>
#include <pxr/usd/usd/timeCode.h>

#else

#include "usdcore/pxr.h"
#include "usdcore/gf/matrix4d.h"
#include "usdcore/gf/vec2f.h"
#include "usdcore/gf/vec3f.h"
#include "usdcore/tf/token.h"
#include "usdcore/vt/array.h"
#include "usdcore/vt/types.h"
#include "usdcore/vt/value.h"
#include "usdcore/hd/meshTopology.h"
#include "usdcore/hd/meshUtil.h"
#include "usdcore/sdf/assetPath.h"
#include "usdcore/sdf/path.h"
#include "usdcore/usd/attribute.h"
#include "usdcore/usd/prim.h"
#include "usdcore/usd/primRange.h"
#include "usdcore/usd/relationship.h"
#include "usdcore/usd/stage.h"
#include "usdcore/usd/timeCode.h"

#endif
