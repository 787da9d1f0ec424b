#pragma once

// The built-in USD core lives in its own namespace; these are the macros that
// OpenUSD code uses, so that the reader compiles against either.
#define PXR_NAMESPACE_OPEN_SCOPE namespace usdcore {
#define PXR_NAMESPACE_CLOSE_SCOPE }
#define PXR_NS usdcore
#define PXR_NAMESPACE_USING_DIRECTIVE using namespace usdcore;
