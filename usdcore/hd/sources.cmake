list(APPEND USDCORE_SOURCES
  hd/flatNormals.cpp
  hd/meshTopology.cpp
  hd/meshUtil.cpp
  hd/smoothNormals.cpp
  hd/tokens.cpp
  hd/vertexAdjacency.cpp
)
