// The application's singletons handed over through the root: since the
// plug-in and the application share the host model, the application's own
// accessors answer with what it handed over.

#include "InitialisedPlugin.h"

#include "host/CTavrinApplicationServices.h"
#include "host/CTavrinDocumentsContainer.h"
#include "host/CTavrinMessage.h"
#include "extension/CTavrinExtensionRoot.h"

namespace {

using namespace Tavrin;

using ApplicationSingletons = InitialisedPlugin;

// Handing over an instance makes the accessor answer it; handing over null
// makes it answer null again, and the instance is left to the application.
template <typename Service>
void ExpectForwarded(void (CTavrinExtensionSupportBasic::*handOver)(Service*), const char* name)
{
    SCOPED_TRACE(name);
    Service service;
    (InitialisedPlugin::Basic()->*handOver)(&service);
    EXPECT_EQ(Service::GetInstance(), &service);
    (InitialisedPlugin::Basic()->*handOver)(nullptr);
    EXPECT_EQ(Service::GetInstance(), nullptr);
}

TEST_F(ApplicationSingletons, ServicesAreInstalledAsTheApplicationsObjects)
{
    ExpectForwarded(&CTavrinExtensionSupportBasic::SetEvaluator, "evaluator");
    ExpectForwarded(&CTavrinExtensionSupportBasic::SetBSplineEvaluater, "B-spline evaluater");
    ExpectForwarded(&CTavrinExtensionSupportBasic::SetPolygonTriangulator, "polygon triangulator");
    ExpectForwarded(&CTavrinExtensionSupportBasic::Set3DTextGeometryGenerator, "3D text generator");
    ExpectForwarded(&CTavrinExtensionSupportBasic::SetArchivableFactory, "archivable factory");
    ExpectForwarded(&CTavrinExtensionSupportBasic::SetCreator, "creator");
    ExpectForwarded(&CTavrinExtensionSupportBasic::SetEventWatcher, "event watcher");
    ExpectForwarded(&CTavrinExtensionSupportBasic::SetTablesCreator, "tables creator");
    ExpectForwarded(&CTavrinExtensionSupportBasic::SetSystemHandler, "system handler");
    ExpectForwarded(&CTavrinExtensionSupportBasic::SetUtf8Evaluater, "UTF-8 evaluater");
}

TEST_F(ApplicationSingletons, UndoManagerIsInstalledThroughItsLowerCaseSetter)
{
    CTavrinUndoManager manager;
    Basic()->SetUndoManager(&manager);
    EXPECT_EQ(CTavrinUndoManager::instance(), &manager);
    Basic()->SetUndoManager(nullptr);
    EXPECT_EQ(CTavrinUndoManager::instance(), nullptr);
}

// The root's class lives in the plug-in, whose type information stays
// private to it, as it does for the application: the call can only go
// through the virtual table, which the sanitizer's type check cannot follow.
__attribute__((no_sanitize("vptr"))) void HandOverBooleanOperationsUtility(
    CTavrinExtensionRoot* root, CTavrinBooleanOperationsUtilityBase* utility)
{
    root->SetBooleanOperationsUtility(utility);
}

TEST_F(ApplicationSingletons, BooleanOperationsUtilityComesThroughTheRootItself)
{
    auto* root = static_cast<CTavrinExtensionRoot*>(Root()->qt_metacast("CTavrinExtensionRoot"));
    ASSERT_NE(root, nullptr);
    CTavrinBooleanOperationsUtilityBase utility;
    HandOverBooleanOperationsUtility(root, &utility);
    EXPECT_EQ(CTavrinBooleanOperationsUtilityBase::GetInstance(), &utility);
    HandOverBooleanOperationsUtility(root, nullptr);
    EXPECT_EQ(CTavrinBooleanOperationsUtilityBase::GetInstance(), nullptr);
}

TEST_F(ApplicationSingletons, MessageManagerAndDocumentsContainerAreTheApplications)
{
    CTavrinMessageManager manager;
    Basic()->SetMessageManager(&manager);
    EXPECT_EQ(CTavrinMessageManager::Instance(), &manager);
    Basic()->SetMessageManager(nullptr);
    EXPECT_NE(CTavrinMessageManager::Instance(), &manager);

    CTavrinDocumentsContainer container;
    Basic()->SetDocumentsContainer(&container);
    EXPECT_EQ(CTavrinDocumentsContainer::DocumentsContainer(), &container);
    Basic()->SetDocumentsContainer(nullptr);
    EXPECT_NE(CTavrinDocumentsContainer::DocumentsContainer(), &container);
}

TEST_F(ApplicationSingletons, NothingElseIsOfferedBesidesTheImporter)
{
    auto* exporting = RootAs<CTavrinExtensionSupportExporting>(Root());
    auto* geometry = RootAs<CTavrinExtensionSupportGeometry>(Root());
    auto* inputDevice = RootAs<CTavrinExtensionSupportInputDevice>(Root());
    auto* cloudImporting = RootAs<CTavrinExtensionSupportCloudImporting>(Root());
    auto* cloudExporting = RootAs<CTavrinExtensionSupportCloudExporting>(Root());
    EXPECT_EQ(exporting->GetExportersCount(), 0);
    EXPECT_EQ(exporting->GetExporter(0), nullptr);
    EXPECT_EQ(geometry->GetGeometryObjectA(), nullptr);
    EXPECT_EQ(geometry->GetGeometryObjectD(), nullptr);
    EXPECT_EQ(inputDevice->GetInputDevice(), nullptr);
    EXPECT_EQ(cloudImporting->GetCloudImportersCount(), 0);
    EXPECT_EQ(cloudImporting->GetCloudImporter(0), nullptr);
    EXPECT_EQ(cloudExporting->GetCloudExportersCount(), 0);
}

} // namespace
