#pragma once

// Writes layer data as a text layer. Everything the text reader fills is
// written, and numbers in their shortest exact form, so that reading the
// result gives equal data.

#include "usdcore/pxr.h"
#include "usdcore/sdf/data.h"

#include <string>

PXR_NAMESPACE_OPEN_SCOPE

/// Appends the text layer for \p data to \p out. Values that have no text
/// form are left out with a warning; false when \p data has no pseudo-root.
bool SdfUsdaWriteData(const SdfData& data, std::string* out);

PXR_NAMESPACE_CLOSE_SCOPE
