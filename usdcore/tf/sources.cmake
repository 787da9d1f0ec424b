list(APPEND USDCORE_SOURCES
  tf/diagnostic.cpp
  tf/mappedFile.cpp
  tf/pathUtils.cpp
  tf/stringUtils.cpp
  tf/token.cpp
)
