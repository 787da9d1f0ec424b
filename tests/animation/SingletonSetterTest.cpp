// Installing the application's instances of the three process-wide objects
// through the singleton setters.

#include "TavrinAnimation/src/TavrinKeyFrameManager.h"
#include "TavrinAnimation/src/TavrinSceneStatesContainer.h"
#include "TavrinAnimation/src/TavrinSequenceContainer.h"
#include "TavrinAnimation/src/TavrinSingletonSetter.h"

#include <gtest/gtest.h>

using namespace Tavrin;

namespace {

// Reports its destruction, as the application's instance would be gone.
class WatchedManager : public CTavrinKeyFrameManager {
public:
    explicit WatchedManager(bool& destroyed) : m_destroyed(destroyed) {}
    ~WatchedManager() override { m_destroyed = true; }

private:
    bool& m_destroyed;
};

template <typename T>
void Install(T* instance) {
    CTavrinSingletonSetter<T, 1> setter;
    CTavrinSingletonController<T>& controller = setter;
    controller.Install(instance);
}

} // namespace

TEST(SingletonSetters, GetInstanceMakesOnePrivateInstance) {
    CTavrinKeyFrameManager::SetInstance(nullptr);
    CTavrinKeyFrameManager* first = CTavrinKeyFrameManager::GetInstance();
    EXPECT_NE(first, nullptr);
    EXPECT_EQ(CTavrinKeyFrameManager::GetInstance(), first);
    EXPECT_EQ(CTavrinSequenceContainer::GetInstance(), CTavrinSequenceContainer::GetInstance());
    EXPECT_EQ(CTavrinSceneStatesContainer::GetInstance(), CTavrinSceneStatesContainer::GetInstance());
}

TEST(SingletonSetters, InstallingTheSameInstanceTwiceKeepsIt) {
    bool destroyed = false;
    auto* application = new WatchedManager(destroyed);
    Install<CTavrinKeyFrameManager>(application);
    Install<CTavrinKeyFrameManager>(application);
    EXPECT_FALSE(destroyed);
    EXPECT_EQ(CTavrinKeyFrameManager::GetInstance(), application);
    CTavrinKeyFrameManager::SetInstance(nullptr);
    EXPECT_TRUE(destroyed);
}

TEST(SingletonSetters, InstallingAnotherInstanceDestroysThePrevious) {
    bool firstDestroyed = false, secondDestroyed = false;
    Install<CTavrinKeyFrameManager>(new WatchedManager(firstDestroyed));
    auto* second = new WatchedManager(secondDestroyed);
    Install<CTavrinKeyFrameManager>(second);
    EXPECT_TRUE(firstDestroyed);
    EXPECT_FALSE(secondDestroyed);
    EXPECT_EQ(CTavrinKeyFrameManager::GetInstance(), second);
    Install<CTavrinKeyFrameManager>(nullptr);
    EXPECT_TRUE(secondDestroyed);
}

TEST(SingletonSetters, InstalledContainersReplaceThePrivateOnes) {
    CTavrinSequenceContainer* privateContainer = CTavrinSequenceContainer::GetInstance();
    auto* applicationContainer = new CTavrinSequenceContainer();
    Install<CTavrinSequenceContainer>(applicationContainer);
    EXPECT_EQ(CTavrinSequenceContainer::GetInstance(), applicationContainer);
    EXPECT_NE(CTavrinSequenceContainer::GetInstance(), privateContainer);
    EXPECT_EQ(CTavrinSequenceContainer::CurrentGroup(), applicationContainer->DefaultGroup());

    auto* applicationStates = new CTavrinSceneStatesContainer();
    Install<CTavrinSceneStatesContainer>(applicationStates);
    EXPECT_EQ(CTavrinSceneStatesContainer::GetInstance(), applicationStates);
    EXPECT_EQ(CTavrinSceneStatesContainer::CurrentGroup(), applicationStates->DefaultGroup());
    EXPECT_EQ(applicationStates->DefaultGroup()->Caption(), CTavrinString("Default"));

    Install<CTavrinSequenceContainer>(nullptr);
    Install<CTavrinSceneStatesContainer>(nullptr);
    EXPECT_EQ(CTavrinSceneStatesContainer::CurrentGroup(), nullptr);
}
