// Reading speed of the text reader on large numeric arrays (what meshes
// are made of) and on many small prims, in bytes of text per second.

#include "usdcore/sdf/usda/usdaReader.h"
#include "usdcore/sdf/usda/usdaWriter.h"

#include <benchmark/benchmark.h>

#include <string>

PXR_NAMESPACE_USING_DIRECTIVE

namespace {

// A mesh with \p points points, as exporters write them.
std::string MeshLayer(size_t points)
{
    std::string text = "#usda 1.0\ndef Mesh \"M\"\n{\n    point3f[] points = [";
    for (size_t i = 0; i < points; ++i) {
        if (i > 0) text += ", ";
        text += "(" + std::to_string(float(i) * 0.001f) + ", -" + std::to_string(float(i % 977) * 1.5f) +
                ", 1.25e-3)";
    }
    text += "]\n    int[] faceVertexIndices = [";
    for (size_t i = 0; i < points; ++i) {
        if (i > 0) text += ", ";
        text += std::to_string((i * 7919) % points);
    }
    text += "]\n}\n";
    return text;
}

std::string ManyPrimsLayer(size_t prims)
{
    std::string text = "#usda 1.0\ndef Xform \"Root\"\n{\n";
    for (size_t i = 0; i < prims; ++i) {
        text += "    def Xform \"P" + std::to_string(i) + "\" (\n        kind = \"component\"\n    )\n    {\n"
                "        double3 xformOp:translate = (1, 2, 3)\n"
                "        uniform token[] xformOpOrder = [\"xformOp:translate\"]\n    }\n";
    }
    return text + "}\n";
}

void ReadText(benchmark::State& state, const std::string& text)
{
    for (auto _ : state) {
        SdfData data;
        benchmark::DoNotOptimize(SdfUsdaReadData(text, "bench.usda", &data));
    }
    state.SetBytesProcessed(int64_t(state.iterations()) * int64_t(text.size()));
}

void BM_ReadLargeArrays(benchmark::State& state) { ReadText(state, MeshLayer(size_t(state.range(0)))); }
BENCHMARK(BM_ReadLargeArrays)->Arg(1 << 20)->Unit(benchmark::kMillisecond);

void BM_ReadManyPrims(benchmark::State& state) { ReadText(state, ManyPrimsLayer(size_t(state.range(0)))); }
BENCHMARK(BM_ReadManyPrims)->Arg(20000)->Unit(benchmark::kMillisecond);

void BM_WriteLargeArrays(benchmark::State& state)
{
    SdfData data;
    SdfUsdaReadData(MeshLayer(size_t(state.range(0))), "bench.usda", &data);
    size_t bytes = 0;
    for (auto _ : state) {
        std::string text;
        SdfUsdaWriteData(data, &text);
        bytes += text.size();
    }
    state.SetBytesProcessed(int64_t(bytes));
}
BENCHMARK(BM_WriteLargeArrays)->Arg(1 << 20)->Unit(benchmark::kMillisecond);

} // namespace
