#include "usdcore/usd/relationship.h"

#include "usdcore/sdf/listOp.h"
#include "usdcore/sdf/schema.h"
#include "usdcore/tf/diagnostic.h"
#include "usdcore/usd/namespaceMap.h"
#include "usdcore/usd/primData.h"

#include <optional>
#include <string>
#include <vector>

PXR_NAMESPACE_OPEN_SCOPE

bool Usd_ComposePathListField(const Usd_PrimData& prim, const TfToken& name, const TfToken& field,
                              SdfPathVector* paths)
{
    paths->clear();
    bool authored = false;
    // Paths no arc brings to the stage, as composition errors; an explicit
    // list replaces everything weaker, its errors included.
    std::vector<std::string> unmapped;
    for (const Usd_Opinion* opinion = prim.OpinionsEnd(); opinion != prim.OpinionsBegin();) {
        --opinion;
        const SdfPath propertyPath = Sdf_FindPropertyPath(opinion->path, name);
        const VtValue* value = opinion->layer->GetData().GetFieldValue(propertyPath, field);
        if (!value || !value->IsHolding<SdfPathListOp>()) continue;
        const SdfPathListOp& listOp = value->UncheckedGet<SdfPathListOp>();
        if (!listOp.HasKeys()) continue;
        authored = true;
        if (listOp.IsExplicit()) unmapped.clear();
        // Paths are written in the layer's namespace, relative ones against
        // the owning prim; the stage sees them through the opinion's arcs.
        const SdfPath anchor = opinion->path.StripAllVariantSelections();
        const Usd_NamespaceMap& map = *opinion->map;
        listOp.ApplyOperations(paths, [&](SdfListOpType type, const SdfPath& path) -> std::optional<SdfPath> {
            const SdfPath onStage = map.MapToStage(path.MakeAbsolutePath(anchor).StripAllVariantSelections());
            if (onStage.IsEmpty()) {
                // Deleting a path that was never there is no error.
                if (type != SdfListOpTypeDeleted)
                    unmapped.push_back("the path <" + path.GetString() + "> authored in '" +
                                       opinion->layer->GetIdentifier() + "'");
                return std::nullopt;
            }
            return onStage;
        });
    }
    for (const std::string& error : unmapped) {
        TF_WARN("<%s>: %s is outside what its arcs bring to the stage", prim.path.AppendProperty(name).GetText(),
                error.c_str());
    }
    return authored && unmapped.empty();
}

bool UsdRelationship::GetTargets(SdfPathVector* targets) const
{
    if (!_prim) {
        targets->clear();
        return false;
    }
    return Usd_ComposePathListField(*_prim, _propName, SdfFieldKeys->TargetPaths, targets);
}

bool UsdRelationship::HasAuthoredTargets() const
{
    return HasAuthoredMetadata(SdfFieldKeys->TargetPaths);
}

PXR_NAMESPACE_CLOSE_SCOPE
