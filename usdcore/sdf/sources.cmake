list(APPEND USDCORE_SOURCES
  sdf/assetPath.cpp
  sdf/data.cpp
  sdf/dataDiff.cpp
  sdf/layerOffset.cpp
  sdf/listOp.cpp
  sdf/path.cpp
  sdf/pathNode.cpp
  sdf/pathParser.cpp
  sdf/payload.cpp
  sdf/reference.cpp
  sdf/schema.cpp
  sdf/timeCode.cpp
  sdf/types.cpp
  sdf/valueTypeName.cpp
)
