#include <benchmark/benchmark.h>
#include <cairo.h>

#include <random>
#include <vector>

#include "VYRRasterCanvas.h"

// 10,000 random filled triangles on 1024 x 1024, anti-aliased source-over, through the raster
// layer and directly with Cairo on a buffer of the same size.

namespace {
constexpr int kSize = 1024;
constexpr int kTriangles = 10000;

struct Triangle {
  float x[3], y[3];
  uint32_t color;
};

std::vector<Triangle> MakeTriangles() {
  std::mt19937 random(42);
  std::uniform_real_distribution<float> position(0, kSize), offset(-30, 30);
  std::vector<Triangle> triangles(kTriangles);
  for (Triangle& t : triangles) {
    t.x[0] = position(random);
    t.y[0] = position(random);
    for (int i = 1; i < 3; ++i) {
      t.x[i] = t.x[0] + offset(random);
      t.y[i] = t.y[0] + offset(random);
    }
    t.color = 0x80000000u | (random() & 0xFFFFFF);
  }
  return triangles;
}

void BM_RasterLayerTriangles(benchmark::State& state) {
  const std::vector<Triangle> triangles = MakeTriangles();
  std::vector<uint32_t> pixels(size_t(kSize) * kSize);
  VYRRasterBitmap bitmap;
  bitmap.setConfig(kSize, kSize);
  bitmap.setPixels(pixels.data());
  VYRRasterDevice* device = new VYRRasterDevice(bitmap);
  VYRRasterCanvas* canvas = new VYRRasterCanvas(device);
  VYRRasterPaint paint;
  paint.setAntiAlias(true);
  VYRRasterPath path;
  for (auto _ : state) {
    for (const Triangle& t : triangles) {
      path.reset();
      path.moveTo(t.x[0], t.y[0]);
      path.lineTo(t.x[1], t.y[1]);
      path.lineTo(t.x[2], t.y[2]);
      path.close();
      paint.setColor(t.color);
      canvas->drawPath(path, paint);
    }
    benchmark::DoNotOptimize(pixels.data());
  }
  canvas->Release();
  device->Release();
}
BENCHMARK(BM_RasterLayerTriangles)->Unit(benchmark::kMillisecond);

void BM_CairoTriangles(benchmark::State& state) {
  const std::vector<Triangle> triangles = MakeTriangles();
  cairo_surface_t* surface = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, kSize, kSize);
  cairo_t* cr = cairo_create(surface);
  cairo_set_tolerance(cr, 0.1);
  for (auto _ : state) {
    for (const Triangle& t : triangles) {
      cairo_move_to(cr, t.x[0], t.y[0]);
      cairo_line_to(cr, t.x[1], t.y[1]);
      cairo_line_to(cr, t.x[2], t.y[2]);
      cairo_close_path(cr);
      cairo_set_source_rgba(cr, ((t.color >> 16) & 0xFF) / 255.0, ((t.color >> 8) & 0xFF) / 255.0,
                            (t.color & 0xFF) / 255.0, (t.color >> 24) / 255.0);
      cairo_fill(cr);
    }
    cairo_surface_flush(surface);
  }
  cairo_destroy(cr);
  cairo_surface_destroy(surface);
}
BENCHMARK(BM_CairoTriangles)->Unit(benchmark::kMillisecond);
}  // namespace
