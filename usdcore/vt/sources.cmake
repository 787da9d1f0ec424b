list(APPEND USDCORE_SOURCES
  vt/dictionary.cpp
  vt/value.cpp
)
