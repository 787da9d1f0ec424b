#pragma once

#include <QPluginLoader>

#include <string>

class CTavrinExtensionSupportBasic;
class CTavrinImporter;

namespace Tavrin {
class CTavrinSequence;
class CTavrinSequenceContainer;
} // namespace Tavrin

namespace TavrinUsdImport {

// The application's side of the USD plug-in: loads it with Qt's loader,
// checks that it is the USD importer, initialises it and hands it the
// program's own key frame manager, sequence container and scene-states
// container, so that the sequence an import makes lands in the program's
// container. Destroying the host uninitialises the plug-in and releases the
// program's instances.
class PluginHost {
public:
    PluginHost() = default;
    PluginHost(const PluginHost&) = delete;
    PluginHost& operator=(const PluginHost&) = delete;
    ~PluginHost();

    // False, with the reason in error, when the plug-in at path cannot be
    // used as the USD importer.
    bool Load(const std::string& path, std::string& error);

    // Valid after a successful Load.
    CTavrinImporter& Importer() const { return *m_importer; }
    // The sequence the last import registered in the program's container,
    // or null when it made none.
    Tavrin::CTavrinSequence* LastImportedSequence() const;

private:
    QPluginLoader m_loader;
    CTavrinExtensionSupportBasic* m_basic = nullptr;
    CTavrinImporter* m_importer = nullptr;
    Tavrin::CTavrinSequenceContainer* m_sequences = nullptr;
};

} // namespace TavrinUsdImport
