#pragma once

// Values of the text layer format, both ways: the typed values of
// attributes, time samples and dictionaries (every type of the value type
// table, scalar and array), and dictionaries themselves. One table ties each
// type name to its reading and writing.

#include "usdcore/pxr.h"
#include "usdcore/sdf/usda/textCursor.h"
#include "usdcore/vt/dictionary.h"
#include "usdcore/vt/value.h"

#include <string>
#include <string_view>

PXR_NAMESPACE_OPEN_SCOPE

/// Nesting deeper than this (dictionaries in dictionaries, prims in prims)
/// is refused: the text is untrusted and recursion must stay bounded.
constexpr int Sdf_TextMaxNestingDepth = 256;

/// Reads a value of the type spelled \p typeName ("float3", "token[]"...).
/// "None" is left to the caller. Fails on an unknown type name.
bool Sdf_ParseTypedValue(Sdf_TextCursor& cursor, std::string_view typeName, VtValue* out);

/// Reads one value of no known type, checking only its shape (scalars,
/// strings, asset paths, paths, and tuples and lists of them), and keeps its
/// text as an SdfUnregisteredValue, as attributes of an unknown type name
/// keep theirs.
bool Sdf_ParseUnregisteredValue(Sdf_TextCursor& cursor, VtValue* out);

/// True when \p typeName (without "[]") names a value type.
bool Sdf_IsKnownValueTypeName(std::string_view typeName);

/// Reads '{ type key = value ... }'.
bool Sdf_ParseDictionary(Sdf_TextCursor& cursor, VtDictionary* out, int depth);

/// Appends \p value in the format's spelling (scalars and arrays of the
/// value types). False when the held type has no spelling.
bool Sdf_FormatTypedValue(const VtValue& value, std::string* out);

/// Appends '{', the entries one per line at \p indent + 1 levels, and '}'.
void Sdf_FormatDictionary(const VtDictionary& dictionary, int indent, std::string* out);

/// Appends \p text as a quoted string with escapes.
void Sdf_FormatString(std::string_view text, std::string* out);
/// Appends \p path as '@path@', or '@@@path@@@' when it holds an '@'.
void Sdf_FormatAssetPath(std::string_view path, std::string* out);
/// Appends the shortest text that reads back as exactly \p value.
void Sdf_FormatDouble(double value, std::string* out);
/// Appends \p name as is when it is an identifier, else quoted.
void Sdf_FormatKey(std::string_view name, std::string* out);

PXR_NAMESPACE_CLOSE_SCOPE
