#include "usdcore/vt/dictionary.h"

PXR_NAMESPACE_OPEN_SCOPE

std::ostream& operator<<(std::ostream& out, const VtDictionary& dictionary)
{
    Vt_StreamMap(out, dictionary);
    return out;
}

const VtValue* VtDictionary::GetValueAtPath(const std::string& keyPath) const
{
    const VtDictionary* dictionary = this;
    size_t start = 0;
    while (true) {
        const size_t colon = keyPath.find(':', start);
        const std::string key = keyPath.substr(start, colon == std::string::npos ? colon : colon - start);
        const auto it = dictionary->find(key);
        if (it == dictionary->end()) {
            return nullptr;
        }
        if (colon == std::string::npos) {
            return &it->second;
        }
        if (!it->second.IsHolding<VtDictionary>()) {
            return nullptr;
        }
        dictionary = &it->second.UncheckedGet<VtDictionary>();
        start = colon + 1;
    }
}

const VtDictionary& VtGetEmptyDictionary()
{
    static const VtDictionary* empty = new VtDictionary;
    return *empty;
}

PXR_NAMESPACE_CLOSE_SCOPE
