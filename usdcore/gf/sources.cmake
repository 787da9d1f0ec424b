list(APPEND USDCORE_SOURCES
  gf/half.cpp
  gf/matrixFactor.cpp
  gf/rotation.cpp
)
