list(APPEND USDCORE_SOURCES
  usdSkel/tokens.cpp
  usdSkel/topology.cpp
  usdSkel/utils.cpp
)
