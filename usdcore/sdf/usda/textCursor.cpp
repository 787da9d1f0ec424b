#include "usdcore/sdf/usda/textCursor.h"

#include <charconv>
#include <cmath>
#include <cstdlib>
#include <string>
#include <type_traits>

PXR_NAMESPACE_OPEN_SCOPE

namespace {

bool IsIdentifierStart(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' ||
           static_cast<unsigned char>(c) >= 0x80;
}

bool IsIdentifierChar(char c)
{
    return IsIdentifierStart(c) || (c >= '0' && c <= '9');
}

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

int HexValue(char c)
{
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return -1;
}

} // namespace

void Sdf_TextCursor::SkipSpace()
{
    for (;;) {
        SkipSpaceOnLine();
        if (AtEnd() || (_text[_pos] != '\n' && _text[_pos] != '\r')) {
            return;
        }
        ++_pos;
    }
}

void Sdf_TextCursor::SkipSpaceOnLine()
{
    const size_t size = _text.size();
    while (_pos < size) {
        const char c = _text[_pos];
        if (c == ' ' || c == '\t' || c == '\f' || c == '\v') {
            ++_pos;
        } else if (c == '\\' && _pos + 1 < size && (_text[_pos + 1] == '\n' || _text[_pos + 1] == '\r')) {
            // A backslash at the end of a line continues the statement.
            _pos += 2;
        } else if (c == '#' || (c == '/' && _pos + 1 < size && _text[_pos + 1] == '/')) {
            while (_pos < size && _text[_pos] != '\n' && _text[_pos] != '\r') {
                ++_pos;
            }
        } else if (c == '/' && _pos + 1 < size && _text[_pos + 1] == '*') {
            const size_t close = _text.find("*/", _pos + 2);
            if (close == std::string_view::npos) {
                Fail("unterminated comment");
                _pos = size;
                return;
            }
            _pos = close + 2;
        } else {
            return;
        }
    }
}

bool Sdf_TextCursor::Accept(char c)
{
    SkipSpace();
    if (Peek() != c) {
        return false;
    }
    ++_pos;
    return true;
}

bool Sdf_TextCursor::Expect(char c)
{
    if (Accept(c)) {
        return true;
    }
    std::string found = AtEnd() ? std::string("end of file") : std::string("'") + Peek() + "'";
    return Fail(std::string("expected '") + c + "', found " + found);
}

std::string_view Sdf_TextCursor::PeekIdentifier() const
{
    size_t end = _pos;
    if (end < _text.size() && IsIdentifierStart(_text[end])) {
        while (end < _text.size() && IsIdentifierChar(_text[end])) {
            ++end;
        }
    }
    return _text.substr(_pos, end - _pos);
}

bool Sdf_TextCursor::AcceptKeyword(std::string_view keyword)
{
    SkipSpace();
    if (PeekIdentifier() != keyword) {
        return false;
    }
    _pos += keyword.size();
    return true;
}

bool Sdf_TextCursor::ReadIdentifier(std::string_view* out, bool namespaced)
{
    SkipSpace();
    const size_t start = _pos;
    for (;;) {
        const std::string_view part = PeekIdentifier();
        if (part.empty()) {
            _pos = start;
            return Fail("expected an identifier");
        }
        _pos += part.size();
        if (!namespaced || Peek() != ':' || !IsIdentifierStart(PeekAt(1))) {
            break;
        }
        ++_pos;
    }
    *out = _text.substr(start, _pos - start);
    return true;
}

bool Sdf_TextCursor::ReadString(std::string* out)
{
    SkipSpace();
    const char quote = Peek();
    if (quote != '"' && quote != '\'') {
        return Fail("expected a quoted string");
    }
    const bool triple = PeekAt(1) == quote && PeekAt(2) == quote;
    const size_t start = _pos;
    _pos += triple ? 3 : 1;
    out->clear();
    const size_t size = _text.size();
    while (_pos < size) {
        const char c = _text[_pos];
        if (c == quote && (!triple || (PeekAt(1) == quote && PeekAt(2) == quote))) {
            _pos += triple ? 3 : 1;
            return true;
        }
        if (!triple && (c == '\n' || c == '\r')) {
            break;
        }
        if (c != '\\') {
            // Copy the run of plain characters at once.
            size_t end = _pos + 1;
            while (end < size && _text[end] != '\\' && _text[end] != quote &&
                   (triple || (_text[end] != '\n' && _text[end] != '\r'))) {
                ++end;
            }
            out->append(_text.data() + _pos, end - _pos);
            _pos = end;
            continue;
        }
        if (_pos + 1 >= size) {
            break;
        }
        const char e = _text[_pos + 1];
        _pos += 2;
        switch (e) {
        case 'n': out->push_back('\n'); break;
        case 't': out->push_back('\t'); break;
        case 'r': out->push_back('\r'); break;
        case 'a': out->push_back('\a'); break;
        case 'b': out->push_back('\b'); break;
        case 'f': out->push_back('\f'); break;
        case 'v': out->push_back('\v'); break;
        case 'x': {
            int value = 0;
            int digits = 0;
            while (digits < 2 && _pos < size && HexValue(_text[_pos]) >= 0) {
                value = value * 16 + HexValue(_text[_pos++]);
                ++digits;
            }
            if (digits == 0) {
                return Fail("'\\x' without hexadecimal digits");
            }
            out->push_back(static_cast<char>(value));
            break;
        }
        default:
            if (e >= '0' && e <= '7') {
                int value = e - '0';
                for (int digits = 1; digits < 3 && _pos < size && _text[_pos] >= '0' && _text[_pos] <= '7'; ++digits) {
                    value = value * 8 + (_text[_pos++] - '0');
                }
                out->push_back(static_cast<char>(value));
            } else {
                // '\\', '\"', '\'' and unknown escapes stand for the character.
                out->push_back(e);
            }
        }
    }
    _pos = start;
    return Fail("unterminated string");
}

bool Sdf_TextCursor::ReadAssetPath(std::string* out)
{
    SkipSpace();
    if (Peek() != '@') {
        return Fail("expected an asset path");
    }
    const size_t start = _pos;
    out->clear();
    if (PeekAt(1) == '@' && PeekAt(2) == '@') {
        _pos += 3;
        while (_pos < _text.size()) {
            if (_text.compare(_pos, 4, "\\@@@") == 0) {
                out->append("@@@");
                _pos += 4;
            } else if (_text.compare(_pos, 3, "@@@") == 0) {
                // '@@@@' ends with an '@' that belongs to the path.
                while (_text.compare(_pos + 1, 3, "@@@") == 0) {
                    out->push_back('@');
                    ++_pos;
                }
                _pos += 3;
                return true;
            } else {
                out->push_back(_text[_pos++]);
            }
        }
    } else {
        const size_t close = _text.find_first_of("@\n\r", _pos + 1);
        if (close != std::string_view::npos && _text[close] == '@') {
            out->assign(_text.data() + _pos + 1, close - _pos - 1);
            _pos = close + 1;
            return true;
        }
    }
    _pos = start;
    return Fail("unterminated asset path");
}

bool Sdf_TextCursor::ReadPathText(std::string_view* out)
{
    SkipSpace();
    if (Peek() != '<') {
        return Fail("expected a path in '<>'");
    }
    const size_t close = _text.find_first_of(">\n\r", _pos + 1);
    if (close == std::string_view::npos || _text[close] != '>') {
        return Fail("unterminated path");
    }
    *out = _text.substr(_pos + 1, close - _pos - 1);
    _pos = close + 1;
    return true;
}

bool Sdf_TextCursor::AtNumber() const
{
    size_t p = _pos;
    if (p < _text.size() && (_text[p] == '-' || _text[p] == '+')) {
        ++p;
    }
    if (p >= _text.size()) {
        return false;
    }
    const char c = _text[p];
    return IsDigit(c) || (c == '.' && p + 1 < _text.size() && IsDigit(_text[p + 1])) ||
           _text.compare(p, 3, "inf") == 0 || _text.compare(p, 3, "nan") == 0;
}

bool Sdf_TextCursor::ReadNumberText(std::string_view* out)
{
    SkipSpace();
    if (!AtNumber()) {
        return Fail("expected a number");
    }
    const size_t start = _pos;
    size_t p = _pos;
    const size_t size = _text.size();
    if (_text[p] == '-' || _text[p] == '+') {
        ++p;
    }
    if (_text.compare(p, 3, "inf") == 0 || _text.compare(p, 3, "nan") == 0) {
        p += 3;
    } else {
        while (p < size && IsDigit(_text[p])) ++p;
        if (p < size && _text[p] == '.') {
            ++p;
            while (p < size && IsDigit(_text[p])) ++p;
        }
        if (p < size && (_text[p] == 'e' || _text[p] == 'E')) {
            size_t q = p + 1;
            if (q < size && (_text[q] == '-' || _text[q] == '+')) ++q;
            if (q < size && IsDigit(_text[q])) {
                while (q < size && IsDigit(_text[q])) ++q;
                p = q;
            }
        }
    }
    if (p < size && IsIdentifierChar(_text[p])) {
        return Fail("malformed number");
    }
    _pos = p;
    *out = _text.substr(start, p - start);
    return true;
}

bool Sdf_TextCursor::ReadDouble(double* out)
{
    // Fast path for the common plain decimal: one pass of from_chars over
    // the text in place. Anything unusual (a sign '+', inf, nan, a number
    // run into letters) takes the checked path below.
    SkipSpace();
    const size_t digitAt = _pos + (Peek() == '-' ? 1 : 0);
    if (digitAt < _text.size() && (IsDigit(_text[digitAt]) || _text[digitAt] == '.')) {
        const char* first = _text.data() + _pos;
        const char* last = _text.data() + _text.size();
        const auto [end, ec] = std::from_chars(first, last, *out);
        if (ec == std::errc() && (end == last || (!IsIdentifierChar(*end) && *end != '.'))) {
            _pos += size_t(end - first);
            return true;
        }
    }
    std::string_view number;
    if (!ReadNumberText(&number)) {
        return false;
    }
    // from_chars takes no '+'; "inf" and "nan" it reads itself.
    if (number[0] == '+') {
        number.remove_prefix(1);
    }
    const auto [end, ec] = std::from_chars(number.data(), number.data() + number.size(), *out);
    if (ec == std::errc::result_out_of_range) {
        // Decimals beyond the range of double saturate to infinity or zero,
        // as strtod gives them.
        const std::string copy(number);
        *out = std::strtod(copy.c_str(), nullptr);
        return true;
    }
    if (ec != std::errc() || end != number.data() + number.size()) {
        SetOffset(GetOffset() - number.size());
        return Fail("malformed number");
    }
    return true;
}

template <class Int>
bool Sdf_TextCursor::ReadInteger(Int* out)
{
    std::string_view number;
    if (!ReadNumberText(&number)) {
        return false;
    }
    const size_t start = GetOffset() - number.size();
    if (number[0] == '+') {
        number.remove_prefix(1);
    }
    const char* last = number.data() + number.size();
    const auto [end, ec] = std::from_chars(number.data(), last, *out);
    if (ec == std::errc() && end == last) {
        return true;
    }
    // Not an integer literal: read as a real number, then truncated.
    double real = 0;
    const auto [realEnd, realEc] = std::from_chars(number.data(), last, real);
    // 2^63 and 2^64 are exact in double; the bounds are taken half-open so
    // that a value rounded up to them is refused, not wrapped.
    constexpr double limit = std::is_signed_v<Int> ? 9223372036854775808.0 : 18446744073709551616.0;
    constexpr double lowest = std::is_signed_v<Int> ? -limit : 0.0;
    if (realEc == std::errc() && realEnd == last && std::isfinite(real)) {
        const double truncated = std::trunc(real);
        if (truncated >= lowest && truncated < limit) {
            *out = static_cast<Int>(truncated);
            return true;
        }
    }
    SetOffset(start);
    return Fail(std::is_signed_v<Int> ? "expected an integer in range" : "expected an unsigned integer in range");
}

template bool Sdf_TextCursor::ReadInteger<int64_t>(int64_t* out);
template bool Sdf_TextCursor::ReadInteger<uint64_t>(uint64_t* out);

bool Sdf_TextCursor::Fail(std::string message)
{
    if (_error.empty()) {
        _error = std::move(message);
        _errorPos = _pos;
    }
    return false;
}

void Sdf_TextCursor::GetLineAndColumn(size_t offset, size_t* line, size_t* column) const
{
    offset = std::min(offset, _text.size());
    size_t lineNumber = 1;
    size_t lineStart = 0;
    for (size_t i = 0; i < offset; ++i) {
        if (_text[i] == '\n') {
            ++lineNumber;
            lineStart = i + 1;
        }
    }
    *line = lineNumber;
    *column = offset - lineStart + 1;
}

PXR_NAMESPACE_CLOSE_SCOPE
