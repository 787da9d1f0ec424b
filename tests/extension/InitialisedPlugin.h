#pragma once
// The plug-in loaded and initialised once for the whole test program, and
// uninitialised at its end, as the application does around its imports.

#include "LoadedPlugin.h"

#include "extension/CTavrinImporter.h"

class InitialisedPlugin : public ::testing::Test {
public:
    static QObject* Root() { return PluginLoader().instance(); }
    static CTavrinExtensionSupportBasic* Basic() { return RootAs<CTavrinExtensionSupportBasic>(Root()); }
    static CTavrinImporter* Importer() { return RootAs<CTavrinExtensionSupportImporting>(Root())->GetImporter(0); }
};
