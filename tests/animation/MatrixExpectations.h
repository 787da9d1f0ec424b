#pragma once
// Element-wise matrix and point comparisons for the animation tests.

#include "host/CTavrin3DVertex.h"
#include "host/CTavrinMatrix.h"

#include <gtest/gtest.h>

inline void ExpectMatrixNear(const Tavrin::CTavrinMatrix& actual, const Tavrin::CTavrinMatrix& expected,
                             double tolerance = 1e-9) {
    for (int row = 0; row < 4; ++row) {
        for (int column = 0; column < 4; ++column)
            EXPECT_NEAR(actual.M(row, column), expected.M(row, column), tolerance)
                << "at (" << row << ", " << column << ")";
    }
}

inline Tavrin::CTavrinMatrix Translation(double x, double y, double z) {
    return Tavrin::CTavrinMatrix::CreateTranslation(x, y, z);
}

inline void ExpectPointNear(const Tavrin::CTavrin3DVertex& actual, double x, double y, double z) {
    EXPECT_NEAR(actual.X(), x, 1e-9);
    EXPECT_NEAR(actual.Y(), y, 1e-9);
    EXPECT_NEAR(actual.Z(), z, 1e-9);
}
