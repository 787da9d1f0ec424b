#include "extension/CTavrinExtensionRegistry.h"

#include "extension/CTavrinExtension.h"
#include "extension/CTavrinImporter.h"

CTavrinExtensionRegistry& CTavrinExtensionRegistry::Instance()
{
    static CTavrinExtensionRegistry registry;
    return registry;
}

void CTavrinExtensionRegistry::RegisterExtension(CTavrinExtension* extension)
{
    if (!m_extension)
        m_extension = extension;
}

void CTavrinExtensionRegistry::DestroyExtension()
{
    delete m_extension;
    m_extension = nullptr;
}
