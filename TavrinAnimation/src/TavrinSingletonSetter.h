#pragma once
// The objects through which the application points the plug-in's
// process-wide animation objects at its own instances.

namespace Tavrin {

template <typename T>
class CTavrinSingletonController {
public:
    virtual void Install(T* instance) = 0;

protected:
    ~CTavrinSingletonController() = default;
};

template <typename T, int Kind>
class CTavrinSingletonSetter;

// Kind 1 installs through T::SetInstance: the instance held before is
// destroyed unless it is the one installed.
template <typename T>
class CTavrinSingletonSetter<T, 1> final : public CTavrinSingletonController<T> {
public:
    void Install(T* instance) override { T::SetInstance(instance); }
};

} // namespace Tavrin
