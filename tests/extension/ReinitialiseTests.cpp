// An application that initialises the plug-in a second time without shutting
// it down in between: the second call makes its objects again, what the
// first made stays usable until shut-down, and nothing of it leaks.

#include "LoadedPlugin.h"

#include "TavrinAnimation/src/TavrinSequenceContainer.h"
#include "extension/CTavrinImporter.h"
#include "host/CTavrinDocument.h"

#include <QTemporaryDir>

#include <fstream>
#include <memory>

namespace {

using Tavrin::CTavrinSequenceContainer;

constexpr const char* kScene = R"(#usda 1.0
def Xform "Mover"
{
    double3 xformOp:translate.timeSamples = { 0: (0, 0, 0), 10: (5, 0, 0) }
    uniform token[] xformOpOrder = ["xformOp:translate"]
}
)";

TEST(Reinitialise, ASecondInitialiseAddsAnImporterAndKeepsTheInstalledInstances)
{
    QObject* root = LoadedRoot();
    ASSERT_NE(root, nullptr);
    auto* basic = RootAs<CTavrinExtensionSupportBasic>(root);
    auto* importing = RootAs<CTavrinExtensionSupportImporting>(root);

    ASSERT_TRUE(basic->Initialize(nullptr, nullptr, nullptr));
    auto* container = new CTavrinSequenceContainer();
    basic->SetSequenceContainer(container);
    ASSERT_TRUE(basic->Initialize(nullptr, nullptr, nullptr));

    // The new setters install nothing of their own: the application's
    // container is still the one in use, and can be replaced through them.
    EXPECT_EQ(CTavrinSequenceContainer::GetInstance(), container);
    ASSERT_EQ(importing->GetImportersCount(), 2);
    CTavrinImporter* first = importing->GetImporter(0);
    CTavrinImporter* second = importing->GetImporter(1);
    ASSERT_NE(first, nullptr);
    ASSERT_NE(second, nullptr);
    EXPECT_NE(first, second);

    QTemporaryDir folder;
    const std::string path = folder.filePath("mover.usda").toStdString();
    std::ofstream(path) << kScene;
    for (CTavrinImporter* importer : {first, second}) {
        CTavrinImportRequest request;
        request.filePath = Tavrin::CTavrinString::FromUtf8(path);
        request.folder = Tavrin::CTavrinString::FromUtf8(folder.path().toStdString() + "/");
        const std::unique_ptr<Tavrin::CTavrinDocument> document(importer->Import(request));
        EXPECT_NE(document, nullptr);
    }
    EXPECT_EQ(container->Sequences().size(), 2u);

    auto* replacement = new CTavrinSequenceContainer();
    basic->SetSequenceContainer(replacement);
    EXPECT_EQ(CTavrinSequenceContainer::GetInstance(), replacement);

    // Shut-down destroys both importers; their entries stay, as null.
    basic->Uninitialize(nullptr, nullptr, nullptr);
    EXPECT_EQ(importing->GetImportersCount(), 2);
    EXPECT_EQ(importing->GetImporter(0), nullptr);
    EXPECT_EQ(importing->GetImporter(1), nullptr);
    CTavrinSequenceContainer::SetInstance(nullptr);
}

} // namespace
