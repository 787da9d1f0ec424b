// Opening and traversing a generated stage: groups of Xform prims, each
// with one attribute, read from one text layer held in memory. Time per
// prim is what scales to large scenes.

#include "usdcore/sdf/layer.h"
#include "usdcore/usd/stage.h"

#include <benchmark/benchmark.h>

#include <map>
#include <string>

PXR_NAMESPACE_USING_DIRECTIVE

namespace {

constexpr int64_t kPrimsPerGroup = 1000;

// Prims in total: the groups and their children.
const SdfLayerRefPtr& GeneratedLayer(int64_t primCount)
{
    static std::map<int64_t, SdfLayerRefPtr> layers;
    SdfLayerRefPtr& layer = layers[primCount];
    if (!layer) {
        const int64_t groups = primCount / (kPrimsPerGroup + 1);
        std::string text = "#usda 1.0\n";
        text.reserve(static_cast<size_t>(primCount) * 48);
        for (int64_t g = 0; g < groups; ++g) {
            text += "def Xform \"G" + std::to_string(g) + "\" {\n";
            for (int64_t p = 0; p < kPrimsPerGroup; ++p) {
                text += "  def Xform \"P" + std::to_string(p) + "\" { double a = 1 }\n";
            }
            text += "}\n";
        }
        layer = SdfLayer::OpenFromString(text, "generated.usda");
    }
    return layer;
}

int64_t CountPrims(const UsdStageRefPtr& stage)
{
    int64_t count = 0;
    for (const UsdPrim& prim : stage->Traverse()) {
        benchmark::DoNotOptimize(prim);
        ++count;
    }
    return count;
}

void BM_OpenStage(benchmark::State& state)
{
    const SdfLayerRefPtr& layer = GeneratedLayer(state.range(0));
    int64_t prims = 0;
    for (auto _ : state) {
        const UsdStageRefPtr stage = UsdStage::Open(SdfLayerHandle(layer));
        prims = CountPrims(stage);
    }
    state.SetItemsProcessed(state.iterations() * prims);
    state.counters["prims"] = static_cast<double>(prims);
}

void BM_TraverseTwice(benchmark::State& state)
{
    // The importer's two walks: one counts, one visits each prim's parent.
    const UsdStageRefPtr stage = UsdStage::Open(SdfLayerHandle(GeneratedLayer(state.range(0))));
    int64_t prims = 0;
    for (auto _ : state) {
        prims = CountPrims(stage);
        for (const UsdPrim& prim : stage->Traverse()) {
            benchmark::DoNotOptimize(prim.GetParent().GetPath());
        }
    }
    state.SetItemsProcessed(state.iterations() * prims * 2);
}

void BM_ReadAttribute(benchmark::State& state)
{
    const UsdStageRefPtr stage = UsdStage::Open(SdfLayerHandle(GeneratedLayer(state.range(0))));
    const TfToken name("a");
    int64_t reads = 0;
    for (auto _ : state) {
        for (const UsdPrim& prim : stage->Traverse()) {
            double value = 0;
            prim.GetAttribute(name).Get(&value);
            benchmark::DoNotOptimize(value);
            ++reads;
        }
    }
    state.SetItemsProcessed(reads);
}

} // namespace

BENCHMARK(BM_OpenStage)->Arg(10010)->Arg(1001000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_TraverseTwice)->Arg(1001000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ReadAttribute)->Arg(1001000)->Unit(benchmark::kMillisecond);
