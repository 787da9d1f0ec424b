#pragma once

#include <algorithm>
#include <vector>

// A list of objects that the extension hands to the application by index.
// Entries are appended, never null and never twice; once destroyed, an
// entry stays in place as null so that indices keep their meaning.
template <typename T>
class CTavrinExtensionObjectList {
public:
    void Add(T* object)
    {
        if (object && std::find(m_objects.begin(), m_objects.end(), object) == m_objects.end())
            m_objects.push_back(object);
    }

    int Count() const { return static_cast<int>(m_objects.size()); }

    // Null below 0 and past the last entry.
    T* At(int index) const { return index >= 0 && index < Count() ? m_objects[index] : nullptr; }

    void DestroyAll()
    {
        for (T*& object : m_objects) {
            delete object;
            object = nullptr;
        }
    }

private:
    std::vector<T*> m_objects;
};
