#pragma once

// What the stage knows about schema types without reading any file: the
// typed schema hierarchy ("Mesh" is a "PointBased", which is a "Gprim"...)
// and the attributes each typed schema defines, with their value types,
// variability and fallback values. A prim of a schema type has those
// attributes even where no layer authors them, and an unauthored one reads
// as its fallback.

#include "usdcore/pxr.h"
#include "usdcore/sdf/types.h"
#include "usdcore/sdf/valueTypeName.h"
#include "usdcore/tf/token.h"
#include "usdcore/vt/value.h"

#include <vector>

PXR_NAMESPACE_OPEN_SCOPE

/// An attribute that a typed schema defines.
struct Usd_BuiltinAttribute {
    TfToken name;
    SdfValueTypeName typeName;
    SdfVariability variability = SdfVariabilityVarying;
    /// Empty when the schema gives no fallback.
    VtValue fallback;
};

/// True when prim type \p typeName is \p schemaTypeName or derives from it.
bool Usd_SchemaTypeIsA(const TfToken& typeName, const TfToken& schemaTypeName);

/// The attribute \p attrName that prim type \p typeName (or a schema it
/// derives from) defines, or null.
const Usd_BuiltinAttribute* Usd_FindBuiltinAttribute(const TfToken& typeName, const TfToken& attrName);

/// Every attribute that prim type \p typeName defines, its own and its
/// bases' (empty for types the registry does not know).
const std::vector<const Usd_BuiltinAttribute*>& Usd_GetBuiltinAttributes(const TfToken& typeName);

PXR_NAMESPACE_CLOSE_SCOPE
