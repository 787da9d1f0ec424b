#include "usdcore/usdShade/nodeGraph.h"

#include "usdcore/usdShade/shader.h"
#include "usdcore/usdShade/tokens.h"

PXR_NAMESPACE_OPEN_SCOPE

const TfToken& UsdShadeNodeGraph::_GetStaticTypeName()
{
    return UsdShadeTokens->NodeGraph;
}

UsdShadeShader UsdShadeNodeGraph::ComputeOutputSource(const TfToken& outputName, TfToken* sourceName,
                                                      UsdShadeAttributeType* sourceType) const
{
    // Node graphs nest, and connections between their outputs may loop in a
    // malformed file: the walk gives up after a depth no real network has.
    constexpr int kMaxNesting = 64;
    UsdShadeOutput output = GetOutput(outputName);
    for (int depth = 0; output && depth < kMaxNesting; ++depth) {
        UsdShadeConnectableAPI source;
        TfToken name;
        UsdShadeAttributeType type = UsdShadeAttributeType::Invalid;
        if (!output.GetConnectedSource(&source, &name, &type)) break;
        if (source.IsShader()) {
            if (sourceName) *sourceName = name;
            if (sourceType) *sourceType = type;
            return UsdShadeShader(source);
        }
        if (!source.IsNodeGraph() || type != UsdShadeAttributeType::Output) break;
        output = source.GetOutput(name);
    }
    return UsdShadeShader();
}

PXR_NAMESPACE_CLOSE_SCOPE
