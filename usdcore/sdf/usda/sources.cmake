# The text format, and the layer and format dispatch built on the readers.
list(APPEND USDCORE_SOURCES
  sdf/fileFormat.cpp
  sdf/layer.cpp
  sdf/usda/metadataFields.cpp
  sdf/usda/metadataText.cpp
  sdf/usda/textCursor.cpp
  sdf/usda/usdaReader.cpp
  sdf/usda/usdaWriter.cpp
  sdf/usda/valueText.cpp
)
