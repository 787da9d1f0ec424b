#include "tools/tavrin-usd-import/DocumentSummary.h"

#include "TavrinAnimation/src/TavrinSequence.h"
#include "host/CTavrinDocument.h"
#include "host/CTavrinGeometry.h"

namespace TavrinUsdImport {

using namespace Tavrin;

namespace {

void CountMesh(const CTavrin3DObject& object, DocumentSummary& summary)
{
    ++summary.meshes;
    if (object.Material())
        ++summary.materials;
    const CTavrinGeometry* geometry = object.Geometry();
    if (!geometry)
        return;
    if (const CTavrinVerticiesTable* vertices = geometry->VerticiesTable())
        summary.vertices += vertices->GetCount();
    if (const CTavrinPolygonsTable* polygons = geometry->PolygonsTable())
        summary.triangles += polygons->GetCount();
}

} // namespace

DocumentSummary SummarizeDocument(const CTavrinDocument& document, const CTavrinSequence* sequence)
{
    DocumentSummary summary;
    for (const CTavrinSceneNode* node : document.SceneNodes()) {
        ++summary.nodes;
        switch (node->EntityType()) {
        case ENTITY_3D_OBJECT:
            CountMesh(static_cast<const CTavrin3DObject&>(*node), summary);
            break;
        case ENTITY_SKELETON_JOINT:
            ++summary.joints;
            break;
        default:
            break;
        }
    }
    if (sequence) {
        for (const auto& track : sequence->Tracks())
            summary.keyFrames += static_cast<long long>(track.second.size());
    }
    return summary;
}

std::string FormatSummary(const DocumentSummary& summary)
{
    return "nodes:      " + std::to_string(summary.nodes) + "\n" +
           "meshes:     " + std::to_string(summary.meshes) + "\n" +
           "vertices:   " + std::to_string(summary.vertices) + "\n" +
           "triangles:  " + std::to_string(summary.triangles) + "\n" +
           "materials:  " + std::to_string(summary.materials) + "\n" +
           "joints:     " + std::to_string(summary.joints) + "\n" +
           "key frames: " + std::to_string(summary.keyFrames) + "\n";
}

} // namespace TavrinUsdImport
