#include "tools/tavrin-usd-import/PluginHost.h"

#include "TavrinAnimation/src/TavrinKeyFrameManager.h"
#include "TavrinAnimation/src/TavrinSceneStatesContainer.h"
#include "TavrinAnimation/src/TavrinSequenceContainer.h"
#include "extension/CTavrinExtensionInterfaces.h"

#include <QJsonObject>
#include <QString>

namespace TavrinUsdImport {

namespace {

constexpr const char* kImporterIid = "com.Tavrin.TavrinStudio.Importer.USD/1.0";
constexpr const char* kRootClass = "CTavrinExtensionUSDImporterRoot";

template <typename Interface>
Interface* Cast(QObject* root)
{
    return static_cast<Interface*>(root->qt_metacast(qobject_interface_iid<Interface*>()));
}

} // namespace

PluginHost::~PluginHost()
{
    if (m_basic)
        m_basic->Uninitialize(nullptr, nullptr, nullptr);
    if (m_sequences) {
        Tavrin::CTavrinSequenceContainer::SetInstance(nullptr);
        Tavrin::CTavrinSceneStatesContainer::SetInstance(nullptr);
        Tavrin::CTavrinKeyFrameManager::SetInstance(nullptr);
    }
}

bool PluginHost::Load(const std::string& path, std::string& error)
{
    m_loader.setFileName(QString::fromStdString(path));
    const QJsonObject metaData = m_loader.metaData();
    if (metaData.isEmpty()) {
        error = "cannot load the plug-in " + path + ": " + m_loader.errorString().toStdString();
        return false;
    }
    if (metaData.value("IID").toString() != kImporterIid || metaData.value("className").toString() != kRootClass) {
        error = path + " is not the USD importer plug-in";
        return false;
    }
    QObject* root = m_loader.instance();
    auto* basic = root ? Cast<CTavrinExtensionSupportBasic>(root) : nullptr;
    auto* importing = root ? Cast<CTavrinExtensionSupportImporting>(root) : nullptr;
    if (!basic || !importing) {
        error = "the plug-in " + path + " has no usable root: " + m_loader.errorString().toStdString();
        return false;
    }
    if (!basic->Initialize(nullptr, nullptr, nullptr)) {
        error = "the plug-in " + path + " could not be initialised";
        return false;
    }
    m_basic = basic;

    // The animation model's setters exist once the plug-in is initialised.
    // The sequence container goes first: a key frame manager keeps the
    // container it was made with, and one made before the install would
    // keep a private container that the install then destroys.
    m_sequences = new Tavrin::CTavrinSequenceContainer();
    basic->SetSequenceContainer(m_sequences);
    basic->SetKeyFrameManager(new Tavrin::CTavrinKeyFrameManager());
    basic->SetSceneStatesContainer(new Tavrin::CTavrinSceneStatesContainer());
    if (Tavrin::CTavrinSequenceContainer::GetInstance() != m_sequences) {
        error = "the plug-in " + path + " did not take the program's sequence container";
        return false;
    }

    m_importer = importing->GetImporter(0);
    if (!m_importer) {
        error = "the plug-in " + path + " offers no importer";
        return false;
    }
    return true;
}

Tavrin::CTavrinSequence* PluginHost::LastImportedSequence() const
{
    const auto& added = m_sequences->RecentlyAdded();
    return added.empty() ? nullptr : added.back();
}

} // namespace TavrinUsdImport
