#pragma once

// Text parsing of paths. Internal to sdf/.

#include "usdcore/pxr.h"
#include "usdcore/sdf/path.h"

#include <string>
#include <string_view>

PXR_NAMESPACE_OPEN_SCOPE

struct Sdf_PathParser {
    /// The path spelled by \p text, or the empty path with \p error set.
    static SdfPath Parse(std::string_view text, std::string* error);
    /// \p base extended by the elements spelled in \p elements.
    static SdfPath ParseElements(const SdfPath& base, std::string_view elements,
                                 std::string* error);
};

PXR_NAMESPACE_CLOSE_SCOPE
