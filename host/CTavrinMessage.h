#pragma once

#include <map>
#include <memory>
#include <utility>
#include <vector>

#include "host/CTavrinString.h"

namespace Tavrin {

class CTavrinVariant {
public:
    virtual ~CTavrinVariant() = default;
    virtual std::unique_ptr<CTavrinVariant> Clone() const = 0;
};

// A variant holding one value of type T.
template <class T>
class CTavrinDefinedVariant : public CTavrinVariant {
public:
    CTavrinDefinedVariant() = default;
    explicit CTavrinDefinedVariant(T value) : m_value(std::move(value)) {}
    std::unique_ptr<CTavrinVariant> Clone() const override
    {
        return std::make_unique<CTavrinDefinedVariant<T>>(m_value);
    }
    const T& Value() const { return m_value; }
    void SetValue(T value) { m_value = std::move(value); }

private:
    T m_value{};
};

// Named values; a value set again under the same name replaces the old one.
class CTavrinVariantDictionary {
public:
    CTavrinVariantDictionary() = default;
    CTavrinVariantDictionary(const CTavrinVariantDictionary& other);
    CTavrinVariantDictionary& operator=(const CTavrinVariantDictionary& other);
    CTavrinVariantDictionary(CTavrinVariantDictionary&&) = default;
    CTavrinVariantDictionary& operator=(CTavrinVariantDictionary&&) = default;
    virtual ~CTavrinVariantDictionary() = default;

    void SetNamedValue(const CTavrinString& name, const CTavrinString& value);
    void SetNamedValue(const CTavrinString& name, const char* value) { SetNamedValue(name, CTavrinString(value)); }
    void SetNamedValue(const CTavrinString& name, double value);
    void SetNamedValue(const CTavrinString& name, bool value);
    void SetNamedValue(const CTavrinString& name, const CTavrinVariant& value);

    // The value under name when it holds a T, else null.
    template <class T>
    const T* NamedValue(const CTavrinString& name) const
    {
        const auto found = m_values.find(name);
        if (found == m_values.end())
            return nullptr;
        const auto* variant = dynamic_cast<const CTavrinDefinedVariant<T>*>(found->second.get());
        return variant ? &variant->Value() : nullptr;
    }
    bool HasNamedValue(const CTavrinString& name) const { return m_values.count(name) != 0; }
    int Count() const { return static_cast<int>(m_values.size()); }

private:
    std::map<CTavrinString, std::unique_ptr<CTavrinVariant>> m_values;
};

class CTavrinMessage : public CTavrinVariantDictionary {
public:
    explicit CTavrinMessage(const CTavrinString& type) : m_type(type) {}
    const CTavrinString& Type() const { return m_type; }

private:
    CTavrinString m_type;
};

// The application's message distribution. Until the application installs its
// own, a process-wide default keeps every distributed message, in order, so
// that what was sent can be read back.
class CTavrinMessageManager {
public:
    virtual ~CTavrinMessageManager() = default;
    virtual void DistributeMessage(CTavrinMessage message, CTavrinString origin);

    const std::vector<std::pair<CTavrinMessage, CTavrinString>>& DistributedMessages() const { return m_distributed; }
    void ClearDistributedMessages() { m_distributed.clear(); }

    static CTavrinMessageManager* Instance();
    // Null restores the default manager.
    static void SetInstance(CTavrinMessageManager* manager);

private:
    std::vector<std::pair<CTavrinMessage, CTavrinString>> m_distributed;
};

} // namespace Tavrin
