// Baking and evaluating long transform tracks: insertion and lookup stay
// logarithmic per key frame, so a track of n frames costs n log n.

#include "TavrinAnimation/src/TavrinKeyFrameDataTransform.h"
#include "TavrinAnimation/src/TavrinKeyFrameManager.h"
#include "host/CTavrinDocument.h"
#include "host/CTavrinTransform.h"

#include <benchmark/benchmark.h>

#include <memory>

using namespace Tavrin;

namespace {

void BakeTrack(CTavrinKeyFrameManager& manager, const CTavrinID& entity, int frames) {
    for (int frame = 0; frame < frames; ++frame) {
        CTavrinKeyFrameDataPtr key(
            CTavrinKeyFrameDataTransform::Create(entity, CTavrinMatrix::CreateTranslation(frame, 0, 0)));
        key->SetStartFrame(frame, false);
        key->SetEndFrame(frame, false);
        manager.AddKeyFrameData(key, true);
    }
}

void BM_BakeTransformTrack(benchmark::State& state) {
    std::unique_ptr<CTavrinDocument> document(CTavrinDocument::Create(true));
    const CTavrinID entity = CTavrinTransform::Create(document.get())->ID();
    for (auto _ : state) {
        CTavrinKeyFrameManager manager;
        BakeTrack(manager, entity, static_cast<int>(state.range(0)));
        benchmark::DoNotOptimize(manager.FindTrack(entity));
    }
    state.SetComplexityN(state.range(0));
}
BENCHMARK(BM_BakeTransformTrack)->RangeMultiplier(4)->Range(1 << 10, 1 << 14)->Complexity();

// Every other frame baked, every frame evaluated: half on key frames, half
// interpolated between two.
void BM_EvaluateTransformTrack(benchmark::State& state) {
    std::unique_ptr<CTavrinDocument> document(CTavrinDocument::Create(true));
    const CTavrinID entity = CTavrinTransform::Create(document.get())->ID();
    CTavrinKeyFrameManager manager;
    const int frames = static_cast<int>(state.range(0));
    for (int frame = 0; frame < frames; frame += 2) {
        CTavrinKeyFrameDataPtr key(CTavrinKeyFrameDataTransform::Create(entity, CTavrinMatrix()));
        key->SetAllFrames(frame);
        manager.AddKeyFrameData(key, true);
    }
    for (auto _ : state) {
        for (int frame = 0; frame < frames; ++frame)
            benchmark::DoNotOptimize(manager.KeyFrameDataAt(entity, frame));
    }
    state.SetComplexityN(state.range(0));
}
BENCHMARK(BM_EvaluateTransformTrack)->RangeMultiplier(4)->Range(1 << 10, 1 << 14)->Complexity();

} // namespace
