#pragma once

// An extension of the application: what the root initialises and
// uninitialises. Constructing one registers it with the module; the first
// one constructed is the module's extension.
class CTavrinExtension {
public:
    CTavrinExtension();
    CTavrinExtension(const CTavrinExtension&) = delete;
    CTavrinExtension& operator=(const CTavrinExtension&) = delete;
    virtual ~CTavrinExtension() = default;

    // The three arguments are the application's, passed on by the root.
    virtual void Initialize(void* first, void* second, void* third) = 0;
    virtual void Uninitialize(void* first, void* second, void* third) {}
};
