// Gradients, patterns and bitmaps on 1024 x 1024, each drawn through
// VYR2DGSkiaDrawing and directly with Cairo in the same run: rectangles with a
// 3-stop linear gradient, circles with a focused radial gradient, a rotated
// full-surface pattern (nearest through the drawing, bilinear through its
// canvas) and scaled bitmaps.
#include <benchmark/benchmark.h>
#include <cairo.h>

#include <cmath>
#include <memory>
#include <random>
#include <vector>

#include "VYR2DGSkiaDrawing.h"
#include "VYR2DGSkiaDrawingContext.h"
#include "VYR2DGSkiaSupport.h"
#include "VYR3x3Matrix.h"
#include "VYRPixelImage.h"
#include "VYRPrintGradientLinear.h"
#include "VYRPrintGradientRadial.h"
#include "VYRPrintGradientStop.h"
#include "VYRRasterBitmapShader.h"
#include "VYRRasterCanvas.h"
#include "VYRRasterPaint.h"

namespace {

constexpr int kSize = 1024;
constexpr int kCount = 1000;
constexpr float kRotation = 30.0f;

// A seeded rectangle per item, so both backends draw the same scene.
struct Item {
  float x, y, w, h;
};

std::vector<Item> MakeItems(unsigned i_seed) {
  std::mt19937 random(i_seed);
  std::uniform_real_distribution<float> position(-40, kSize), size(20, 120);
  std::vector<Item> items(kCount);
  for (Item& item : items) item = {position(random), position(random), size(random), size(random)};
  return items;
}

const float kStops[3][5] = {{0, 0.9f, 0.2f, 0.1f, 1}, {0.5f, 0.1f, 0.8f, 0.3f, 0.6f}, {1, 0.1f, 0.2f, 0.9f, 1}};

void AddStops(VYRPrintGradient& io_gradient) {
  for (const auto& s : kStops) io_gradient.AddStop(new VYRPrintGradientStop(s[0], s[1], s[2], s[3], s[4]));
}

void AddStops(cairo_pattern_t* io_pattern) {
  for (const auto& s : kStops) cairo_pattern_add_color_stop_rgba(io_pattern, s[0], s[1], s[2], s[3], s[4]);
}

// A 64 x 64 premultiplied checker of two colours with a soft diagonal, the surfaces' own layout.
std::vector<uint32_t> TilePixels() {
  std::vector<uint32_t> pixels(64 * 64);
  for (int y = 0; y < 64; ++y) {
    for (int x = 0; x < 64; ++x) pixels[y * 64 + x] = ((x / 8 + y / 8) % 2) ? 0xFF2060C0u : 0xC0A08000u + (x + y);
  }
  return pixels;
}

VYRPixelImage* TileImage(std::vector<uint32_t>& io_pixels) {
  return new VYRPixelImage(64, 64, VYRPixelImageFormat_BGRA32Premultiplied,
                           reinterpret_cast<unsigned char*>(io_pixels.data()), VYRDeallocatePixels_CallerKeepsPixels);
}

struct Engine {
  Engine() : support(kSize, kSize), drawing(support.GetDrawingContext()) {
    drawing.SetBlendingMode(eTransferSourceOver);
    drawing.SetFillColor(0, 0, 0, static_cast<unsigned char>(255));
  }
  VYR2DGSkiaSupport support;
  VYR2DGSkiaDrawing drawing;
};

struct Cairo {
  Cairo() : surface(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, kSize, kSize)), cr(cairo_create(surface)) {}
  ~Cairo() {
    cairo_destroy(cr);
    cairo_surface_destroy(surface);
  }
  cairo_surface_t* surface;
  cairo_t* cr;
};

void BM_Engine_LinearRects(benchmark::State& state) {
  const std::vector<Item> items = MakeItems(1);
  std::vector<std::unique_ptr<VYRPrintGradientLinear>> gradients;
  for (const Item& item : items) {
    gradients.emplace_back(new VYRPrintGradientLinear);
    gradients.back()->SetStartPoint(item.x, item.y);
    gradients.back()->SetEndPoint(item.x + item.w, item.y + item.h);
    AddStops(*gradients.back());
  }
  Engine e;
  for (auto _ : state) {
    for (size_t i = 0; i < items.size(); ++i) {
      e.drawing.SetGradient(gradients[i].get());
      e.drawing.ApplyFillMode(eFillModeGradient);
      e.drawing.DrawRectangle(VYR2DGRect(items[i].x, items[i].y, items[i].w, items[i].h));
    }
  }
  state.SetItemsProcessed(state.iterations() * kCount);
}

void BM_Cairo_LinearRects(benchmark::State& state) {
  const std::vector<Item> items = MakeItems(1);
  Cairo c;
  for (auto _ : state) {
    for (const Item& item : items) {
      cairo_pattern_t* pattern = cairo_pattern_create_linear(item.x, item.y, item.x + item.w, item.y + item.h);
      AddStops(pattern);
      cairo_set_source(c.cr, pattern);
      cairo_rectangle(c.cr, item.x, item.y, item.w, item.h);
      cairo_fill(c.cr);
      cairo_pattern_destroy(pattern);
    }
    cairo_surface_flush(c.surface);
  }
  state.SetItemsProcessed(state.iterations() * kCount);
}

// Circle of radius w / 2 around the item's centre, focus a third of the way to its top-left.
void BM_Engine_RadialCircles(benchmark::State& state) {
  const std::vector<Item> items = MakeItems(2);
  std::vector<std::unique_ptr<VYRPrintGradientRadial>> gradients;
  for (const Item& item : items) {
    gradients.emplace_back(new VYRPrintGradientRadial);
    gradients.back()->SetCentre(item.x, item.y);
    gradients.back()->SetFocus(item.x - item.w / 6, item.y - item.w / 6);
    gradients.back()->SetRadius(item.w / 2);
    AddStops(*gradients.back());
  }
  Engine e;
  for (auto _ : state) {
    for (size_t i = 0; i < items.size(); ++i) {
      e.drawing.SetGradient(gradients[i].get());
      e.drawing.ApplyFillMode(eFillModeGradient);
      e.drawing.DrawCircle(VYRMathPoint2Df(items[i].x, items[i].y), items[i].w / 2);
    }
  }
  state.SetItemsProcessed(state.iterations() * kCount);
}

void BM_Cairo_RadialCircles(benchmark::State& state) {
  const std::vector<Item> items = MakeItems(2);
  Cairo c;
  for (auto _ : state) {
    for (const Item& item : items) {
      cairo_pattern_t* pattern = cairo_pattern_create_radial(item.x - item.w / 6, item.y - item.w / 6, 0, item.x,
                                                             item.y, item.w / 2);
      AddStops(pattern);
      cairo_set_source(c.cr, pattern);
      cairo_arc(c.cr, item.x, item.y, item.w / 2, 0, 2 * M_PI);
      cairo_fill(c.cr);
      cairo_pattern_destroy(pattern);
    }
    cairo_surface_flush(c.surface);
  }
  state.SetItemsProcessed(state.iterations() * kCount);
}

// The whole surface under a rotation about its centre, the tile scaled 1.5 times.
void RotateAboutCentre(VYR2DGSkiaDrawing& io_drawing) {
  io_drawing.Translate(kSize / 2.0f, kSize / 2.0f);
  io_drawing.Rotate(kRotation);
  io_drawing.Translate(-kSize / 2.0f, -kSize / 2.0f);
}

void RotateAboutCentre(cairo_t* io_cr) {
  cairo_translate(io_cr, kSize / 2.0, kSize / 2.0);
  cairo_rotate(io_cr, kRotation * M_PI / 180);
  cairo_translate(io_cr, -kSize / 2.0, -kSize / 2.0);
}

void CairoPatternFill(benchmark::State& state, cairo_filter_t i_filter) {
  std::vector<uint32_t> pixels = TilePixels();
  cairo_surface_t* tile = cairo_image_surface_create_for_data(reinterpret_cast<unsigned char*>(pixels.data()),
                                                              CAIRO_FORMAT_ARGB32, 64, 64, 64 * 4);
  Cairo c;
  RotateAboutCentre(c.cr);
  cairo_pattern_t* pattern = cairo_pattern_create_for_surface(tile);
  cairo_pattern_set_extend(pattern, CAIRO_EXTEND_REPEAT);
  cairo_pattern_set_filter(pattern, i_filter);
  cairo_matrix_t scale;
  cairo_matrix_init_scale(&scale, 1 / 1.5, 1 / 1.5);
  cairo_pattern_set_matrix(pattern, &scale);
  cairo_set_source(c.cr, pattern);
  for (auto _ : state) {
    cairo_paint(c.cr);
    cairo_surface_flush(c.surface);
  }
  cairo_pattern_destroy(pattern);
  cairo_surface_destroy(tile);
  state.SetItemsProcessed(state.iterations() * kSize * kSize);
}

void BM_Engine_PatternRotatedNearest(benchmark::State& state) {
  std::vector<uint32_t> pixels = TilePixels();
  VYRPixelImage* pTile = TileImage(pixels);
  Engine e;
  RotateAboutCentre(e.drawing);
  const VYR3x3Matrix scale(1.5f, 0, 0, 0, 1.5f, 0);
  for (auto _ : state) e.drawing.FillWithPattern(pTile, ePatternRepeat, &scale);
  pTile->Release();
  state.SetItemsProcessed(state.iterations() * kSize * kSize);
}

void BM_Cairo_PatternRotatedNearest(benchmark::State& state) { CairoPatternFill(state, CAIRO_FILTER_NEAREST); }

// The drawing samples patterns at the nearest pixel; its canvas takes a bilinear bitmap shader.
void BM_Engine_PatternRotatedBilinear(benchmark::State& state) {
  std::vector<uint32_t> pixels = TilePixels();
  VYRRasterBitmap tile;
  tile.setConfig(64, 64);
  tile.setPixels(pixels.data());
  Engine e;
  RotateAboutCentre(e.drawing);
  VYRRasterCanvas* pCanvas = static_cast<VYR2DGSkiaDrawingContext*>(e.support.GetDrawingContext())->_pCanvas;
  VYRRasterBitmapShader* pShader =
      new VYRRasterBitmapShader(tile, nullptr, VYRRasterShader::kRepeat_TileMode, VYRRasterShader::kRepeat_TileMode,
                                VYRRasterBitmapShader::kBilinear_Filter);
  pShader->setLocalMatrix(VYRRasterMatrix::MakeScale(1.5f, 1.5f));
  VYRRasterPaint paint;
  paint.setBlendMode(kSrcOver_VYRBlendMode);
  paint.setShader(pShader);
  pShader->Release();
  for (auto _ : state) pCanvas->drawPaint(paint);
  state.SetItemsProcessed(state.iterations() * kSize * kSize);
}

void BM_Cairo_PatternRotatedBilinear(benchmark::State& state) { CairoPatternFill(state, CAIRO_FILTER_BILINEAR); }

void BM_Engine_ScaledBitmaps(benchmark::State& state) {
  const std::vector<Item> items = MakeItems(3);
  std::vector<uint32_t> pixels = TilePixels();
  VYRPixelImage* pImage = TileImage(pixels);
  Engine e;
  for (auto _ : state) {
    for (const Item& item : items) e.drawing.DrawBitmapToRect(VYR2DGRect(item.x, item.y, item.w, item.h), pImage);
  }
  pImage->Release();
  state.SetItemsProcessed(state.iterations() * kCount);
}

void BM_Cairo_ScaledBitmaps(benchmark::State& state) {
  const std::vector<Item> items = MakeItems(3);
  std::vector<uint32_t> pixels = TilePixels();
  cairo_surface_t* image = cairo_image_surface_create_for_data(reinterpret_cast<unsigned char*>(pixels.data()),
                                                               CAIRO_FORMAT_ARGB32, 64, 64, 64 * 4);
  Cairo c;
  for (auto _ : state) {
    for (const Item& item : items) {
      cairo_save(c.cr);
      cairo_translate(c.cr, item.x, item.y);
      cairo_scale(c.cr, item.w / 64, item.h / 64);
      cairo_set_source_surface(c.cr, image, 0, 0);
      cairo_pattern_set_filter(cairo_get_source(c.cr), CAIRO_FILTER_BILINEAR);
      cairo_rectangle(c.cr, 0, 0, 64, 64);
      cairo_fill(c.cr);
      cairo_restore(c.cr);
    }
    cairo_surface_flush(c.surface);
  }
  cairo_surface_destroy(image);
  state.SetItemsProcessed(state.iterations() * kCount);
}

#define VYR_PAINT_PAIR(Name)                                                     \
  BENCHMARK(BM_Engine_##Name)->Unit(benchmark::kMillisecond)->MinTime(0.5); \
  BENCHMARK(BM_Cairo_##Name)->Unit(benchmark::kMillisecond)->MinTime(0.5);

VYR_PAINT_PAIR(LinearRects)
VYR_PAINT_PAIR(RadialCircles)
VYR_PAINT_PAIR(PatternRotatedNearest)
VYR_PAINT_PAIR(PatternRotatedBilinear)
VYR_PAINT_PAIR(ScaledBitmaps)

}  // namespace
