#pragma once

#include "usdcore/pxr.h"

#include <cstdint>
#include <cstring>
#include <iosfwd>

PXR_NAMESPACE_OPEN_SCOPE

/// IEEE 754 binary16. Converts from float with round-to-nearest-even,
/// keeping denormals, infinities and NaN; converts to float exactly.
class GfHalf
{
public:
    GfHalf() = default;
    GfHalf(float f) : _bits(FromFloat(f)) {}

    operator float() const { return ToFloat(_bits); }

    uint16_t bits() const { return _bits; }
    void setBits(uint16_t bits) { _bits = bits; }

    bool isFinite() const { return (_bits & 0x7c00) != 0x7c00; }
    bool isNan() const { return (_bits & 0x7c00) == 0x7c00 && (_bits & 0x03ff) != 0; }
    bool isInfinity() const { return (_bits & 0x7fff) == 0x7c00; }
    bool isDenormalized() const { return (_bits & 0x7c00) == 0 && (_bits & 0x03ff) != 0; }
    bool isZero() const { return (_bits & 0x7fff) == 0; }
    bool isNegative() const { return (_bits & 0x8000) != 0; }

    GfHalf operator-() const { return FromBits(_bits ^ 0x8000); }
    GfHalf& operator+=(float f) { return *this = GfHalf(float(*this) + f); }
    GfHalf& operator-=(float f) { return *this = GfHalf(float(*this) - f); }
    GfHalf& operator*=(float f) { return *this = GfHalf(float(*this) * f); }
    GfHalf& operator/=(float f) { return *this = GfHalf(float(*this) / f); }

    static GfHalf FromBits(uint16_t bits)
    {
        GfHalf h;
        h._bits = bits;
        return h;
    }
    static GfHalf posInf() { return FromBits(0x7c00); }
    static GfHalf negInf() { return FromBits(0xfc00); }
    static GfHalf qNan() { return FromBits(0x7e00); }

    static uint16_t FromFloat(float f)
    {
        uint32_t x;
        std::memcpy(&x, &f, sizeof x);
        const uint16_t sign = uint16_t((x >> 16) & 0x8000);
        const uint32_t magnitude = x & 0x7fffffff;
        if (magnitude >= 0x7f800000) {
            // Infinity stays infinity; NaN keeps its top payload bits and
            // stays a NaN even when those are all zero.
            if (magnitude == 0x7f800000) {
                return sign | 0x7c00;
            }
            const uint16_t payload = uint16_t((magnitude >> 13) & 0x3ff);
            return sign | 0x7c00 | (payload ? payload : 0x200);
        }
        // 65520 is halfway between the largest half (65504) and 2^16; the tie
        // rounds to the even neighbour, which is infinity.
        if (magnitude >= 0x477ff000) {
            return sign | 0x7c00;
        }
        if (magnitude >= 0x38800000) {
            // Normal half: rebias the exponent (127 -> 15) and round the
            // mantissa at bit 13; a carry correctly bumps the exponent.
            const uint32_t rounded = magnitude + 0xfff + ((magnitude >> 13) & 1);
            return sign | uint16_t((rounded - 0x38000000) >> 13);
        }
        const uint32_t exponent = magnitude >> 23;
        if (exponent < 102) {
            return sign; // below half the smallest denormal: rounds to zero
        }
        // Denormal half: units of 2^-24, rounded to nearest even.
        const uint32_t mantissa = (magnitude & 0x7fffff) | 0x800000;
        const uint32_t shift = 126 - exponent;
        uint32_t quotient = mantissa >> shift;
        const uint32_t remainder = mantissa & ((1u << shift) - 1);
        const uint32_t halfway = 1u << (shift - 1);
        if (remainder > halfway || (remainder == halfway && (quotient & 1))) {
            ++quotient;
        }
        return sign | uint16_t(quotient);
    }

    static float ToFloat(uint16_t h)
    {
        const uint32_t sign = uint32_t(h & 0x8000) << 16;
        const uint32_t exponent = (h >> 10) & 0x1f;
        const uint32_t mantissa = h & 0x3ff;
        uint32_t x;
        if (exponent == 0x1f) {
            x = sign | 0x7f800000 | (mantissa << 13);
        } else if (exponent == 0) {
            // Zero or denormal: mantissa * 2^-24 is exact in float.
            const float magnitude = float(mantissa) * (1.0f / 16777216.0f);
            std::memcpy(&x, &magnitude, sizeof x);
            x |= sign;
        } else {
            x = sign | ((exponent + 112) << 23) | (mantissa << 13);
        }
        float f;
        std::memcpy(&f, &x, sizeof f);
        return f;
    }

private:
    uint16_t _bits = 0;
};

std::ostream& operator<<(std::ostream& out, GfHalf h);

PXR_NAMESPACE_CLOSE_SCOPE
