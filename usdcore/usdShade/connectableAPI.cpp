#include "usdcore/usdShade/connectableAPI.h"

#include "usdcore/tf/diagnostic.h"
#include "usdcore/tf/stringUtils.h"
#include "usdcore/usd/stage.h"
#include "usdcore/usdShade/nodeGraph.h"
#include "usdcore/usdShade/shader.h"
#include "usdcore/usdShade/tokens.h"
#include "usdcore/usdShade/utils.h"

#include <tuple>

PXR_NAMESPACE_OPEN_SCOPE

namespace {

/// The attributes of \p prim whose names start with \p prefix, wrapped as
/// \p Wrapped, in the prim's property order.
template <class Wrapped>
std::vector<Wrapped> AttributesInNamespace(const UsdPrim& prim, const TfToken& prefix, bool onlyAuthored)
{
    std::vector<Wrapped> result;
    const std::vector<UsdAttribute> attributes = onlyAuthored ? prim.GetAuthoredAttributes() : prim.GetAttributes();
    for (const UsdAttribute& attribute : attributes) {
        if (TfStringStartsWith(attribute.GetName().GetString(), prefix.GetString())) result.emplace_back(attribute);
    }
    return result;
}

/// The attribute \p prefix + \p name of \p prim, or an invalid attribute.
UsdAttribute PrefixedAttribute(const UsdPrim& prim, const TfToken& prefix, const TfToken& name)
{
    if (!prim) return UsdAttribute();
    return prim.GetAttribute(TfToken(prefix.GetString() + name.GetString()));
}

} // namespace

UsdShadeConnectableAPI UsdShadeConnectableAPI::Get(const UsdStagePtr& stage, const SdfPath& path)
{
    return UsdShadeConnectableAPI(Usd_SchemaGetPrim(stage, path));
}

bool UsdShadeConnectableAPI::IsShader() const
{
    return GetPrim().IsA<UsdShadeShader>();
}

bool UsdShadeConnectableAPI::IsNodeGraph() const
{
    return GetPrim().IsA<UsdShadeNodeGraph>();
}

bool UsdShadeConnectableAPI::GetConnectedSource(const UsdAttribute& shadingAttr, UsdShadeConnectableAPI* source,
                                                TfToken* sourceName, UsdShadeAttributeType* sourceType)
{
    if (!(source && sourceName && sourceType)) {
        TF_CODING_ERROR("GetConnectedSource() requires non-NULL output-parameters.");
        return false;
    }
    *source = UsdShadeConnectableAPI();

    SdfPathVector sources;
    if (!shadingAttr) return false;
    shadingAttr.GetConnections(&sources);
    // A shading input takes its value from one place: several connections
    // leave the source undecided.
    if (sources.size() != 1) return false;

    const SdfPath& path = sources.front();
    const UsdPrim prim = shadingAttr.GetStage()->GetPrimAtPath(path.GetPrimPath());
    *source = UsdShadeConnectableAPI(prim);
    if (!path.IsPropertyPath()) return false;

    std::tie(*sourceName, *sourceType) = UsdShadeUtils::GetBaseNameAndType(path.GetNameToken());
    return prim && prim.GetAttribute(path.GetNameToken()).IsValid();
}

bool UsdShadeConnectableAPI::GetRawConnectedSourcePaths(const UsdAttribute& shadingAttr, SdfPathVector* sourcePaths)
{
    if (!sourcePaths) {
        TF_CODING_ERROR("GetRawConnectedSourcePaths() requires a non-NULL output-parameter.");
        return false;
    }
    sourcePaths->clear();
    if (!shadingAttr) return false;
    if (!shadingAttr.GetConnections(sourcePaths) && shadingAttr.HasAuthoredConnections()) {
        TF_WARN("Unable to get connections for shading attribute <%s>", shadingAttr.GetPath().GetText());
        return false;
    }
    return true;
}

bool UsdShadeConnectableAPI::HasConnectedSource(const UsdAttribute& shadingAttr)
{
    UsdShadeConnectableAPI source;
    TfToken sourceName;
    UsdShadeAttributeType sourceType;
    return GetConnectedSource(shadingAttr, &source, &sourceName, &sourceType);
}

UsdShadeOutput UsdShadeConnectableAPI::GetOutput(const TfToken& name) const
{
    return UsdShadeOutput(PrefixedAttribute(GetPrim(), UsdShadeTokens->outputs, name));
}

std::vector<UsdShadeOutput> UsdShadeConnectableAPI::GetOutputs(bool onlyAuthored) const
{
    return AttributesInNamespace<UsdShadeOutput>(GetPrim(), UsdShadeTokens->outputs, onlyAuthored);
}

UsdShadeInput UsdShadeConnectableAPI::GetInput(const TfToken& name) const
{
    return UsdShadeInput(PrefixedAttribute(GetPrim(), UsdShadeTokens->inputs, name));
}

std::vector<UsdShadeInput> UsdShadeConnectableAPI::GetInputs(bool onlyAuthored) const
{
    return AttributesInNamespace<UsdShadeInput>(GetPrim(), UsdShadeTokens->inputs, onlyAuthored);
}

PXR_NAMESPACE_CLOSE_SCOPE
