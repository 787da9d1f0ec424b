#include "TavrinAnimation/src/TavrinSequenceJson.h"

#include "TavrinAnimation/src/TavrinAnimationCollapsingGroup.h"
#include "TavrinAnimation/src/TavrinKeyFrameDataTransform.h"
#include "host/CTavrinDocument.h"
#include "host/CTavrinSceneNode.h"
#include "host/CTavrinTransform.h"

#include <map>
#include <set>

namespace Tavrin {

namespace {

nlohmann::ordered_json MatrixToJson(const CTavrinMatrix& matrix) {
    nlohmann::ordered_json values = nlohmann::ordered_json::array();
    for (int row = 0; row < 4; ++row) {
        for (int column = 0; column < 4; ++column)
            values.push_back(matrix.M(row, column));
    }
    return values;
}

nlohmann::ordered_json KeyFramesToJson(const CTavrinKeyFrameManager::Track& track) {
    nlohmann::ordered_json keyFrames = nlohmann::ordered_json::array();
    for (const auto& [start, data] : track) {
        auto* transform = dynamic_cast<CTavrinKeyFrameDataTransform*>(data.get());
        if (!transform || transform->Type() != KEYFRAME_TRANSFORM)
            continue;
        nlohmann::ordered_json keyFrame;
        keyFrame["start"] = transform->StartFrame();
        keyFrame["end"] = transform->EndFrame();
        keyFrame["serial"] = transform->SerialNumber();
        keyFrame["matrix"] = MatrixToJson(transform->Matrix());
        keyFrames.push_back(std::move(keyFrame));
    }
    return keyFrames;
}

} // namespace

nlohmann::ordered_json SequenceToJson(const CTavrinSequence& sequence, const NodeIdOfTransform& nodeIdOf) {
    nlohmann::ordered_json json;
    json["name"] = sequence.Name().toStdString();
    const CTavrinAnimationCollapsingGroup* group = sequence.Group();
    json["groupCaption"] = group ? nlohmann::ordered_json(group->Caption().toStdString()) : nlohmann::ordered_json();

    std::map<int, nlohmann::ordered_json> tracksByNode;
    for (const auto& [entity, track] : sequence.Tracks()) {
        const std::optional<int> node = nodeIdOf(entity);
        if (!node)
            continue;
        nlohmann::ordered_json keyFrames = KeyFramesToJson(track);
        if (keyFrames.empty())
            continue;
        nlohmann::ordered_json entry;
        entry["node"] = *node;
        entry["keyframes"] = std::move(keyFrames);
        tracksByNode[*node] = std::move(entry);
    }
    nlohmann::ordered_json tracks = nlohmann::ordered_json::array();
    for (auto& [node, entry] : tracksByNode)
        tracks.push_back(std::move(entry));
    json["tracks"] = std::move(tracks);
    return json;
}

CTavrinSequenceJsonWriter SequenceJsonWriter(const CTavrinSequence* sequence) {
    return [sequence](const CTavrinNodeIdLookup& nodeId) -> CTavrinJson {
        if (!sequence)
            return nullptr;
        // Every animated document is walked once, so that thousands of tracks
        // do not each search the nodes; the first written node wins.
        std::map<const CTavrinTransform*, int> nodeOfTransform;
        std::set<const CTavrinDocument*> walked;
        for (const auto& [entity, track] : sequence->Tracks()) {
            const auto* transform = dynamic_cast<const CTavrinTransform*>(entity.Entity());
            if (!transform || !transform->Document() || !walked.insert(transform->Document()).second)
                continue;
            for (const CTavrinSceneNode* node : transform->Document()->SceneNodes()) {
                const int id = node->LocalTransform() ? nodeId(node) : -1;
                if (id >= 0)
                    nodeOfTransform.emplace(node->LocalTransform(), id);
            }
        }
        return SequenceToJson(*sequence, [&nodeOfTransform](const CTavrinID& entity) -> std::optional<int> {
            const auto found = nodeOfTransform.find(dynamic_cast<const CTavrinTransform*>(entity.Entity()));
            if (found == nodeOfTransform.end())
                return std::nullopt;
            return found->second;
        });
    };
}

} // namespace Tavrin
