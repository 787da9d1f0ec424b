#include "usdcore/sdf/usda/metadataText.h"

#include "usdcore/sdf/layerOffset.h"
#include "usdcore/sdf/payload.h"
#include "usdcore/sdf/reference.h"
#include "usdcore/sdf/types.h"
#include "usdcore/sdf/usda/valueText.h"
#include "usdcore/tf/diagnostic.h"
#include "usdcore/vt/array.h"
#include "usdcore/vt/types.h"

#include <utility>

PXR_NAMESPACE_OPEN_SCOPE

namespace {

using Kind = Sdf_MetadataKind;

// ---------------------------------------------------------------- reading

template <class T, class ReadItem>
bool ParseListOpItems(Sdf_TextCursor& c, SdfListOpType op, SdfListOp<T>* listOp, ReadItem&& readItem)
{
    std::vector<T> items;
    c.SkipSpace();
    if (c.AcceptKeyword("None")) {
        if (op == SdfListOpTypeExplicit) {
            listOp->ClearAndMakeExplicit();
        } else {
            listOp->SetItems(items, op);
        }
        return true;
    }
    if (c.Accept('[')) {
        if (!c.Accept(']')) {
            for (;;) {
                T item;
                if (!readItem(&item)) return false;
                items.push_back(std::move(item));
                if (c.Accept(',')) {
                    if (c.Accept(']')) break;
                    continue;
                }
                if (!c.Expect(']')) return false;
                break;
            }
        }
    } else {
        T item;
        if (!readItem(&item)) return false;
        items.push_back(std::move(item));
    }
    listOp->SetItems(items, op);
    return true;
}

bool ParsePath(Sdf_TextCursor& c, const SdfPath& anchor, SdfPath* out)
{
    const size_t start = c.GetOffset();
    std::string_view text;
    if (!c.ReadPathText(&text)) return false;
    std::string error;
    if (!SdfPath::IsValidPathString(std::string(text), &error)) {
        c.SetOffset(start);
        return c.Fail("invalid path <" + std::string(text) + ">: " + error);
    }
    SdfPath path{std::string(text)};
    *out = path.IsAbsolutePath() || anchor.IsEmpty() ? path : path.MakeAbsolutePath(anchor);
    return true;
}

// '(offset = 1; scale = 2; customData = {...})' after a sublayer, reference
// or payload; customData only where \p customData is given.
bool ParseArcArguments(Sdf_TextCursor& c, SdfLayerOffset* offset, VtDictionary* customData)
{
    c.SkipSpace();
    if (c.Peek() != '(') return true;
    c.Accept('(');
    for (;;) {
        if (c.Accept(')')) return true;
        std::string_view key;
        if (!c.ReadIdentifier(&key) || !c.Expect('=')) return false;
        if (key == "offset" || key == "scale") {
            double number = 0;
            if (!c.ReadDouble(&number)) return false;
            if (key == "offset") {
                offset->SetOffset(number);
            } else {
                offset->SetScale(number);
            }
        } else if (key == "customData" && customData) {
            if (!Sdf_ParseDictionary(c, customData, 0)) return false;
        } else {
            return c.Fail("unexpected '" + std::string(key) + "' in arc arguments");
        }
        c.Accept(';');
    }
}

template <class Arc>
bool ParseArc(Sdf_TextCursor& c, Arc* out)
{
    std::string assetPath;
    SdfPath primPath;
    SdfLayerOffset offset;
    VtDictionary customData;
    c.SkipSpace();
    if (c.Peek() == '@' && !c.ReadAssetPath(&assetPath)) return false;
    c.SkipSpace();
    if (c.Peek() == '<') {
        if (!ParsePath(c, SdfPath(), &primPath)) return false;
    } else if (assetPath.empty()) {
        return c.Fail("expected an asset path or a prim path");
    }
    if constexpr (std::is_same_v<Arc, SdfReference>) {
        if (!ParseArcArguments(c, &offset, &customData)) return false;
        *out = SdfReference(assetPath, primPath, offset, customData);
    } else {
        if (!ParseArcArguments(c, &offset, nullptr)) return false;
        *out = SdfPayload(assetPath, primPath, offset);
    }
    return true;
}

template <class T>
bool ParseTextItem(Sdf_TextCursor& c, T* out)
{
    std::string text;
    if (!c.ReadString(&text)) return false;
    *out = T(text);
    return true;
}

template <class T, class ReadItem>
bool ParseListOpValue(Sdf_TextCursor& c, SdfListOpType op, VtValue* value, ReadItem&& readItem)
{
    SdfListOp<T> listOp = value->IsHolding<SdfListOp<T>>() ? value->UncheckedGet<SdfListOp<T>>() : SdfListOp<T>();
    if (!ParseListOpItems(c, op, &listOp, readItem)) return false;
    *value = VtValue::Take(listOp);
    return true;
}

// '{ <source> : <target>, ... }'; an empty target '<>' relocates the
// source away. Order is kept, as OpenUSD keeps it.
bool ParseRelocates(Sdf_TextCursor& c, const SdfPath& anchor, VtValue* value)
{
    SdfRelocates relocates;
    auto readPath = [&](SdfPath* path) {
        c.SkipSpace();
        if (c.Peek() == '<' && c.PeekAt(1) == '>') {
            c.SetOffset(c.GetOffset() + 2);
            *path = SdfPath();
            return true;
        }
        return ParsePath(c, anchor, path);
    };
    if (!c.Expect('{')) return false;
    while (!c.Accept('}')) {
        SdfRelocate relocate;
        if (!ParsePath(c, anchor, &relocate.first) || !c.Expect(':') || !readPath(&relocate.second)) {
            return false;
        }
        relocates.push_back(std::move(relocate));
        if (!c.Accept(',')) {
            if (!c.Expect('}')) return false;
            break;
        }
    }
    *value = VtValue::Take(relocates);
    return true;
}

bool ParseTyped(Sdf_TextCursor& c, const char* typeName, VtValue* value)
{
    return Sdf_ParseTypedValue(c, typeName, value);
}

// ---------------------------------------------------------------- writing

void Indent(int levels, std::string* out) { out->append(size_t(levels) * 4, ' '); }

void FormatLayerOffset(const SdfLayerOffset& offset, const VtDictionary* customData, int indent,
                       std::string* out)
{
    const bool hasOffset = offset.GetOffset() != 0.0;
    const bool hasScale = offset.GetScale() != 1.0;
    const bool hasData = customData && !customData->empty();
    if (!hasOffset && !hasScale && !hasData) return;
    out->append(" (");
    const char* separator = "";
    if (hasOffset) {
        out->append("offset = ");
        Sdf_FormatDouble(offset.GetOffset(), out);
        separator = "; ";
    }
    if (hasScale) {
        out->append(separator);
        out->append("scale = ");
        Sdf_FormatDouble(offset.GetScale(), out);
        separator = "; ";
    }
    if (hasData) {
        out->append(separator);
        out->append("customData = ");
        Sdf_FormatDictionary(*customData, indent + 1, out);
    }
    out->push_back(')');
}

void FormatItem(const SdfPath& path, int, std::string* out)
{
    out->push_back('<');
    out->append(path.GetString());
    out->push_back('>');
}
void FormatItem(const TfToken& token, int, std::string* out) { Sdf_FormatString(token.GetString(), out); }
void FormatItem(const std::string& text, int, std::string* out) { Sdf_FormatString(text, out); }
void FormatItem(int64_t number, int, std::string* out) { out->append(std::to_string(number)); }

template <class Arc>
void FormatItem(const Arc& arc, int indent, std::string* out)
{
    if (!arc.GetAssetPath().empty()) {
        Sdf_FormatAssetPath(arc.GetAssetPath(), out);
    }
    if (!arc.GetPrimPath().IsEmpty()) {
        FormatItem(arc.GetPrimPath(), indent, out);
    }
    if constexpr (std::is_same_v<Arc, SdfReference>) {
        FormatLayerOffset(arc.GetLayerOffset(), &arc.GetCustomData(), indent, out);
    } else {
        FormatLayerOffset(arc.GetLayerOffset(), nullptr, indent, out);
    }
}

template <class T>
void FormatItems(const std::vector<T>& items, int indent, std::string* out)
{
    out->push_back('[');
    for (size_t i = 0; i < items.size(); ++i) {
        if (i > 0) out->append(", ");
        FormatItem(items[i], indent, out);
    }
    out->push_back(']');
}

// Targets and connections the way OpenUSD's writer lays them out: one path
// bare, several one per line.
void FormatPropertyPaths(const std::vector<SdfPath>& paths, int indent, std::string* out)
{
    if (paths.size() == 1) {
        FormatItem(paths.front(), indent, out);
        return;
    }
    if (paths.empty()) {
        out->append("[]");
        return;
    }
    out->append("[\n");
    for (const SdfPath& path : paths) {
        Indent(indent + 1, out);
        FormatItem(path, indent + 1, out);
        out->append(",\n");
    }
    Indent(indent, out);
    out->push_back(']');
}

template <class T>
void FormatListOp(const SdfListOp<T>& listOp, const std::string& statement, int indent, std::string* out,
                  void (*formatItems)(const std::vector<T>&, int, std::string*) = FormatItems<T>)
{
    auto line = [&](const char* opKeyword, SdfListOpType op) {
        Indent(indent, out);
        out->append(opKeyword);
        out->append(statement);
        out->append(" = ");
        const std::vector<T>& items = listOp.GetItems(op);
        if (op == SdfListOpTypeExplicit && items.empty()) {
            out->append("None");
        } else {
            formatItems(items, indent, out);
        }
        out->push_back('\n');
    };
    if (listOp.IsExplicit()) {
        line("", SdfListOpTypeExplicit);
        return;
    }
    // Every list is written, empty ones too: an authored empty list is an
    // opinion of its own.
    static const std::pair<const char*, SdfListOpType> ops[] = {
        {"delete ", SdfListOpTypeDeleted},    {"add ", SdfListOpTypeAdded},
        {"prepend ", SdfListOpTypePrepended}, {"append ", SdfListOpTypeAppended},
        {"reorder ", SdfListOpTypeOrdered},
    };
    bool wroteAny = false;
    for (const auto& [keyword, op] : ops) {
        if (!listOp.GetItems(op).empty()) {
            line(keyword, op);
            wroteAny = true;
        }
    }
    if (!wroteAny) {
        // A list op with no opinions still exists as a field: say so with
        // an empty prepend, which reads back the same.
        line("prepend ", SdfListOpTypePrepended);
    }
}

} // namespace

bool Sdf_ParsePathListOpItems(Sdf_TextCursor& cursor, SdfListOpType op, const SdfPath& anchor,
                              SdfPathListOp* listOp)
{
    return ParseListOpItems(cursor, op, listOp,
                            [&](SdfPath* path) { return ParsePath(cursor, anchor, path); });
}

bool Sdf_ParseMetadataValue(Sdf_TextCursor& c, const Sdf_MetadataField& field, SdfListOpType op,
                            const SdfPath& anchor, VtValue* value)
{
    if (op != SdfListOpTypeExplicit && !Sdf_IsListOpKind(field.kind)) {
        return c.Fail("'" + std::string(field.keyword) + "' is not a list and takes no list operation");
    }
    switch (field.kind) {
    case Kind::Bool: return ParseTyped(c, "bool", value);
    case Kind::Int: return ParseTyped(c, "int", value);
    case Kind::Double: return ParseTyped(c, "double", value);
    case Kind::Token: return ParseTyped(c, "token", value);
    case Kind::String: return ParseTyped(c, "string", value);
    case Kind::Asset: return ParseTyped(c, "asset", value);
    case Kind::TokenArray: return ParseTyped(c, "token[]", value);
    case Kind::StringArray: return ParseTyped(c, "string[]", value);
    case Kind::Dictionary: {
        VtDictionary dictionary;
        if (!Sdf_ParseDictionary(c, &dictionary, 0)) return false;
        *value = VtValue::Take(dictionary);
        return true;
    }
    case Kind::PathListOp:
        return ParseListOpValue<SdfPath>(c, op, value, [&](SdfPath* p) { return ParsePath(c, anchor, p); });
    case Kind::ReferenceListOp:
        return ParseListOpValue<SdfReference>(c, op, value,
                                              [&](SdfReference* r) { return ParseArc(c, r); });
    case Kind::PayloadListOp:
        return ParseListOpValue<SdfPayload>(c, op, value,
                                            [&](SdfPayload* p) { return ParseArc(c, p); });
    case Kind::TokenListOp:
        return ParseListOpValue<TfToken>(c, op, value, [&](TfToken* t) { return ParseTextItem(c, t); });
    case Kind::StringListOp:
        return ParseListOpValue<std::string>(c, op, value,
                                             [&](std::string* s) { return ParseTextItem(c, s); });
    case Kind::Int64ListOp:
        return ParseListOpValue<int64_t>(c, op, value, [&](int64_t* n) { return c.ReadInteger(n); });
    case Kind::VariantSelection: {
        VtDictionary dictionary;
        if (!Sdf_ParseDictionary(c, &dictionary, 0)) return false;
        SdfVariantSelectionMap selections;
        for (const auto& [set, variant] : dictionary) {
            if (!variant.IsHolding<std::string>()) {
                return c.Fail("variant selection '" + set + "' is not a string");
            }
            selections[set] = variant.UncheckedGet<std::string>();
        }
        *value = VtValue::Take(selections);
        return true;
    }
    case Kind::Permission: {
        if (c.AcceptKeyword("public")) {
            *value = VtValue(SdfPermissionPublic);
        } else if (c.AcceptKeyword("private")) {
            *value = VtValue(SdfPermissionPrivate);
        } else {
            return c.Fail("permission must be 'public' or 'private'");
        }
        return true;
    }
    case Kind::SubLayers:
        return c.Fail("'subLayers' is layer metadata only");
    case Kind::Relocates:
        return ParseRelocates(c, anchor, value);
    }
    return false;
}

bool Sdf_ParseUnknownMetadataValue(Sdf_TextCursor& c, VtValue* value)
{
    c.SkipSpace();
    if (c.Peek() == '{') {
        VtDictionary dictionary;
        if (!Sdf_ParseDictionary(c, &dictionary, 0)) return false;
        *value = VtValue(SdfUnregisteredValue(dictionary));
        return true;
    }
    // Keep the value's text up to the end of its line (or ';' or the ')'
    // that closes the metadata), with brackets, strings and paths taken whole.
    const size_t start = c.GetOffset();
    size_t end = start;
    int depth = 0;
    for (;;) {
        c.SkipSpaceOnLine();
        if (c.Failed()) return false;
        if (c.AtEnd()) break;
        const char ch = c.Peek();
        if (depth == 0 && (ch == '\n' || ch == '\r' || ch == ';' || ch == ')')) break;
        std::string scratch;
        std::string_view pathText;
        if (ch == '"' || ch == '\'') {
            if (!c.ReadString(&scratch)) return false;
        } else if (ch == '@') {
            if (!c.ReadAssetPath(&scratch)) return false;
        } else if (ch == '<') {
            if (!c.ReadPathText(&pathText)) return false;
        } else {
            if (ch == '(' || ch == '[' || ch == '{') {
                if (++depth > Sdf_TextMaxNestingDepth) return c.Fail("value nested too deeply");
            } else if (ch == ')' || ch == ']' || ch == '}') {
                if (--depth < 0) return c.Fail("unbalanced brackets");
            }
            c.SetOffset(c.GetOffset() + 1);
        }
        end = c.GetOffset();
    }
    if (depth != 0) return c.Fail("unbalanced brackets");
    if (end == start) return c.Fail("expected a value");
    *value = VtValue(SdfUnregisteredValue(std::string(c.Slice(start, end))));
    return true;
}

bool Sdf_ParseSubLayers(Sdf_TextCursor& c, std::vector<std::string>* paths,
                        std::vector<SdfLayerOffset>* offsets)
{
    if (!c.Expect('[')) return false;
    if (c.Accept(']')) return true;
    for (;;) {
        std::string path;
        SdfLayerOffset offset;
        if (!c.ReadAssetPath(&path) || !ParseArcArguments(c, &offset, nullptr)) return false;
        paths->push_back(std::move(path));
        offsets->push_back(offset);
        if (c.Accept(',')) {
            if (c.Accept(']')) return true;
            continue;
        }
        return c.Expect(']');
    }
}

void Sdf_FormatMetadata(const TfToken& fieldName, const VtValue& value, int indent, std::string* out)
{
    if (value.IsHolding<SdfUnregisteredValue>()) {
        const VtValue& held = value.UncheckedGet<SdfUnregisteredValue>().GetValue();
        Indent(indent, out);
        out->append(fieldName.GetString());
        out->append(" = ");
        if (held.IsHolding<VtDictionary>()) {
            Sdf_FormatDictionary(held.UncheckedGet<VtDictionary>(), indent, out);
        } else if (held.IsHolding<std::string>()) {
            out->append(held.UncheckedGet<std::string>());
        } else {
            out->append("None");
        }
        out->push_back('\n');
        return;
    }
    const Sdf_MetadataField* field = Sdf_FindMetadataByField(fieldName);
    const std::string keyword = field ? std::string(field->keyword) : fieldName.GetString();
    if (value.IsHolding<SdfPathListOp>()) {
        FormatListOp(value.UncheckedGet<SdfPathListOp>(), keyword, indent, out);
        return;
    }
    if (value.IsHolding<SdfReferenceListOp>()) {
        FormatListOp(value.UncheckedGet<SdfReferenceListOp>(), keyword, indent, out);
        return;
    }
    if (value.IsHolding<SdfPayloadListOp>()) {
        FormatListOp(value.UncheckedGet<SdfPayloadListOp>(), keyword, indent, out);
        return;
    }
    if (value.IsHolding<SdfTokenListOp>()) {
        FormatListOp(value.UncheckedGet<SdfTokenListOp>(), keyword, indent, out);
        return;
    }
    if (value.IsHolding<SdfStringListOp>()) {
        FormatListOp(value.UncheckedGet<SdfStringListOp>(), keyword, indent, out);
        return;
    }
    if (value.IsHolding<SdfInt64ListOp>()) {
        FormatListOp(value.UncheckedGet<SdfInt64ListOp>(), keyword, indent, out);
        return;
    }
    std::string text;
    if (value.IsHolding<VtDictionary>()) {
        Sdf_FormatDictionary(value.UncheckedGet<VtDictionary>(), indent, &text);
    } else if (value.IsHolding<SdfVariantSelectionMap>()) {
        VtDictionary selections;
        for (const auto& [set, variant] : value.UncheckedGet<SdfVariantSelectionMap>()) {
            selections[set] = VtValue(variant);
        }
        Sdf_FormatDictionary(selections, indent, &text);
    } else if (value.IsHolding<SdfRelocates>()) {
        text = "{";
        const SdfRelocates& relocates = value.UncheckedGet<SdfRelocates>();
        for (size_t i = 0; i < relocates.size(); ++i) {
            text += i == 0 ? "\n" : ",\n";
            text.append(size_t(indent + 1) * 4, ' ');
            text += "<" + relocates[i].first.GetString() + "> : <" + relocates[i].second.GetString() + ">";
        }
        text += relocates.empty() ? "}" : "\n" + std::string(size_t(indent) * 4, ' ') + "}";
    } else if (value.IsHolding<SdfPermission>()) {
        text = value.UncheckedGet<SdfPermission>() == SdfPermissionPrivate ? "private" : "public";
    } else if (value.IsHolding<bool>()) {
        text = value.UncheckedGet<bool>() ? "true" : "false";
    } else if (!field || !Sdf_FormatTypedValue(value, &text)) {
        TF_WARN("metadata '%s' holds a %s, which the text format cannot spell; it is left out",
                fieldName.GetText(), value.GetTypeName().c_str());
        return;
    }
    Indent(indent, out);
    out->append(keyword);
    out->append(" = ");
    out->append(text);
    out->push_back('\n');
}

void Sdf_FormatPathListOp(const SdfPathListOp& listOp, const std::string& prefix, int indent,
                          std::string* out)
{
    FormatListOp(listOp, prefix, indent, out, FormatPropertyPaths);
}

void Sdf_FormatPropertyPaths(const std::vector<SdfPath>& paths, int indent, std::string* out)
{
    if (paths.empty()) {
        out->append("None");
    } else {
        FormatPropertyPaths(paths, indent, out);
    }
}

void Sdf_FormatSubLayers(const std::vector<std::string>& paths,
                         const std::vector<SdfLayerOffset>& offsets, int indent, std::string* out)
{
    Indent(indent, out);
    out->append("subLayers = [\n");
    for (size_t i = 0; i < paths.size(); ++i) {
        Indent(indent + 1, out);
        Sdf_FormatAssetPath(paths[i], out);
        if (i < offsets.size()) {
            FormatLayerOffset(offsets[i], nullptr, indent + 1, out);
        }
        out->append(i + 1 < paths.size() ? ",\n" : "\n");
    }
    Indent(indent, out);
    out->append("]\n");
}

PXR_NAMESPACE_CLOSE_SCOPE
