list(APPEND USDCORE_SOURCES
  usdShade/connectableAPI.cpp
  usdShade/input.cpp
  usdShade/material.cpp
  usdShade/materialBindingAPI.cpp
  usdShade/nodeGraph.cpp
  usdShade/output.cpp
  usdShade/shader.cpp
  usdShade/tokens.cpp
  usdShade/utils.cpp
)
