#pragma once

// A layer: the specs and fields of one file, opened once per real path and
// shared while anyone holds it.

#include "usdcore/pxr.h"
#include "usdcore/sdf/data.h"
#include "usdcore/sdf/layerOffset.h"
#include "usdcore/sdf/path.h"
#include "usdcore/tf/declarePtrs.h"
#include "usdcore/tf/refBase.h"
#include "usdcore/tf/token.h"
#include "usdcore/tf/weakBase.h"
#include "usdcore/vt/value.h"

#include <string>
#include <vector>

PXR_NAMESPACE_OPEN_SCOPE

TF_DECLARE_WEAK_AND_REF_PTRS(SdfLayer);

class SdfLayer : public TfRefBase, public TfWeakBase
{
public:
    /// The open layer for \p path, or the layer read from it: the format
    /// follows the extension (.usda, .usdc, .usd by content, .usdz as its
    /// first layer; "pkg.usdz[inner.usda]" reads a packaged layer). Null,
    /// with a diagnostic, when it cannot be read.
    static SdfLayerRefPtr FindOrOpen(const std::string& path);

    /// The layer at \p path if some holder keeps it open, else null.
    static SdfLayerRefPtr Find(const std::string& path);

    /// A layer read from text in memory, known by \p identifier (used in
    /// diagnostics, not registered for Find). Null on malformed text.
    static SdfLayerRefPtr OpenFromString(const std::string& usdaText,
                                         const std::string& identifier = "anonymous.usda");

    /// An empty layer that belongs to no file ("anon:N:tag"), not
    /// registered for Find.
    static SdfLayerRefPtr CreateAnonymous(const std::string& tag = std::string());
    /// An anonymous layer holding \p data: layers do not change once made,
    /// so whoever builds one (a flattened stage) hands over its contents.
    static SdfLayerRefPtr CreateAnonymous(const std::string& tag, SdfData data);

    /// True for layers made by CreateAnonymous.
    bool IsAnonymous() const;

    ~SdfLayer() override;
    SdfLayer(const SdfLayer&) = delete;
    SdfLayer& operator=(const SdfLayer&) = delete;

    const std::string& GetIdentifier() const { return _identifier; }
    /// The absolute file path (the package path for packaged layers).
    const std::string& GetRealPath() const { return _realPath; }
    const SdfData& GetData() const { return _data; }

    bool HasField(const SdfPath& path, const TfToken& fieldName, VtValue* value = nullptr) const
    {
        return _data.Has(path, fieldName, value);
    }
    VtValue GetField(const SdfPath& path, const TfToken& fieldName) const
    {
        return _data.Get(path, fieldName);
    }
    SdfSpecType GetSpecType(const SdfPath& path) const { return _data.GetSpecType(path); }
    bool HasSpec(const SdfPath& path) const { return _data.HasSpec(path); }

    SdfPath GetPseudoRoot() const { return SdfPath::AbsoluteRootPath(); }
    TfToken GetDefaultPrim() const;
    std::vector<std::string> GetSubLayerPaths() const;
    std::vector<SdfLayerOffset> GetSubLayerOffsets() const;
    /// The authored time codes per second, else the authored frames per
    /// second, else 24.
    double GetTimeCodesPerSecond() const;
    /// The authored frames per second, else 24.
    double GetFramesPerSecond() const;

    /// The layer as text; false when it cannot be written.
    bool ExportToString(std::string* result) const;
    /// Writes the layer as text to \p filename (any extension is written as
    /// text here).
    bool Export(const std::string& filename) const;

private:
    SdfLayer(std::string identifier, std::string realPath, SdfData data);

    std::string _identifier;
    std::string _realPath;
    SdfData _data;
};

PXR_NAMESPACE_CLOSE_SCOPE
