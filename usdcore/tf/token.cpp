#include "usdcore/tf/token.h"

#include <array>
#include <deque>
#include <mutex>
#include <ostream>
#include <unordered_map>

PXR_NAMESPACE_OPEN_SCOPE

struct Tf_TokenRep {
    std::string text;
    size_t hash;
};

namespace {

// Sharded so that parallel readers interning tokens rarely wait on each
// other. Entries are never freed: a reader's token set is bounded by the
// files it reads, and immortality keeps TfToken a plain pointer.
class TokenRegistry
{
public:
    static TokenRegistry& Get()
    {
        static TokenRegistry* registry = new TokenRegistry;
        return *registry;
    }

    const Tf_TokenRep* Intern(std::string_view text, bool create)
    {
        const size_t hash = std::hash<std::string_view>()(text);
        Shard& shard = _shards[hash % _shards.size()];
        std::lock_guard<std::mutex> lock(shard.mutex);
        auto it = shard.index.find(text);
        if (it != shard.index.end()) {
            return it->second;
        }
        if (!create) {
            return nullptr;
        }
        shard.reps.push_back(Tf_TokenRep{std::string(text), hash});
        const Tf_TokenRep* rep = &shard.reps.back();
        shard.index.emplace(rep->text, rep);
        return rep;
    }

private:
    struct Shard {
        std::mutex mutex;
        // deque: stable addresses, so the index can key on the stored text.
        std::deque<Tf_TokenRep> reps;
        std::unordered_map<std::string_view, const Tf_TokenRep*> index;
    };
    std::array<Shard, 64> _shards;
};

const std::string& EmptyString()
{
    static const std::string* empty = new std::string;
    return *empty;
}

} // namespace

TfToken::TfToken(std::string_view s)
    : _rep(s.empty() ? nullptr : TokenRegistry::Get().Intern(s, true))
{
}

TfToken::TfToken(const std::string& s) : TfToken(std::string_view(s)) {}

TfToken::TfToken(const char* s) : TfToken(std::string_view(s ? s : "")) {}

TfToken TfToken::Find(const std::string& s)
{
    TfToken token;
    if (!s.empty()) {
        token._rep = TokenRegistry::Get().Intern(s, false);
    }
    return token;
}

const std::string& TfToken::GetString() const
{
    return _rep ? _rep->text : EmptyString();
}

size_t TfToken::Hash() const
{
    return _rep ? _rep->hash : 0;
}

bool TfToken::operator<(const TfToken& o) const
{
    return _rep != o._rep && GetString() < o.GetString();
}

std::ostream& operator<<(std::ostream& out, const TfToken& token)
{
    return out << token.GetString();
}

TfTokenVector TfToTokenVector(const std::vector<std::string>& strings)
{
    TfTokenVector tokens;
    tokens.reserve(strings.size());
    for (const std::string& s : strings) {
        tokens.emplace_back(s);
    }
    return tokens;
}

std::vector<std::string> TfToStringVector(const TfTokenVector& tokens)
{
    std::vector<std::string> strings;
    strings.reserve(tokens.size());
    for (const TfToken& t : tokens) {
        strings.push_back(t.GetString());
    }
    return strings;
}

PXR_NAMESPACE_CLOSE_SCOPE
