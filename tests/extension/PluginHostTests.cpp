// The command-line importer's side of the plug-in: what it hands over must
// be a consistent set of the animation model's instances, since the plug-in
// and the program share them from then on.

#include "tools/tavrin-usd-import/PluginHost.h"

#include "TavrinAnimation/src/TavrinKeyFrameManager.h"
#include "TavrinAnimation/src/TavrinSequenceContainer.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using Tavrin::CTavrinKeyFrameManager;
using Tavrin::CTavrinSequenceContainer;

TEST(PluginHost, HandsOverAManagerThatKnowsTheHandedOverContainer)
{
    TavrinUsdImport::PluginHost host;
    std::string error;
    ASSERT_TRUE(host.Load(TAVRIN_PLUGIN_PATH, error)) << error;

    CTavrinSequenceContainer* container = CTavrinSequenceContainer::GetInstance();
    CTavrinSequenceContainer* managersContainer = CTavrinKeyFrameManager::GetInstance()->SequenceContainer();
    ASSERT_NE(managersContainer, nullptr);
    EXPECT_EQ(managersContainer->DefaultGroup()->Caption(), Tavrin::CTavrinString("Default"));
    EXPECT_EQ(managersContainer, container);
    EXPECT_EQ(CTavrinSequenceContainer::CurrentGroup(), container->DefaultGroup());
}

} // namespace
