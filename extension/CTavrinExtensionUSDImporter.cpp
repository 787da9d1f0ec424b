#include "extension/CTavrinExtensionUSDImporter.h"

#include "extension/CTavrinExtensionRegistry.h"
#include "extension/CTavrinUSDImporter.h"

namespace {
// Made while the module loads, before the application can reach the root;
// the root destroys it when told to uninitialise.
[[maybe_unused]] CTavrinExtension* const s_extension = new CTavrinExtensionUSDImporter();
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
    registry.importers.Add(new CTavrinUSDImporter());
}
