#include "usdcore/sdf/usda/metadataFields.h"

PXR_NAMESPACE_OPEN_SCOPE

namespace {

using Kind = Sdf_MetadataKind;

// Value shapes follow what OpenUSD registers for each field, so that a text
// layer and a crate layer of the same scene hold equal values.
constexpr Sdf_MetadataField kFields[] = {
    // Layer.
    {"defaultPrim", "defaultPrim", Kind::Token},
    {"upAxis", "upAxis", Kind::Token},
    {"metersPerUnit", "metersPerUnit", Kind::Double},
    {"kilogramsPerUnit", "kilogramsPerUnit", Kind::Double},
    {"timeCodesPerSecond", "timeCodesPerSecond", Kind::Double},
    {"framesPerSecond", "framesPerSecond", Kind::Double},
    {"startTimeCode", "startTimeCode", Kind::Double},
    {"endTimeCode", "endTimeCode", Kind::Double},
    {"startFrame", "startFrame", Kind::Double},
    {"endFrame", "endFrame", Kind::Double},
    {"framePrecision", "framePrecision", Kind::Int},
    {"customLayerData", "customLayerData", Kind::Dictionary},
    {"expressionVariables", "expressionVariables", Kind::Dictionary},
    {"owner", "owner", Kind::String},
    {"sessionOwner", "sessionOwner", Kind::String},
    {"colorConfiguration", "colorConfiguration", Kind::Asset},
    {"colorManagementSystem", "colorManagementSystem", Kind::Token},
    {"subLayers", "subLayers", Kind::SubLayers},
    // Written 'relocates' in a layer's metadata too; the reader files it
    // there under its own field.
    {"relocates", "layerRelocates", Kind::Relocates},
    // Prims.
    {"active", "active", Kind::Bool},
    {"instanceable", "instanceable", Kind::Bool},
    {"kind", "kind", Kind::Token},
    {"apiSchemas", "apiSchemas", Kind::TokenListOp},
    {"references", "references", Kind::ReferenceListOp},
    {"payload", "payload", Kind::PayloadListOp},
    {"inherits", "inheritPaths", Kind::PathListOp},
    {"relocates", "relocates", Kind::Relocates},
    {"specializes", "specializes", Kind::PathListOp},
    {"variantSets", "variantSetNames", Kind::StringListOp},
    {"variants", "variantSelection", Kind::VariantSelection},
    {"assetInfo", "assetInfo", Kind::Dictionary},
    {"clips", "clips", Kind::Dictionary},
    {"symmetryFunction", "symmetryFunction", Kind::Token},
    {"symmetryArguments", "symmetryArguments", Kind::Dictionary},
    {"prefix", "prefix", Kind::String},
    {"suffix", "suffix", Kind::String},
    {"prefixSubstitutions", "prefixSubstitutions", Kind::Dictionary},
    {"suffixSubstitutions", "suffixSubstitutions", Kind::Dictionary},
    {"displayGroupOrder", "displayGroupOrder", Kind::StringArray},
    {"inactiveIds", "inactiveIds", Kind::Int64ListOp},
    // Properties.
    {"interpolation", "interpolation", Kind::Token},
    {"elementSize", "elementSize", Kind::Int},
    {"displayGroup", "displayGroup", Kind::String},
    {"connectability", "connectability", Kind::Token},
    {"colorSpace", "colorSpace", Kind::Token},
    {"allowedTokens", "allowedTokens", Kind::TokenArray},
    {"renderType", "renderType", Kind::Token},
    {"outputName", "outputName", Kind::Token},
    {"bindMaterialAs", "bindMaterialAs", Kind::Token},
    {"unauthoredValuesIndex", "unauthoredValuesIndex", Kind::Int},
    {"symmetricPeer", "symmetricPeer", Kind::String},
    {"sdrMetadata", "sdrMetadata", Kind::Dictionary},
    // Any spec.
    {"doc", "documentation", Kind::String},
    {"comment", "comment", Kind::String},
    {"customData", "customData", Kind::Dictionary},
    {"displayName", "displayName", Kind::String},
    {"hidden", "hidden", Kind::Bool},
    {"permission", "permission", Kind::Permission},
};

} // namespace

const Sdf_MetadataField* Sdf_FindMetadataByKeyword(std::string_view keyword, bool isLayer)
{
    const Sdf_MetadataField* found = nullptr;
    for (const Sdf_MetadataField& field : kFields) {
        if (field.keyword != keyword) continue;
        // Of a keyword listed twice, the first entry is the layer's.
        if (isLayer) return &field;
        found = &field;
    }
    return found;
}

const Sdf_MetadataField* Sdf_FindMetadataByField(const TfToken& fieldName)
{
    const std::string_view name = fieldName.GetString();
    for (const Sdf_MetadataField& field : kFields) {
        if (field.fieldName == name) return &field;
    }
    return nullptr;
}

bool Sdf_IsListOpKind(Sdf_MetadataKind kind)
{
    return kind == Kind::PathListOp || kind == Kind::ReferenceListOp || kind == Kind::PayloadListOp ||
           kind == Kind::TokenListOp || kind == Kind::StringListOp || kind == Kind::Int64ListOp;
}

PXR_NAMESPACE_CLOSE_SCOPE
