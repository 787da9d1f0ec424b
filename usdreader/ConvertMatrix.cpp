#include "usdreader/CTavrinUSDReaderHandler.h"

PXR_NAMESPACE_USING_DIRECTIVE

namespace Tavrin {

// USD multiplies row vectors from the left, the host column vectors from the
// right: the same transform is the transpose. axisOrder permutes rows and
// columns alike, so a permuted frame stays a rotation of the original.
CTavrinMatrix CTavrinUSDReaderHandler::ConvertMatrix(const GfMatrix4d& matrix) const
{
    const GfMatrix4d transposed = matrix.GetTranspose();
    double values[4][4];
    for (int row = 0; row < 4; ++row) {
        for (int column = 0; column < 4; ++column)
            values[row][column] = transposed[axisOrder[row]][axisOrder[column]];
    }
    return CTavrinMatrix(values[0][0], values[0][1], values[0][2], values[0][3],
                         values[1][0], values[1][1], values[1][2], values[1][3],
                         values[2][0], values[2][1], values[2][2], values[2][3],
                         values[3][0], values[3][1], values[3][2], values[3][3]);
}

} // namespace Tavrin
