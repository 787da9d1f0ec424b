#include "host/CTavrinMessage.h"

namespace Tavrin {

CTavrinVariantDictionary::CTavrinVariantDictionary(const CTavrinVariantDictionary& other)
{
    *this = other;
}

CTavrinVariantDictionary& CTavrinVariantDictionary::operator=(const CTavrinVariantDictionary& other)
{
    if (this == &other)
        return *this;
    m_values.clear();
    for (const auto& [name, value] : other.m_values)
        m_values.emplace(name, value->Clone());
    return *this;
}

void CTavrinVariantDictionary::SetNamedValue(const CTavrinString& name, const CTavrinString& value)
{
    m_values[name] = std::make_unique<CTavrinDefinedVariant<CTavrinString>>(value);
}

void CTavrinVariantDictionary::SetNamedValue(const CTavrinString& name, double value)
{
    m_values[name] = std::make_unique<CTavrinDefinedVariant<double>>(value);
}

void CTavrinVariantDictionary::SetNamedValue(const CTavrinString& name, bool value)
{
    m_values[name] = std::make_unique<CTavrinDefinedVariant<bool>>(value);
}

void CTavrinVariantDictionary::SetNamedValue(const CTavrinString& name, const CTavrinVariant& value)
{
    m_values[name] = value.Clone();
}

namespace {
CTavrinMessageManager*& InstalledManager()
{
    static CTavrinMessageManager* installed = nullptr;
    return installed;
}
} // namespace

void CTavrinMessageManager::DistributeMessage(CTavrinMessage message, CTavrinString origin)
{
    m_distributed.emplace_back(std::move(message), std::move(origin));
}

CTavrinMessageManager* CTavrinMessageManager::Instance()
{
    static CTavrinMessageManager defaultManager;
    CTavrinMessageManager* installed = InstalledManager();
    return installed ? installed : &defaultManager;
}

void CTavrinMessageManager::SetInstance(CTavrinMessageManager* manager)
{
    InstalledManager() = manager;
}

} // namespace Tavrin
