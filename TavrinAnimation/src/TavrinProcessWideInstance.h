#pragma once
// The process-wide instance of one of the animation model's shared objects.
// The application installs its own instance; until it does, the first use
// makes a private one.

namespace Tavrin {

template <typename T>
class CTavrinProcessWideInstance {
public:
    static T* Get() {
        if (!s_instance)
            s_instance = new T();
        return s_instance;
    }

    // Installing another instance destroys the one held before; installing
    // the held one again does nothing.
    static void Set(T* instance) {
        if (instance == s_instance)
            return;
        T* previous = s_instance;
        s_instance = instance;
        delete previous;
    }

private:
    static inline T* s_instance = nullptr;
};

} // namespace Tavrin
