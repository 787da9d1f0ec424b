#pragma once

// Character-level reading of the text layer format: whitespace and comments,
// identifiers, quoted strings, asset paths, numbers and punctuation. The
// cursor never reads past the end of its text; every failure records the
// offset where it happened so that the reader can report line and column.

#include "usdcore/pxr.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

PXR_NAMESPACE_OPEN_SCOPE

class Sdf_TextCursor
{
public:
    explicit Sdf_TextCursor(std::string_view text) : _text(text) {}

    /// Skips spaces, newlines and comments ('#' and '//' to the end of the
    /// line, '/* */' blocks).
    void SkipSpace();
    /// Skips spaces and comments but stops at a newline: some statements of
    /// the format end at the end of their line.
    void SkipSpaceOnLine();

    bool AtEnd() const { return _pos >= _text.size(); }
    char Peek() const { return AtEnd() ? '\0' : _text[_pos]; }
    char PeekAt(size_t ahead) const
    {
        return _pos + ahead < _text.size() ? _text[_pos + ahead] : '\0';
    }
    size_t GetOffset() const { return _pos; }
    void SetOffset(size_t offset) { _pos = offset; }
    std::string_view Slice(size_t begin, size_t end) const { return _text.substr(begin, end - begin); }

    /// After SkipSpace: consumes \p c when it is next.
    bool Accept(char c);
    /// Like Accept, but fails with a message when \p c is not next.
    bool Expect(char c);
    /// Consumes \p keyword when it is next as a whole word.
    bool AcceptKeyword(std::string_view keyword);
    /// The identifier at the cursor, without consuming it (empty if none).
    std::string_view PeekIdentifier() const;

    /// An identifier: letters, digits, '_' (not first), and with
    /// \p namespaced also ':' between parts and a '.' suffix such as
    /// "connect" or "timeSamples" is left for the caller.
    bool ReadIdentifier(std::string_view* out, bool namespaced = false);
    /// '"..."', "'...'", or their triple-quoted forms, with escapes decoded.
    bool ReadString(std::string* out);
    bool AtString() const { return Peek() == '"' || Peek() == '\''; }
    /// '@path@' or '@@@path@@@' ('\@@@' stands for '@@@' inside the latter).
    bool ReadAssetPath(std::string* out);
    /// '<path>' as written, without the angle brackets.
    bool ReadPathText(std::string_view* out);
    /// The text of a number: digits, sign, '.', exponent, or inf/nan.
    bool ReadNumberText(std::string_view* out);
    bool AtNumber() const;

    bool ReadDouble(double* out);
    /// A number as an integer of type Int (int64_t or uint64_t). A number
    /// written with a fraction or an exponent counts when it is finite and,
    /// truncated toward zero, in range: OpenUSD takes 'int x = 0.0'.
    template <class Int>
    bool ReadInteger(Int* out);

    /// Records a failure at the current offset (the first one wins).
    bool Fail(std::string message);
    bool Failed() const { return !_error.empty(); }
    const std::string& GetError() const { return _error; }
    size_t GetErrorOffset() const { return _errorPos; }

    /// 1-based line and column of \p offset.
    void GetLineAndColumn(size_t offset, size_t* line, size_t* column) const;

private:
    std::string_view _text;
    size_t _pos = 0;
    std::string _error;
    size_t _errorPos = 0;
};

PXR_NAMESPACE_CLOSE_SCOPE
