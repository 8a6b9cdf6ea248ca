#include <benchmark/benchmark.h>

#include <cstring>
#include <random>
#include <vector>

#include "VYRPixelImage.h"
#include "VYRPixelImagePNG.h"

// Drawing an image converts it to the surfaces' premultiplied layout, so that conversion
// is measured against a plain copy of the same bytes (the baseline).

namespace {

VYRPixelImage* NoiseImage(int i_side, VYRPixelImageFormat i_format) {
  auto* image = new VYRPixelImage(i_side, i_side, i_format);
  std::mt19937 random(1);
  unsigned char* p = image->GetPixelsToModify();
  for (size_t i = 0; i < image->GetByteCount(); ++i) p[i] = static_cast<unsigned char>(random() & 0xF0);
  return image;
}

void BM_CopyBaseline(benchmark::State& state) {
  VYRPixelImage* image = NoiseImage(1024, VYRPixelImageFormat_RGBA32);
  std::vector<unsigned char> target(image->GetByteCount());
  for (auto _ : state) {
    std::memcpy(target.data(), image->GetPixels(), target.size());
    benchmark::DoNotOptimize(target.data());
  }
  state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(target.size()));
  image->Release();
}
BENCHMARK(BM_CopyBaseline);

void BM_ConvertToPremultiplied(benchmark::State& state) {
  VYRPixelImage* image = NoiseImage(1024, VYRPixelImageFormat_RGBA32);
  for (auto _ : state) {
    VYRPixelImage* converted = image->ConvertTo(VYRPixelImageFormat_BGRA32Premultiplied);
    benchmark::DoNotOptimize(converted->GetPixels());
    converted->Release();
  }
  state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(image->GetByteCount()));
  image->Release();
}
BENCHMARK(BM_ConvertToPremultiplied);

void BM_PNGRoundTrip(benchmark::State& state) {
  VYRPixelImage* image = NoiseImage(512, VYRPixelImageFormat_RGBA32);
  for (auto _ : state) {
    unsigned char* bytes = nullptr;
    int length = 0;
    WriteToMemoryPNGPixelImage(image, &bytes, &length, 0);
    VYRPixelImage* read = ReadMemoryPNGPixelImage(bytes, length, 0);
    delete[] bytes;
    read->Release();
  }
  state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(image->GetByteCount()));
  image->Release();
}
BENCHMARK(BM_PNGRoundTrip);

}  // namespace
