// The plug-in from load to shut-down, in the order the application drives
// it. The module's registry is process-wide, so the whole life is one test
// in a program of its own.

#include "LoadedPlugin.h"

#include "TavrinAnimation/src/TavrinKeyFrameManager.h"
#include "TavrinAnimation/src/TavrinSceneStatesContainer.h"
#include "TavrinAnimation/src/TavrinSequenceContainer.h"

#include <memory>

namespace {

using Tavrin::CTavrinKeyFrameManager;
using Tavrin::CTavrinSceneStatesContainer;
using Tavrin::CTavrinSequenceContainer;

// A key frame manager of the application that notes its destruction.
class WatchedKeyFrameManager : public CTavrinKeyFrameManager {
public:
    explicit WatchedKeyFrameManager(bool* destroyed) : m_destroyed(destroyed) {}
    ~WatchedKeyFrameManager() override { *m_destroyed = true; }

private:
    bool* m_destroyed;
};

void ExpectLoadedState(CTavrinExtensionSupportBasic* basic, CTavrinExtensionSupportImporting* importing)
{
    SCOPED_TRACE("loaded, not initialised");
    EXPECT_EQ(importing->GetImportersCount(), 0);
    EXPECT_EQ(importing->GetImporter(0), nullptr);

    // No setter exists yet: the application's instances are not taken.
    auto container = std::make_unique<CTavrinSequenceContainer>();
    auto sceneStates = std::make_unique<CTavrinSceneStatesContainer>();
    bool managerDestroyed = false;
    auto manager = std::make_unique<WatchedKeyFrameManager>(&managerDestroyed);
    basic->SetSequenceContainer(container.get());
    basic->SetSceneStatesContainer(sceneStates.get());
    basic->SetKeyFrameManager(manager.get());
    EXPECT_NE(CTavrinSequenceContainer::GetInstance(), container.get());
    EXPECT_NE(CTavrinSceneStatesContainer::GetInstance(), sceneStates.get());
    EXPECT_NE(CTavrinKeyFrameManager::GetInstance(), manager.get());
    EXPECT_FALSE(managerDestroyed);
}

void ExpectInitialisedState(CTavrinExtensionSupportBasic* basic, CTavrinExtensionSupportImporting* importing)
{
    SCOPED_TRACE("initialised");
    ASSERT_EQ(importing->GetImportersCount(), 1);
    EXPECT_NE(importing->GetImporter(0), nullptr);
    EXPECT_EQ(importing->GetImporter(-1), nullptr);
    EXPECT_EQ(importing->GetImporter(1), nullptr);

    // The setters now install: the application's instances replace the
    // private ones made on first use, and a second install of another
    // instance destroys the first one.
    auto* container = new CTavrinSequenceContainer();
    basic->SetSequenceContainer(container);
    EXPECT_EQ(CTavrinSequenceContainer::GetInstance(), container);
    basic->SetSequenceContainer(container);
    EXPECT_EQ(CTavrinSequenceContainer::GetInstance(), container);

    auto* sceneStates = new CTavrinSceneStatesContainer();
    basic->SetSceneStatesContainer(sceneStates);
    EXPECT_EQ(CTavrinSceneStatesContainer::GetInstance(), sceneStates);

    bool firstDestroyed = false;
    bool secondDestroyed = false;
    basic->SetKeyFrameManager(new WatchedKeyFrameManager(&firstDestroyed));
    auto* second = new WatchedKeyFrameManager(&secondDestroyed);
    basic->SetKeyFrameManager(second);
    EXPECT_TRUE(firstDestroyed);
    EXPECT_FALSE(secondDestroyed);
    EXPECT_EQ(CTavrinKeyFrameManager::GetInstance(), second);
    basic->SetKeyFrameManager(new CTavrinKeyFrameManager());
    EXPECT_TRUE(secondDestroyed);
}

void ExpectUninitialisedState(CTavrinExtensionSupportBasic* basic, CTavrinExtensionSupportImporting* importing)
{
    SCOPED_TRACE("uninitialised");
    // The importer is gone but its entry stays, as null.
    EXPECT_EQ(importing->GetImportersCount(), 1);
    EXPECT_EQ(importing->GetImporter(0), nullptr);

    // The setters are gone with the extension: installs do nothing again.
    CTavrinSequenceContainer* installed = CTavrinSequenceContainer::GetInstance();
    auto other = std::make_unique<CTavrinSequenceContainer>();
    basic->SetSequenceContainer(other.get());
    EXPECT_EQ(CTavrinSequenceContainer::GetInstance(), installed);

    // Without an extension there is nothing to initialise or uninitialise.
    EXPECT_FALSE(basic->Initialize(nullptr, nullptr, nullptr));
    basic->Uninitialize(nullptr, nullptr, nullptr);
    EXPECT_EQ(importing->GetImportersCount(), 1);
}

TEST(ExtensionLifecycle, LoadInitialiseUninitialise)
{
    QObject* root = LoadedRoot();
    ASSERT_NE(root, nullptr);
    auto* basic = RootAs<CTavrinExtensionSupportBasic>(root);
    auto* importing = RootAs<CTavrinExtensionSupportImporting>(root);
    ASSERT_NE(basic, nullptr);
    ASSERT_NE(importing, nullptr);

    ExpectLoadedState(basic, importing);
    ASSERT_TRUE(basic->Initialize(nullptr, nullptr, nullptr));
    ExpectInitialisedState(basic, importing);
    basic->Uninitialize(nullptr, nullptr, nullptr);
    ExpectUninitialisedState(basic, importing);

    // The process-wide objects are the application's to destroy.
    CTavrinSequenceContainer::SetInstance(nullptr);
    CTavrinSceneStatesContainer::SetInstance(nullptr);
    CTavrinKeyFrameManager::SetInstance(nullptr);
}

} // namespace
