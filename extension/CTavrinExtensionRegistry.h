#pragma once
// What the plug-in's root hands out: module-wide state, empty when the
// module is loaded. The extension fills it; the root reads it, forwards to
// it, and empties it when told to uninitialise.

#include "extension/CTavrinExtensionObjectList.h"
#include "extension/CTavrinExtensionObjects.h"

#include "TavrinAnimation/src/TavrinKeyFrameManager.h"
#include "TavrinAnimation/src/TavrinSceneStatesContainer.h"
#include "TavrinAnimation/src/TavrinSequenceContainer.h"
#include "TavrinAnimation/src/TavrinSingletonSetter.h"

#include <memory>

class CTavrinExtension;
class CTavrinImporter;

// The setter through which the application installs its instance of one of
// the animation model's process-wide objects. Until a setter is stored,
// installing does nothing; storing one replaces (and releases) the last.
template <typename T>
class CTavrinSingletonSetterEntry {
public:
    using Setter = Tavrin::CTavrinSingletonSetter<T, 1>;

    void Store(std::unique_ptr<Setter> setter) { m_setter = std::move(setter); }
    void Release() { m_setter.reset(); }
    void Install(T* instance) const
    {
        if (m_setter)
            m_setter->Install(instance);
    }

private:
    std::unique_ptr<Setter> m_setter;
};

class CTavrinExtensionRegistry {
public:
    // Made on first use, so that the extension constructed while the module
    // loads finds it whatever the order of static initialisation.
    static CTavrinExtensionRegistry& Instance();

    // The first extension constructed stays; later ones are ignored.
    void RegisterExtension(CTavrinExtension* extension);
    CTavrinExtension* Extension() const { return m_extension; }
    // Destroys the extension and forgets it.
    void DestroyExtension();

    CTavrinExtensionObjectList<CTavrinImporter> importers;
    CTavrinExtensionObjectList<CTavrinExporter> exporters;
    CTavrinExtensionObjectList<CTavrinCloudImporter> cloudImporters;
    CTavrinExtensionObjectList<CTavrinCloudExporter> cloudExporters;

    // Owned; the USD extension offers none.
    CTavrinGeometryObject* geometryObjectA = nullptr;
    CTavrinGeometryObject* geometryObjectB = nullptr;
    CTavrinGeometryObject* geometryObjectC = nullptr;
    CTavrinGeometryObject* geometryObjectD = nullptr;
    CTavrinInputDevice* inputDevice = nullptr;

    // The application's, kept for it and replaced on each call.
    void* sharedObject = nullptr;

    CTavrinSingletonSetterEntry<Tavrin::CTavrinKeyFrameManager> keyFrameManagerSetter;
    CTavrinSingletonSetterEntry<Tavrin::CTavrinSequenceContainer> sequenceContainerSetter;
    CTavrinSingletonSetterEntry<Tavrin::CTavrinSceneStatesContainer> sceneStatesContainerSetter;
    std::unique_ptr<CTavrinSharedInstanceSetter> sharedInstanceSetterA;
    std::unique_ptr<CTavrinSharedInstanceSetter> sharedInstanceSetterB;

private:
    CTavrinExtension* m_extension = nullptr;
};
