// Layers and layer filters on 1024 x 1024. The blur at deviations 4 and 20 and a colour matrix
// run on a layer's pixels, against a plain scalar three-box blur and a copy of the same pixels
// measured in the same run; 200 opacity layers of 10 small shapes each against the same shapes
// drawn without layers.
#include <benchmark/benchmark.h>

#include <cmath>
#include <cstring>
#include <random>
#include <vector>

#include "VYR2DGSkiaDrawing.h"
#include "VYR2DGSkiaSupport.h"
#include "VYRRasterBlurImageFilter.h"
#include "VYRRasterColorMatrixImageFilter.h"

namespace {

constexpr int kSize = 1024;
constexpr int64_t kPixels = int64_t{kSize} * kSize;

// Opaque and translucent rectangles over a transparent background.
const VYRRasterImage& LayerPixels() {
  static const VYRRasterImage image = [] {
    VYRRasterImage out;
    out.allocate(VYRRasterIRect{0, 0, kSize, kSize});
    std::mt19937 random(7);
    std::uniform_int_distribution<int> position(0, kSize - 1), extent(4, 120), channel(0, 255);
    for (int i = 0; i < 400; ++i) {
      const int x = position(random), y = position(random), w = extent(random), h = extent(random);
      const int a = 128 + channel(random) / 2;
      const uint32_t colour = (uint32_t(a) << 24) | (uint32_t(channel(random) * a / 255) << 16) |
                              (uint32_t(channel(random) * a / 255) << 8) | uint32_t(channel(random) * a / 255);
      for (int yy = y; yy < std::min(kSize, y + h); ++yy)
        for (int xx = x; xx < std::min(kSize, x + w); ++xx) out.pixels[size_t(yy) * kSize + xx] = colour;
    }
    return out;
  }();
  return image;
}

const VYRRasterIRect kClip{0, 0, kSize, kSize};

void SetPassRate(benchmark::State& io_state, int i_passes) {
  io_state.counters["Mpx/s per pass"] =
      benchmark::Counter(double(kPixels) * i_passes * double(io_state.iterations()) / 1e6, benchmark::Counter::kIsRate);
}

void BM_Blur(benchmark::State& state) {
  const float sigma = static_cast<float>(state.range(0));
  VYRRasterBlurImageFilter* pBlur = new VYRRasterBlurImageFilter(sigma, sigma);
  for (auto _ : state) benchmark::DoNotOptimize(pBlur->filterImage(LayerPixels(), kClip));
  SetPassRate(state, 6);
  pBlur->Release();
}
BENCHMARK(BM_Blur)->Arg(4)->Arg(20)->Unit(benchmark::kMillisecond);

// Baseline: the textbook scalar box blur, three passes along x then three along y, with
// running sums per channel.
void ScalarBoxPass(const uint32_t* i_src, uint32_t* o_dst, int i_length, int i_stride, int i_count,
                   int i_countStride, int i_radius) {
  const int size = 2 * i_radius + 1;
  for (int line = 0; line < i_count; ++line) {
    const uint32_t* src = i_src + size_t(line) * i_countStride;
    uint32_t* dst = o_dst + size_t(line) * i_countStride;
    uint32_t sums[4] = {0, 0, 0, 0};
    auto add = [&](int i, int sign) {
      if (i < 0 || i >= i_length) return;
      const uint32_t p = src[size_t(i) * i_stride];
      for (int c = 0; c < 4; ++c) sums[c] += sign * int((p >> (8 * c)) & 0xFF);
    };
    for (int i = -i_radius; i < i_radius; ++i) add(i, 1);
    for (int i = 0; i < i_length; ++i) {
      add(i + i_radius, 1);
      uint32_t out = 0;
      for (int c = 0; c < 4; ++c) out |= ((sums[c] + size / 2) / size) << (8 * c);
      dst[size_t(i) * i_stride] = out;
      add(i - i_radius, -1);
    }
  }
}

void BM_ScalarThreeBoxBlurBaseline(benchmark::State& state) {
  const int sigma = static_cast<int>(state.range(0));
  const int radius = static_cast<int>(std::floor(sigma * 3 * std::sqrt(2 * M_PI) / 4 + 0.5)) / 2;
  std::vector<uint32_t> a(LayerPixels().pixels), b(a.size());
  for (auto _ : state) {
    for (int pass = 0; pass < 3; ++pass) {
      ScalarBoxPass(a.data(), b.data(), kSize, 1, kSize, kSize, radius);
      std::swap(a, b);
    }
    for (int pass = 0; pass < 3; ++pass) {
      ScalarBoxPass(a.data(), b.data(), kSize, kSize, kSize, 1, radius);
      std::swap(a, b);
    }
    benchmark::DoNotOptimize(a.data());
  }
  SetPassRate(state, 6);
}
BENCHMARK(BM_ScalarThreeBoxBlurBaseline)->Arg(4)->Arg(20)->Unit(benchmark::kMillisecond);

void BM_ColorMatrix(benchmark::State& state) {
  // Saturation 0.3, as a document's colour matrix would give it.
  const float s = 0.3f;
  const float matrix[VYRRasterColorMatrixImageFilter::kCount] = {
      0.213f + 0.787f * s, 0.715f - 0.715f * s, 0.072f - 0.072f * s, 0, 0,
      0.213f - 0.213f * s, 0.715f + 0.285f * s, 0.072f - 0.072f * s, 0, 0,
      0.213f - 0.213f * s, 0.715f - 0.715f * s, 0.072f + 0.928f * s, 0, 0,
      0, 0, 0, 1, 0};
  VYRRasterColorMatrixImageFilter* pFilter = new VYRRasterColorMatrixImageFilter(matrix);
  for (auto _ : state) benchmark::DoNotOptimize(pFilter->filterImage(LayerPixels(), kClip));
  SetPassRate(state, 1);
  pFilter->Release();
}
BENCHMARK(BM_ColorMatrix)->Unit(benchmark::kMillisecond);

void BM_CopyBaseline(benchmark::State& state) {
  std::vector<uint32_t> copy(LayerPixels().pixels.size());
  for (auto _ : state) {
    std::memcpy(copy.data(), LayerPixels().pixels.data(), copy.size() * 4);
    benchmark::DoNotOptimize(copy.data());
  }
  SetPassRate(state, 1);
}
BENCHMARK(BM_CopyBaseline)->Unit(benchmark::kMillisecond);

// 200 groups of 10 small shapes, each group at a random place: with an opacity layer per
// group, or drawn straight.
void DrawGroups(benchmark::State& state, bool i_layers) {
  VYR2DGSkiaSupport support(kSize, kSize);
  VYR2DGSkiaDrawing drawing(support.GetDrawingContext());
  drawing.SetBlendingMode(eTransferSourceOver);
  std::mt19937 random(3);
  std::uniform_real_distribution<float> position(20, kSize - 60), offset(-15, 15);
  std::vector<VYRMathPoint2Df> centres;
  for (int i = 0; i < 200 * 10; ++i) centres.emplace_back(position(random), position(random));
  for (auto _ : state) {
    for (int group = 0; group < 200; ++group) {
      if (i_layers) {
        drawing.SetLayerAlpha(0.5f);
        drawing.SaveLayer();
      }
      const VYRMathPoint2Df origin = centres[size_t(group) * 10];
      for (int i = 0; i < 10; ++i) {
        drawing.SetFillColor(static_cast<unsigned char>(25 * i), 100, 200, 255);
        drawing.ApplyFillMode(eFillModeColor);
        const VYRMathPoint2Df& c = centres[size_t(group) * 10 + i];
        drawing.DrawCircle({origin.x + std::fmod(c.x, 30.0f), origin.y + std::fmod(c.y, 30.0f)}, 6);
      }
      if (i_layers) drawing.Restore(-1);
    }
  }
  state.counters["groups/s"] = benchmark::Counter(200.0 * double(state.iterations()), benchmark::Counter::kIsRate);
}

void BM_OpacityLayers(benchmark::State& state) { DrawGroups(state, true); }
void BM_ShapesWithoutLayersBaseline(benchmark::State& state) { DrawGroups(state, false); }
BENCHMARK(BM_OpacityLayers)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ShapesWithoutLayersBaseline)->Unit(benchmark::kMillisecond);

}  // namespace
