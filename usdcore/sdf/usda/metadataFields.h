#pragma once

// The metadata the text format knows by name: the keyword written in a
// layer, the field it fills, and the shape of its value. The reader and the
// writer both look here, so a keyword's meaning lives in one place. Keys
// not listed are kept as SdfUnregisteredValue holding their text.

#include "usdcore/pxr.h"
#include "usdcore/tf/token.h"

#include <string_view>

PXR_NAMESPACE_OPEN_SCOPE

enum class Sdf_MetadataKind {
    Bool,
    Int,
    Double,
    Token,
    String,
    Asset,
    Dictionary,
    TokenArray,
    StringArray,
    PathListOp,
    ReferenceListOp,
    PayloadListOp,
    TokenListOp,
    StringListOp,
    Int64ListOp,
    VariantSelection,
    Permission,
    SubLayers,
    Relocates,
};

struct Sdf_MetadataField {
    std::string_view keyword;
    std::string_view fieldName;
    Sdf_MetadataKind kind;
};

/// The entry for \p keyword as written in a layer's own metadata (\p isLayer)
/// or in a prim's or property's, or null.
const Sdf_MetadataField* Sdf_FindMetadataByKeyword(std::string_view keyword, bool isLayer = false);
/// The entry that fills \p fieldName, or null.
const Sdf_MetadataField* Sdf_FindMetadataByField(const TfToken& fieldName);

bool Sdf_IsListOpKind(Sdf_MetadataKind kind);

PXR_NAMESPACE_CLOSE_SCOPE
