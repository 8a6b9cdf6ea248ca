// Streaming a model of 100,000 circles with non-default attributes out and
// back in, through the element helper, against memcpy of the same number of
// bytes in the same run (the ceiling). Goal: each direction at least 10% of memcpy.
#include <benchmark/benchmark.h>

#include <malloc.h>

#include <cstring>
#include <vector>

#include "VYR2DGStringStream.h"
#include "VYRPrtCircleElt.h"
#include "VYRPrtEltFactory.h"
#include "VYRPrtStreamUnstreamHelper.h"

namespace {

// Keep freed multi-megabyte buffers in the process, so that page faults of
// fresh mappings do not swamp what is measured.
const bool kFreedMemoryKept = [] {
  mallopt(M_TRIM_THRESHOLD, 1 << 30);
  mallopt(M_MMAP_THRESHOLD, 1 << 30);
  return true;
}();

constexpr int kCircleCount = 100000;

std::vector<VYRPrtCircleElt*> MakeCircles() {
  std::vector<VYRPrtCircleElt*> circles;
  circles.reserve(kCircleCount);
  VYRPrtStrokeAttributes stroke;
  stroke.SetStrokeColorIndex(3);
  stroke.SetStrokeWidth(1.5);
  const float dashes[] = {2.0f, 1.0f};
  stroke.SetStrokeTypePattern(dashes, 2);
  VYRPrtFillAttributes fill;
  fill.SetFillColorIndex(7);
  fill.SetFillOpacity(200);
  fill.SetFillRule(VYRPrtFillRuleEvenOdd);
  VYRPrtTransformAttributes transform;
  transform.AddTranslation(VYRMathVector2D(10.0, 20.0));
  for (int i = 0; i < kCircleCount; ++i) {
    auto* circle = VYRPrtEltFactory::Get().CreateElement<VYRPrtCircleElt>();
    circle->SetID("circle");
    circle->SetOpacity(128);
    circle->SetTransformAttributes(transform);
    circle->SetStrokeAttributes(stroke);
    circle->SetFillAttributes(fill);
    circle->SetDrawStyle(2);
    circle->SetParameters(VYRMathPoint2D(i * 0.5, i * 0.25), 3.0 + i % 7);
    circles.push_back(circle);
  }
  return circles;
}

VYR2DGStringStream WriteModel(const std::vector<VYRPrtCircleElt*>& i_circles) {
  VYR2DGStringStream stream;
  for (VYRPrtCircleElt* circle : i_circles) VYRPrtStreamUnstreamHelper::SerializeVYRPrtGraphicPrimitiveElt(circle, &stream);
  return stream;
}

void BM_ModelStreamOut(benchmark::State& state) {
  std::vector<VYRPrtCircleElt*> circles = MakeCircles();
  int64_t bytes = 0;
  for (auto _ : state) {
    VYR2DGStringStream stream = WriteModel(circles);
    bytes = stream.GetSize();
    benchmark::DoNotOptimize(stream.GetBuffer());
  }
  state.SetBytesProcessed(state.iterations() * bytes);
  state.counters["bytes_per_model"] = static_cast<double>(bytes);
  VYRPrtEltFactory::Get().Release();
}
BENCHMARK(BM_ModelStreamOut)->Unit(benchmark::kMillisecond);

// Reading takes the circles from a fresh factory each time; letting the
// factory go again is not timed.
void BM_ModelStreamIn(benchmark::State& state) {
  VYR2DGStringStream written = WriteModel(MakeCircles());
  VYRPrtEltFactory::Get().Release();
  const char* pBytes = written.GetBuffer();
  int size = written.GetSize();
  for (auto _ : state) {
    VYR2DGStringStream reader(pBytes, size);
    for (int i = 0; i < kCircleCount; ++i) {
      benchmark::DoNotOptimize(VYRPrtStreamUnstreamHelper::CreateVYRPrtGraphicPrimitiveEltFromStream(&reader));
    }
    state.PauseTiming();
    VYRPrtEltFactory::Get().Release();
    state.ResumeTiming();
  }
  state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(size));
}
BENCHMARK(BM_ModelStreamIn)->Unit(benchmark::kMillisecond);

// The ceiling: memcpy of as many bytes as one model's stream.
void BM_MemcpyModelBytes(benchmark::State& state) {
  VYR2DGStringStream written = WriteModel(MakeCircles());
  VYRPrtEltFactory::Get().Release();
  std::vector<char> target(static_cast<size_t>(written.GetSize()));
  for (auto _ : state) {
    std::memcpy(target.data(), written.GetBuffer(), target.size());
    benchmark::DoNotOptimize(target.data());
    benchmark::ClobberMemory();
  }
  state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(target.size()));
}
BENCHMARK(BM_MemcpyModelBytes)->Unit(benchmark::kMillisecond);

}  // namespace
