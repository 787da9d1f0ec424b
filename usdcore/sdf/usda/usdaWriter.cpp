#include "usdcore/sdf/usda/usdaWriter.h"

#include "usdcore/sdf/schema.h"
#include "usdcore/sdf/types.h"
#include "usdcore/sdf/usda/metadataText.h"
#include "usdcore/sdf/usda/valueText.h"
#include "usdcore/tf/diagnostic.h"

#include <algorithm>
#include <vector>

PXR_NAMESPACE_OPEN_SCOPE

namespace {

using TokenVector = std::vector<TfToken>;

void Indent(int levels, std::string* out) { out->append(size_t(levels) * 4, ' '); }

bool IsOneOf(const TfToken& field, std::initializer_list<TfToken> fields)
{
    return std::find(fields.begin(), fields.end(), field) != fields.end();
}

// Fields the statements themselves carry, never written as metadata.
bool IsStructuralField(const TfToken& field)
{
    return IsOneOf(field, {SdfFieldKeys->Specifier, SdfFieldKeys->TypeName, SdfFieldKeys->Custom,
                           SdfFieldKeys->Variability, SdfFieldKeys->Default, SdfFieldKeys->TimeSamples,
                           SdfFieldKeys->ConnectionPaths, SdfFieldKeys->TargetPaths,
                           SdfFieldKeys->PrimOrder, SdfFieldKeys->PropertyOrder, SdfFieldKeys->SubLayers,
                           SdfFieldKeys->SubLayerOffsets, SdfFieldKeys->Comment,
                           SdfChildrenKeys->PrimChildren, SdfChildrenKeys->PropertyChildren,
                           SdfChildrenKeys->VariantSetChildren, SdfChildrenKeys->VariantChildren,
                           SdfChildrenKeys->ConnectionChildren,
                           SdfChildrenKeys->RelationshipTargetChildren});
}

class UsdaWriter
{
public:
    UsdaWriter(const SdfData& data, std::string* out) : _data(data), _out(out) {}

    void WriteLayer();

private:
    TokenVector Names(const SdfPath& path, const TfToken& field) const
    {
        TokenVector names;
        _data.Has(path, field, &names);
        return names;
    }
    /// The metadata statements of \p path, one per line, or nothing.
    std::string MetadataLines(const SdfPath& path, int indent, bool isLayer) const;
    void WriteMetadataBlock(const std::string& lines, int indent, bool isLayer);
    void WriteMetadataBlock(const SdfPath& path, int indent, bool isLayer);
    void WriteReorder(const SdfPath& path, const TfToken& field, const char* statement, int indent);
    void WritePrim(const SdfPath& path, int indent);
    void WriteBody(const SdfPath& path, int indent);
    void WriteAttribute(const SdfPath& path, int indent);
    void WriteRelationship(const SdfPath& path, int indent);
    void WriteVariantSet(const SdfPath& primPath, const TfToken& setName, int indent);
    void WriteValue(const SdfPath& path, const VtValue& value);
    bool IsCustom(const SdfPath& path) const;
    SdfVariability Variability(const SdfPath& path, SdfVariability fallback) const;

    const SdfData& _data;
    std::string* _out;
};

void UsdaWriter::WriteLayer()
{
    const SdfPath& root = SdfPath::AbsoluteRootPath();
    _out->append("#usda 1.0\n");
    WriteMetadataBlock(root, 0, true);
    WriteReorder(root, SdfFieldKeys->PrimOrder, "reorder rootPrims", 0);
    for (const TfToken& name : Names(root, SdfChildrenKeys->PrimChildren)) {
        _out->push_back('\n');
        WritePrim(root.AppendChild(name), 0);
    }
}

std::string UsdaWriter::MetadataLines(const SdfPath& path, int indent, bool isLayer) const
{
    std::string lines;
    std::string comment;
    if (_data.Has(path, SdfFieldKeys->Comment, &comment)) {
        Indent(indent + 1, &lines);
        Sdf_FormatString(comment, &lines);
        lines.push_back('\n');
    }
    if (const SdfData::FieldVector* fields = _data.GetFields(path)) {
        for (const auto& [field, value] : *fields) {
            if (!IsStructuralField(field)) {
                Sdf_FormatMetadata(field, value, indent + 1, &lines);
            }
        }
    }
    std::vector<std::string> subLayers;
    if (isLayer && _data.Has(path, SdfFieldKeys->SubLayers, &subLayers)) {
        std::vector<SdfLayerOffset> offsets;
        _data.Has(path, SdfFieldKeys->SubLayerOffsets, &offsets);
        Sdf_FormatSubLayers(subLayers, offsets, indent + 1, &lines);
    }
    return lines;
}

void UsdaWriter::WriteMetadataBlock(const std::string& lines, int indent, bool isLayer)
{
    if (lines.empty()) {
        if (!isLayer) _out->push_back('\n');
        return;
    }
    _out->append(isLayer ? "(\n" : " (\n");
    _out->append(lines);
    Indent(indent, _out);
    _out->append(")\n");
}

void UsdaWriter::WriteMetadataBlock(const SdfPath& path, int indent, bool isLayer)
{
    WriteMetadataBlock(MetadataLines(path, indent, isLayer), indent, isLayer);
}

void UsdaWriter::WriteReorder(const SdfPath& path, const TfToken& field, const char* statement, int indent)
{
    TokenVector order;
    if (!_data.Has(path, field, &order)) return;
    Indent(indent, _out);
    _out->append(statement);
    _out->append(" = ");
    Sdf_FormatTypedValue(VtValue(VtArray<TfToken>(order.begin(), order.end())), _out);
    _out->push_back('\n');
}

void UsdaWriter::WritePrim(const SdfPath& path, int indent)
{
    SdfSpecifier specifier = SdfSpecifierOver;
    _data.Has(path, SdfFieldKeys->Specifier, &specifier);
    static const char* const keywords[] = {"def", "over", "class"};
    Indent(indent, _out);
    _out->append(keywords[specifier < SdfNumSpecifiers ? specifier : SdfSpecifierOver]);
    _out->push_back(' ');
    TfToken typeName;
    if (_data.Has(path, SdfFieldKeys->TypeName, &typeName) && !typeName.IsEmpty()) {
        _out->append(typeName.GetString());
        _out->push_back(' ');
    }
    Sdf_FormatString(path.GetName(), _out);
    WriteMetadataBlock(path, indent, false);
    WriteBody(path, indent);
}

void UsdaWriter::WriteBody(const SdfPath& path, int indent)
{
    Indent(indent, _out);
    _out->append("{\n");
    WriteReorder(path, SdfFieldKeys->PrimOrder, "reorder nameChildren", indent + 1);
    WriteReorder(path, SdfFieldKeys->PropertyOrder, "reorder properties", indent + 1);
    for (const TfToken& name : Names(path, SdfChildrenKeys->PropertyChildren)) {
        const SdfPath propertyPath = path.AppendProperty(name);
        if (_data.GetSpecType(propertyPath) == SdfSpecTypeRelationship) {
            WriteRelationship(propertyPath, indent + 1);
        } else {
            WriteAttribute(propertyPath, indent + 1);
        }
    }
    for (const TfToken& name : Names(path, SdfChildrenKeys->PrimChildren)) {
        _out->push_back('\n');
        WritePrim(path.AppendChild(name), indent + 1);
    }
    for (const TfToken& setName : Names(path, SdfChildrenKeys->VariantSetChildren)) {
        _out->push_back('\n');
        WriteVariantSet(path, setName, indent + 1);
    }
    Indent(indent, _out);
    _out->append("}\n");
}

bool UsdaWriter::IsCustom(const SdfPath& path) const
{
    bool custom = false;
    return _data.Has(path, SdfFieldKeys->Custom, &custom) && custom;
}

SdfVariability UsdaWriter::Variability(const SdfPath& path, SdfVariability fallback) const
{
    SdfVariability variability = fallback;
    _data.Has(path, SdfFieldKeys->Variability, &variability);
    return variability;
}

void UsdaWriter::WriteValue(const SdfPath& path, const VtValue& value)
{
    if (value.IsHolding<SdfValueBlock>()) {
        _out->append("None");
    } else if (!Sdf_FormatTypedValue(value, _out)) {
        TF_WARN("'%s' holds a %s, which the text format cannot spell; 'None' is written",
                path.GetText(), value.GetTypeName().c_str());
        _out->append("None");
    }
}

// As OpenUSD writes properties: the declaration line only when it carries
// something (a value, metadata, 'custom') or nothing else would declare the
// property; samples, connections and list-edited targets as statements of
// their own.
void UsdaWriter::WriteAttribute(const SdfPath& path, int indent)
{
    TfToken typeName;
    _data.Has(path, SdfFieldKeys->TypeName, &typeName);
    // Attributes spell only 'uniform'; varying is the default.
    const std::string variability =
        Variability(path, SdfVariabilityVarying) == SdfVariabilityUniform ? "uniform " : "";
    const std::string declaration = variability + typeName.GetString() + " " + path.GetName();
    const VtValue* value = _data.GetFieldValue(path, SdfFieldKeys->Default);
    SdfTimeSampleMap samples;
    const bool hasSamples = _data.Has(path, SdfFieldKeys->TimeSamples, &samples);
    SdfPathListOp connections;
    const bool hasConnections = _data.Has(path, SdfFieldKeys->ConnectionPaths, &connections);
    const bool custom = IsCustom(path);
    const std::string metadata = MetadataLines(path, indent, false);
    if (!metadata.empty() || value || custom || (!hasSamples && !hasConnections)) {
        Indent(indent, _out);
        _out->append(custom ? "custom " : "");
        _out->append(declaration);
        if (value) {
            _out->append(" = ");
            WriteValue(path, *value);
        }
        WriteMetadataBlock(metadata, indent, false);
    }
    if (hasSamples) {
        Indent(indent, _out);
        _out->append(declaration);
        _out->append(".timeSamples = {\n");
        for (const auto& [time, sample] : samples) {
            Indent(indent + 1, _out);
            Sdf_FormatDouble(time, _out);
            _out->append(": ");
            WriteValue(path, sample);
            _out->append(",\n");
        }
        Indent(indent, _out);
        _out->append("}\n");
    }
    if (hasConnections) {
        Sdf_FormatPathListOp(connections, declaration + ".connect", indent, _out);
    }
}

void UsdaWriter::WriteRelationship(const SdfPath& path, int indent)
{
    // Relationships are uniform unless declared 'varying'.
    const std::string declaration =
        std::string(Variability(path, SdfVariabilityUniform) == SdfVariabilityVarying ? "varying " : "") +
        "rel " + path.GetName();
    SdfPathListOp targets;
    const bool hasTargets = _data.Has(path, SdfFieldKeys->TargetPaths, &targets);
    const bool explicitTargets = hasTargets && targets.IsExplicit();
    const bool custom = IsCustom(path);
    const std::string metadata = MetadataLines(path, indent, false);
    if (!metadata.empty() || explicitTargets || (!hasTargets && !custom)) {
        Indent(indent, _out);
        _out->append(custom ? "custom " : "");
        _out->append(declaration);
        if (explicitTargets) {
            _out->append(" = ");
            Sdf_FormatPropertyPaths(targets.GetExplicitItems(), indent, _out);
        }
        WriteMetadataBlock(metadata, indent, false);
    } else if (custom) {
        Indent(indent, _out);
        _out->append("custom " + declaration + "\n");
    }
    if (hasTargets && !explicitTargets) {
        Sdf_FormatPathListOp(targets, declaration, indent, _out);
    }
}

void UsdaWriter::WriteVariantSet(const SdfPath& primPath, const TfToken& setName, int indent)
{
    Indent(indent, _out);
    _out->append("variantSet ");
    Sdf_FormatString(setName.GetString(), _out);
    _out->append(" = {\n");
    const SdfPath setPath = primPath.AppendVariantSelection(setName.GetString(), "");
    for (const TfToken& variantName : Names(setPath, SdfChildrenKeys->VariantChildren)) {
        const SdfPath variantPath = primPath.AppendVariantSelection(setName.GetString(), variantName.GetString());
        Indent(indent + 1, _out);
        Sdf_FormatString(variantName.GetString(), _out);
        WriteMetadataBlock(variantPath, indent + 1, false);
        WriteBody(variantPath, indent + 1);
    }
    Indent(indent, _out);
    _out->append("}\n");
}

} // namespace

bool SdfUsdaWriteData(const SdfData& data, std::string* out)
{
    if (data.GetSpecType(SdfPath::AbsoluteRootPath()) != SdfSpecTypePseudoRoot) {
        TF_CODING_ERROR("layer data without a pseudo-root cannot be written");
        return false;
    }
    UsdaWriter(data, out).WriteLayer();
    return true;
}

PXR_NAMESPACE_CLOSE_SCOPE
