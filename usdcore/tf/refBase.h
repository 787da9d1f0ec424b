#pragma once

#include "usdcore/pxr.h"

#include <atomic>
#include <cstddef>

PXR_NAMESPACE_OPEN_SCOPE

/// Base of objects shared through TfRefPtr. The count lives in the object
/// (intrusive), so a raw pointer can always be turned back into an owner.
class TfRefBase
{
public:
    TfRefBase() = default;
    // A copy is a new object: it starts unowned.
    TfRefBase(const TfRefBase&) : _refCount(0) {}
    TfRefBase& operator=(const TfRefBase&) { return *this; }

    size_t GetCurrentCount() const { return _refCount.load(std::memory_order_relaxed); }
    bool IsUnique() const { return GetCurrentCount() == 1; }

protected:
    virtual ~TfRefBase() = default;

private:
    friend struct Tf_RefPtrCounter;
    mutable std::atomic<size_t> _refCount{0};
};

struct Tf_RefPtrCounter {
    static void AddRef(const TfRefBase* p)
    {
        p->_refCount.fetch_add(1, std::memory_order_relaxed);
    }
    /// Drops one reference; deletes the object when it was the last.
    static void RemoveRef(const TfRefBase* p)
    {
        if (p->_refCount.fetch_sub(1, std::memory_order_acq_rel) == 1) {
            delete p;
        }
    }
};

PXR_NAMESPACE_CLOSE_SCOPE
