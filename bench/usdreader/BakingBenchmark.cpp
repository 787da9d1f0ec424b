// Baking a transform animation: one evaluation and one insertion per whole
// frame up to the last sample, so the cost per frame must stay flat as the
// animation grows.

#include <benchmark/benchmark.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <string>

#include "TavrinAnimation/src/TavrinSequence.h"
#include "host/CTavrinDocument.h"
#include "host/CTavrinSceneNode.h"
#include "usdreader/CTavrinUSDReaderHandler.h"

PXR_NAMESPACE_USING_DIRECTIVE

using namespace Tavrin;

namespace {

// An Xform moved and turned between samples at frames 0, frames / 2 and frames.
std::string AnimatedScene(int frames)
{
    const std::string middle = std::to_string(frames / 2);
    const std::string last = std::to_string(frames);
    return "#usda 1.0\ndef Xform \"Box\" {\n"
           "    double3 xformOp:translate.timeSamples = { 0: (0, 0, 0), " +
           middle + ": (5, 2, 0), " + last +
           ": (10, 0, 0) }\n"
           "    float xformOp:rotateZ.timeSamples = { 0: 0, " +
           last +
           ": 90 }\n"
           "    uniform token[] xformOpOrder = [\"xformOp:translate\", \"xformOp:rotateZ\"]\n}\n";
}

void BM_BakeTransformAnimation(benchmark::State& state)
{
    const int frames = static_cast<int>(state.range(0));
    const std::filesystem::path file =
        std::filesystem::temp_directory_path() / ("tavrin-bake-" + std::to_string(frames) + ".usda");
    std::ofstream(file) << AnimatedScene(frames);

    CTavrinUSDReaderHandler handler;
    handler.stage = UsdStage::Open(file.string());
    const std::unique_ptr<CTavrinDocument> document(CTavrinDocument::Create(true));
    handler.document = document.get();
    const UsdGeomXformable box(handler.stage->GetPrimAtPath(SdfPath("/Box")));
    CTavrinTransformNode* node = CTavrinTransformNode::Create(document.get());
    node->SetLocalMatrix(CTavrinMatrix());

    for (auto _ : state) {
        // A sequence of the benchmark's own, so that runs do not pile up in
        // the application's container.
        CTavrinSequence sequence;
        handler.sequence = &sequence;
        handler.keyFrameBudget = frames + 3;
        handler.ReadTransformAnimation(box, node, nullptr);
        benchmark::DoNotOptimize(sequence.Tracks().size());
        handler.sequence = nullptr;
    }
    state.SetComplexityN(frames);
    state.counters["frames/s"] = benchmark::Counter(static_cast<double>(frames), benchmark::Counter::kIsIterationInvariantRate);
    std::filesystem::remove(file);
}
BENCHMARK(BM_BakeTransformAnimation)
    ->Arg(2500)
    ->Arg(5000)
    ->Arg(10000)
    ->Arg(20000)
    ->Arg(40000)
    ->Unit(benchmark::kMillisecond)
    ->Complexity(benchmark::oN);

} // namespace
