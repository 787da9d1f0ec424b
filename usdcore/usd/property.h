#pragma once

#include "usdcore/pxr.h"
#include "usdcore/usd/object.h"

#include <string>
#include <vector>

PXR_NAMESPACE_OPEN_SCOPE

/// An attribute or relationship of a prim, by name.
class UsdProperty : public UsdObject
{
public:
    UsdProperty() = default;

    /// The name without its namespaces: "st" of "primvars:st".
    TfToken GetBaseName() const;
    /// The namespaces of the name: "primvars" of "primvars:st".
    TfToken GetNamespace() const;
    std::vector<std::string> SplitName() const;

    /// True when some layer has an opinion about the property, or the prim's
    /// schema defines it.
    bool IsDefined() const;
    /// True when some layer has an opinion about the property.
    bool IsAuthored() const;
    bool IsCustom() const;

protected:
    friend class UsdPrim;
    UsdProperty(UsdObjType type, const Usd_PrimData* prim, const TfToken& name) : UsdObject(type, prim, name) {}
};

using UsdPropertyVector = std::vector<UsdProperty>;

PXR_NAMESPACE_CLOSE_SCOPE
