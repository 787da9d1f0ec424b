list(APPEND USDCORE_SOURCES
  usdGeom/boundable.cpp
  usdGeom/gprim.cpp
  usdGeom/imageable.cpp
  usdGeom/mesh.cpp
  usdGeom/metrics.cpp
  usdGeom/pointBased.cpp
  usdGeom/primvar.cpp
  usdGeom/primvarsAPI.cpp
  usdGeom/scope.cpp
  usdGeom/subset.cpp
  usdGeom/tokens.cpp
  usdGeom/xform.cpp
  usdGeom/xformable.cpp
  usdGeom/xformOp.cpp
)
