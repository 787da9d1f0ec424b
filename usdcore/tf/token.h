#pragma once

#include "usdcore/pxr.h"

#include <cstddef>
#include <functional>
#include <iosfwd>
#include <string>
#include <string_view>
#include <vector>

PXR_NAMESPACE_OPEN_SCOPE

struct Tf_TokenRep;

/// An interned string. Equal strings share one immortal entry in a global,
/// thread-safe table, so a token is a single pointer, compares and hashes in
/// O(1), and costs nothing to copy. The empty token is the null pointer.
class TfToken
{
public:
    struct HashFunctor {
        size_t operator()(const TfToken& token) const { return token.Hash(); }
    };

    TfToken() noexcept = default;
    explicit TfToken(const std::string& s);
    explicit TfToken(const char* s);
    /// Interns straight from a byte range (e.g. a decoded crate token table)
    /// without building a temporary std::string.
    explicit TfToken(std::string_view s);

    /// The token for \p s if it was interned already, else the empty token.
    static TfToken Find(const std::string& s);

    const std::string& GetString() const;
    const char* GetText() const { return GetString().c_str(); }
    const char* data() const { return GetText(); }
    size_t size() const { return GetString().size(); }
    size_t Hash() const;

    bool IsEmpty() const { return _rep == nullptr; }

    bool operator==(const TfToken& o) const { return _rep == o._rep; }
    bool operator!=(const TfToken& o) const { return _rep != o._rep; }
    bool operator==(const std::string& s) const { return GetString() == s; }
    bool operator!=(const std::string& s) const { return GetString() != s; }
    bool operator==(const char* s) const { return GetString() == s; }
    bool operator!=(const char* s) const { return GetString() != s; }

    /// Orders by the characters, like OpenUSD, so sorted token lists read
    /// alphabetically.
    bool operator<(const TfToken& o) const;
    bool operator>(const TfToken& o) const { return o < *this; }
    bool operator<=(const TfToken& o) const { return !(o < *this); }
    bool operator>=(const TfToken& o) const { return !(*this < o); }

    void Swap(TfToken& o) noexcept { std::swap(_rep, o._rep); }

private:
    const Tf_TokenRep* _rep = nullptr;
};

inline bool operator==(const std::string& s, const TfToken& t) { return t == s; }
inline bool operator!=(const std::string& s, const TfToken& t) { return t != s; }
inline bool operator==(const char* s, const TfToken& t) { return t == s; }
inline bool operator!=(const char* s, const TfToken& t) { return t != s; }

inline size_t hash_value(const TfToken& t) { return t.Hash(); }

std::ostream& operator<<(std::ostream& out, const TfToken& token);

using TfTokenVector = std::vector<TfToken>;

TfTokenVector TfToTokenVector(const std::vector<std::string>& strings);
std::vector<std::string> TfToStringVector(const TfTokenVector& tokens);

PXR_NAMESPACE_CLOSE_SCOPE

template <>
struct std::hash<PXR_NS::TfToken> {
    size_t operator()(const PXR_NS::TfToken& t) const { return t.Hash(); }
};
