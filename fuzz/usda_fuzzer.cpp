// libFuzzer target for the text layer reader and, on what it reads, the
// writer: whatever the bytes, reading ends with data or a diagnostic, and
// text the writer produced reads back.

#include "usdcore/sdf/usda/usdaReader.h"
#include "usdcore/sdf/usda/usdaWriter.h"
#include "usdcore/tf/diagnostic.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

PXR_NAMESPACE_USING_DIRECTIVE

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, size_t size)
{
    TfDiagnosticCapture capture;
    const std::string_view text(reinterpret_cast<const char*>(bytes), size);
    SdfData data;
    if (!SdfUsdaReadData(text, "fuzz.usda", &data)) {
        return 0;
    }
    std::string written;
    if (SdfUsdaWriteData(data, &written)) {
        SdfData reread;
        if (!SdfUsdaReadData(written, "fuzz-written.usda", &reread)) {
            // The writer produced text its own reader refuses.
            std::abort();
        }
    }
    return 0;
}
