#pragma once

// OpenUSD lists property names in "dictionary" order: case is ignored
// unless two names differ by case alone (then upper case first), runs of
// digits compare by their value ("file2" before "file10", "file01" before
// "file001"), and the characters between the upper and lower case letters
// ('_' among them) come after all letters.

#include "usdcore/pxr.h"

#include <string>

PXR_NAMESPACE_OPEN_SCOPE

struct Usd_DictionaryLessThan {
    bool operator()(const std::string& lhs, const std::string& rhs) const;
};

PXR_NAMESPACE_CLOSE_SCOPE
