// What the application sees before it talks to the plug-in: the metadata
// block and the casts of the root to the capability interfaces.

#include "LoadedPlugin.h"

#include <QJsonObject>

#include <cstring>
#include <string>

namespace {

TEST(PluginMetadata, NamesTheUsdImporterIidAndTheRootClassWithoutMetaData)
{
    const QJsonObject metaData = PluginLoader().metaData();
    EXPECT_EQ(metaData.value("IID").toString().toStdString(), "com.Tavrin.TavrinStudio.Importer.USD/1.0");
    EXPECT_EQ(metaData.value("className").toString().toStdString(), "CTavrinExtensionUSDImporterRoot");
    EXPECT_FALSE(metaData.contains("MetaData"));
    EXPECT_FALSE(metaData.value("debug").toBool());
    // Qt writes its version as 0xMMmmpp: 5.15 is 0x050fxx.
    EXPECT_EQ(metaData.value("version").toInt() >> 8, 0x050f);
}

TEST(PluginInstance, IsOneRootThatIsMadeAgainAfterTheApplicationDeletesIt)
{
    QObject* root = LoadedRoot();
    ASSERT_NE(root, nullptr);
    EXPECT_EQ(PluginLoader().instance(), root);
    EXPECT_STREQ(root->metaObject()->className(), "CTavrinExtensionUSDImporterRoot");
    EXPECT_EQ(root->parent(), nullptr);

    delete root;
    QObject* again = PluginLoader().instance();
    ASSERT_NE(again, nullptr);
    EXPECT_STREQ(again->metaObject()->className(), "CTavrinExtensionUSDImporterRoot");
}

// Each interface by its class name and by its IID, which is built from the
// class name; both give the pointer the compiler's cast gives.
template <typename Interface>
void ExpectCastsByNameAndIid(QObject* root, const char* className)
{
    SCOPED_TRACE(className);
    const std::string iid = std::string("com.Tavrin.TavrinStudio.") + className + "/1.0";
    EXPECT_EQ(std::string(qobject_interface_iid<Interface*>()), iid);

    void* byName = root->qt_metacast(className);
    void* byIid = root->qt_metacast(iid.c_str());
    ASSERT_NE(byName, nullptr);
    EXPECT_EQ(byName, byIid);
    EXPECT_EQ(byName, static_cast<void*>(qobject_cast<Interface*>(root)));
}

TEST(RootCasts, EveryInterfaceByClassNameAndByIidGivesTheSamePointer)
{
    QObject* root = LoadedRoot();
    ASSERT_NE(root, nullptr);
    ExpectCastsByNameAndIid<CTavrinExtensionSupportBasic>(root, "CTavrinExtensionSupportBasic");
    ExpectCastsByNameAndIid<CTavrinExtensionSupportImporting>(root, "CTavrinExtensionSupportImporting");
    ExpectCastsByNameAndIid<CTavrinExtensionSupportExporting>(root, "CTavrinExtensionSupportExporting");
    ExpectCastsByNameAndIid<CTavrinExtensionSupportGeometry>(root, "CTavrinExtensionSupportGeometry");
    ExpectCastsByNameAndIid<CTavrinExtensionSupportInputDevice>(root, "CTavrinExtensionSupportInputDevice");
    ExpectCastsByNameAndIid<CTavrinExtensionSupportCloudImporting>(root, "CTavrinExtensionSupportCloudImporting");
    ExpectCastsByNameAndIid<CTavrinExtensionSupportCloudExporting>(root, "CTavrinExtensionSupportCloudExporting");
}

TEST(RootCasts, InterfacesAreDistinctSubobjectsOfTheRoot)
{
    QObject* root = LoadedRoot();
    ASSERT_NE(root, nullptr);
    // The importing interface follows the basic one in the root, so the two
    // casts cannot land on the same address; the first base (QObject) is the
    // root's own address.
    EXPECT_NE(root->qt_metacast("CTavrinExtensionSupportBasic"),
              root->qt_metacast("CTavrinExtensionSupportImporting"));
    EXPECT_NE(root->qt_metacast("CTavrinExtensionSupportBasic"), static_cast<void*>(root));
}

TEST(RootCasts, RootClassNamesGiveTheObjectAndUnknownTextsGiveNull)
{
    QObject* root = LoadedRoot();
    ASSERT_NE(root, nullptr);
    EXPECT_EQ(root->qt_metacast("CTavrinExtensionUSDImporterRoot"), static_cast<void*>(root));
    EXPECT_EQ(root->qt_metacast("CTavrinExtensionRoot"), static_cast<void*>(root));
    EXPECT_EQ(root->qt_metacast("QObject"), static_cast<void*>(root));
    EXPECT_EQ(root->qt_metacast("CTavrinExtensionSupportPrinting"), nullptr);
    EXPECT_EQ(root->qt_metacast("com.Tavrin.TavrinStudio.CTavrinExtensionSupportBasic/2.0"), nullptr);
    EXPECT_EQ(root->qt_metacast(nullptr), nullptr);
}

} // namespace
