#pragma once

#include "usdcore/pxr.h"
#include "usdcore/vt/value.h"

#include <map>
#include <string>

PXR_NAMESPACE_OPEN_SCOPE

/// String-keyed values (customData, assetInfo, layer metadata...), ordered
/// by key like OpenUSD's std::map-based dictionary.
class VtDictionary : private std::map<std::string, VtValue>
{
    using Map = std::map<std::string, VtValue>;

public:
    using Map::const_iterator;
    using Map::iterator;
    using Map::key_type;
    using Map::mapped_type;
    using Map::size_type;
    using Map::value_type;

    VtDictionary() = default;
    VtDictionary(std::initializer_list<value_type> entries) : Map(entries) {}
    template <class It>
    VtDictionary(It first, It last) : Map(first, last)
    {
    }

    using Map::begin;
    using Map::cbegin;
    using Map::cend;
    using Map::clear;
    using Map::count;
    using Map::emplace;
    using Map::empty;
    using Map::end;
    using Map::erase;
    using Map::find;
    using Map::insert;
    using Map::size;
    using Map::operator[];

    void swap(VtDictionary& o) noexcept { Map::swap(o); }

    /// The value at a ':'-separated path through nested dictionaries
    /// ("a:b:c"), or null.
    const VtValue* GetValueAtPath(const std::string& keyPath) const;

    bool operator==(const VtDictionary& o) const
    {
        return static_cast<const Map&>(*this) == static_cast<const Map&>(o);
    }
    bool operator!=(const VtDictionary& o) const { return !(*this == o); }
};

/// Prints "{key: value, ...}" in key order.
std::ostream& operator<<(std::ostream& out, const VtDictionary& dictionary);

/// A shared empty dictionary, for functions that return one by reference.
const VtDictionary& VtGetEmptyDictionary();

PXR_NAMESPACE_CLOSE_SCOPE
