list(APPEND USDCORE_SOURCES
  pxOsd/tokens.cpp
)
