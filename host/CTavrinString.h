#pragma once

#include <cstddef>
#include <iosfwd>
#include <string>

namespace Tavrin {

// Text of wide characters with value semantics. Path operations accept both
// "/" and "\" as separators and produce the system separator.
class CTavrinString {
public:
    CTavrinString() = default;
    CTavrinString(const wchar_t* text);
    CTavrinString(const char* text);
    CTavrinString(const std::string& text);
    CTavrinString(const std::wstring& text);
    explicit CTavrinString(int value);

    static const wchar_t SystemSeparator;
    static CTavrinString FromUtf8(const std::string& text);

    CTavrinString operator+(const CTavrinString& other) const;
    CTavrinString operator+(wchar_t character) const;
    CTavrinString& operator+=(const wchar_t* text);
    CTavrinString& operator+=(const CTavrinString& other);

    bool operator==(const CTavrinString& other) const { return m_text == other.m_text; }
    bool operator!=(const CTavrinString& other) const { return m_text != other.m_text; }
    bool operator<(const CTavrinString& other) const { return m_text < other.m_text; }
    wchar_t operator[](std::size_t index) const { return m_text[index]; }

    bool IsEmpty() const { return m_text.empty(); }
    int Length() const { return static_cast<int>(m_text.size()); }
    bool HasUnicode() const;

    // UTF-8, the form handed to USD.
    std::string toStdString() const;
    const std::wstring& toStdWString() const { return m_text; }
    const wchar_t* c_str() const { return m_text.c_str(); }

    void RemovePath();
    void RemoveExt();
    void ReplaceSlashWithSystemSlash();
    CTavrinString Path(wchar_t separator) const;
    CTavrinString Extension() const;
    // Replaces the folder part of this path by folder, keeping the last element.
    void SetPath(const CTavrinString& folder);
    // Enters a sub-folder: appends name and one system separator.
    void CD(const CTavrinString& name);

    int Find(const CTavrinString& what, int from = 0) const;
    bool Contains(const CTavrinString& what) const { return Find(what) >= 0; }
    void Replace(const CTavrinString& what, const CTavrinString& with);
    void ReplaceCh(wchar_t what, wchar_t with);
    void ToLower();
    void Trim();
    // Keeps what lies before the first occurrence of character.
    void TruncateAfter(wchar_t character);
    // Keeps what lies after the last occurrence of character.
    void TruncateBefore(wchar_t character);
    wchar_t FirstCh() const { return m_text.empty() ? L'\0' : m_text.front(); }
    wchar_t LastCh() const { return m_text.empty() ? L'\0' : m_text.back(); }

private:
    std::wstring m_text;
};

// Lets test frameworks print the text (as UTF-8).
void PrintTo(const CTavrinString& text, std::ostream* stream);

} // namespace Tavrin
