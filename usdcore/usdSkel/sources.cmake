list(APPEND USDCORE_SOURCES
  usdSkel/animation.cpp
  usdSkel/bindingAPI.cpp
  usdSkel/blendShape.cpp
  usdSkel/root.cpp
  usdSkel/skeleton.cpp
  usdSkel/tokens.cpp
  usdSkel/topology.cpp
  usdSkel/utils.cpp
)
