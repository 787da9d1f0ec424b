#include "usdcore/sdf/usda/valueText.h"

#include "usdcore/gf/half.h"
#include "usdcore/gf/matrix2d.h"
#include "usdcore/gf/matrix3d.h"
#include "usdcore/gf/matrix4d.h"
#include "usdcore/gf/quatd.h"
#include "usdcore/gf/quatf.h"
#include "usdcore/gf/quath.h"
#include "usdcore/gf/vec2d.h"
#include "usdcore/gf/vec2f.h"
#include "usdcore/gf/vec2h.h"
#include "usdcore/gf/vec2i.h"
#include "usdcore/gf/vec3d.h"
#include "usdcore/gf/vec3f.h"
#include "usdcore/gf/vec3h.h"
#include "usdcore/gf/vec3i.h"
#include "usdcore/gf/vec4d.h"
#include "usdcore/gf/vec4f.h"
#include "usdcore/gf/vec4h.h"
#include "usdcore/gf/vec4i.h"
#include "usdcore/sdf/path.h"
#include "usdcore/sdf/schema.h"
#include "usdcore/sdf/types.h"
#include "usdcore/sdf/valueTypeName.h"
#include "usdcore/tf/token.h"
#include "usdcore/vt/array.h"

#include <charconv>
#include <cctype>
#include <cmath>
#include <limits>
#include <typeindex>
#include <unordered_map>

PXR_NAMESPACE_OPEN_SCOPE

namespace {

// ---------------------------------------------------------------- reading

template <class Int>
bool ParseInteger(Sdf_TextCursor& cursor, Int* out)
{
    using Wide = std::conditional_t<std::is_signed_v<Int>, int64_t, uint64_t>;
    cursor.SkipSpace();
    const size_t start = cursor.GetOffset();
    Wide value = 0;
    if (!cursor.ReadInteger(&value)) return false;
    if (value < Wide(std::numeric_limits<Int>::min()) || value > Wide(std::numeric_limits<Int>::max())) {
        cursor.SetOffset(start);
        return cursor.Fail("integer out of range");
    }
    *out = static_cast<Int>(value);
    return true;
}

// A number (true when not zero), or a word or string OpenUSD takes for a
// boolean, in any case: true, false, yes, no, 1, 0 ('instanceable = True').
bool ParseElement(Sdf_TextCursor& c, bool* out)
{
    c.SkipSpace();
    if (c.AtNumber()) {
        double value = 0;
        if (!c.ReadDouble(&value)) return false;
        *out = value != 0;
        return true;
    }
    const size_t start = c.GetOffset();
    std::string text;
    if (c.AtString()) {
        if (!c.ReadString(&text)) return false;
    } else {
        std::string_view word;
        if (!c.ReadIdentifier(&word)) return false;
        text = word;
    }
    for (char& ch : text) ch = char(std::tolower(static_cast<unsigned char>(ch)));
    if (text == "true" || text == "yes" || text == "1") { *out = true; return true; }
    if (text == "false" || text == "no" || text == "0") { *out = false; return true; }
    c.SetOffset(start);
    return c.Fail("expected a boolean");
}
bool ParseElement(Sdf_TextCursor& c, unsigned char* out) { return ParseInteger(c, out); }
bool ParseElement(Sdf_TextCursor& c, int* out) { return ParseInteger(c, out); }
bool ParseElement(Sdf_TextCursor& c, unsigned int* out) { return ParseInteger(c, out); }
bool ParseElement(Sdf_TextCursor& c, int64_t* out) { return ParseInteger(c, out); }
bool ParseElement(Sdf_TextCursor& c, uint64_t* out) { return ParseInteger(c, out); }
bool ParseElement(Sdf_TextCursor& c, double* out) { return c.ReadDouble(out); }
// Narrower floating-point types are read as double and rounded once, as
// the format's own reader does.
bool ParseElement(Sdf_TextCursor& c, float* out)
{
    double value = 0;
    if (!c.ReadDouble(&value)) return false;
    *out = static_cast<float>(value);
    return true;
}
bool ParseElement(Sdf_TextCursor& c, GfHalf* out)
{
    double value = 0;
    if (!c.ReadDouble(&value)) return false;
    *out = GfHalf(static_cast<float>(value));
    return true;
}
bool ParseElement(Sdf_TextCursor& c, SdfTimeCode* out)
{
    double value = 0;
    if (!c.ReadDouble(&value)) return false;
    *out = SdfTimeCode(value);
    return true;
}
bool ParseElement(Sdf_TextCursor& c, std::string* out) { return c.ReadString(out); }
bool ParseElement(Sdf_TextCursor& c, TfToken* out)
{
    std::string text;
    if (!c.ReadString(&text)) return false;
    *out = TfToken(text);
    return true;
}
bool ParseElement(Sdf_TextCursor& c, SdfAssetPath* out)
{
    std::string text;
    if (!c.ReadAssetPath(&text)) return false;
    *out = SdfAssetPath(text);
    return true;
}

template <class S>
bool ParseScalars(Sdf_TextCursor& c, S* out, size_t count)
{
    if (!c.Expect('(')) return false;
    for (size_t i = 0; i < count; ++i) {
        if ((i > 0 && !c.Expect(',')) || !ParseElement(c, out + i)) return false;
    }
    c.Accept(',');
    return c.Expect(')');
}

template <class S, size_t N>
bool ParseElement(Sdf_TextCursor& c, Gf_Vec<S, N>* out) { return ParseScalars(c, out->data(), N); }

template <class S>
bool ParseElement(Sdf_TextCursor& c, Gf_Quat<S>* out)
{
    // Written real part first: (r, i, j, k).
    S parts[4];
    if (!ParseScalars(c, parts, 4)) return false;
    *out = Gf_Quat<S>(parts[0], parts[1], parts[2], parts[3]);
    return true;
}

template <class D, class S, size_t N>
bool ParseElement(Sdf_TextCursor& c, Gf_MatrixBase<D, S, N>* out)
{
    if (!c.Expect('(')) return false;
    for (size_t row = 0; row < N; ++row) {
        if ((row > 0 && !c.Expect(',')) || !ParseScalars(c, (*out)[row], N)) return false;
    }
    c.Accept(',');
    return c.Expect(')');
}

template <class T>
bool ParseValue(Sdf_TextCursor& c, bool isArray, VtValue* out)
{
    if (!isArray) {
        T value{};
        if (!ParseElement(c, &value)) return false;
        *out = VtValue::Take(value);
        return true;
    }
    VtArray<T> array;
    if (!c.Expect('[')) return false;
    if (!c.Accept(']')) {
        for (;;) {
            T element{};
            if (!ParseElement(c, &element)) return false;
            array.push_back(std::move(element));
            if (c.Accept(',')) {
                if (c.Accept(']')) break;
                continue;
            }
            if (!c.Expect(']')) return false;
            break;
        }
    }
    *out = VtValue::Take(array);
    return true;
}

// Held in a struct: a bare function pointer taking VtValue would drag
// VtValue's comparison templates into lookups on the map's iterators.
struct Parser {
    bool (*parse)(Sdf_TextCursor&, bool, VtValue*) = nullptr;
    bool isArray = false;
};

// Every name the value type registry knows, older names too, to the reader
// of its C++ type: the registry alone says which names there are. The keys
// view the registry's names, which live as long as the process.
const std::unordered_map<std::string_view, Parser>& ParsersByName()
{
    static const std::unordered_map<std::string_view, Parser>* parsers = [] {
#define SDF_USDA_PARSER_ENTRY_(member, name, type, role) {std::type_index(typeid(type)), {&ParseValue<type>}},
        const std::unordered_map<std::type_index, Parser> byCppType{SDF_VALUE_TYPES(SDF_USDA_PARSER_ENTRY_)};
#undef SDF_USDA_PARSER_ENTRY_
        auto* byName = new std::unordered_map<std::string_view, Parser>;
        for (const SdfValueTypeName& type : SdfSchema::GetInstance().GetAllTypes()) {
            const auto cppType = byCppType.find(std::type_index(type.GetScalarType().GetDefaultValue().GetType()));
            if (cppType != byCppType.end()) {
                (*byName)[type.GetAsToken().GetString()] = Parser{cppType->second.parse, type.IsArray()};
            }
        }
        return byName;
    }();
    return *parsers;
}

const Parser* FindParser(std::string_view typeName)
{
    const auto found = ParsersByName().find(typeName);
    return found == ParsersByName().end() ? nullptr : &found->second;
}

// ---------------------------------------------------------------- writing

void AppendChars(const char* first, const char* last, std::string* out) { out->append(first, last); }

template <class Number>
void FormatShortest(Number value, std::string* out)
{
    if (std::isnan(value)) {
        out->append("nan");
        return;
    }
    if (std::isinf(value)) {
        out->append(value < 0 ? "-inf" : "inf");
        return;
    }
    char buffer[40];
    const auto result = std::to_chars(buffer, buffer + sizeof(buffer), value);
    AppendChars(buffer, result.ptr, out);
}

template <class Int>
void FormatInteger(Int value, std::string* out)
{
    char buffer[24];
    const auto result = std::to_chars(buffer, buffer + sizeof(buffer), value);
    AppendChars(buffer, result.ptr, out);
}

void FormatElement(bool value, std::string* out) { out->push_back(value ? '1' : '0'); }
void FormatElement(unsigned char value, std::string* out) { FormatInteger(unsigned(value), out); }
void FormatElement(int value, std::string* out) { FormatInteger(value, out); }
void FormatElement(unsigned int value, std::string* out) { FormatInteger(value, out); }
void FormatElement(int64_t value, std::string* out) { FormatInteger(value, out); }
void FormatElement(uint64_t value, std::string* out) { FormatInteger(value, out); }
void FormatElement(double value, std::string* out) { FormatShortest(value, out); }
void FormatElement(float value, std::string* out) { FormatShortest(value, out); }
// Every half is exactly a float, and its shortest float text reads back as
// the same half.
void FormatElement(GfHalf value, std::string* out) { FormatShortest(float(value), out); }
void FormatElement(SdfTimeCode value, std::string* out) { FormatShortest(value.GetValue(), out); }
void FormatElement(const std::string& value, std::string* out) { Sdf_FormatString(value, out); }
void FormatElement(const TfToken& value, std::string* out) { Sdf_FormatString(value.GetString(), out); }
void FormatElement(const SdfAssetPath& value, std::string* out) { Sdf_FormatAssetPath(value.GetAssetPath(), out); }

template <class S>
void FormatScalars(const S* values, size_t count, std::string* out)
{
    out->push_back('(');
    for (size_t i = 0; i < count; ++i) {
        if (i > 0) out->append(", ");
        FormatElement(values[i], out);
    }
    out->push_back(')');
}

template <class S, size_t N>
void FormatElement(const Gf_Vec<S, N>& value, std::string* out) { FormatScalars(value.data(), N, out); }

template <class S>
void FormatElement(const Gf_Quat<S>& value, std::string* out)
{
    const auto& imaginary = value.GetImaginary();
    const S parts[4] = {value.GetReal(), imaginary[0], imaginary[1], imaginary[2]};
    FormatScalars(parts, 4, out);
}

template <class D, class S, size_t N>
void FormatElement(const Gf_MatrixBase<D, S, N>& value, std::string* out)
{
    out->push_back('(');
    for (size_t row = 0; row < N; ++row) {
        if (row > 0) out->append(", ");
        FormatScalars(value[row], N, out);
    }
    out->push_back(')');
}

template <class T>
void FormatValue(const VtValue& value, std::string* out)
{
    if (value.IsHolding<T>()) {
        FormatElement(value.UncheckedGet<T>(), out);
        return;
    }
    const VtArray<T>& array = value.UncheckedGet<VtArray<T>>();
    out->push_back('[');
    for (size_t i = 0; i < array.size(); ++i) {
        if (i > 0) out->append(", ");
        FormatElement(array[i], out);
    }
    out->push_back(']');
}

struct Formatter {
    void (*format)(const VtValue&, std::string*);
};

const std::unordered_map<std::type_index, Formatter>& FormattersByType()
{
#define SDF_USDA_FORMAT_ENTRY_(member, name, type, role)                      \
    {std::type_index(typeid(type)), {&FormatValue<type>}},                    \
        {std::type_index(typeid(VtArray<type>)), {&FormatValue<type>}},
    static const std::unordered_map<std::type_index, Formatter> formatters{
        SDF_VALUE_TYPES(SDF_USDA_FORMAT_ENTRY_)};
#undef SDF_USDA_FORMAT_ENTRY_
    return formatters;
}

void Indent(int levels, std::string* out) { out->append(size_t(levels) * 4, ' '); }

bool IsIdentifier(std::string_view name)
{
    if (name.empty() || (name[0] >= '0' && name[0] <= '9')) return false;
    for (char c : name) {
        const bool ok = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_';
        if (!ok) return false;
    }
    return true;
}

bool SkipValue(Sdf_TextCursor& cursor, int depth)
{
    if (depth > Sdf_TextMaxNestingDepth) {
        return cursor.Fail("value nested too deeply");
    }
    cursor.SkipSpace();
    const char open = cursor.Peek();
    if (open == '(' || open == '[') {
        const char close = open == '(' ? ')' : ']';
        cursor.SetOffset(cursor.GetOffset() + 1);
        if (cursor.Accept(close)) return true;
        for (;;) {
            if (!SkipValue(cursor, depth + 1)) return false;
            if (!cursor.Accept(',')) return cursor.Expect(close);
            if (cursor.Accept(close)) return true;
        }
    }
    std::string scratch;
    std::string_view text;
    if (cursor.AtString()) return cursor.ReadString(&scratch);
    if (open == '@') return cursor.ReadAssetPath(&scratch);
    if (open == '<') return cursor.ReadPathText(&text);
    if (cursor.AtNumber()) return cursor.ReadNumberText(&text);
    return cursor.ReadIdentifier(&text);
}

} // namespace

bool Sdf_ParseUnregisteredValue(Sdf_TextCursor& cursor, VtValue* out)
{
    cursor.SkipSpace();
    const size_t start = cursor.GetOffset();
    if (!SkipValue(cursor, 0)) return false;
    *out = VtValue(SdfUnregisteredValue(std::string(cursor.Slice(start, cursor.GetOffset()))));
    return true;
}

bool Sdf_IsKnownValueTypeName(std::string_view typeName)
{
    return FindParser(typeName) != nullptr;
}

bool Sdf_ParseTypedValue(Sdf_TextCursor& cursor, std::string_view typeName, VtValue* out)
{
    const Parser* parser = FindParser(typeName);
    if (!parser) {
        return cursor.Fail("unknown value type '" + std::string(typeName) + "'");
    }
    return parser->parse(cursor, parser->isArray, out);
}

bool Sdf_ParseDictionary(Sdf_TextCursor& cursor, VtDictionary* out, int depth)
{
    if (depth > Sdf_TextMaxNestingDepth) {
        return cursor.Fail("dictionaries nested too deeply");
    }
    if (!cursor.Expect('{')) return false;
    for (;;) {
        if (cursor.Accept('}')) return true;
        std::string_view typeName;
        if (!cursor.ReadIdentifier(&typeName)) return false;
        std::string typeText(typeName);
        if (cursor.Accept('[')) {
            if (!cursor.Expect(']')) return false;
            typeText += "[]";
        }
        cursor.SkipSpace();
        std::string key;
        if (cursor.AtString()) {
            if (!cursor.ReadString(&key)) return false;
        } else {
            std::string_view name;
            if (!cursor.ReadIdentifier(&name, true)) return false;
            key.assign(name);
        }
        if (!cursor.Expect('=')) return false;
        VtValue value;
        if (typeText == "dictionary") {
            VtDictionary nested;
            if (!Sdf_ParseDictionary(cursor, &nested, depth + 1)) return false;
            value = VtValue::Take(nested);
        } else if (!Sdf_ParseTypedValue(cursor, typeText, &value)) {
            return false;
        }
        (*out)[key] = std::move(value);
        cursor.Accept(';');
    }
}

bool Sdf_FormatTypedValue(const VtValue& value, std::string* out)
{
    // The text of a value of an unknown type goes back as it was read.
    if (value.IsHolding<SdfUnregisteredValue>() &&
        value.UncheckedGet<SdfUnregisteredValue>().GetValue().IsHolding<std::string>()) {
        out->append(value.UncheckedGet<SdfUnregisteredValue>().GetValue().UncheckedGet<std::string>());
        return true;
    }
    const auto found = FormattersByType().find(std::type_index(value.GetType()));
    if (found == FormattersByType().end()) {
        return false;
    }
    found->second.format(value, out);
    return true;
}

void Sdf_FormatDictionary(const VtDictionary& dictionary, int indent, std::string* out)
{
    out->append("{\n");
    for (const auto& [key, value] : dictionary) {
        std::string text;
        std::string typeName;
        if (value.IsHolding<VtDictionary>()) {
            typeName = "dictionary";
            Sdf_FormatDictionary(value.UncheckedGet<VtDictionary>(), indent + 1, &text);
        } else if (const SdfValueTypeName type = SdfSchema::GetInstance().FindType(value);
                   type && Sdf_FormatTypedValue(value, &text)) {
            typeName = type.GetAsToken().GetString();
        } else {
            TF_WARN("dictionary entry '%s' holds a %s, which the text format cannot spell; "
                    "it is left out", key.c_str(), value.GetTypeName().c_str());
            continue;
        }
        Indent(indent + 1, out);
        out->append(typeName);
        out->push_back(' ');
        Sdf_FormatKey(key, out);
        out->append(" = ");
        out->append(text);
        out->push_back('\n');
    }
    Indent(indent, out);
    out->push_back('}');
}

void Sdf_FormatString(std::string_view text, std::string* out)
{
    out->push_back('"');
    for (char c : text) {
        switch (c) {
        case '"': out->append("\\\""); break;
        case '\\': out->append("\\\\"); break;
        case '\n': out->append("\\n"); break;
        case '\r': out->append("\\r"); break;
        case '\t': out->append("\\t"); break;
        default:
            if (static_cast<unsigned char>(c) < 0x20 || c == 0x7f) {
                static const char digits[] = "0123456789abcdef";
                out->append("\\x");
                out->push_back(digits[(static_cast<unsigned char>(c) >> 4) & 0xf]);
                out->push_back(digits[static_cast<unsigned char>(c) & 0xf]);
            } else {
                out->push_back(c);
            }
        }
    }
    out->push_back('"');
}

void Sdf_FormatAssetPath(std::string_view path, std::string* out)
{
    if (path.find('@') == std::string_view::npos) {
        out->push_back('@');
        out->append(path);
        out->push_back('@');
        return;
    }
    out->append("@@@");
    for (size_t i = 0; i < path.size(); ++i) {
        if (path.compare(i, 3, "@@@") == 0) {
            out->append("\\@@@");
            i += 2;
        } else {
            out->push_back(path[i]);
        }
    }
    out->append("@@@");
}

void Sdf_FormatDouble(double value, std::string* out) { FormatShortest(value, out); }

void Sdf_FormatKey(std::string_view name, std::string* out)
{
    if (IsIdentifier(name)) {
        out->append(name);
    } else {
        Sdf_FormatString(name, out);
    }
}

PXR_NAMESPACE_CLOSE_SCOPE
