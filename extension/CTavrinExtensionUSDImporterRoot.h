#pragma once

#include "extension/CTavrinExtensionRoot.h"

// The root as the application finds it: the class the plug-in's metadata
// names, and the object its instance function makes.
class CTavrinExtensionUSDImporterRoot : public CTavrinExtensionRoot {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "com.Tavrin.TavrinStudio.Importer.USD/1.0")
};
