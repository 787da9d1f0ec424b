list(APPEND USDCORE_SOURCES
  sdf/crate/compression.cpp
  sdf/crate/integerCoding.cpp
  sdf/crate/structure.cpp
)
list(APPEND USDCORE_LIBRARIES PkgConfig::LZ4)
