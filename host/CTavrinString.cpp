#include "host/CTavrinString.h"

#include <cwctype>
#include <ostream>

namespace Tavrin {

namespace {

bool IsSeparator(wchar_t character)
{
    return character == L'/' || character == L'\\';
}

std::size_t LastSeparator(const std::wstring& text)
{
    return text.find_last_of(L"/\\");
}

// wchar_t is UTF-32 on Linux; narrow literals and tokens arrive as UTF-8.
std::wstring DecodeUtf8(const std::string& text)
{
    std::wstring result;
    result.reserve(text.size());
    std::size_t i = 0;
    while (i < text.size()) {
        const unsigned char lead = static_cast<unsigned char>(text[i]);
        int extra = 0;
        char32_t code = lead;
        if (lead >= 0xF0 && lead < 0xF8) {
            extra = 3;
            code = lead & 0x07;
        } else if (lead >= 0xE0) {
            extra = lead < 0xF0 ? 2 : -1;
            code = lead & 0x0F;
        } else if (lead >= 0xC0) {
            extra = 1;
            code = lead & 0x1F;
        } else if (lead >= 0x80) {
            extra = -1;
        }
        if (extra < 0 || i + extra >= text.size()) {
            result.push_back(L'\xFFFD');
            ++i;
            continue;
        }
        bool valid = true;
        for (int k = 1; k <= extra; ++k) {
            const unsigned char next = static_cast<unsigned char>(text[i + k]);
            if ((next & 0xC0) != 0x80) {
                valid = false;
                break;
            }
            code = (code << 6) | (next & 0x3F);
        }
        if (!valid) {
            result.push_back(L'\xFFFD');
            ++i;
            continue;
        }
        result.push_back(static_cast<wchar_t>(code));
        i += extra + 1;
    }
    return result;
}

void EncodeUtf8(char32_t code, std::string& out)
{
    if (code < 0x80) {
        out.push_back(static_cast<char>(code));
    } else if (code < 0x800) {
        out.push_back(static_cast<char>(0xC0 | (code >> 6)));
        out.push_back(static_cast<char>(0x80 | (code & 0x3F)));
    } else if (code < 0x10000) {
        out.push_back(static_cast<char>(0xE0 | (code >> 12)));
        out.push_back(static_cast<char>(0x80 | ((code >> 6) & 0x3F)));
        out.push_back(static_cast<char>(0x80 | (code & 0x3F)));
    } else {
        out.push_back(static_cast<char>(0xF0 | (code >> 18)));
        out.push_back(static_cast<char>(0x80 | ((code >> 12) & 0x3F)));
        out.push_back(static_cast<char>(0x80 | ((code >> 6) & 0x3F)));
        out.push_back(static_cast<char>(0x80 | (code & 0x3F)));
    }
}

} // namespace

#ifdef _WIN32
const wchar_t CTavrinString::SystemSeparator = L'\\';
#else
const wchar_t CTavrinString::SystemSeparator = L'/';
#endif

CTavrinString::CTavrinString(const wchar_t* text) : m_text(text ? text : L"") {}
CTavrinString::CTavrinString(const char* text) : m_text(DecodeUtf8(text ? text : "")) {}
CTavrinString::CTavrinString(const std::string& text) : m_text(DecodeUtf8(text)) {}
CTavrinString::CTavrinString(const std::wstring& text) : m_text(text) {}
CTavrinString::CTavrinString(int value) : m_text(std::to_wstring(value)) {}

CTavrinString CTavrinString::FromUtf8(const std::string& text)
{
    return CTavrinString(text);
}

CTavrinString CTavrinString::operator+(const CTavrinString& other) const
{
    return CTavrinString(m_text + other.m_text);
}

CTavrinString CTavrinString::operator+(wchar_t character) const
{
    return CTavrinString(m_text + character);
}

CTavrinString& CTavrinString::operator+=(const wchar_t* text)
{
    if (text)
        m_text += text;
    return *this;
}

CTavrinString& CTavrinString::operator+=(const CTavrinString& other)
{
    m_text += other.m_text;
    return *this;
}

bool CTavrinString::HasUnicode() const
{
    for (wchar_t character : m_text) {
        if (static_cast<unsigned long>(character) > 0x7F)
            return true;
    }
    return false;
}

std::string CTavrinString::toStdString() const
{
    std::string result;
    result.reserve(m_text.size());
    for (wchar_t character : m_text) {
        const unsigned long code = static_cast<unsigned long>(character);
        EncodeUtf8(code > 0x10FFFF ? 0xFFFD : static_cast<char32_t>(code), result);
    }
    return result;
}

void CTavrinString::RemovePath()
{
    const std::size_t separator = LastSeparator(m_text);
    if (separator != std::wstring::npos)
        m_text.erase(0, separator + 1);
}

void CTavrinString::RemoveExt()
{
    const std::size_t dot = m_text.rfind(L'.');
    const std::size_t separator = LastSeparator(m_text);
    if (dot != std::wstring::npos && (separator == std::wstring::npos || dot > separator))
        m_text.erase(dot);
}

void CTavrinString::ReplaceSlashWithSystemSlash()
{
    for (wchar_t& character : m_text) {
        if (IsSeparator(character))
            character = SystemSeparator;
    }
}

CTavrinString CTavrinString::Path(wchar_t separator) const
{
    const std::size_t position = m_text.rfind(separator);
    if (position == std::wstring::npos)
        return CTavrinString();
    return CTavrinString(m_text.substr(0, position));
}

CTavrinString CTavrinString::Extension() const
{
    const std::size_t dot = m_text.rfind(L'.');
    const std::size_t separator = LastSeparator(m_text);
    if (dot == std::wstring::npos || (separator != std::wstring::npos && dot < separator))
        return CTavrinString();
    return CTavrinString(m_text.substr(dot + 1));
}

void CTavrinString::SetPath(const CTavrinString& folder)
{
    RemovePath();
    std::wstring result = folder.m_text;
    if (!result.empty() && !IsSeparator(result.back()))
        result.push_back(SystemSeparator);
    m_text = result + m_text;
}

void CTavrinString::CD(const CTavrinString& name)
{
    if (!m_text.empty() && !IsSeparator(m_text.back()))
        m_text.push_back(SystemSeparator);
    m_text += name.m_text;
    m_text.push_back(SystemSeparator);
}

int CTavrinString::Find(const CTavrinString& what, int from) const
{
    if (from < 0 || static_cast<std::size_t>(from) > m_text.size())
        return -1;
    const std::size_t position = m_text.find(what.m_text, static_cast<std::size_t>(from));
    return position == std::wstring::npos ? -1 : static_cast<int>(position);
}

void CTavrinString::Replace(const CTavrinString& what, const CTavrinString& with)
{
    if (what.m_text.empty())
        return;
    std::size_t position = 0;
    while ((position = m_text.find(what.m_text, position)) != std::wstring::npos) {
        m_text.replace(position, what.m_text.size(), with.m_text);
        position += with.m_text.size();
    }
}

void CTavrinString::ReplaceCh(wchar_t what, wchar_t with)
{
    for (wchar_t& character : m_text) {
        if (character == what)
            character = with;
    }
}

void CTavrinString::ToLower()
{
    for (wchar_t& character : m_text)
        character = static_cast<wchar_t>(std::towlower(static_cast<wint_t>(character)));
}

void CTavrinString::Trim()
{
    const std::size_t first = m_text.find_first_not_of(L" \t\r\n");
    if (first == std::wstring::npos) {
        m_text.clear();
        return;
    }
    const std::size_t last = m_text.find_last_not_of(L" \t\r\n");
    m_text = m_text.substr(first, last - first + 1);
}

void CTavrinString::TruncateAfter(wchar_t character)
{
    const std::size_t position = m_text.find(character);
    if (position != std::wstring::npos)
        m_text.erase(position);
}

void CTavrinString::TruncateBefore(wchar_t character)
{
    const std::size_t position = m_text.rfind(character);
    if (position != std::wstring::npos)
        m_text.erase(0, position + 1);
}

void PrintTo(const CTavrinString& text, std::ostream* stream)
{
    *stream << '"' << text.toStdString() << '"';
}

} // namespace Tavrin
