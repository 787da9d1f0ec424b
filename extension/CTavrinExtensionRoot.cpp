#include "extension/CTavrinExtensionRoot.h"

#include "extension/CTavrinExtension.h"
#include "extension/CTavrinExtensionRegistry.h"
#include "extension/CTavrinFaultBoundary.h"
#include "extension/CTavrinImporter.h"
#include "host/CTavrinApplicationServices.h"
#include "host/CTavrinDocumentsContainer.h"
#include "host/CTavrinMessage.h"

namespace {
CTavrinExtensionRegistry& Registry()
{
    return CTavrinExtensionRegistry::Instance();
}
} // namespace

void CTavrinExtensionRoot::SetBooleanOperationsUtility(Tavrin::CTavrinBooleanOperationsUtilityBase* utility)
{
    Tavrin::CTavrinBooleanOperationsUtilityBase::SetInstance(utility);
}

bool CTavrinExtensionRoot::Initialize(void* first, void* second, void* third)
{
    CTavrinExtension* extension = Registry().Extension();
    if (!extension)
        return false;
    // An extension that could not make its objects (out of memory) has not
    // been initialised.
    return RunContained([&] { extension->Initialize(first, second, third); });
}

void CTavrinExtensionRoot::SetDocumentsContainer(Tavrin::CTavrinDocumentsContainer* container)
{
    Tavrin::CTavrinDocumentsContainer::SetDocumentContainer(container);
}

void CTavrinExtensionRoot::SetMessageManager(Tavrin::CTavrinMessageManager* manager)
{
    Tavrin::CTavrinMessageManager::SetInstance(manager);
}

void CTavrinExtensionRoot::SetSharedObject(void* object)
{
    Registry().sharedObject = object;
}

void CTavrinExtensionRoot::SetSharedInstanceA(void* instance)
{
    if (CTavrinSharedInstanceSetter* setter = Registry().sharedInstanceSetterA.get())
        RunContained([&] { setter->Install(instance); });
}

void CTavrinExtensionRoot::SetKeyFrameManager(Tavrin::CTavrinKeyFrameManager* manager)
{
    Registry().keyFrameManagerSetter.Install(manager);
}

void CTavrinExtensionRoot::SetSequenceContainer(Tavrin::CTavrinSequenceContainer* container)
{
    Registry().sequenceContainerSetter.Install(container);
}

void CTavrinExtensionRoot::SetSceneStatesContainer(Tavrin::CTavrinSceneStatesContainer* container)
{
    Registry().sceneStatesContainerSetter.Install(container);
}

void CTavrinExtensionRoot::SetEvaluator(Tavrin::CTavrinEvaluator* evaluator)
{
    Tavrin::CTavrinEvaluator::SetInstance(evaluator);
}

void CTavrinExtensionRoot::SetBSplineEvaluater(Tavrin::CTavrinBSplineEvaluater* evaluater)
{
    Tavrin::CTavrinBSplineEvaluater::SetInstance(evaluater);
}

void CTavrinExtensionRoot::SetPolygonTriangulator(Tavrin::CTavrinPolygonTriangulator* triangulator)
{
    Tavrin::CTavrinPolygonTriangulator::SetInstance(triangulator);
}

void CTavrinExtensionRoot::Set3DTextGeometryGenerator(Tavrin::CTavrin3DTextGeometryGenerator* generator)
{
    Tavrin::CTavrin3DTextGeometryGenerator::SetInstance(generator);
}

void CTavrinExtensionRoot::SetArchivableFactory(Tavrin::CTavrinArchivableFactory* factory)
{
    Tavrin::CTavrinArchivableFactory::SetInstance(factory);
}

void CTavrinExtensionRoot::SetCreator(Tavrin::CTavrinCreator* creator)
{
    Tavrin::CTavrinCreator::SetInstance(creator);
}

void CTavrinExtensionRoot::SetEventWatcher(Tavrin::CTavrinEventWatcher* watcher)
{
    Tavrin::CTavrinEventWatcher::SetInstance(watcher);
}

void CTavrinExtensionRoot::SetTablesCreator(Tavrin::CTavrinTablesCreator* creator)
{
    Tavrin::CTavrinTablesCreator::SetInstance(creator);
}

void CTavrinExtensionRoot::SetSystemHandler(Tavrin::CTavrinSystemHandler* handler)
{
    Tavrin::CTavrinSystemHandler::SetInstance(handler);
}

void CTavrinExtensionRoot::SetUndoManager(Tavrin::CTavrinUndoManager* manager)
{
    Tavrin::CTavrinUndoManager::setInstance(manager);
}

void CTavrinExtensionRoot::SetUtf8Evaluater(Tavrin::CTavrinUtf8Evaluater* evaluater)
{
    Tavrin::CTavrinUtf8Evaluater::SetInstance(evaluater);
}

void CTavrinExtensionRoot::SetSharedInstanceB(void* instance)
{
    if (CTavrinSharedInstanceSetter* setter = Registry().sharedInstanceSetterB.get())
        RunContained([&] { setter->Install(instance); });
}

void CTavrinExtensionRoot::Uninitialize(void* first, void* second, void* third)
{
    CTavrinExtensionRegistry& registry = Registry();
    CTavrinExtension* extension = registry.Extension();
    if (!extension)
        return;
    // Shut-down goes on whatever the extension's own part of it threw.
    RunContained([&] { extension->Uninitialize(first, second, third); });
    registry.DestroyExtension();

    // The lists keep their length: the application may still ask by index.
    registry.importers.DestroyAll();
    registry.exporters.DestroyAll();

    registry.keyFrameManagerSetter.Release();
    registry.sequenceContainerSetter.Release();
    registry.sceneStatesContainerSetter.Release();
    delete registry.geometryObjectA;
    registry.geometryObjectA = nullptr;
    delete registry.geometryObjectB;
    registry.geometryObjectB = nullptr;

    delete registry.inputDevice;
    registry.inputDevice = nullptr;
    registry.sharedInstanceSetterB.reset();
}

int CTavrinExtensionRoot::GetImportersCount()
{
    return Registry().importers.Count();
}

CTavrinImporter* CTavrinExtensionRoot::GetImporter(int index)
{
    return Registry().importers.At(index);
}

int CTavrinExtensionRoot::GetExportersCount()
{
    return Registry().exporters.Count();
}

CTavrinExporter* CTavrinExtensionRoot::GetExporter(int index)
{
    return Registry().exporters.At(index);
}

CTavrinGeometryObject* CTavrinExtensionRoot::GetGeometryObjectA()
{
    return Registry().geometryObjectA;
}

CTavrinGeometryObject* CTavrinExtensionRoot::GetGeometryObjectB()
{
    return Registry().geometryObjectB;
}

CTavrinGeometryObject* CTavrinExtensionRoot::GetGeometryObjectC()
{
    return Registry().geometryObjectC;
}

CTavrinGeometryObject* CTavrinExtensionRoot::GetGeometryObjectD()
{
    return Registry().geometryObjectD;
}

CTavrinInputDevice* CTavrinExtensionRoot::GetInputDevice()
{
    return Registry().inputDevice;
}

int CTavrinExtensionRoot::GetCloudImportersCount()
{
    return Registry().cloudImporters.Count();
}

CTavrinCloudImporter* CTavrinExtensionRoot::GetCloudImporter(int index)
{
    return Registry().cloudImporters.At(index);
}

int CTavrinExtensionRoot::GetCloudExportersCount()
{
    return Registry().cloudExporters.Count();
}

CTavrinCloudExporter* CTavrinExtensionRoot::GetCloudExporter(int index)
{
    return Registry().cloudExporters.At(index);
}
