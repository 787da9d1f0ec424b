#include "TavrinAnimation/src/TavrinArchiveValues.h"

namespace Tavrin {

bool ReadWriteMatrix(CTavrinArchiveBase& archive, CTavrinMatrix& matrix) {
    for (int row = 0; row < 4; ++row) {
        for (int column = 0; column < 4; ++column) {
            double value = matrix.M(row, column);
            if (!archive.ReadWrite(value))
                return false;
            matrix.SetM(row, column, value);
        }
    }
    return true;
}

bool ReadWriteTexture(CTavrinArchiveBase& archive, CTavrinTexture& texture) {
    CTavrinString file = texture.FullFilename();
    if (!archive.ReadWrite(file))
        return false;
    if (archive.IsReaderArchive()) {
        // Documents written on another system carry its separators.
        file.ReplaceSlashWithSystemSlash();
        texture.SetFilename(file, true);
    }
    return true;
}

bool ReadWriteNormal(CTavrinArchiveBase& archive, CTavrinNormal& normal) {
    double x = normal.X(), y = normal.Y(), z = normal.Z();
    if (!archive.ReadWrite(x) || !archive.ReadWrite(y) || !archive.ReadWrite(z))
        return false;
    normal = CTavrinNormal(x, y, z);
    return true;
}

} // namespace Tavrin
