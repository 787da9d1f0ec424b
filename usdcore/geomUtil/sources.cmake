list(APPEND USDCORE_SOURCES
  geomUtil/capsuleMeshGenerator.cpp
  geomUtil/coneMeshGenerator.cpp
  geomUtil/cuboidMeshGenerator.cpp
  geomUtil/cylinderMeshGenerator.cpp
  geomUtil/meshGeneratorBase.cpp
  geomUtil/planeMeshGenerator.cpp
  geomUtil/sphereMeshGenerator.cpp
)
