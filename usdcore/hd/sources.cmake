list(APPEND USDCORE_SOURCES
  hd/meshTopology.cpp
  hd/meshUtil.cpp
  hd/tokens.cpp
)
