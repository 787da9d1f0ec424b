#pragma once

// Names of the fields that specs carry, and of the fields that list a spec's
// children. One table each; the file readers and writers use nothing else.

#include "usdcore/pxr.h"
#include "usdcore/sdf/valueTypeName.h"
#include "usdcore/tf/staticTokens.h"

#include <string>
#include <vector>

#define SDF_FIELD_KEYS(X)                                                     \
    X(Active, "active")                                                       \
    X(AllowedTokens, "allowedTokens")                                         \
    X(AssetInfo, "assetInfo")                                                 \
    X(ColorConfiguration, "colorConfiguration")                               \
    X(ColorManagementSystem, "colorManagementSystem")                         \
    X(ColorSpace, "colorSpace")                                               \
    X(Comment, "comment")                                                     \
    X(ConnectionPaths, "connectionPaths")                                     \
    X(Custom, "custom")                                                       \
    X(CustomData, "customData")                                               \
    X(CustomLayerData, "customLayerData")                                     \
    X(Default, "default")                                                     \
    X(DefaultPrim, "defaultPrim")                                             \
    X(DisplayGroup, "displayGroup")                                           \
    X(DisplayGroupOrder, "displayGroupOrder")                                 \
    X(DisplayName, "displayName")                                             \
    X(DisplayUnit, "displayUnit")                                             \
    X(Documentation, "documentation")                                         \
    X(EndFrame, "endFrame")                                                   \
    X(EndTimeCode, "endTimeCode")                                             \
    X(ExpressionVariables, "expressionVariables")                             \
    X(FramePrecision, "framePrecision")                                       \
    X(FramesPerSecond, "framesPerSecond")                                     \
    X(HasOwnedSubLayers, "hasOwnedSubLayers")                                 \
    X(Hidden, "hidden")                                                       \
    X(InheritPaths, "inheritPaths")                                           \
    X(Instanceable, "instanceable")                                           \
    X(Kind, "kind")                                                           \
    X(LayerRelocates, "layerRelocates")                                       \
    X(NoLoadHint, "noLoadHint")                                               \
    X(Owner, "owner")                                                         \
    X(Payload, "payload")                                                     \
    X(Permission, "permission")                                               \
    X(Prefix, "prefix")                                                       \
    X(PrefixSubstitutions, "prefixSubstitutions")                             \
    X(PrimOrder, "primOrder")                                                 \
    X(PropertyOrder, "propertyOrder")                                         \
    X(References, "references")                                               \
    X(Relocates, "relocates")                                                 \
    X(SessionOwner, "sessionOwner")                                           \
    X(Specializes, "specializes")                                             \
    X(Specifier, "specifier")                                                 \
    X(Spline, "spline")                                                       \
    X(StartFrame, "startFrame")                                               \
    X(StartTimeCode, "startTimeCode")                                         \
    X(SubLayerOffsets, "subLayerOffsets")                                     \
    X(SubLayers, "subLayers")                                                 \
    X(Suffix, "suffix")                                                       \
    X(SuffixSubstitutions, "suffixSubstitutions")                             \
    X(SymmetricPeer, "symmetricPeer")                                         \
    X(SymmetryArgs, "symmetryArgs")                                           \
    X(SymmetryArguments, "symmetryArguments")                                 \
    X(SymmetryFunction, "symmetryFunction")                                   \
    X(TargetPaths, "targetPaths")                                             \
    X(TimeCodesPerSecond, "timeCodesPerSecond")                               \
    X(TimeSamples, "timeSamples")                                             \
    X(TypeName, "typeName")                                                   \
    X(VariantSelection, "variantSelection")                                   \
    X(VariantSetNames, "variantSetNames")                                     \
    X(Variability, "variability")

#define SDF_CHILDREN_KEYS(X)                                                  \
    X(ConnectionChildren, "connectionChildren")                               \
    X(ExpressionChildren, "expressionChildren")                               \
    X(MapperArgChildren, "mapperArgChildren")                                 \
    X(MapperChildren, "mapperChildren")                                       \
    X(PrimChildren, "primChildren")                                           \
    X(PropertyChildren, "properties")                                         \
    X(RelationshipTargetChildren, "targetChildren")                           \
    X(VariantChildren, "variantChildren")                                     \
    X(VariantSetChildren, "variantSetChildren")

PXR_NAMESPACE_OPEN_SCOPE

TF_DECLARE_PUBLIC_TOKENS(SdfFieldKeys, SDF_FIELD_KEYS);
TF_DECLARE_PUBLIC_TOKENS(SdfChildrenKeys, SDF_CHILDREN_KEYS);

/// The registry of value type names ("float3[]" -> SdfValueTypeNames->Float3Array).
class SdfSchema
{
public:
    static const SdfSchema& GetInstance();

    /// The type spelled \p typeName in a layer, or an invalid name.
    SdfValueTypeName FindType(const TfToken& typeName) const;
    SdfValueTypeName FindType(const char* typeName) const;
    SdfValueTypeName FindType(const std::string& typeName) const;
    /// The type whose C++ type is the held type of \p value, with \p role
    /// ("Point", "Color"...; empty for none), or an invalid name.
    SdfValueTypeName FindType(const VtValue& value, const TfToken& role = TfToken()) const;

    /// Every registered type, scalars and arrays.
    std::vector<SdfValueTypeName> GetAllTypes() const;

private:
    SdfSchema() = default;
};

PXR_NAMESPACE_CLOSE_SCOPE
