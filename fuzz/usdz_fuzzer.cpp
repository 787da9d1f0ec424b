// Feeds arbitrary bytes to the usdz package reader, then reads every entry
// it accepted; the same bytes, as text, go through the package-relative
// path helpers.

#include "usdcore/sdf/usdz/package.h"
#include "usdcore/sdf/usdz/packageUtils.h"
#include "usdcore/tf/diagnostic.h"

#include <cstddef>
#include <cstdint>
#include <string>

PXR_NAMESPACE_USING_DIRECTIVE

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    TfDiagnosticCapture quiet;
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);

    if (auto package = SdfUsdzPackage::OpenFromBytes(bytes, "fuzz.usdz", nullptr)) {
        // Volatile reads of each entry's first and last byte let ASan check
        // that the span lies inside the input.
        volatile uint8_t sink = 0;
        for (const SdfUsdzPackage::Entry& entry : package->GetEntries()) {
            std::string_view entryBytes;
            if (package->GetEntryBytes(entry.path, &entryBytes)) {
                if (!entryBytes.empty()) {
                    sink = uint8_t(entryBytes.front());
                    sink = uint8_t(entryBytes.back());
                }
            }
        }
        (void)sink;
    }

    const std::string path(bytes);
    const auto outer = ArSplitPackageRelativePathOuter(path);
    const auto inner = ArSplitPackageRelativePathInner(path);
    ArJoinPackageRelativePath(outer.first, outer.second);
    ArJoinPackageRelativePath(inner.first, inner.second);
    // Both halves as anchor and asset path of each other.
    SdfAnchorAssetPath(inner.first, inner.second);
    SdfAnchorAssetPath(outer.second, outer.first);
    return 0;
}
