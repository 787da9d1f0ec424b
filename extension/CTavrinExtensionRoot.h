#pragma once

#include "extension/CTavrinExtensionInterfaces.h"

#include <QObject>

namespace Tavrin {
class CTavrinBooleanOperationsUtilityBase;
}

// The plug-in's root object, which the application casts to the capability
// interfaces it needs. It has no data of its own: what it hands out lives in
// the module's registry.
class CTavrinExtensionRoot : public QObject,
                             public CTavrinExtensionSupportBasic,
                             public CTavrinExtensionSupportImporting,
                             public CTavrinExtensionSupportExporting,
                             public CTavrinExtensionSupportGeometry,
                             public CTavrinExtensionSupportInputDevice,
                             public CTavrinExtensionSupportCloudImporting,
                             public CTavrinExtensionSupportCloudExporting {
    Q_OBJECT
    Q_INTERFACES(CTavrinExtensionSupportBasic CTavrinExtensionSupportImporting
                 CTavrinExtensionSupportExporting CTavrinExtensionSupportGeometry
                 CTavrinExtensionSupportInputDevice CTavrinExtensionSupportCloudImporting
                 CTavrinExtensionSupportCloudExporting)

public:
    virtual void SetBooleanOperationsUtility(Tavrin::CTavrinBooleanOperationsUtilityBase* utility);

    bool Initialize(void* first, void* second, void* third) override;
    void SetDocumentsContainer(Tavrin::CTavrinDocumentsContainer* container) override;
    void SetMessageManager(Tavrin::CTavrinMessageManager* manager) override;
    // Serves the basic and the cloud-importing interfaces alike.
    void SetSharedObject(void* object) override;
    void SetSharedInstanceA(void* instance) override;
    void SetKeyFrameManager(Tavrin::CTavrinKeyFrameManager* manager) override;
    void SetSequenceContainer(Tavrin::CTavrinSequenceContainer* container) override;
    void SetSceneStatesContainer(Tavrin::CTavrinSceneStatesContainer* container) override;
    void SetEvaluator(Tavrin::CTavrinEvaluator* evaluator) override;
    void SetBSplineEvaluater(Tavrin::CTavrinBSplineEvaluater* evaluater) override;
    void SetPolygonTriangulator(Tavrin::CTavrinPolygonTriangulator* triangulator) override;
    void Set3DTextGeometryGenerator(Tavrin::CTavrin3DTextGeometryGenerator* generator) override;
    void SetArchivableFactory(Tavrin::CTavrinArchivableFactory* factory) override;
    void SetCreator(Tavrin::CTavrinCreator* creator) override;
    void SetEventWatcher(Tavrin::CTavrinEventWatcher* watcher) override;
    void SetTablesCreator(Tavrin::CTavrinTablesCreator* creator) override;
    void SetSystemHandler(Tavrin::CTavrinSystemHandler* handler) override;
    void SetUndoManager(Tavrin::CTavrinUndoManager* manager) override;
    void SetUtf8Evaluater(Tavrin::CTavrinUtf8Evaluater* evaluater) override;
    void SetSharedInstanceB(void* instance) override;
    void Uninitialize(void* first, void* second, void* third) override;

    int GetImportersCount() override;
    CTavrinImporter* GetImporter(int index) override;

    int GetExportersCount() override;
    CTavrinExporter* GetExporter(int index) override;

    CTavrinGeometryObject* GetGeometryObjectA() override;
    CTavrinGeometryObject* GetGeometryObjectB() override;
    CTavrinGeometryObject* GetGeometryObjectC() override;
    CTavrinGeometryObject* GetGeometryObjectD() override;

    CTavrinInputDevice* GetInputDevice() override;

    int GetCloudImportersCount() override;
    CTavrinCloudImporter* GetCloudImporter(int index) override;

    int GetCloudExportersCount() override;
    CTavrinCloudExporter* GetCloudExporter(int index) override;
};
