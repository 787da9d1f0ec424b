// Reading whole crate files into layer data, against a memcpy of the same
// number of bytes: the ratio says how far decoding is from moving memory.
//
// Bytes processed counts the decoded array data (what a consumer of the layer
// gets), so both benchmarks of a scene are comparable.

#include "usdcore/sdf/crate/crateReader.h"
#include "usdcore/sdf/data.h"
#include "usdcore/tf/diagnostic.h"
#include "usdcore/tf/mappedFile.h"
#include "usdcore/sdf/types.h"
#include "usdcore/usd/attribute.h"
#include "usdcore/usd/prim.h"
#include "usdcore/usd/stage.h"
#include "usdcore/vt/types.h"
#include "usdcore/vt/value.h"

#include <benchmark/benchmark.h>

#include <cstring>
#include <memory>
#include <string>
#include <vector>

PXR_NAMESPACE_USING_DIRECTIVE

namespace {

std::shared_ptr<const TfMappedFile> MapScene(benchmark::State& state, const char* name)
{
    const std::string path = std::string(TAVRIN_BENCH_DIR) + "/" + name;
    std::string whyNot;
    auto file = TfMappedFile::Open(path, &whyNot);
    if (!file) {
        state.SkipWithError(("cannot map " + path + ": " + whyNot).c_str());
    }
    return file;
}

size_t ArrayBytes(const VtValue& value)
{
#define CRATE_BENCH_ARRAY_BYTES(Type, Name)                                  \
    if (value.IsHolding<VtArray<Type>>()) {                                 \
        return value.UncheckedGet<VtArray<Type>>().size() * sizeof(Type);   \
    }
    VT_ARRAY_VALUE_TYPES(CRATE_BENCH_ARRAY_BYTES)
#undef CRATE_BENCH_ARRAY_BYTES
    if (value.IsHolding<SdfTimeSampleMap>()) {
        size_t bytes = 0;
        for (const auto& [time, sample] : value.UncheckedGet<SdfTimeSampleMap>()) {
            bytes += sizeof(time) + ArrayBytes(sample);
        }
        return bytes;
    }
    return 0;
}

// Bytes of array data a layer holds (points, indices, normals, sampled
// arrays...): what the reader had to decode. Scalars are negligible next to
// them.
size_t DecodedArrayBytes(const SdfData& data)
{
    struct Counter : SdfAbstractDataSpecVisitor {
        size_t bytes = 0;
        bool VisitSpec(const SdfAbstractData& layer, const SdfPath& path) override
        {
            for (const TfToken& field : layer.List(path)) {
                bytes += ArrayBytes(layer.Get(path, field));
            }
            return true;
        }
        void Done(const SdfAbstractData&) override {}
    } counter;
    data.VisitSpecs(&counter);
    return counter.bytes;
}

void ReadCrate(benchmark::State& state, const char* name)
{
    auto file = MapScene(state, name);
    if (!file) {
        return;
    }
    size_t decodedBytes = 0;
    for (auto _ : state) {
        SdfData data;
        if (!SdfCrateReadData(file->GetBytes(), file->GetPath(), &data)) {
            state.SkipWithError("read failed");
            return;
        }
        state.PauseTiming();
        if (decodedBytes == 0) {
            decodedBytes = DecodedArrayBytes(data);
        }
        state.ResumeTiming();
    }
    state.SetBytesProcessed(int64_t(state.iterations() * decodedBytes));
}

// What an importer pays: the stage opened and composed, then every authored
// attribute of every prim read at its default and at each of its samples.
// Time per prim is the figure that scales to large scenes.
void OpenAndReadEverything(benchmark::State& state, const char* name)
{
    const std::string path = std::string(TAVRIN_BENCH_DIR) + "/" + name;
    int64_t prims = 0;
    size_t readBytes = 0;
    for (auto _ : state) {
        readBytes = 0;
        const UsdStageRefPtr stage = UsdStage::Open(path, UsdStage::LoadAll);
        if (!stage) {
            state.SkipWithError(("cannot open " + path).c_str());
            return;
        }
        prims = 0;
        std::vector<double> times;
        for (const UsdPrim& prim : stage->Traverse()) {
            ++prims;
            for (const UsdAttribute& attribute : prim.GetAuthoredAttributes()) {
                VtValue value;
                attribute.Get(&value);
                readBytes += ArrayBytes(value);
                attribute.GetTimeSamples(&times);
                for (double time : times) {
                    attribute.Get(&value, UsdTimeCode(time));
                    readBytes += ArrayBytes(value);
                }
            }
        }
    }
    state.SetItemsProcessed(state.iterations() * prims);
    state.SetBytesProcessed(int64_t(state.iterations() * readBytes));
    // Shown as seconds per million prims, which reads as microseconds per prim.
    state.counters["us_per_prim"] = benchmark::Counter(
        static_cast<double>(state.iterations() * prims) * 1e-6,
        benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}

void CopyBaseline(benchmark::State& state, const char* name)
{
    auto file = MapScene(state, name);
    if (!file) {
        return;
    }
    SdfData data;
    SdfCrateReadData(file->GetBytes(), file->GetPath(), &data);
    const size_t bytes = DecodedArrayBytes(data);
    std::vector<char> source(bytes, 1), target(bytes);
    for (auto _ : state) {
        std::memcpy(target.data(), source.data(), bytes);
        benchmark::DoNotOptimize(target.data());
        benchmark::ClobberMemory();
    }
    state.SetBytesProcessed(int64_t(state.iterations() * bytes));
}

} // namespace

BENCHMARK_CAPTURE(ReadCrate, grid_512, "grid_512.usdc")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(CopyBaseline, grid_512, "grid_512.usdc")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ReadCrate, many_prims_100000, "many_prims_100000.usdc")
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(CopyBaseline, many_prims_100000, "many_prims_100000.usdc")
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(OpenAndReadEverything, grid_512, "grid_512.usdc")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(OpenAndReadEverything, many_prims_100000, "many_prims_100000.usdc")
    ->Unit(benchmark::kMillisecond);
