#pragma once
// Objects that an extension of the application can offer besides importers:
// exporters, cloud importers and exporters, geometry objects, an input
// device, and setters of the application's shared instances. The USD
// extension offers none of them, so only what the root needs to hand them
// out and to destroy them is declared here.

class CTavrinExporter {
public:
    virtual ~CTavrinExporter() = default;
};

class CTavrinCloudImporter {
public:
    virtual ~CTavrinCloudImporter() = default;
};

class CTavrinCloudExporter {
public:
    virtual ~CTavrinCloudExporter() = default;
};

class CTavrinGeometryObject {
public:
    virtual ~CTavrinGeometryObject() = default;
};

class CTavrinInputDevice {
public:
    virtual ~CTavrinInputDevice() = default;
};

// Installs one of the application's shared instances in the extension.
class CTavrinSharedInstanceSetter {
public:
    virtual ~CTavrinSharedInstanceSetter() = default;
    virtual void Install(void* instance) = 0;
};
