#pragma once

#include "usdcore/pxr.h"

PXR_NAMESPACE_OPEN_SCOPE

/// A lazily built, never destroyed global of type T. Built on first use
/// (thread-safe), so globals that need other globals (token tables need the
/// token registry) do not depend on static initialisation order. All
/// TfStaticData<T> of one T share the instance; each use declares its own T.
template <class T>
class TfStaticData
{
public:
    T* Get() const
    {
        static T* instance = new T;
        return instance;
    }
    T* operator->() const { return Get(); }
    T& operator*() const { return *Get(); }
};

PXR_NAMESPACE_CLOSE_SCOPE
