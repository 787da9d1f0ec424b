#pragma once

// Which reader a layer's bytes go to. The one place that knows the formats:
// text (.usda), crate (.usdc), either by content (.usd), and packages
// (.usdz, whose first layer is the root).

#include "usdcore/pxr.h"
#include "usdcore/sdf/data.h"

#include <string>
#include <string_view>

PXR_NAMESPACE_OPEN_SCOPE

/// True when \p bytes start with the crate format's magic, "PXR-USDC".
bool Sdf_IsCrateBytes(std::string_view bytes);

/// Reads the layer bytes of a file named with \p extension ("usda", "usdc"
/// or "usd", lower case) into \p data. Errors name \p identifier.
bool Sdf_ReadLayerBytes(std::string_view bytes, const std::string& extension,
                        const std::string& identifier, SdfData* data);

/// Reads the layer at \p path, a file or a package-relative path
/// ("scene.usdz[inner.usdc]"), choosing the reader by extension. A .usdz
/// file reads as its first layer.
bool Sdf_ReadLayerFile(const std::string& path, SdfData* data);

PXR_NAMESPACE_CLOSE_SCOPE
