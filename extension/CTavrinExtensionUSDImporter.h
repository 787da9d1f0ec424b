#pragma once

#include "extension/CTavrinExtension.h"

// The USD extension: initialising it installs the animation model's
// singleton setters and makes the USD importer.
class CTavrinExtensionUSDImporter : public CTavrinExtension {
public:
    void Initialize(void* first, void* second, void* third) override;
};
