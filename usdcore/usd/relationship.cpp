#include "usdcore/usd/relationship.h"

#include "usdcore/sdf/listOp.h"
#include "usdcore/sdf/schema.h"
#include "usdcore/tf/diagnostic.h"
#include "usdcore/usd/namespaceMap.h"
#include "usdcore/usd/primData.h"

#include <optional>

PXR_NAMESPACE_OPEN_SCOPE

bool Usd_ComposePathListField(const Usd_PrimData& prim, const TfToken& name, const TfToken& field,
                              SdfPathVector* paths)
{
    paths->clear();
    bool authored = false;
    bool allMapped = true;
    for (const Usd_Opinion* opinion = prim.OpinionsEnd(); opinion != prim.OpinionsBegin();) {
        --opinion;
        const SdfPath propertyPath = Sdf_FindPropertyPath(opinion->path, name);
        const VtValue* value = opinion->layer->GetData().GetFieldValue(propertyPath, field);
        if (!value || !value->IsHolding<SdfPathListOp>()) continue;
        authored = true;
        // Paths are written in the layer's namespace, relative ones against
        // the owning prim; the stage sees them through the opinion's arcs.
        const SdfPath anchor = opinion->path.StripAllVariantSelections();
        const Usd_NamespaceMap& map = *opinion->map;
        value->UncheckedGet<SdfPathListOp>().ApplyOperations(
            paths, [&](SdfListOpType, const SdfPath& path) -> std::optional<SdfPath> {
                const SdfPath onStage = map.MapToStage(path.MakeAbsolutePath(anchor).StripAllVariantSelections());
                if (onStage.IsEmpty()) {
                    TF_WARN("<%s>: the path <%s> authored in '%s' is outside what its arcs bring to the stage",
                            prim.path.AppendProperty(name).GetText(), path.GetText(),
                            opinion->layer->GetIdentifier().c_str());
                    allMapped = false;
                    return std::nullopt;
                }
                return onStage;
            });
    }
    return authored && allMapped;
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
