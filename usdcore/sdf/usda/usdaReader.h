#pragma once

// Reads a text layer ("#usda 1.0") into layer data: specs and fields named
// and typed as OpenUSD's own text reader fills them, so that a crate layer
// of the same scene holds equal data.

#include "usdcore/pxr.h"
#include "usdcore/sdf/data.h"

#include <string>
#include <string_view>

PXR_NAMESPACE_OPEN_SCOPE

/// Fills \p data from \p text. On malformed text, posts a runtime error
/// naming \p identifier, the line and the column, and returns false (\p data
/// then holds what was read before the error).
bool SdfUsdaReadData(std::string_view text, const std::string& identifier, SdfData* data);

PXR_NAMESPACE_CLOSE_SCOPE
