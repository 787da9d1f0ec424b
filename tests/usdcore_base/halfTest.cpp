#include "usdcore/gf/half.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

PXR_NAMESPACE_USING_DIRECTIVE

// Bit patterns worked out from the binary16 layout: 1 sign, 5 exponent
// (bias 15), 10 mantissa bits.
TEST(GfHalf, ExactValuesMapToTheirBits)
{
    EXPECT_EQ(GfHalf(1.0f).bits(), 0x3c00);
    EXPECT_EQ(GfHalf(-2.0f).bits(), 0xc000);
    EXPECT_EQ(GfHalf(0.5f).bits(), 0x3800);
    EXPECT_EQ(GfHalf(65504.0f).bits(), 0x7bff); // largest finite
    EXPECT_EQ(GfHalf(0.0f).bits(), 0x0000);
    EXPECT_EQ(GfHalf(-0.0f).bits(), 0x8000);
    EXPECT_EQ(float(GfHalf::FromBits(0x3555)), 0.333251953125f);
}

TEST(GfHalf, DenormalsBothWays)
{
    const float smallest = std::ldexp(1.0f, -24);
    EXPECT_EQ(GfHalf(smallest).bits(), 0x0001);
    EXPECT_EQ(float(GfHalf::FromBits(0x0001)), smallest);
    EXPECT_EQ(float(GfHalf::FromBits(0x03ff)), 1023 * smallest); // largest denormal
    EXPECT_TRUE(GfHalf::FromBits(0x0200).isDenormalized());
    // Half the smallest denormal ties to even (zero); just above rounds up.
    EXPECT_EQ(GfHalf(std::ldexp(1.0f, -25)).bits(), 0x0000);
    EXPECT_EQ(GfHalf(std::ldexp(1.5f, -25)).bits(), 0x0001);
    // 1.5 * 2^-24 ties between 1 and 2 units: even is 2.
    EXPECT_EQ(GfHalf(std::ldexp(1.5f, -24)).bits(), 0x0002);
    // Rounding the largest denormal range up reaches the smallest normal.
    EXPECT_EQ(GfHalf(std::ldexp(1023.75f, -24)).bits(), 0x0400);
}

TEST(GfHalf, RoundsToNearestEven)
{
    // Between 1 (0x3c00) and 1 + 2^-10 (0x3c01): the midpoint ties to even.
    EXPECT_EQ(GfHalf(1.0f + std::ldexp(1.0f, -11)).bits(), 0x3c00);
    EXPECT_EQ(GfHalf(1.0f + 3 * std::ldexp(1.0f, -11)).bits(), 0x3c02);
    EXPECT_EQ(GfHalf(1.0f + std::ldexp(1.2f, -11)).bits(), 0x3c01);
    // 2047.5 ... the mantissa carry moves into the exponent: 2048 is 0x6800.
    EXPECT_EQ(GfHalf(2047.5f).bits(), 0x6800);
}

TEST(GfHalf, OverflowInfinityAndNan)
{
    EXPECT_EQ(GfHalf(65519.0f).bits(), 0x7bff); // rounds down to the max
    EXPECT_EQ(GfHalf(65520.0f).bits(), 0x7c00); // tie goes to infinity
    EXPECT_EQ(GfHalf(1e10f).bits(), 0x7c00);
    EXPECT_EQ(GfHalf(-1e10f).bits(), 0xfc00);
    EXPECT_TRUE(GfHalf(std::numeric_limits<float>::infinity()).isInfinity());
    EXPECT_TRUE(std::isinf(float(GfHalf::negInf())));
    EXPECT_TRUE(GfHalf(std::numeric_limits<float>::quiet_NaN()).isNan());
    EXPECT_TRUE(std::isnan(float(GfHalf::qNan())));
    // A NaN whose payload sits only in the low float bits is still a NaN.
    uint32_t lowPayloadNan = 0x7f800001;
    float f;
    std::memcpy(&f, &lowPayloadNan, 4);
    EXPECT_TRUE(GfHalf(f).isNan());
}

TEST(GfHalf, RoundTripsEveryFiniteHalf)
{
    for (uint32_t bits = 0; bits < 0x10000; ++bits) {
        const GfHalf h = GfHalf::FromBits(uint16_t(bits));
        if (h.isNan()) continue;
        ASSERT_EQ(GfHalf(float(h)).bits(), bits) << std::hex << bits;
    }
}

TEST(GfHalf, ArithmeticGoesThroughFloat)
{
    GfHalf h(1.5f);
    h += 2.0f;
    EXPECT_EQ(float(h), 3.5f);
    EXPECT_EQ(float(-h), -3.5f);
    EXPECT_EQ(float(h) * 2, 7.0f);
}
