#pragma once

#include "usdcore/pxr.h"
#include "usdcore/sdf/layer.h"
#include "usdcore/sdf/path.h"
#include "usdcore/tf/refBase.h"
#include "usdcore/tf/token.h"
#include "usdcore/tf/weakBase.h"
#include "usdcore/usd/common.h"
#include "usdcore/usd/prim.h"
#include "usdcore/usd/primFlags.h"
#include "usdcore/usd/primRange.h"
#include "usdcore/vt/value.h"

#include <memory>
#include <string>

PXR_NAMESPACE_OPEN_SCOPE

/// OpenUSD's name for a weak layer handle.
using SdfLayerHandle = SdfLayerPtr;

/// The composed scene of a root layer: every prim composed once when the
/// stage opens (sublayers, references, payloads, variants, inherits and
/// specializes, in OpenUSD's strength order), so that traversals and value
/// reads never compose again.
class UsdStage : public TfRefBase, public TfWeakBase
{
public:
    enum InitialLoadSet {
        /// Follow every payload.
        LoadAll,
        /// Leave payloads unloaded: prims that have one are not loaded.
        LoadNone,
    };

    /// True for the extensions of the formats a stage reads: usd, usda,
    /// usdc, usdz (of the innermost file of a package-relative path).
    static bool IsSupportedFile(const std::string& filePath);

    /// The stage of the layer at \p filePath, or null, with a diagnostic,
    /// when that layer cannot be read. Layers that arcs name and that cannot
    /// be read are left out with a warning.
    static UsdStageRefPtr Open(const std::string& filePath, InitialLoadSet load = LoadAll);
    static UsdStageRefPtr Open(const SdfLayerHandle& rootLayer, InitialLoadSet load = LoadAll);

    ~UsdStage() override;
    UsdStage(const UsdStage&) = delete;
    UsdStage& operator=(const UsdStage&) = delete;

    SdfLayerHandle GetRootLayer() const;

    UsdPrim GetPseudoRoot() const;
    /// The prim at \p path, or an invalid prim when the stage has none there
    /// (prims below instances and inactive prims are not on the stage).
    UsdPrim GetPrimAtPath(const SdfPath& path) const;
    /// The root layer's default prim, or an invalid prim.
    UsdPrim GetDefaultPrim() const;
    bool HasDefaultPrim() const;

    /// Active, loaded, defined, non-abstract prims below the pseudo-root.
    UsdPrimRange Traverse();
    UsdPrimRange Traverse(const Usd_PrimFlagsPredicate& predicate);
    UsdPrimRange TraverseAll();

    /// Stage metadata: the root layer's, or the fallback of the time
    /// metadata (timeCodesPerSecond and framesPerSecond 24, start and end
    /// time codes 0).
    bool GetMetadata(const TfToken& key, VtValue* value) const;
    template <class T>
    bool GetMetadata(const TfToken& key, T* value) const
    {
        VtValue held;
        if (!GetMetadata(key, &held) || !held.IsHolding<T>()) return false;
        *value = held.UncheckedGet<T>();
        return true;
    }
    bool HasMetadata(const TfToken& key) const;
    bool HasAuthoredMetadata(const TfToken& key) const;

    /// The root layer's timeCodesPerSecond, else its framesPerSecond, else 24.
    double GetTimeCodesPerSecond() const;
    double GetFramesPerSecond() const;
    double GetStartTimeCode() const;
    double GetEndTimeCode() const;
    bool HasAuthoredTimeCodeRange() const;

    /// The composed stage as one anonymous layer: every active prim with its
    /// composed specifier, type, metadata and properties (resolved values,
    /// time samples on the stage's time line, composed targets and
    /// connections), the root layer's metadata, and no composition arcs.
    /// Instances are written with their composed content. With
    /// \p addSourceFileComment the layer's documentation names the root
    /// layer it came from.
    SdfLayerRefPtr Flatten(bool addSourceFileComment = true) const;

private:
    struct _Contents;

    UsdStage(const SdfLayerRefPtr& rootLayer, InitialLoadSet load);
    void _Compose();
    void _FlattenInto(SdfData* data) const;

    SdfLayerRefPtr _rootLayer;
    InitialLoadSet _load;
    std::unique_ptr<_Contents> _contents;
};

PXR_NAMESPACE_CLOSE_SCOPE
