#include "usdcore/sdf/usda/usdaReader.h"

#include "usdcore/sdf/schema.h"
#include "usdcore/sdf/types.h"
#include "usdcore/sdf/usda/metadataFields.h"
#include "usdcore/sdf/usda/metadataText.h"
#include "usdcore/sdf/usda/textCursor.h"
#include "usdcore/sdf/usda/valueText.h"
#include "usdcore/tf/diagnostic.h"

#include <optional>
#include <map>
#include <utility>
#include <vector>

PXR_NAMESPACE_OPEN_SCOPE

namespace {

using TokenVector = std::vector<TfToken>;

// Relative paths in a spec's statements are relative to its prim, seen
// without variant selections (targets name composed prims).
SdfPath AnchorOf(const SdfPath& specPath)
{
    if (specPath.IsAbsoluteRootPath()) {
        return SdfPath();
    }
    const SdfPath prim = specPath.IsPropertyPath() ? specPath.GetParentPath() : specPath;
    return prim.StripAllVariantSelections();
}

class UsdaParser
{
public:
    UsdaParser(std::string_view text, const std::string& identifier, SdfData* data)
        : _c(text), _identifier(identifier), _data(data)
    {
    }

    bool ParseLayer();
    const Sdf_TextCursor& GetCursor() const { return _c; }
    /// Stores the children lists gathered while parsing.
    void StoreChildNames();

private:
    bool ParseMetadataBlock(const SdfPath& path, bool isLayer);
    bool ParseMetadataEntry(const SdfPath& path, bool isLayer);
    bool ParsePrim(const SdfPath& parent, int depth);
    bool ParsePrimBody(const SdfPath& primPath, int depth);
    bool ParseReorder(const SdfPath& primPath, const TfToken& field);
    bool ParseProperty(const SdfPath& primPath);
    bool ParseAttribute(const SdfPath& primPath, SdfListOpType op, bool custom, std::optional<SdfVariability> variability);
    bool ParseRelationship(const SdfPath& primPath, SdfListOpType op, bool custom, std::optional<SdfVariability> variability);
    bool ParseTargets(const SdfPath& propertyPath, SdfListOpType op, const TfToken& listField);
    bool ParseTimeSamples(const std::string& typeName, SdfTimeSampleMap* samples);
    bool ParseAttributeValue(const std::string& typeName, VtValue* value);
    bool ParseVariantSet(const SdfPath& primPath, int depth);
    bool ReadName(std::string* name);
    bool AcceptListOpKeyword(SdfListOpType* op);
    bool StartProperty(const SdfPath& path, SdfSpecType type, bool custom, std::optional<SdfVariability> variability);
    // A problem that the layer survives, reported where it stands.
    void WarnAt(size_t offset, const std::string& message) const;

    void AppendChildName(const SdfPath& path, const TfToken& key, const TfToken& name)
    {
        _childNames[{path, key}].push_back(name);
    }

    Sdf_TextCursor _c;
    const std::string& _identifier;
    SdfData* _data;
    // Children lists grow here and go into the data once at the end:
    // growing them in place in the data would copy each list per child.
    std::map<std::pair<SdfPath, TfToken>, TokenVector> _childNames;
};

void UsdaParser::WarnAt(size_t offset, const std::string& message) const
{
    size_t line = 0;
    size_t column = 0;
    _c.GetLineAndColumn(offset, &line, &column);
    TF_WARN("%s:%zu:%zu: %s", _identifier.c_str(), line, column, message.c_str());
}

void UsdaParser::StoreChildNames()
{
    for (auto& [key, names] : _childNames) {
        _data->Set(key.first, key.second, VtValue::Take(names));
    }
    _childNames.clear();
}

bool UsdaParser::AcceptListOpKeyword(SdfListOpType* op)
{
    static const std::pair<std::string_view, SdfListOpType> keywords[] = {
        {"delete", SdfListOpTypeDeleted},     {"add", SdfListOpTypeAdded},
        {"prepend", SdfListOpTypePrepended},  {"append", SdfListOpTypeAppended},
        {"reorder", SdfListOpTypeOrdered},
    };
    _c.SkipSpace();
    const std::string_view word = _c.PeekIdentifier();
    for (const auto& [keyword, type] : keywords) {
        if (word == keyword) {
            _c.AcceptKeyword(keyword);
            *op = type;
            return true;
        }
    }
    *op = SdfListOpTypeExplicit;
    return false;
}

bool UsdaParser::ParseLayer()
{
    static constexpr std::string_view kHeader = "#usda ";
    if (_c.Slice(0, kHeader.size()) != kHeader) {
        return _c.Fail("not a text layer: the first line must be '#usda 1.0'");
    }
    _c.SetOffset(kHeader.size());
    double version = 0;
    if (!_c.ReadDouble(&version)) return false;
    if (version != 1.0) {
        return _c.Fail("unsupported text layer version");
    }
    const SdfPath& root = SdfPath::AbsoluteRootPath();
    _data->CreateSpec(root, SdfSpecTypePseudoRoot);
    _c.SkipSpace();
    if (_c.Peek() == '(' && !ParseMetadataBlock(root, true)) return false;
    for (;;) {
        _c.SkipSpace();
        if (_c.AtEnd()) return !_c.Failed();
        if (_c.AcceptKeyword("reorder")) {
            if (!_c.AcceptKeyword("rootPrims")) return _c.Fail("expected 'rootPrims' after 'reorder'");
            if (!ParseReorder(root, SdfFieldKeys->PrimOrder)) return false;
        } else if (!ParsePrim(root, 0)) {
            return false;
        }
    }
}

bool UsdaParser::ParseMetadataBlock(const SdfPath& path, bool isLayer)
{
    if (!_c.Expect('(')) return false;
    for (;;) {
        if (_c.Accept(')')) return true;
        if (_c.AtEnd()) return _c.Expect(')');
        if (!ParseMetadataEntry(path, isLayer)) return false;
        _c.Accept(';');
    }
}

bool UsdaParser::ParseMetadataEntry(const SdfPath& path, bool isLayer)
{
    _c.SkipSpace();
    if (_c.AtString()) {
        // A bare string in metadata is the object's comment field.
        std::string comment;
        if (!_c.ReadString(&comment)) return false;
        _data->Set(path, SdfFieldKeys->Comment, VtValue::Take(comment));
        return true;
    }
    SdfListOpType op;
    AcceptListOpKeyword(&op);
    _c.SkipSpace();
    const size_t keyStart = _c.GetOffset();
    std::string_view key;
    if (!_c.ReadIdentifier(&key, true) || !_c.Expect('=')) return false;
    const Sdf_MetadataField* field = Sdf_FindMetadataByKeyword(key, isLayer);
    if (field && field->kind == Sdf_MetadataKind::SubLayers) {
        if (!isLayer) {
            _c.SetOffset(keyStart);
            return _c.Fail("'subLayers' is layer metadata only");
        }
        std::vector<std::string> paths;
        std::vector<SdfLayerOffset> offsets;
        if (!Sdf_ParseSubLayers(_c, &paths, &offsets)) return false;
        _data->Set(path, SdfFieldKeys->SubLayers, VtValue::Take(paths));
        _data->Set(path, SdfFieldKeys->SubLayerOffsets, VtValue::Take(offsets));
        return true;
    }
    if (!field) {
        // Kept as written, for what reads it by name and for writing it back;
        // metadata this reader does not know is no reason to refuse a layer.
        VtValue value;
        if (!Sdf_ParseUnknownMetadataValue(_c, &value)) return false;
        WarnAt(keyStart, "unknown metadata '" + std::string(key) + "' is kept unregistered" +
                             (op != SdfListOpTypeExplicit ? ", without its list operation" : ""));
        _data->Set(path, TfToken(std::string(key)), std::move(value));
        return true;
    }
    const TfToken fieldName(std::string(field->fieldName));
    VtValue value;
    if (op != SdfListOpTypeExplicit) {
        _data->Has(path, fieldName, &value);
    }
    if (!Sdf_ParseMetadataValue(_c, *field, op, AnchorOf(path), &value)) return false;
    _data->Set(path, fieldName, std::move(value));
    return true;
}

bool UsdaParser::ReadName(std::string* name)
{
    const size_t start = _c.GetOffset();
    if (!_c.ReadString(name)) return false;
    if (!SdfPath::IsValidIdentifier(*name)) {
        _c.SetOffset(start);
        return _c.Fail("'" + *name + "' is not a valid prim name");
    }
    return true;
}

bool UsdaParser::ParsePrim(const SdfPath& parent, int depth)
{
    if (depth > Sdf_TextMaxNestingDepth) {
        return _c.Fail("prims nested too deeply");
    }
    SdfSpecifier specifier;
    if (_c.AcceptKeyword("def")) {
        specifier = SdfSpecifierDef;
    } else if (_c.AcceptKeyword("over")) {
        specifier = SdfSpecifierOver;
    } else if (_c.AcceptKeyword("class")) {
        specifier = SdfSpecifierClass;
    } else {
        return _c.Fail("expected 'def', 'over' or 'class'");
    }
    _c.SkipSpace();
    std::string_view typeName;
    if (!_c.AtString() && !_c.ReadIdentifier(&typeName, true)) return false;
    const size_t nameStart = _c.GetOffset();
    std::string name;
    if (!ReadName(&name)) return false;
    const TfToken nameToken(name);
    const SdfPath path = parent.AppendChild(nameToken);
    if (_data->HasSpec(path)) {
        _c.SetOffset(nameStart);
        return _c.Fail("duplicate prim '" + path.GetString() + "'");
    }
    _data->CreateSpec(path, SdfSpecTypePrim);
    _data->Set(path, SdfFieldKeys->Specifier, VtValue(specifier));
    if (!typeName.empty()) {
        _data->Set(path, SdfFieldKeys->TypeName, VtValue(TfToken(std::string(typeName))));
    }
    AppendChildName(parent, SdfChildrenKeys->PrimChildren, nameToken);
    _c.SkipSpace();
    if (_c.Peek() == '(' && !ParseMetadataBlock(path, false)) return false;
    return ParsePrimBody(path, depth);
}

bool UsdaParser::ParsePrimBody(const SdfPath& primPath, int depth)
{
    if (!_c.Expect('{')) return false;
    for (;;) {
        _c.SkipSpace();
        if (_c.Accept('}')) return true;
        if (_c.AtEnd()) return _c.Expect('}');
        const std::string_view word = _c.PeekIdentifier();
        if (word == "def" || word == "over" || word == "class") {
            if (!ParsePrim(primPath, depth + 1)) return false;
        } else if (word == "variantSet") {
            if (!ParseVariantSet(primPath, depth + 1)) return false;
        } else if (word == "reorder") {
            const size_t start = _c.GetOffset();
            _c.AcceptKeyword("reorder");
            if (_c.AcceptKeyword("nameChildren")) {
                if (!ParseReorder(primPath, SdfFieldKeys->PrimOrder)) return false;
            } else if (_c.AcceptKeyword("properties")) {
                if (!ParseReorder(primPath, SdfFieldKeys->PropertyOrder)) return false;
            } else {
                _c.SetOffset(start);
                if (!ParseProperty(primPath)) return false;
            }
        } else if (!ParseProperty(primPath)) {
            return false;
        }
        _c.Accept(';');
    }
}

bool UsdaParser::ParseReorder(const SdfPath& primPath, const TfToken& field)
{
    if (!_c.Expect('=')) return false;
    VtValue names;
    if (!Sdf_ParseTypedValue(_c, "token[]", &names)) return false;
    const VtArray<TfToken>& array = names.UncheckedGet<VtArray<TfToken>>();
    _data->Set(primPath, field, VtValue(TokenVector(array.begin(), array.end())));
    return true;
}

bool UsdaParser::ParseProperty(const SdfPath& primPath)
{
    SdfListOpType op;
    AcceptListOpKeyword(&op);
    const bool custom = _c.AcceptKeyword("custom");
    // Only a written keyword sets variability: unwritten, the field stays
    // unauthored, as OpenUSD's readers leave it.
    std::optional<SdfVariability> variability;
    if (_c.AcceptKeyword("uniform")) {
        variability = SdfVariabilityUniform;
    } else if (_c.AcceptKeyword("varying")) {
        variability = SdfVariabilityVarying;
    }
    if (_c.AcceptKeyword("rel")) {
        return ParseRelationship(primPath, op, custom, variability);
    }
    return ParseAttribute(primPath, op, custom, variability);
}

bool UsdaParser::StartProperty(const SdfPath& path, SdfSpecType type, bool custom,
                               std::optional<SdfVariability> variability)
{
    const SdfSpecType existing = _data->GetSpecType(path);
    if (existing == type) return true;
    if (existing != SdfSpecTypeUnknown) {
        return _c.Fail("'" + path.GetName() + "' is declared both as an attribute and a relationship");
    }
    _data->CreateSpec(path, type);
    if (custom) {
        _data->Set(path, SdfFieldKeys->Custom, VtValue(true));
    }
    if (variability) {
        _data->Set(path, SdfFieldKeys->Variability, VtValue(*variability));
    }
    AppendChildName(path.GetParentPath(), SdfChildrenKeys->PropertyChildren, path.GetNameToken());
    return true;
}

bool UsdaParser::ParseAttribute(const SdfPath& primPath, SdfListOpType op, bool custom, std::optional<SdfVariability> variability)
{
    const size_t typeStart = _c.GetOffset();
    std::string_view scalarType;
    if (!_c.ReadIdentifier(&scalarType)) return false;
    std::string typeName(scalarType);
    if (_c.Peek() == '[') {
        _c.SetOffset(_c.GetOffset() + 1);
        if (!_c.Expect(']')) return false;
        typeName += "[]";
    }
    // A misspelled or foreign type name costs the attribute its value, not
    // the layer: the attribute keeps the name, and its values their text.
    if (!Sdf_IsKnownValueTypeName(scalarType)) {
        WarnAt(typeStart, "unknown value type '" + std::string(scalarType) +
                              "'; the attribute's values are kept as text");
    }
    std::string_view name;
    if (!_c.ReadIdentifier(&name, true)) return false;
    std::string_view suffix;
    if (_c.Peek() == '.') {
        _c.SetOffset(_c.GetOffset() + 1);
        if (!_c.ReadIdentifier(&suffix)) return false;
        if (suffix != "connect" && suffix != "timeSamples") {
            return _c.Fail("unexpected '." + std::string(suffix) + "' after an attribute name");
        }
    }
    if (op != SdfListOpTypeExplicit && suffix != "connect") {
        return _c.Fail("list operations apply to connections only");
    }
    const SdfPath path = primPath.AppendProperty(TfToken(std::string(name)));
    if (!StartProperty(path, SdfSpecTypeAttribute, custom, variability)) return false;
    _data->Set(path, SdfFieldKeys->TypeName, VtValue(TfToken(typeName)));
    if (suffix == "connect") {
        if (!_c.Expect('=')) return false;
        return ParseTargets(path, op, SdfFieldKeys->ConnectionPaths);
    }
    if (suffix == "timeSamples") {
        if (!_c.Expect('=')) return false;
        SdfTimeSampleMap samples;
        if (!ParseTimeSamples(typeName, &samples)) return false;
        _data->Set(path, SdfFieldKeys->TimeSamples, VtValue::Take(samples));
        return true;
    }
    if (_c.Accept('=')) {
        VtValue value;
        if (_c.AcceptKeyword("None")) {
            value = VtValue(SdfValueBlock());
        } else if (!ParseAttributeValue(typeName, &value)) {
            return false;
        }
        _data->Set(path, SdfFieldKeys->Default, std::move(value));
    }
    _c.SkipSpace();
    return _c.Peek() != '(' || ParseMetadataBlock(path, false);
}

bool UsdaParser::ParseAttributeValue(const std::string& typeName, VtValue* value)
{
    const std::string_view scalarType = std::string_view(typeName).substr(0, typeName.find('['));
    return Sdf_IsKnownValueTypeName(scalarType) ? Sdf_ParseTypedValue(_c, typeName, value)
                                                : Sdf_ParseUnregisteredValue(_c, value);
}

bool UsdaParser::ParseTimeSamples(const std::string& typeName, SdfTimeSampleMap* samples)
{
    if (!_c.Expect('{')) return false;
    for (;;) {
        if (_c.Accept('}')) return true;
        double time = 0;
        if (!_c.ReadDouble(&time) || !_c.Expect(':')) return false;
        VtValue value;
        if (_c.AcceptKeyword("None")) {
            value = VtValue(SdfValueBlock());
        } else if (!ParseAttributeValue(typeName, &value)) {
            return false;
        }
        (*samples)[time] = std::move(value);
        if (!_c.Accept(',')) return _c.Expect('}');
    }
}

bool UsdaParser::ParseRelationship(const SdfPath& primPath, SdfListOpType op, bool custom, std::optional<SdfVariability> variability)
{
    std::string_view name;
    if (!_c.ReadIdentifier(&name, true)) return false;
    const SdfPath path = primPath.AppendProperty(TfToken(std::string(name)));
    if (!StartProperty(path, SdfSpecTypeRelationship, custom, variability)) return false;
    if (_c.Accept('=')) {
        if (!ParseTargets(path, op, SdfFieldKeys->TargetPaths)) {
            return false;
        }
    } else if (op != SdfListOpTypeExplicit) {
        return _c.Expect('=');
    }
    _c.SkipSpace();
    return _c.Peek() != '(' || ParseMetadataBlock(path, false);
}

bool UsdaParser::ParseTargets(const SdfPath& propertyPath, SdfListOpType op, const TfToken& listField)
{
    // Targets live in the list op only; like OpenUSD's readers of either
    // format, no spec is made per target.
    SdfPathListOp listOp;
    _data->Has(propertyPath, listField, &listOp);
    if (!Sdf_ParsePathListOpItems(_c, op, AnchorOf(propertyPath), &listOp)) return false;
    _data->Set(propertyPath, listField, VtValue::Take(listOp));
    return true;
}

bool UsdaParser::ParseVariantSet(const SdfPath& primPath, int depth)
{
    if (depth > Sdf_TextMaxNestingDepth) {
        return _c.Fail("variant sets nested too deeply");
    }
    _c.AcceptKeyword("variantSet");
    std::string setName;
    if (!ReadName(&setName) || !_c.Expect('=') || !_c.Expect('{')) return false;
    const SdfPath setPath = primPath.AppendVariantSelection(setName, "");
    if (!_data->HasSpec(setPath)) {
        _data->CreateSpec(setPath, SdfSpecTypeVariantSet);
        AppendChildName(primPath, SdfChildrenKeys->VariantSetChildren, TfToken(setName));
    }
    for (;;) {
        if (_c.Accept('}')) return true;
        std::string variantName;
        if (!_c.ReadString(&variantName)) return false;
        const SdfPath variantPath = primPath.AppendVariantSelection(setName, variantName);
        if (variantPath.IsEmpty()) {
            return _c.Fail("'" + variantName + "' is not a valid variant name");
        }
        if (_data->HasSpec(variantPath)) {
            return _c.Fail("duplicate variant '" + variantName + "'");
        }
        _data->CreateSpec(variantPath, SdfSpecTypeVariant);
        _data->Set(variantPath, SdfFieldKeys->Specifier, VtValue(SdfSpecifierOver));
        AppendChildName(setPath, SdfChildrenKeys->VariantChildren, TfToken(variantName));
        _c.SkipSpace();
        if (_c.Peek() == '(' && !ParseMetadataBlock(variantPath, false)) return false;
        if (!ParsePrimBody(variantPath, depth)) return false;
    }
}

} // namespace

bool SdfUsdaReadData(std::string_view text, const std::string& identifier, SdfData* data)
{
    UsdaParser parser(text, identifier, data);
    const bool parsed = parser.ParseLayer();
    parser.StoreChildNames();
    if (parsed) {
        return true;
    }
    const Sdf_TextCursor& cursor = parser.GetCursor();
    size_t line = 0;
    size_t column = 0;
    cursor.GetLineAndColumn(cursor.GetErrorOffset(), &line, &column);
    TF_RUNTIME_ERROR("%s:%zu:%zu: %s", identifier.c_str(), line, column, cursor.GetError().c_str());
    return false;
}

PXR_NAMESPACE_CLOSE_SCOPE
