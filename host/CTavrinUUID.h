#pragma once

#include <array>
#include <cstdint>

#include "host/CTavrinArchive.h"

namespace Tavrin {

// 128-bit identifier; all zero means invalid. Text form: lower-case
// 8-4-4-4-12 hexadecimal groups without braces.
class CTavrinUUID : public CTavrinArchivable {
public:
    CTavrinUUID() = default;
    // Parses the text form, with or without braces; anything else gives an
    // invalid UUID.
    explicit CTavrinUUID(const CTavrinString& text);
    CTavrinUUID(const CTavrinUUID&) = default;
    CTavrinUUID& operator=(const CTavrinUUID&) = default;

    // A new random (version 4) value.
    void Generate();
    void Reset() { m_bytes.fill(0); }
    bool IsValid() const;
    CTavrinString ToString() const;
    operator CTavrinString() const { return ToString(); }

    bool operator==(const CTavrinUUID& other) const { return m_bytes == other.m_bytes; }
    bool operator!=(const CTavrinUUID& other) const { return m_bytes != other.m_bytes; }
    bool operator<(const CTavrinUUID& other) const { return m_bytes < other.m_bytes; }

    bool ReadFromArchive(CTavrinArchiveBase* archive) override;
    bool WriteIntoArchive(CTavrinArchiveBase* archive) override;

private:
    std::array<std::uint8_t, 16> m_bytes{};
};

} // namespace Tavrin
