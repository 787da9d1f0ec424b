#include "extension/CTavrinExtensionUSDImporter.h"

#include "extension/CTavrinExtensionRegistry.h"
#include "extension/CTavrinUSDImporter.h"

#include <memory>
#include <new>

namespace {
// Made while the module loads, before the application can reach the root;
// the root destroys it when told to uninitialise. Running out of memory here
// must not end the application that loads the module: without an extension
// the root only refuses to initialise.
[[maybe_unused]] CTavrinExtension* const s_extension = new (std::nothrow) CTavrinExtensionUSDImporter();
} // namespace

void CTavrinExtensionUSDImporter::Initialize(void*, void*, void*)
{
    CTavrinExtensionRegistry& registry = CTavrinExtensionRegistry::Instance();
    registry.keyFrameManagerSetter.Store(
        std::make_unique<Tavrin::CTavrinSingletonSetter<Tavrin::CTavrinKeyFrameManager, 1>>());
    registry.sequenceContainerSetter.Store(
        std::make_unique<Tavrin::CTavrinSingletonSetter<Tavrin::CTavrinSequenceContainer, 1>>());
    registry.sceneStatesContainerSetter.Store(
        std::make_unique<Tavrin::CTavrinSingletonSetter<Tavrin::CTavrinSceneStatesContainer, 1>>());
    // Owned here until the list has taken it.
    auto importer = std::make_unique<CTavrinUSDImporter>();
    registry.importers.Add(importer.get());
    importer.release();
}
