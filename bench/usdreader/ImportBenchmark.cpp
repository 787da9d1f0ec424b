// The whole import of a large crate scene: open, walk, meshes, materials.

#include <benchmark/benchmark.h>

#include <filesystem>
#include <memory>

#include "host/CTavrinDocument.h"
#include "usdreader/CTavrinUSDReaderHandler.h"

using namespace Tavrin;

namespace {

void ImportScene(benchmark::State& state, const std::filesystem::path& scene)
{
    if (!std::filesystem::exists(scene)) {
        state.SkipWithError(("no scene at " + scene.string()).c_str());
        return;
    }
    const std::filesystem::path textures = std::filesystem::temp_directory_path() / "tavrin-usdreader-bench";
    for (auto _ : state) {
        CTavrinUSDReaderHandler handler;
        const std::unique_ptr<CTavrinDocument> document(
            handler.ReadUSDFile(CTavrinString(scene.string()), CTavrinString(textures.string())));
        if (!document) {
            state.SkipWithError("the import failed");
            return;
        }
        benchmark::DoNotOptimize(document->SceneNodes().size());
    }
}

void BM_ImportGrid512(benchmark::State& state)
{
    ImportScene(state, std::filesystem::path(TAVRIN_BENCH_DIR) / "grid_512.usdc");
}
BENCHMARK(BM_ImportGrid512)->Unit(benchmark::kMillisecond)->Iterations(3);

void BM_ImportManyPrims(benchmark::State& state)
{
    ImportScene(state, std::filesystem::path(TAVRIN_BENCH_DIR) / "many_prims_100000.usdc");
}
BENCHMARK(BM_ImportManyPrims)->Unit(benchmark::kMillisecond)->Iterations(3);

} // namespace
