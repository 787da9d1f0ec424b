#include <gtest/gtest.h>

#include <cmath>

#include "host/CTavrinQuaternion.h"

using namespace Tavrin;

namespace {
const double pi = 3.14159265358979323846;

void ExpectQuaternion(const CTavrinQuaternion& q, double w, double x, double y, double z)
{
    EXPECT_NEAR(q.W(), w, 1e-12);
    EXPECT_NEAR(q.X(), x, 1e-12);
    EXPECT_NEAR(q.Y(), y, 1e-12);
    EXPECT_NEAR(q.Z(), z, 1e-12);
}
} // namespace

TEST(Quaternion, FromMatrixOfQuarterTurnAboutZ)
{
    CTavrinQuaternion q;
    q.FromMatrix(CTavrinMatrix::DefineByRotation(pi / 2, 0, 0, 1));
    ExpectQuaternion(q, std::cos(pi / 4), 0, 0, std::sin(pi / 4));
}

TEST(Quaternion, FromMatrixOfHalfTurnTakesTheNonTraceBranch)
{
    CTavrinQuaternion q;
    q.FromMatrix(CTavrinMatrix::DefineByRotation(pi, 0, 1, 0));
    ExpectQuaternion(q, 0, 0, 1, 0);
}

TEST(Quaternion, ToMatrixRoundTrips)
{
    const CTavrinMatrix rotation = CTavrinMatrix::DefineByRotation(1.2, 1, -2, 0.5);
    CTavrinQuaternion q;
    q.FromMatrix(rotation);
    const CTavrinMatrix back = q.ToMatrix();
    for (int r = 0; r < 4; ++r)
        for (int c = 0; c < 4; ++c)
            EXPECT_NEAR(back.M(r, c), rotation.M(r, c), 1e-12);
}

TEST(Quaternion, SquadHalfwayIsHalfTheAngle)
{
    const CTavrinQuaternion identity;
    const CTavrinQuaternion quarterTurnZ(std::cos(pi / 4), 0, 0, std::sin(pi / 4));
    // Halfway between 0 and 90 degrees about Z is 45 degrees: half-angle pi/8.
    ExpectQuaternion(identity.Squad(quarterTurnZ, 0.5), std::cos(pi / 8), 0, 0, std::sin(pi / 8));
    ExpectQuaternion(identity.Squad(quarterTurnZ, 0.0), 1, 0, 0, 0);
    ExpectQuaternion(identity.Squad(quarterTurnZ, 1.0), std::cos(pi / 4), 0, 0, std::sin(pi / 4));
}

TEST(Quaternion, SquadTakesTheShorterArc)
{
    const CTavrinQuaternion identity;
    // The same quarter turn written with the opposite sign: the long way round
    // would pass 180 degrees at t = 0.5.
    const CTavrinQuaternion negatedQuarterTurnZ(-std::cos(pi / 4), 0, 0, -std::sin(pi / 4));
    const CTavrinQuaternion halfway = identity.Squad(negatedQuarterTurnZ, 0.5);
    const CTavrin3DVertex x = halfway.ToMatrix().TransformPoint({1, 0, 0});
    EXPECT_NEAR(x.X(), std::cos(pi / 4), 1e-12);
    EXPECT_NEAR(x.Y(), std::sin(pi / 4), 1e-12);
}
