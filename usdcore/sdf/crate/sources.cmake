list(APPEND USDCORE_SOURCES
  sdf/crate/compression.cpp
  sdf/crate/crateReader.cpp
  sdf/crate/integerCoding.cpp
  sdf/crate/structure.cpp
  sdf/crate/valueReader.cpp
)
list(APPEND USDCORE_LIBRARIES PkgConfig::LZ4)
