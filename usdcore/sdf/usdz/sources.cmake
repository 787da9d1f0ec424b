list(APPEND USDCORE_SOURCES
  sdf/usdz/package.cpp
  sdf/usdz/packageUtils.cpp
)
