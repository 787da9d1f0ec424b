#include "InitialisedPlugin.h"

namespace {

class InitialisedPluginEnvironment : public ::testing::Environment {
public:
    void SetUp() override
    {
        QObject* root = LoadedRoot();
        ASSERT_NE(root, nullptr);
        ASSERT_TRUE(RootAs<CTavrinExtensionSupportBasic>(root)->Initialize(nullptr, nullptr, nullptr));
    }

    void TearDown() override
    {
        if (QObject* root = PluginLoader().instance())
            RootAs<CTavrinExtensionSupportBasic>(root)->Uninitialize(nullptr, nullptr, nullptr);
    }
};

[[maybe_unused]] ::testing::Environment* const s_environment =
    ::testing::AddGlobalTestEnvironment(new InitialisedPluginEnvironment());

} // namespace
