#pragma once

#include "host/CTavrinArchive.h"

namespace Tavrin {

// Intrusive reference count. The object is destroyed through its virtual
// destructor by the CTavrinPtr that drops the count to zero.
class CTavrinReferenced : public CTavrinArchivable {
public:
    CTavrinReferenced() = default;
    CTavrinReferenced(const CTavrinReferenced&) : m_referenceCount(0) {}
    CTavrinReferenced& operator=(const CTavrinReferenced&) { return *this; }

    void IncrementReferenceCount() const { ++m_referenceCount; }
    // Returns the count left; the caller destroys the object at zero.
    int DecrementReferenceCount() const { return --m_referenceCount; }
    int ReferenceCount() const { return m_referenceCount; }

private:
    mutable int m_referenceCount = 0;
};

// Between the reference count and the named-data-member protocol.
class CTavrinObject : public CTavrinReferenced {};

template <class T>
class CTavrinPtr {
public:
    CTavrinPtr() = default;
    CTavrinPtr(T* object) : m_object(object) { Take(); }
    CTavrinPtr(const CTavrinPtr& other) : m_object(other.m_object) { Take(); }
    CTavrinPtr(CTavrinPtr&& other) noexcept : m_object(other.m_object) { other.m_object = nullptr; }
    template <class U>
    CTavrinPtr(const CTavrinPtr<U>& other) : m_object(other.get()) { Take(); }
    ~CTavrinPtr() { Drop(); }

    CTavrinPtr& operator=(const CTavrinPtr& other)
    {
        if (other.m_object != m_object) {
            other.Take();
            Drop();
            m_object = other.m_object;
        }
        return *this;
    }
    CTavrinPtr& operator=(CTavrinPtr&& other) noexcept
    {
        if (this != &other) {
            Drop();
            m_object = other.m_object;
            other.m_object = nullptr;
        }
        return *this;
    }

    T* get() const { return m_object; }
    T* operator->() const { return m_object; }
    T& operator*() const { return *m_object; }
    explicit operator bool() const { return m_object != nullptr; }
    bool operator==(const CTavrinPtr& other) const { return m_object == other.m_object; }
    bool operator!=(const CTavrinPtr& other) const { return m_object != other.m_object; }

private:
    void Take() const
    {
        if (m_object)
            m_object->IncrementReferenceCount();
    }
    void Drop()
    {
        if (m_object && m_object->DecrementReferenceCount() == 0)
            delete m_object;
        m_object = nullptr;
    }

    T* m_object = nullptr;
};

} // namespace Tavrin
