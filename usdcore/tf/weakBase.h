#pragma once

#include "usdcore/pxr.h"

#include <atomic>
#include <memory>

PXR_NAMESPACE_OPEN_SCOPE

/// Outlives the object it stands for, so weak pointers can tell that the
/// object died.
struct Tf_Remnant {
    std::atomic<bool> alive{true};
};

/// Base of objects that TfWeakPtr may point to.
class TfWeakBase
{
public:
    TfWeakBase() = default;
    // A copy is a different object with weak pointers of its own.
    TfWeakBase(const TfWeakBase&) {}
    TfWeakBase& operator=(const TfWeakBase&) { return *this; }

    ~TfWeakBase()
    {
        if (std::shared_ptr<Tf_Remnant> remnant = std::atomic_load(&_remnant)) {
            remnant->alive = false;
        }
    }

    /// The remnant shared by all weak pointers to this object, made on first use.
    std::shared_ptr<Tf_Remnant> _GetRemnant() const
    {
        std::shared_ptr<Tf_Remnant> remnant = std::atomic_load(&_remnant);
        if (!remnant) {
            std::shared_ptr<Tf_Remnant> fresh = std::make_shared<Tf_Remnant>();
            std::atomic_compare_exchange_strong(&_remnant, &remnant, fresh);
            remnant = std::atomic_load(&_remnant);
        }
        return remnant;
    }

private:
    mutable std::shared_ptr<Tf_Remnant> _remnant;
};

PXR_NAMESPACE_CLOSE_SCOPE
