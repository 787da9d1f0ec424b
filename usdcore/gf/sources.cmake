list(APPEND USDCORE_SOURCES
  gf/half.cpp
  gf/rotation.cpp
)
