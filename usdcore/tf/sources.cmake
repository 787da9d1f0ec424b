list(APPEND USDCORE_SOURCES
  tf/diagnostic.cpp
  tf/mappedFile.cpp
  tf/stringUtils.cpp
  tf/token.cpp
)
