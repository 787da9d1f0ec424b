// Text -> SdfPath. One pass over the characters; each element found is looked
// up (or made) in the node table, so parsing a path whose prefix is known
// costs one table probe per element.

#include "usdcore/sdf/pathParser.h"

#include "usdcore/sdf/pathNode.h"
#include "usdcore/tf/diagnostic.h"

PXR_NAMESPACE_OPEN_SCOPE

namespace {

// Target paths nest inside brackets ("/A.r[/B.r[/C]]"); deeper nesting than
// this is rejected rather than recursed into.
constexpr int kMaxTargetNesting = 16;

bool IsIdentifierStart(char c)
{
    const unsigned char u = static_cast<unsigned char>(c);
    return (u >= 'a' && u <= 'z') || (u >= 'A' && u <= 'Z') || u == '_' || u >= 0x80;
}

bool IsIdentifierChar(char c)
{
    return IsIdentifierStart(c) || (c >= '0' && c <= '9');
}

bool IsVariantChar(char c)
{
    return IsIdentifierChar(c) || c == '|' || c == '-';
}

class Parser
{
public:
    Parser(std::string_view text, int nesting) : _text(text), _nesting(nesting) {}

    const std::string& Error() const { return _error; }

    /// A whole path: "/", ".", "..", "/A/B.c", "../A", "A{v=x}B.r[/T].a"...
    const Sdf_PathNode* ParsePath()
    {
        if (_text.empty()) {
            return Fail("empty path");
        }
        const Sdf_PathNode* node = Sdf_RelativeRootNode();
        if (Peek() == '/') {
            ++_pos;
            node = Sdf_AbsoluteRootNode();
            if (AtEnd()) {
                return node;
            }
            if (!IsIdentifierStart(Peek())) {
                return Fail("expected a prim name after '/'");
            }
        } else if (_text == ".") {
            return node;
        } else if (_text.compare(0, 2, "..") == 0) {
            node = ParseDotDots(node);
            if (!node) {
                return nullptr;
            }
        }
        return ParseElements(node);
    }

    /// Elements appended to \p node, e.g. "B", ".x", "{set=v}", "[/T]".
    const Sdf_PathNode* ParseElements(const Sdf_PathNode* node)
    {
        while (node && !AtEnd()) {
            node = ParseElement(node);
        }
        return node;
    }

private:
    bool AtEnd() const { return _pos >= _text.size(); }
    char Peek(size_t ahead = 0) const
    {
        return _pos + ahead < _text.size() ? _text[_pos + ahead] : '\0';
    }

    const Sdf_PathNode* Fail(const char* what)
    {
        _error = std::string(what) + " at offset " + std::to_string(_pos);
        return nullptr;
    }

    static bool IsDotDot(const Sdf_PathNode* node)
    {
        return node->type == Sdf_PathNodeType::Prim && node->name == "..";
    }

    const Sdf_PathNode* Child(const Sdf_PathNode* parent, Sdf_PathNodeType type,
                              std::string_view name, std::string_view variant = {},
                              const Sdf_PathNode* target = nullptr)
    {
        return Sdf_FindOrCreatePathNode(parent, type, TfToken(name), TfToken(variant), target);
    }

    // "..", "../..", ... at the start of a relative path.
    const Sdf_PathNode* ParseDotDots(const Sdf_PathNode* node)
    {
        while (Peek() == '.' && Peek(1) == '.') {
            _pos += 2;
            node = Child(node, Sdf_PathNodeType::Prim, "..");
            if (AtEnd()) {
                return node;
            }
            if (Peek() != '/') {
                return Fail("expected '/' after '..'");
            }
            ++_pos;
            if (!(Peek() == '.' && Peek(1) == '.')) {
                break;
            }
        }
        if (!IsIdentifierStart(Peek())) {
            return Fail("expected a prim name");
        }
        return node;
    }

    std::string_view TakeIdentifier()
    {
        const size_t start = _pos;
        if (IsIdentifierStart(Peek())) {
            while (IsIdentifierChar(Peek())) {
                ++_pos;
            }
        }
        return _text.substr(start, _pos - start);
    }

    std::string_view TakeNamespacedIdentifier()
    {
        const size_t start = _pos;
        while (true) {
            if (TakeIdentifier().empty()) {
                _pos = start;
                return {};
            }
            if (Peek() != ':') {
                return _text.substr(start, _pos - start);
            }
            ++_pos;
        }
    }

    void SkipSpaces()
    {
        while (Peek() == ' ' || Peek() == '\t') {
            ++_pos;
        }
    }

    const Sdf_PathNode* ParseElement(const Sdf_PathNode* node)
    {
        const char c = Peek();
        const Sdf_PathNodeType type = node->type;
        const bool primLike = node->IsPrimLike() && !IsDotDot(node);
        if (c == '/') {
            if (type != Sdf_PathNodeType::Prim || IsDotDot(node)) {
                return Fail("unexpected '/'");
            }
            ++_pos;
            return ParsePrimName(node);
        }
        if (IsIdentifierStart(c)) {
            // A prim name starts a path, follows a root or a variant
            // selection, or is the single element given to append.
            const bool startsPrim = type == Sdf_PathNodeType::Root ||
                                    type == Sdf_PathNodeType::PrimVariantSelection ||
                                    (type == Sdf_PathNodeType::Prim &&
                                     (_pos == 0 || _text[_pos - 1] == '/'));
            if (!startsPrim) {
                return Fail("unexpected prim name");
            }
            return ParsePrimName(node);
        }
        if (c == '{') {
            if (type != Sdf_PathNodeType::Prim && type != Sdf_PathNodeType::PrimVariantSelection) {
                return Fail("variant selection must follow a prim");
            }
            if (IsDotDot(node)) {
                return Fail("variant selection must follow a prim");
            }
            return ParseVariantSelection(node);
        }
        if (c == '[') {
            if (type != Sdf_PathNodeType::PrimProperty &&
                type != Sdf_PathNodeType::RelationalAttribute) {
                return Fail("target must follow a property");
            }
            const Sdf_PathNode* target = ParseBracketedPath();
            return target ? Child(node, Sdf_PathNodeType::Target, {}, {}, target) : nullptr;
        }
        if (c == '.') {
            ++_pos;
            if (primLike && !(type == Sdf_PathNodeType::Root && node->absolute)) {
                return ParsePropertyName(node, Sdf_PathNodeType::PrimProperty);
            }
            if (type == Sdf_PathNodeType::Target) {
                return ParsePropertyName(node, Sdf_PathNodeType::RelationalAttribute);
            }
            if (type == Sdf_PathNodeType::Mapper) {
                const std::string_view name = TakeIdentifier();
                return name.empty() ? Fail("expected a mapper argument name")
                                    : Child(node, Sdf_PathNodeType::MapperArg, name);
            }
            if (type == Sdf_PathNodeType::PrimProperty ||
                type == Sdf_PathNodeType::RelationalAttribute) {
                return ParsePropertySuffix(node);
            }
            return Fail("unexpected '.'");
        }
        return Fail("unexpected character");
    }

    const Sdf_PathNode* ParsePrimName(const Sdf_PathNode* node)
    {
        const std::string_view name = TakeIdentifier();
        if (name.empty()) {
            return Fail("expected a prim name");
        }
        return Child(node, Sdf_PathNodeType::Prim, name);
    }

    const Sdf_PathNode* ParsePropertyName(const Sdf_PathNode* node, Sdf_PathNodeType type)
    {
        const std::string_view name = TakeNamespacedIdentifier();
        if (name.empty()) {
            return Fail("expected a property name");
        }
        return Child(node, type, name);
    }

    // ".mapper[/target]" or ".expression" after a property or relational
    // attribute.
    const Sdf_PathNode* ParsePropertySuffix(const Sdf_PathNode* node)
    {
        const std::string_view word = TakeIdentifier();
        if (word == "expression") {
            return Child(node, Sdf_PathNodeType::Expression, {});
        }
        if (word == "mapper" && Peek() == '[') {
            const Sdf_PathNode* target = ParseBracketedPath();
            return target ? Child(node, Sdf_PathNodeType::Mapper, {}, {}, target) : nullptr;
        }
        return Fail("expected 'mapper[' or 'expression' after a property");
    }

    const Sdf_PathNode* ParseVariantSelection(const Sdf_PathNode* node)
    {
        ++_pos; // '{'
        SkipSpaces();
        size_t start = _pos;
        while (IsVariantChar(Peek())) {
            ++_pos;
        }
        const std::string_view set = _text.substr(start, _pos - start);
        SkipSpaces();
        if (set.empty() || Peek() != '=') {
            return Fail("expected '{variantSet=variant}'");
        }
        ++_pos;
        SkipSpaces();
        start = _pos;
        if (Peek() == '.') {
            ++_pos;
        }
        while (IsVariantChar(Peek())) {
            ++_pos;
        }
        const std::string_view variant = _text.substr(start, _pos - start);
        SkipSpaces();
        if (Peek() != '}') {
            return Fail("expected '}'");
        }
        ++_pos;
        const Sdf_PathNode* selection =
            Child(node, Sdf_PathNodeType::PrimVariantSelection, set, variant);
        // A '/' between a variant selection and a child prim is accepted and
        // dropped, as the printed form has none.
        if (Peek() == '/' && IsIdentifierStart(Peek(1))) {
            ++_pos;
        }
        return selection;
    }

    // "[path]" with its own brackets balanced; the inside is a full path.
    const Sdf_PathNode* ParseBracketedPath()
    {
        const size_t open = _pos;
        int depth = 0;
        size_t close = open;
        for (; close < _text.size(); ++close) {
            if (_text[close] == '[') {
                ++depth;
            } else if (_text[close] == ']' && --depth == 0) {
                break;
            }
        }
        if (close >= _text.size()) {
            return Fail("unbalanced '['");
        }
        if (_nesting >= kMaxTargetNesting) {
            return Fail("target paths nested too deeply");
        }
        Parser inner(_text.substr(open + 1, close - open - 1), _nesting + 1);
        const Sdf_PathNode* target = inner.ParsePath();
        if (!target) {
            _pos = open + 1;
            _error = "in target path: " + inner.Error();
            return nullptr;
        }
        _pos = close + 1;
        return target;
    }

    std::string_view _text;
    size_t _pos = 0;
    int _nesting = 0;
    std::string _error;
};

} // namespace

SdfPath Sdf_PathParser::Parse(std::string_view text, std::string* error)
{
    Parser parser(text, 0);
    const Sdf_PathNode* node = parser.ParsePath();
    if (!node && error) {
        *error = parser.Error();
    }
    return SdfPath(node);
}

SdfPath Sdf_PathParser::ParseElements(const SdfPath& base, std::string_view elements,
                                      std::string* error)
{
    Parser parser(elements, 0);
    const Sdf_PathNode* node = parser.ParseElements(base._node);
    if (!node && error) {
        *error = parser.Error();
    }
    return SdfPath(node);
}

PXR_NAMESPACE_CLOSE_SCOPE
