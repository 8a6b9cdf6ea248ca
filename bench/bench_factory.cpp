// CreateElement against one heap allocation per element (new of the same
// class, default-initialised as the pool's elements are), measured in the
// same run. Each iteration makes a batch of elements; letting them go again
// (the factory's last release, or delete) is not timed.
#include <benchmark/benchmark.h>

#include <malloc.h>

#include <vector>

#include "VYRPrtEltFactory.h"
#include "VYRPrtMaskElt.h"

namespace {

// Both sides make megabytes per iteration and let them go untimed. Left to
// itself the allocator returns freed memory to the system and faults it in
// again, unevenly between the two sides (whole blocks against single
// elements); keeping freed memory in the process compares the paths themselves.
const bool kFreedMemoryKept = [] {
  mallopt(M_TRIM_THRESHOLD, 1 << 30);
  mallopt(M_MMAP_THRESHOLD, 1 << 30);
  return true;
}();

constexpr int kBatch = 10000;

void BM_FactoryCreateElement(benchmark::State& state) {
  for (auto _ : state) {
    VYRPrtEltFactory& factory = VYRPrtEltFactory::Get();
    for (int i = 0; i < kBatch; ++i) benchmark::DoNotOptimize(factory.CreateElement<VYRPrtMaskElt>());
    state.PauseTiming();
    factory.Release();
    state.ResumeTiming();
  }
  state.SetItemsProcessed(state.iterations() * kBatch);
}
BENCHMARK(BM_FactoryCreateElement);

void BM_HeapNewBaseline(benchmark::State& state) {
  std::vector<VYRPrtMaskElt*> elements(kBatch);
  for (auto _ : state) {
    for (int i = 0; i < kBatch; ++i) benchmark::DoNotOptimize(elements[i] = new VYRPrtMaskElt);
    state.PauseTiming();
    for (VYRPrtMaskElt* pElt : elements) delete pElt;
    state.ResumeTiming();
  }
  state.SetItemsProcessed(state.iterations() * kBatch);
}
BENCHMARK(BM_HeapNewBaseline);

}  // namespace
