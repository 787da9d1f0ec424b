#include "extension/CTavrinExtension.h"

#include "extension/CTavrinExtensionRegistry.h"

CTavrinExtension::CTavrinExtension()
{
    CTavrinExtensionRegistry::Instance().RegisterExtension(this);
}
