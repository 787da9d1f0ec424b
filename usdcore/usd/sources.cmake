list(APPEND USDCORE_SOURCES
  usd/attribute.cpp
  usd/interpolation.cpp
  usd/layerStack.cpp
  usd/nameOrder.cpp
  usd/namespaceMap.cpp
  usd/object.cpp
  usd/prim.cpp
  usd/primIndex.cpp
  usd/primIndexBuilder.cpp
  usd/primRange.cpp
  usd/property.cpp
  usd/relationship.cpp
  usd/stage.cpp
  usd/timeCode.cpp
)
