#pragma once

// Metadata values of the text format, both ways: list ops of paths,
// references, payloads, tokens and strings, variant selections, sublayers
// with their offsets, and the plain values of the metadata table. Keys the
// table does not know are kept as the text of their value.

#include "usdcore/pxr.h"
#include "usdcore/sdf/layerOffset.h"
#include "usdcore/sdf/listOp.h"
#include "usdcore/sdf/path.h"
#include "usdcore/sdf/usda/metadataFields.h"
#include "usdcore/sdf/usda/textCursor.h"
#include "usdcore/vt/value.h"

#include <string>
#include <vector>

PXR_NAMESPACE_OPEN_SCOPE

/// Reads the value after '=' of \p field into \p value. For list ops,
/// \p op says which list the items fill and \p value may already hold the
/// list op's other lists. Relative paths are made absolute against
/// \p anchor.
bool Sdf_ParseMetadataValue(Sdf_TextCursor& cursor, const Sdf_MetadataField& field,
                            SdfListOpType op, const SdfPath& anchor, VtValue* value);

/// Reads 'None', one '<path>' or '[<path>, ...]' into the \p op list of
/// \p listOp.
bool Sdf_ParsePathListOpItems(Sdf_TextCursor& cursor, SdfListOpType op, const SdfPath& anchor,
                              SdfPathListOp* listOp);

/// Reads the value of a key the table does not know and keeps its text.
bool Sdf_ParseUnknownMetadataValue(Sdf_TextCursor& cursor, VtValue* value);

/// Reads the sublayer list into paths and offsets.
bool Sdf_ParseSubLayers(Sdf_TextCursor& cursor, std::vector<std::string>* paths,
                        std::vector<SdfLayerOffset>* offsets);

/// Appends the metadata statements of one field, one per line, each
/// starting at \p indent levels ("prepend references = [...]"). Fields of
/// no known shape are skipped with a warning.
void Sdf_FormatMetadata(const TfToken& fieldName, const VtValue& value, int indent,
                        std::string* out);

/// Appends the statements for the lists of \p listOp named \p keyword in
/// the layer ("delete rel x = ..." style lines are built by the caller:
/// \p prefix goes between the op keyword and " = ").
void Sdf_FormatPathListOp(const SdfPathListOp& listOp, const std::string& prefix, int indent,
                          std::string* out);

/// Appends an explicit list of targets or connections: "None" when empty,
/// one path bare, several one per line.
void Sdf_FormatPropertyPaths(const std::vector<SdfPath>& paths, int indent, std::string* out);

/// Appends the sublayer statement.
void Sdf_FormatSubLayers(const std::vector<std::string>& paths,
                         const std::vector<SdfLayerOffset>& offsets, int indent, std::string* out);

PXR_NAMESPACE_CLOSE_SCOPE
