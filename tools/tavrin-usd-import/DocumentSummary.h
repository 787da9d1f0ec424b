#pragma once

#include <string>

namespace Tavrin {
class CTavrinDocument;
class CTavrinSequence;
} // namespace Tavrin

namespace TavrinUsdImport {

// What an imported document holds, counted the way a user thinks of it.
struct DocumentSummary {
    int nodes = 0;
    int meshes = 0;
    long long vertices = 0;
    long long triangles = 0;
    int materials = 0;
    int joints = 0;
    long long keyFrames = 0;
};

// sequence may be null (no animation).
DocumentSummary SummarizeDocument(const Tavrin::CTavrinDocument& document, const Tavrin::CTavrinSequence* sequence);

std::string FormatSummary(const DocumentSummary& summary);

} // namespace TavrinUsdImport
