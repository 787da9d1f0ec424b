#pragma once

#include "usdcore/pxr.h"

#include <string>
#include <string_view>

PXR_NAMESPACE_OPEN_SCOPE

class SdfData;

/// Reads a binary "crate" (.usdc) layer from \p bytes into \p data: one spec
/// per spec of the file, with every field the file stores (prim and property
/// children, specifiers, type names, defaults, time samples, list ops,
/// variant selections, layer metadata on the pseudo-root...), holding the
/// same value types the text reader produces for the same scene.
///
/// \p bytes is only read, never copied as a whole, so that a mapped file or
/// an entry of a package can be handed over in place. Returns false, with one
/// runtime error naming \p identifier and the cause, on malformed input; \p
/// data may then hold part of the file and should be discarded. Fields of
/// value types this reader does not decode are skipped with a warning.
bool SdfCrateReadData(std::string_view bytes, const std::string& identifier, SdfData* data);

PXR_NAMESPACE_CLOSE_SCOPE
