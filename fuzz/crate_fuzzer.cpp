// libFuzzer entry: any bytes handed to the crate reader must give a layer or
// a diagnostic, never a crash, a hang or an out-of-bounds access.
//
//   crate_fuzzer -max_total_time=600 corpus_dir seed_dir
// Seed with the corpus .usdc files (and .usd files that are crate).

#include "usdcore/sdf/crate/crateReader.h"
#include "usdcore/sdf/data.h"
#include "usdcore/tf/diagnostic.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

PXR_NAMESPACE_USING_DIRECTIVE

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, size_t size)
{
    // Keep the expected diagnostics off stderr.
    TfDiagnosticCapture capture;
    SdfData data;
    SdfCrateReadData(std::string_view(reinterpret_cast<const char*>(bytes), size), "fuzz.usdc",
                     &data);
    return 0;
}
