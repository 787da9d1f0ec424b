// Writing a composed stage as one layer. What composition decided is written
// out as plain opinions: the composed specifier, type and metadata of each
// prim, the resolved values and samples of its attributes on the stage's
// time line, and the composed targets and connections as explicit lists. The
// arcs that produced them are not written, nor are inactive prims, which the
// stage leaves out of its scene.

#include "usdcore/usd/stage.h"

#include "usdcore/sdf/listOp.h"
#include "usdcore/sdf/schema.h"
#include "usdcore/sdf/types.h"
#include "usdcore/tf/diagnostic.h"
#include "usdcore/usd/stageContents.h"

#include <unordered_map>
#include <unordered_set>
#include <vector>

PXR_NAMESPACE_OPEN_SCOPE

namespace {

using TokenSet = std::unordered_set<TfToken, TfToken::HashFunctor>;

const TfToken& ApiSchemasKey()
{
    static const TfToken key("apiSchemas");
    return key;
}

// Fields that are not carried over as metadata: composition arcs (their
// effect is already in what is written), values and children (written from
// the composed objects), and the fields each spec's declaration writes.
const TokenSet& FieldsNotCopied()
{
    static const TokenSet* fields = new TokenSet{
        SdfFieldKeys->InheritPaths, SdfFieldKeys->LayerRelocates, SdfFieldKeys->Payload,
        SdfFieldKeys->References, SdfFieldKeys->Relocates, SdfFieldKeys->Specializes,
        SdfFieldKeys->SubLayers, SdfFieldKeys->SubLayerOffsets, SdfFieldKeys->VariantSelection,
        SdfFieldKeys->VariantSetNames, SdfFieldKeys->Default, SdfFieldKeys->TimeSamples,
        SdfFieldKeys->ConnectionPaths, SdfFieldKeys->TargetPaths, SdfFieldKeys->Specifier,
        SdfFieldKeys->TypeName, SdfFieldKeys->Custom, SdfFieldKeys->Variability,
        SdfFieldKeys->PrimOrder, ApiSchemasKey(), TfToken("clips"), TfToken("clipSets"),
        SdfChildrenKeys->ConnectionChildren, SdfChildrenKeys->ExpressionChildren,
        SdfChildrenKeys->MapperArgChildren, SdfChildrenKeys->MapperChildren, SdfChildrenKeys->PrimChildren,
        SdfChildrenKeys->PropertyChildren, SdfChildrenKeys->RelationshipTargetChildren,
        SdfChildrenKeys->VariantChildren, SdfChildrenKeys->VariantSetChildren};
    return *fields;
}

// Metadata fields some spec of the object authors, strongest spec's order
// first, each once.
template <class ForEachFields>
std::vector<TfToken> AuthoredMetadataFields(ForEachFields&& forEachFields)
{
    std::vector<TfToken> names;
    TokenSet seen;
    forEachFields([&](const SdfData::FieldVector& fields) {
        for (const SdfData::Field& field : fields) {
            if (!FieldsNotCopied().count(field.first) && seen.insert(field.first).second) {
                names.push_back(field.first);
            }
        }
    });
    return names;
}

std::vector<TfToken> PrimMetadataFields(const Usd_PrimData& prim)
{
    return AuthoredMetadataFields([&](auto&& visit) {
        for (const Usd_Opinion* opinion = prim.OpinionsBegin(); opinion != prim.OpinionsEnd(); ++opinion) {
            visit(*opinion->fields);
        }
    });
}

std::vector<TfToken> PropertyMetadataFields(const Usd_PrimData& prim, const TfToken& name)
{
    return AuthoredMetadataFields([&](auto&& visit) {
        for (const Usd_Opinion* opinion = prim.OpinionsBegin(); opinion != prim.OpinionsEnd(); ++opinion) {
            const SdfPath specPath = Sdf_FindPropertyPath(opinion->path, name);
            if (const SdfData::FieldVector* fields = opinion->layer->GetData().GetFields(specPath)) {
                visit(*fields);
            }
        }
    });
}

// Writes the composed objects of one stage into a layer's data.
class Flattener
{
public:
    explicit Flattener(SdfData* data) : _data(data) {}

    void WritePrim(const Usd_PrimData& data, const UsdPrim& prim);
    /// Gives every written prim the list of its written children.
    void Finish();

private:
    void _CopyMetadata(const UsdObject& object, const SdfPath& specPath, const std::vector<TfToken>& fields);
    void _WriteAttribute(const UsdAttribute& attribute, const SdfPath& specPath);
    void _WriteRelationship(const UsdRelationship& relationship, const SdfPath& specPath);
    void _SetIfTrue(const UsdObject& object, const SdfPath& specPath, const TfToken& field);

    SdfData* _data;
    std::unordered_map<SdfPath, std::vector<TfToken>, SdfPath::Hash> _children;
};

void Flattener::_CopyMetadata(const UsdObject& object, const SdfPath& specPath,
                              const std::vector<TfToken>& fields)
{
    for (const TfToken& field : fields) {
        VtValue value;
        if (object.GetMetadata(field, &value)) {
            _data->Set(specPath, field, std::move(value));
        }
    }
}

void Flattener::_SetIfTrue(const UsdObject& object, const SdfPath& specPath, const TfToken& field)
{
    bool set = false;
    if (object.GetMetadata(field, &set) && set) {
        _data->Set(specPath, field, VtValue(true));
    }
}

void Flattener::WritePrim(const Usd_PrimData& data, const UsdPrim& prim)
{
    const SdfPath& path = data.path;
    _data->CreateSpec(path, SdfSpecTypePrim);
    _children[path.GetParentPath()].push_back(path.GetNameToken());
    _data->Set(path, SdfFieldKeys->Specifier, VtValue(data.specifier));
    if (!data.typeName.IsEmpty()) {
        _data->Set(path, SdfFieldKeys->TypeName, VtValue(data.typeName));
    }
    const std::vector<TfToken> applied = prim.GetAppliedSchemas();
    if (!applied.empty()) {
        _data->Set(path, ApiSchemasKey(), VtValue(SdfTokenListOp::CreateExplicit(applied)));
    }
    _CopyMetadata(prim, path, PrimMetadataFields(data));

    std::vector<TfToken> propertyNames;
    for (const UsdProperty& property : prim.GetAuthoredProperties()) {
        const TfToken& name = property.GetName();
        const SdfPath propertyPath = path.AppendProperty(name);
        if (const UsdAttribute attribute = prim.GetAttribute(name)) {
            if (!attribute.GetTypeName()) {
                TF_WARN("<%s> has a value type this reader does not know; it is left out of the flattened layer",
                        propertyPath.GetText());
                continue;
            }
            _WriteAttribute(attribute, propertyPath);
        } else if (const UsdRelationship relationship = prim.GetRelationship(name)) {
            _WriteRelationship(relationship, propertyPath);
        } else {
            continue;
        }
        _CopyMetadata(property, propertyPath, PropertyMetadataFields(data, name));
        propertyNames.push_back(name);
    }
    if (!propertyNames.empty()) {
        _data->Set(path, SdfChildrenKeys->PropertyChildren, VtValue(std::move(propertyNames)));
    }
}

void Flattener::_WriteAttribute(const UsdAttribute& attribute, const SdfPath& specPath)
{
    _data->CreateSpec(specPath, SdfSpecTypeAttribute);
    _data->Set(specPath, SdfFieldKeys->TypeName, VtValue(attribute.GetTypeName().GetAsToken()));
    _SetIfTrue(attribute, specPath, SdfFieldKeys->Custom);
    if (attribute.GetVariability() == SdfVariabilityUniform) {
        _data->Set(specPath, SdfFieldKeys->Variability, VtValue(SdfVariabilityUniform));
    }

    // The samples go over only when they decide the value: a stronger
    // default hides them on the stage, so it hides them here too.
    std::vector<double> times;
    attribute.GetTimeSamples(&times);
    if (!times.empty()) {
        SdfTimeSampleMap samples;
        for (const double time : times) {
            VtValue value;
            if (!attribute.Get(&value, UsdTimeCode(time))) {
                value = VtValue(SdfValueBlock());
            }
            samples[time].Swap(value);
        }
        _data->Set(specPath, SdfFieldKeys->TimeSamples, VtValue::Take(samples));
    }
    if (attribute.HasAuthoredMetadata(SdfFieldKeys->Default)) {
        VtValue value;
        if (!attribute.Get(&value)) {
            value = VtValue(SdfValueBlock());
        }
        _data->Set(specPath, SdfFieldKeys->Default, std::move(value));
    }
    // Paths that do not map onto the stage were reported and left out;
    // the rest still go over.
    SdfPathVector sources;
    attribute.GetConnections(&sources);
    if (!sources.empty()) {
        _data->Set(specPath, SdfFieldKeys->ConnectionPaths, VtValue(SdfPathListOp::CreateExplicit(sources)));
    }
}

void Flattener::_WriteRelationship(const UsdRelationship& relationship, const SdfPath& specPath)
{
    _data->CreateSpec(specPath, SdfSpecTypeRelationship);
    _SetIfTrue(relationship, specPath, SdfFieldKeys->Custom);
    SdfPathVector targets;
    relationship.GetTargets(&targets);
    if (!targets.empty()) {
        _data->Set(specPath, SdfFieldKeys->TargetPaths, VtValue(SdfPathListOp::CreateExplicit(targets)));
    }
}

void Flattener::Finish()
{
    for (auto& [parent, names] : _children) {
        _data->Set(parent, SdfChildrenKeys->PrimChildren, VtValue(std::move(names)));
    }
}

} // namespace

void UsdStage::_FlattenInto(SdfData* data) const
{
    data->CreateSpec(SdfPath::AbsoluteRootPath(), SdfSpecTypePseudoRoot);
    // Layer metadata is the root layer's alone: sublayers lend it nothing.
    if (const SdfData::FieldVector* fields = _rootLayer->GetData().GetFields(SdfPath::AbsoluteRootPath())) {
        for (const SdfData::Field& field : *fields) {
            if (!FieldsNotCopied().count(field.first)) {
                data->Set(SdfPath::AbsoluteRootPath(), field.first, field.second);
            }
        }
    }
    Flattener flattener(data);
    // Prims are stored parents first, so every parent is decided before its
    // children: a child is written when its parent was.
    std::unordered_set<const Usd_PrimData*> written{_contents->pseudoRoot};
    for (const Usd_PrimData& prim : _contents->prims) {
        if (&prim == _contents->pseudoRoot || !written.count(prim.parent) || !prim.Has(Usd_PrimActiveFlag)) {
            continue;
        }
        written.insert(&prim);
        flattener.WritePrim(prim, UsdPrim(&prim));
    }
    flattener.Finish();
}

SdfLayerRefPtr UsdStage::Flatten(bool addSourceFileComment) const
{
    SdfData data;
    // Instances are written with their composed content: their children
    // are on the stage like any other prims.
    _FlattenInto(&data);
    if (addSourceFileComment) {
        std::string documentation;
        data.Has(SdfPath::AbsoluteRootPath(), SdfFieldKeys->Documentation, &documentation);
        if (!documentation.empty()) {
            documentation += "\n\n";
        }
        documentation += "Generated from Composed Stage of root layer " + _rootLayer->GetRealPath() + "\n";
        data.Set(SdfPath::AbsoluteRootPath(), SdfFieldKeys->Documentation, VtValue(documentation));
    }
    return SdfLayer::CreateAnonymous(".usda", std::move(data));
}

PXR_NAMESPACE_CLOSE_SCOPE
