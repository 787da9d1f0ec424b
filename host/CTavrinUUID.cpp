#include "host/CTavrinUUID.h"

#include <random>

namespace Tavrin {

namespace {

std::mt19937_64& RandomEngine()
{
    static std::mt19937_64 engine{[] {
        std::random_device device;
        std::seed_seq seed{device(), device(), device(), device()};
        return std::mt19937_64(seed);
    }()};
    return engine;
}

int HexValue(wchar_t character)
{
    if (character >= L'0' && character <= L'9')
        return character - L'0';
    if (character >= L'a' && character <= L'f')
        return character - L'a' + 10;
    if (character >= L'A' && character <= L'F')
        return character - L'A' + 10;
    return -1;
}

bool IsDashPosition(std::size_t position)
{
    return position == 8 || position == 13 || position == 18 || position == 23;
}

} // namespace

CTavrinUUID::CTavrinUUID(const CTavrinString& text)
{
    std::wstring digits = text.toStdWString();
    if (digits.size() == 38 && digits.front() == L'{' && digits.back() == L'}')
        digits = digits.substr(1, 36);
    if (digits.size() != 36)
        return;
    std::array<std::uint8_t, 16> bytes{};
    std::size_t nibble = 0;
    for (std::size_t i = 0; i < digits.size(); ++i) {
        if (IsDashPosition(i)) {
            if (digits[i] != L'-')
                return;
            continue;
        }
        const int value = HexValue(digits[i]);
        if (value < 0)
            return;
        bytes[nibble / 2] = static_cast<std::uint8_t>(bytes[nibble / 2] | (value << (nibble % 2 ? 0 : 4)));
        ++nibble;
    }
    m_bytes = bytes;
}

void CTavrinUUID::Generate()
{
    std::uint64_t high = RandomEngine()();
    std::uint64_t low = RandomEngine()();
    for (int i = 0; i < 8; ++i) {
        m_bytes[i] = static_cast<std::uint8_t>(high >> (56 - 8 * i));
        m_bytes[8 + i] = static_cast<std::uint8_t>(low >> (56 - 8 * i));
    }
    m_bytes[6] = static_cast<std::uint8_t>((m_bytes[6] & 0x0F) | 0x40);
    m_bytes[8] = static_cast<std::uint8_t>((m_bytes[8] & 0x3F) | 0x80);
}

bool CTavrinUUID::IsValid() const
{
    for (std::uint8_t byte : m_bytes)
        if (byte != 0)
            return true;
    return false;
}

CTavrinString CTavrinUUID::ToString() const
{
    static const wchar_t digits[] = L"0123456789abcdef";
    std::wstring text;
    text.reserve(36);
    for (std::size_t i = 0; i < m_bytes.size(); ++i) {
        if (i == 4 || i == 6 || i == 8 || i == 10)
            text.push_back(L'-');
        text.push_back(digits[m_bytes[i] >> 4]);
        text.push_back(digits[m_bytes[i] & 0x0F]);
    }
    return CTavrinString(text);
}

bool CTavrinUUID::ReadFromArchive(CTavrinArchiveBase* archive)
{
    CTavrinString text;
    if (!archive->ReadString(text))
        return false;
    if (text.IsEmpty()) {
        Reset();
        return true;
    }
    CTavrinUUID parsed(text);
    if (!parsed.IsValid())
        return false;
    *this = parsed;
    return true;
}

bool CTavrinUUID::WriteIntoArchive(CTavrinArchiveBase* archive)
{
    return archive->WriteString(IsValid() ? ToString() : CTavrinString());
}

} // namespace Tavrin
