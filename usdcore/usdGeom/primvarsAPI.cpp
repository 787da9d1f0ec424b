#include "usdcore/usdGeom/primvarsAPI.h"

#include "usdcore/tf/diagnostic.h"
#include "usdcore/tf/stringUtils.h"

PXR_NAMESPACE_OPEN_SCOPE

namespace {

const char* const kPrimvarsNamespace = "primvars:";

// \p name in the primvars namespace; empty, with a coding error unless
// \p quiet, when it ends in the reserved ":indices".
TfToken MakeNamespaced(const TfToken& name, bool quiet)
{
    TfToken result = TfStringStartsWith(name.GetString(), kPrimvarsNamespace)
                         ? name
                         : TfToken(kPrimvarsNamespace + name.GetString());
    if (!UsdGeomPrimvar::IsValidPrimvarName(result)) {
        if (!quiet) TF_CODING_ERROR("'%s' is not a valid primvar name", name.GetText());
        return TfToken();
    }
    return result;
}

template <class Keep>
std::vector<UsdGeomPrimvar> Primvars(const UsdPrim& prim, bool onlyAuthored, Keep keep)
{
    std::vector<UsdGeomPrimvar> primvars;
    const std::vector<UsdProperty> properties = onlyAuthored ? prim.GetAuthoredPropertiesInNamespace(kPrimvarsNamespace)
                                                             : prim.GetPropertiesInNamespace(kPrimvarsNamespace);
    for (const UsdProperty& property : properties) {
        const UsdGeomPrimvar primvar(prim.GetAttribute(property.GetName()));
        if (primvar && keep(primvar)) primvars.push_back(primvar);
    }
    return primvars;
}

bool Any(const UsdGeomPrimvar&)
{
    return true;
}

} // namespace

UsdGeomPrimvar UsdGeomPrimvarsAPI::GetPrimvar(const TfToken& name) const
{
    const TfToken attrName = MakeNamespaced(name, false);
    if (attrName.IsEmpty()) return UsdGeomPrimvar();
    return UsdGeomPrimvar(GetPrim().GetAttribute(attrName));
}

bool UsdGeomPrimvarsAPI::HasPrimvar(const TfToken& name) const
{
    const TfToken attrName = MakeNamespaced(name, true);
    return !attrName.IsEmpty() && UsdGeomPrimvar::IsPrimvar(GetPrim().GetAttribute(attrName));
}

std::vector<UsdGeomPrimvar> UsdGeomPrimvarsAPI::GetPrimvars() const
{
    return Primvars(GetPrim(), false, Any);
}

std::vector<UsdGeomPrimvar> UsdGeomPrimvarsAPI::GetAuthoredPrimvars() const
{
    return Primvars(GetPrim(), true, Any);
}

std::vector<UsdGeomPrimvar> UsdGeomPrimvarsAPI::GetPrimvarsWithValues() const
{
    return Primvars(GetPrim(), false, [](const UsdGeomPrimvar& primvar) { return primvar.HasValue(); });
}

std::vector<UsdGeomPrimvar> UsdGeomPrimvarsAPI::GetPrimvarsWithAuthoredValues() const
{
    return Primvars(GetPrim(), true, [](const UsdGeomPrimvar& primvar) { return primvar.HasAuthoredValue(); });
}

PXR_NAMESPACE_CLOSE_SCOPE
