#include "host/CTavrinApplicationServices.h"

namespace Tavrin {

// The pointers live here, in the one copy of the document model that the
// application and its plug-ins share.
#define TAVRIN_DEFINE_APPLICATION_SERVICE(Service)                     \
    namespace {                                                        \
    Service* s_installed##Service = nullptr;                           \
    }                                                                  \
    Service* Service::GetInstance() { return s_installed##Service; }   \
    void Service::SetInstance(Service* instance) { s_installed##Service = instance; }
TAVRIN_APPLICATION_SERVICES(TAVRIN_DEFINE_APPLICATION_SERVICE)
TAVRIN_DEFINE_APPLICATION_SERVICE(CTavrinArchivableFactory)
TAVRIN_DEFINE_APPLICATION_SERVICE(CTavrinTablesCreator)
#undef TAVRIN_DEFINE_APPLICATION_SERVICE

CTavrinArchivableFactory* CTavrinArchivableFactory::getInstance()
{
    static CTavrinArchivableFactory ownFactory;
    return s_installedCTavrinArchivableFactory ? s_installedCTavrinArchivableFactory : &ownFactory;
}

CTavrinTablesCreator* CTavrinTablesCreator::getInstance()
{
    static CTavrinTablesCreator ownCreator;
    return s_installedCTavrinTablesCreator ? s_installedCTavrinTablesCreator : &ownCreator;
}

namespace {
CTavrinUndoManager* s_installedUndoManager = nullptr;
}

CTavrinUndoManager* CTavrinUndoManager::instance()
{
    return s_installedUndoManager;
}

void CTavrinUndoManager::setInstance(CTavrinUndoManager* manager)
{
    s_installedUndoManager = manager;
}

} // namespace Tavrin
