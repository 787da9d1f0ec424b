#pragma once

#include <functional>
#include <iosfwd>
#include <string>
#include <utility>
#include <vector>

#include <nlohmann/json.hpp>

#include "host/CTavrinString.h"

namespace Tavrin {

class CTavrinDocument;
class CTavrinSceneNode;

// The JSON form of an imported document (docs/document-json.md). Keys keep the
// order of that contract, hence ordered_json.
using CTavrinJson = nlohmann::ordered_json;

// The id of a node in the document's node list (its creation order), or -1
// for a node that is not one of the document's.
using CTavrinNodeIdLookup = std::function<int(const CTavrinSceneNode*)>;

// Writes the "sequence" member. The animation model lives above the host, so
// it supplies this; returning null (or passing no writer) writes null.
using CTavrinSequenceJsonWriter = std::function<CTavrinJson(const CTavrinNodeIdLookup& nodeId)>;

// What one import produced, as the progress callback and the result saw it.
struct CTavrinImportRecord {
    CTavrinString source;
    std::vector<std::pair<CTavrinString, int>> progress;
    // Null when the import returned no document.
    const CTavrinDocument* document = nullptr;
};

// The "document" member: nodes in creation order, then the sequence.
CTavrinJson DocumentToJson(const CTavrinDocument& document, const CTavrinSequenceJsonWriter& sequence);
// The whole object: format, source, progress, document.
CTavrinJson ImportRecordToJson(const CTavrinImportRecord& record, const CTavrinSequenceJsonWriter& sequence);
// As text, indented by two spaces, numbers in shortest round-trip form:
// the text of ImportRecordToJson's dump, written node by node.
void WriteImportRecordJson(const CTavrinImportRecord& record, const CTavrinSequenceJsonWriter& sequence,
                           std::ostream& out);
std::string ImportRecordToJsonText(const CTavrinImportRecord& record, const CTavrinSequenceJsonWriter& sequence);

} // namespace Tavrin
