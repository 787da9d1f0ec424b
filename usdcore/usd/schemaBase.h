#pragma once

#include "usdcore/pxr.h"
#include "usdcore/sdf/path.h"
#include "usdcore/tf/token.h"
#include "usdcore/usd/common.h"
#include "usdcore/usd/prim.h"

PXR_NAMESPACE_OPEN_SCOPE

/// A view of a prim through a schema: the base of every schema class.
///
/// The view is true when its prim is valid and the schema applies to it
/// (for a typed schema: the prim's type is the schema's type or derives
/// from it).
class UsdSchemaBase
{
public:
    explicit UsdSchemaBase(const UsdPrim& prim = UsdPrim()) : _prim(prim) {}
    UsdSchemaBase(const UsdSchemaBase&) = default;
    UsdSchemaBase& operator=(const UsdSchemaBase&) = default;
    virtual ~UsdSchemaBase() = default;

    UsdPrim GetPrim() const { return _prim; }
    SdfPath GetPath() const { return _prim.GetPath(); }

    explicit operator bool() const { return _prim.IsValid() && _IsCompatible(); }

protected:
    /// True when the schema applies to the (valid) prim.
    virtual bool _IsCompatible() const { return true; }

private:
    UsdPrim _prim;
};

/// The prim at \p path of \p stage for a schema's Get; an invalid prim,
/// with a coding error, when the stage is null.
UsdPrim Usd_SchemaGetPrim(const UsdStagePtr& stage, const SdfPath& path);

PXR_NAMESPACE_CLOSE_SCOPE
