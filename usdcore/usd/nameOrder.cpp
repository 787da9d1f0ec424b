#include "usdcore/usd/nameOrder.h"

#include <cstddef>

PXR_NAMESPACE_OPEN_SCOPE

namespace {

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

// Where a character sorts once case is set aside.
int Rank(char c)
{
    const unsigned char u = static_cast<unsigned char>(c);
    if (u >= 'A' && u <= 'Z') return u - 'A' + 'a';
    if (u >= '[' && u <= '`') return u + 256;
    return u;
}

} // namespace

bool Usd_DictionaryLessThan::operator()(const std::string& lhs, const std::string& rhs) const
{
    size_t i = 0;
    size_t j = 0;
    int caseTie = 0;
    int zerosTie = 0;
    while (i < lhs.size() && j < rhs.size()) {
        if (IsDigit(lhs[i]) && IsDigit(rhs[j])) {
            const size_t lhsStart = i;
            const size_t rhsStart = j;
            while (i < lhs.size() && lhs[i] == '0') ++i;
            while (j < rhs.size() && rhs[j] == '0') ++j;
            const size_t lhsZeros = i - lhsStart;
            const size_t rhsZeros = j - rhsStart;
            const size_t lhsDigitsStart = i;
            const size_t rhsDigitsStart = j;
            while (i < lhs.size() && IsDigit(lhs[i])) ++i;
            while (j < rhs.size() && IsDigit(rhs[j])) ++j;
            const size_t lhsDigits = i - lhsDigitsStart;
            const size_t rhsDigits = j - rhsDigitsStart;
            // Without leading zeros, a longer run is a larger number.
            if (lhsDigits != rhsDigits) return lhsDigits < rhsDigits;
            const int byValue = lhs.compare(lhsDigitsStart, lhsDigits, rhs, rhsDigitsStart, rhsDigits);
            if (byValue != 0) return byValue < 0;
            if (zerosTie == 0 && lhsZeros != rhsZeros) zerosTie = lhsZeros < rhsZeros ? -1 : 1;
            continue;
        }
        const int lhsRank = Rank(lhs[i]);
        const int rhsRank = Rank(rhs[j]);
        if (lhsRank != rhsRank) return lhsRank < rhsRank;
        if (caseTie == 0 && lhs[i] != rhs[j]) caseTie = lhs[i] < rhs[j] ? -1 : 1;
        ++i;
        ++j;
    }
    if (i < lhs.size() || j < rhs.size()) {
        return j < rhs.size();
    }
    if (zerosTie != 0) return zerosTie < 0;
    return caseTie < 0;
}

PXR_NAMESPACE_CLOSE_SCOPE
