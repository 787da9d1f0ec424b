#include "usdcore/sdf/assetPath.h"
#include "usdcore/sdf/layerOffset.h"
#include "usdcore/sdf/payload.h"
#include "usdcore/sdf/reference.h"

#include <gtest/gtest.h>

#include <cmath>
#include <sstream>

PXR_NAMESPACE_USING_DIRECTIVE

TEST(SdfLayerOffset, AppliesScaleThenOffset)
{
    const SdfLayerOffset offset(10.0, 2.0);
    EXPECT_DOUBLE_EQ(offset * 3.0, 16.0);
    EXPECT_EQ(offset * SdfTimeCode(-5.0), SdfTimeCode(0.0));
    EXPECT_FALSE(offset.IsIdentity());
    EXPECT_TRUE(SdfLayerOffset().IsIdentity());
}

TEST(SdfLayerOffset, ComposesRightToLeft)
{
    const SdfLayerOffset outer(10.0, 2.0);
    const SdfLayerOffset inner(1.0, 3.0);
    // (outer * inner)(t) = outer(inner(t)) = 2 * (3t + 1) + 10 = 6t + 12
    const SdfLayerOffset composed = outer * inner;
    EXPECT_DOUBLE_EQ(composed.GetScale(), 6.0);
    EXPECT_DOUBLE_EQ(composed.GetOffset(), 12.0);
    EXPECT_DOUBLE_EQ(composed * 1.0, outer * (inner * 1.0));
    // The other order: 3 * (2t + 10) + 1 = 6t + 31
    EXPECT_DOUBLE_EQ((inner * outer).GetOffset(), 31.0);
}

TEST(SdfLayerOffset, InverseUndoesTheMapping)
{
    const SdfLayerOffset offset(10.0, 4.0);
    const SdfLayerOffset inverse = offset.GetInverse();
    // t' = 4t + 10  =>  t = 0.25 t' - 2.5
    EXPECT_DOUBLE_EQ(inverse.GetScale(), 0.25);
    EXPECT_DOUBLE_EQ(inverse.GetOffset(), -2.5);
    EXPECT_TRUE((offset * inverse).IsIdentity());
    EXPECT_TRUE((inverse * offset).IsIdentity());
    EXPECT_EQ(SdfLayerOffset().GetInverse(), SdfLayerOffset());
}

TEST(SdfLayerOffset, ZeroScaleHasNoFiniteInverse)
{
    const SdfLayerOffset inverse = SdfLayerOffset(5.0, 0.0).GetInverse();
    EXPECT_TRUE(std::isinf(inverse.GetScale()));
    EXPECT_FALSE(inverse.IsValid());
    EXPECT_TRUE(SdfLayerOffset(5.0, 0.0).IsValid());
}

TEST(SdfLayerOffset, EqualityToleratesRoundingOnly)
{
    EXPECT_EQ(SdfLayerOffset(1.0, 1.0), SdfLayerOffset(1.0 + 1e-9, 1.0));
    EXPECT_NE(SdfLayerOffset(1.0, 1.0), SdfLayerOffset(1.001, 1.0));
    EXPECT_TRUE(SdfLayerOffset(1.0, 1.0) < SdfLayerOffset(0.0, 2.0));
    std::ostringstream out;
    out << SdfLayerOffset(1.5, 2);
    EXPECT_EQ(out.str(), "SdfLayerOffset(1.5, 2)");
}

TEST(SdfArcs, ReferenceAndPayloadFields)
{
    const SdfReference internal(std::string(), SdfPath("/Model"));
    EXPECT_TRUE(internal.IsInternal());
    SdfReference external("./model.usd", SdfPath(), SdfLayerOffset(5.0));
    EXPECT_FALSE(external.IsInternal());
    EXPECT_TRUE(external.GetPrimPath().IsEmpty());
    EXPECT_TRUE(internal < external);
    VtDictionary customData{{"note", VtValue(std::string("x"))}};
    SdfReference withData = external;
    withData.SetCustomData(customData);
    EXPECT_NE(withData, external);
    EXPECT_EQ(hash_value(withData), hash_value(external));

    const SdfPayload payload("./heavy.usdc", SdfPath("/Heavy"), SdfLayerOffset(0.0, 2.0));
    EXPECT_EQ(payload.GetLayerOffset().GetScale(), 2.0);
    EXPECT_NE(payload, SdfPayload("./heavy.usdc", SdfPath("/Heavy")));
}

TEST(SdfAssetPath, AuthoredAndResolved)
{
    const SdfAssetPath authored("tex/wood.png");
    const SdfAssetPath resolved("tex/wood.png", "/scenes/tex/wood.png");
    EXPECT_EQ(authored.GetResolvedPath(), "");
    EXPECT_EQ(resolved.GetResolvedPath(), "/scenes/tex/wood.png");
    EXPECT_NE(authored, resolved);
    EXPECT_TRUE(authored < resolved);
    std::ostringstream out;
    out << authored;
    EXPECT_EQ(out.str(), "@tex/wood.png@");
}
