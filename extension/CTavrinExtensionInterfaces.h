#pragma once
// The capability interfaces through which the application talks to a
// plug-in's root object. Their layout is the application's: operations keep
// their order, and each interface is also a Qt interface whose IID is
// "com.Tavrin.TavrinStudio." + the class name + "/1.0".

#include <QtPlugin>

namespace Tavrin {
class CTavrinDocumentsContainer;
class CTavrinMessageManager;
class CTavrinKeyFrameManager;
class CTavrinSequenceContainer;
class CTavrinSceneStatesContainer;
class CTavrinEvaluator;
class CTavrinBSplineEvaluater;
class CTavrinPolygonTriangulator;
class CTavrin3DTextGeometryGenerator;
class CTavrinArchivableFactory;
class CTavrinCreator;
class CTavrinEventWatcher;
class CTavrinTablesCreator;
class CTavrinSystemHandler;
class CTavrinUndoManager;
class CTavrinUtf8Evaluater;
} // namespace Tavrin

class CTavrinImporter;
class CTavrinExporter;
class CTavrinCloudImporter;
class CTavrinCloudExporter;
class CTavrinGeometryObject;
class CTavrinInputDevice;

// Start-up and shut-down, and the application's singletons. The three
// arguments of Initialize and Uninitialize are the application's.
class CTavrinExtensionSupportBasic {
public:
    virtual ~CTavrinExtensionSupportBasic() = default;
    // False when the plug-in has no extension to initialise.
    virtual bool Initialize(void* first, void* second, void* third) = 0;
    virtual void SetDocumentsContainer(Tavrin::CTavrinDocumentsContainer* container) = 0;
    virtual void SetMessageManager(Tavrin::CTavrinMessageManager* manager) = 0;
    virtual void SetSharedObject(void* object) = 0;
    virtual void SetSharedInstanceA(void* instance) = 0;
    // The animation model's instances take effect once Initialize has run.
    virtual void SetKeyFrameManager(Tavrin::CTavrinKeyFrameManager* manager) = 0;
    virtual void SetSequenceContainer(Tavrin::CTavrinSequenceContainer* container) = 0;
    virtual void SetSceneStatesContainer(Tavrin::CTavrinSceneStatesContainer* container) = 0;
    virtual void SetEvaluator(Tavrin::CTavrinEvaluator* evaluator) = 0;
    virtual void SetBSplineEvaluater(Tavrin::CTavrinBSplineEvaluater* evaluater) = 0;
    virtual void SetPolygonTriangulator(Tavrin::CTavrinPolygonTriangulator* triangulator) = 0;
    virtual void Set3DTextGeometryGenerator(Tavrin::CTavrin3DTextGeometryGenerator* generator) = 0;
    virtual void SetArchivableFactory(Tavrin::CTavrinArchivableFactory* factory) = 0;
    virtual void SetCreator(Tavrin::CTavrinCreator* creator) = 0;
    virtual void SetEventWatcher(Tavrin::CTavrinEventWatcher* watcher) = 0;
    virtual void SetTablesCreator(Tavrin::CTavrinTablesCreator* creator) = 0;
    virtual void SetSystemHandler(Tavrin::CTavrinSystemHandler* handler) = 0;
    virtual void SetUndoManager(Tavrin::CTavrinUndoManager* manager) = 0;
    virtual void SetUtf8Evaluater(Tavrin::CTavrinUtf8Evaluater* evaluater) = 0;
    virtual void SetSharedInstanceB(void* instance) = 0;
    virtual void Uninitialize(void* first, void* second, void* third) = 0;
};

// Indices outside the list give null.
class CTavrinExtensionSupportImporting {
public:
    virtual ~CTavrinExtensionSupportImporting() = default;
    virtual int GetImportersCount() = 0;
    virtual CTavrinImporter* GetImporter(int index) = 0;
};

class CTavrinExtensionSupportExporting {
public:
    virtual ~CTavrinExtensionSupportExporting() = default;
    virtual int GetExportersCount() = 0;
    virtual CTavrinExporter* GetExporter(int index) = 0;
};

class CTavrinExtensionSupportGeometry {
public:
    virtual ~CTavrinExtensionSupportGeometry() = default;
    virtual CTavrinGeometryObject* GetGeometryObjectA() = 0;
    virtual CTavrinGeometryObject* GetGeometryObjectB() = 0;
    virtual CTavrinGeometryObject* GetGeometryObjectC() = 0;
    virtual CTavrinGeometryObject* GetGeometryObjectD() = 0;
};

class CTavrinExtensionSupportInputDevice {
public:
    virtual ~CTavrinExtensionSupportInputDevice() = default;
    virtual CTavrinInputDevice* GetInputDevice() = 0;
};

// Its first operation comes before the destructor; the root serves it with
// the basic interface's SetSharedObject.
class CTavrinExtensionSupportCloudImporting {
public:
    virtual void SetSharedObject(void* object) = 0;
    virtual ~CTavrinExtensionSupportCloudImporting() = default;
    virtual int GetCloudImportersCount() = 0;
    virtual CTavrinCloudImporter* GetCloudImporter(int index) = 0;
};

class CTavrinExtensionSupportCloudExporting {
public:
    virtual ~CTavrinExtensionSupportCloudExporting() = default;
    virtual int GetCloudExportersCount() = 0;
    virtual CTavrinCloudExporter* GetCloudExporter(int index) = 0;
};

Q_DECLARE_INTERFACE(CTavrinExtensionSupportBasic, "com.Tavrin.TavrinStudio.CTavrinExtensionSupportBasic/1.0")
Q_DECLARE_INTERFACE(CTavrinExtensionSupportImporting, "com.Tavrin.TavrinStudio.CTavrinExtensionSupportImporting/1.0")
Q_DECLARE_INTERFACE(CTavrinExtensionSupportExporting, "com.Tavrin.TavrinStudio.CTavrinExtensionSupportExporting/1.0")
Q_DECLARE_INTERFACE(CTavrinExtensionSupportGeometry, "com.Tavrin.TavrinStudio.CTavrinExtensionSupportGeometry/1.0")
Q_DECLARE_INTERFACE(CTavrinExtensionSupportInputDevice, "com.Tavrin.TavrinStudio.CTavrinExtensionSupportInputDevice/1.0")
Q_DECLARE_INTERFACE(CTavrinExtensionSupportCloudImporting, "com.Tavrin.TavrinStudio.CTavrinExtensionSupportCloudImporting/1.0")
Q_DECLARE_INTERFACE(CTavrinExtensionSupportCloudExporting, "com.Tavrin.TavrinStudio.CTavrinExtensionSupportCloudExporting/1.0")
