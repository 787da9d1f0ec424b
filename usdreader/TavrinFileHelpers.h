#pragma once

#include "host/CTavrinString.h"

// The small file-system helpers of the import: the temporary copy, the
// unpacking of packages and the texture copies go through them. Paths may
// use either separator; the helpers turn them into the system one.
namespace Tavrin {

// Copies source to destination, making the destination's folder first. A copy
// onto the same file succeeds without touching it; an existing destination is
// kept (and true returned) unless replace is set. False when the source does
// not exist or the copy fails.
bool CopyFileReplacing(CTavrinString source, CTavrinString destination, bool replace);

// Deletes the file; true when a file was removed.
bool RemoveFile(CTavrinString path);

// System separators, doubled separators collapsed. A network path whose
// leading double separator was collapsed gets it back when that names an
// existing file. With createFolder, the path's folder part is made first.
CTavrinString NormalizePath(CTavrinString path, bool createFolder);

// The path exists and is a file (not a folder).
bool FileExists(const CTavrinString& path);

// Makes the folder with all missing parents. Returns its absolute path with a
// final separator, or an empty text when the folder does not exist afterwards.
CTavrinString MakeFolder(const CTavrinString& folder);

} // namespace Tavrin
