#pragma once
// The "sequence" part of the JSON form of an imported document
// (docs/document-json.md).

#include "TavrinAnimation/src/TavrinSequence.h"
#include "host/CTavrinDocumentJson.h"

#include <nlohmann/json.hpp>

#include <functional>
#include <optional>

namespace Tavrin {

// The JSON id of the node whose local transform entity is the given one, or
// nothing when no written node has it.
using NodeIdOfTransform = std::function<std::optional<int>(const CTavrinID& transform)>;

// {"name", "groupCaption", "tracks"}: one track per animated node, ordered by
// node id, each with its transform key frames ordered by start frame. Tracks
// of entities that are no written node's transform, and key frames of other
// kinds, are left out.
nlohmann::ordered_json SequenceToJson(const CTavrinSequence& sequence, const NodeIdOfTransform& nodeIdOf);

// The "sequence" writer for the document's JSON form: a track belongs to the
// written node whose local transform it animates. Without a sequence it
// writes null.
CTavrinSequenceJsonWriter SequenceJsonWriter(const CTavrinSequence* sequence);

} // namespace Tavrin
