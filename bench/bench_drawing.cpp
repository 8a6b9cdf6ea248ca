// The drawing's core scenes on 1024 x 1024, each drawn through VYR2DGSkiaDrawing
// and directly with Cairo in the same run: filled triangles, curved paths,
// stroked and dashed polylines, hairlines, two blend modes and an
// anti-aliased circular clip. Also Clear and GetUnmultipliedData of a
// 4096 x 4096 surface against memset and memcpy of the same bytes.
#include <benchmark/benchmark.h>
#include <cairo.h>

#include <cmath>
#include <cstring>
#include <random>
#include <vector>

#include "VYR2DGSkiaDrawing.h"
#include "VYR2DGSkiaSupport.h"

namespace {

constexpr int kSize = 1024;

struct Shape {
  std::vector<VYRMathPoint2Df> points;  // polygon corners, or Bézier control points after the start
  unsigned char r, g, b, a;
};

// Seeded, so both backends draw exactly the same scene.
std::vector<Shape> MakeShapes(int i_count, int i_points, float i_reach, unsigned i_seed) {
  std::mt19937 random(i_seed);
  std::uniform_real_distribution<float> position(0, kSize), offset(-i_reach, i_reach);
  std::uniform_int_distribution<int> channel(0, 255);
  std::vector<Shape> shapes(i_count);
  for (Shape& shape : shapes) {
    float x = position(random), y = position(random);
    for (int i = 0; i < i_points; ++i) {
      shape.points.emplace_back(x, y);
      x += offset(random);
      y += offset(random);
    }
    shape.r = channel(random);
    shape.g = channel(random);
    shape.b = channel(random);
    shape.a = 128 + channel(random) / 2;
  }
  return shapes;
}

enum class Scene { Triangles, Curves, Polylines, DashedPolylines, Hairlines, Multiply, SoftLight, Clipped };

int ShapeCount(Scene i_scene) {
  switch (i_scene) {
    case Scene::Triangles: return 10000;
    case Scene::Curves: case Scene::Polylines: case Scene::DashedPolylines: return 2000;
    default: return 1000;
  }
}

std::vector<Shape> MakeScene(Scene i_scene) {
  switch (i_scene) {
    case Scene::Triangles: return MakeShapes(10000, 3, 30, 1);
    case Scene::Curves: return MakeShapes(2000, 1 + 8 * 3, 40, 2);
    case Scene::Polylines: case Scene::DashedPolylines: return MakeShapes(2000, 20, 25, 3);
    case Scene::Hairlines: return MakeShapes(1000, 2, 200, 4);
    default: return MakeShapes(1000, 4, 60, 5);
  }
}

bool IsStroked(Scene i_scene) {
  return i_scene == Scene::Polylines || i_scene == Scene::DashedPolylines || i_scene == Scene::Hairlines;
}

void DrawWithEngine(VYR2DGSkiaDrawing& io_drawing, Scene i_scene, const std::vector<Shape>& i_shapes) {
  io_drawing.SetBlendingMode(i_scene == Scene::Multiply ? eTransferMultiply
                             : i_scene == Scene::SoftLight ? eTransferSoftLight
                                                           : eTransferSourceOver);
  io_drawing.SetStrokeWidth(i_scene == Scene::Hairlines ? 0.0f : 3.0f);
  io_drawing.SetLineJoin(eLineJoinRound);
  const float dash[2] = {12.0f, 6.0f};
  io_drawing.SetDashStyle(i_scene == Scene::DashedPolylines ? 2 : 0, i_scene == Scene::DashedPolylines ? dash : nullptr);
  for (const Shape& shape : i_shapes) {
    const std::vector<VYRMathPoint2Df>& p = shape.points;
    io_drawing.MoveTo(p[0]);
    if (i_scene == Scene::Curves) {
      for (size_t i = 1; i + 2 < p.size(); i += 3) io_drawing.CurveToCubic(p[i], p[i + 1], p[i + 2]);
    } else {
      for (size_t i = 1; i < p.size(); ++i) io_drawing.LineTo(p[i]);
    }
    if (IsStroked(i_scene)) {
      io_drawing.SetStrokeColor(shape.r, shape.g, shape.b, shape.a);
      io_drawing.ApplyStrokeMode(eEdgeModeColor);
      io_drawing.DrawStroke();
    } else {
      io_drawing.ClosePath();
      io_drawing.SetFillColor(shape.r, shape.g, shape.b, shape.a);
      io_drawing.ApplyFillMode(eFillModeColor);
      io_drawing.DrawFill();
    }
  }
}

void DrawWithCairo(cairo_t* io_cr, Scene i_scene, const std::vector<Shape>& i_shapes) {
  cairo_set_operator(io_cr, i_scene == Scene::Multiply ? CAIRO_OPERATOR_MULTIPLY
                            : i_scene == Scene::SoftLight ? CAIRO_OPERATOR_SOFT_LIGHT
                                                          : CAIRO_OPERATOR_OVER);
  cairo_set_line_width(io_cr, i_scene == Scene::Hairlines ? 1.0 : 3.0);
  cairo_set_line_join(io_cr, CAIRO_LINE_JOIN_ROUND);
  const double dash[2] = {12.0, 6.0};
  cairo_set_dash(io_cr, dash, i_scene == Scene::DashedPolylines ? 2 : 0, 0);
  for (const Shape& shape : i_shapes) {
    const std::vector<VYRMathPoint2Df>& p = shape.points;
    cairo_move_to(io_cr, p[0].x, p[0].y);
    if (i_scene == Scene::Curves) {
      for (size_t i = 1; i + 2 < p.size(); i += 3)
        cairo_curve_to(io_cr, p[i].x, p[i].y, p[i + 1].x, p[i + 1].y, p[i + 2].x, p[i + 2].y);
    } else {
      for (size_t i = 1; i < p.size(); ++i) cairo_line_to(io_cr, p[i].x, p[i].y);
    }
    cairo_set_source_rgba(io_cr, shape.r / 255.0, shape.g / 255.0, shape.b / 255.0, shape.a / 255.0);
    if (IsStroked(i_scene)) {
      cairo_stroke(io_cr);
    } else {
      cairo_close_path(io_cr);
      cairo_fill(io_cr);
    }
  }
}

// A colourful, partly transparent background, so that blend modes have work to do.
void PaintBackground(VYR2DGSkiaDrawing& io_drawing) {
  io_drawing.SetBlendingMode(eTransferSource);
  io_drawing.FillWithColor(static_cast<unsigned char>(40), 120, 200, 180);
}

void BM_Engine(benchmark::State& state, Scene i_scene) {
  const std::vector<Shape> shapes = MakeScene(i_scene);
  VYR2DGSkiaSupport support(kSize, kSize);
  VYR2DGSkiaDrawing drawing(support.GetDrawingContext());
  PaintBackground(drawing);
  if (i_scene == Scene::Clipped) {
    drawing.SetBuildingClipPath(true);
    drawing.ArcTo(VYRMathPoint2Df(kSize / 2.0f, kSize / 2.0f), 400, 400, 0, 0, 359.9f);
    drawing.ClosePath();
    drawing.ApplyClip();
    drawing.SetBuildingClipPath(false);
  }
  for (auto _ : state) DrawWithEngine(drawing, i_scene, shapes);
  state.SetItemsProcessed(state.iterations() * ShapeCount(i_scene));
}

void BM_Cairo(benchmark::State& state, Scene i_scene) {
  const std::vector<Shape> shapes = MakeScene(i_scene);
  cairo_surface_t* surface = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, kSize, kSize);
  cairo_t* cr = cairo_create(surface);
  cairo_set_tolerance(cr, 0.1);
  cairo_set_source_rgba(cr, 40 / 255.0, 120 / 255.0, 200 / 255.0, 180 / 255.0);
  cairo_paint(cr);
  if (i_scene == Scene::Clipped) {
    cairo_arc(cr, kSize / 2.0, kSize / 2.0, 400, 0, 2 * M_PI);
    cairo_clip(cr);
  }
  for (auto _ : state) {
    DrawWithCairo(cr, i_scene, shapes);
    cairo_surface_flush(surface);
  }
  state.SetItemsProcessed(state.iterations() * ShapeCount(i_scene));
  cairo_destroy(cr);
  cairo_surface_destroy(surface);
}

#define VYR_SCENE_PAIR(Name)                                                                  \
  BENCHMARK_CAPTURE(BM_Engine, Name, Scene::Name)->Unit(benchmark::kMillisecond)->MinTime(0.5); \
  BENCHMARK_CAPTURE(BM_Cairo, Name, Scene::Name)->Unit(benchmark::kMillisecond)->MinTime(0.5);

VYR_SCENE_PAIR(Triangles)
VYR_SCENE_PAIR(Curves)
VYR_SCENE_PAIR(Polylines)
VYR_SCENE_PAIR(DashedPolylines)
VYR_SCENE_PAIR(Hairlines)
VYR_SCENE_PAIR(Multiply)
VYR_SCENE_PAIR(SoftLight)
VYR_SCENE_PAIR(Clipped)

constexpr int kLargeSize = 4096;
constexpr size_t kLargeBytes = size_t(kLargeSize) * kLargeSize * 4;

void BM_EngineClear(benchmark::State& state) {
  VYR2DGSkiaSupport support(kLargeSize, kLargeSize);
  VYR2DGSkiaDrawing drawing(support.GetDrawingContext());
  for (auto _ : state) drawing.ClearBitmap();
  state.SetBytesProcessed(state.iterations() * kLargeBytes);
}
BENCHMARK(BM_EngineClear)->Unit(benchmark::kMillisecond);

void BM_MemsetBaseline(benchmark::State& state) {
  std::vector<unsigned char> bytes(kLargeBytes, 1);
  for (auto _ : state) {
    std::memset(bytes.data(), 0, bytes.size());
    benchmark::DoNotOptimize(bytes.data());
  }
  state.SetBytesProcessed(state.iterations() * kLargeBytes);
}
BENCHMARK(BM_MemsetBaseline)->Unit(benchmark::kMillisecond);

void BM_EngineGetUnmultipliedData(benchmark::State& state) {
  VYR2DGSkiaSupport support(kLargeSize, kLargeSize);
  VYR2DGSkiaDrawing drawing(support.GetDrawingContext());
  PaintBackground(drawing);
  for (auto _ : state) {
    unsigned char* pixels = support.GetUnmultipliedData(VYR2DGSupport::eMainBitmap);
    benchmark::DoNotOptimize(pixels);
    delete[] pixels;
  }
  state.SetBytesProcessed(state.iterations() * kLargeBytes);
}
BENCHMARK(BM_EngineGetUnmultipliedData)->Unit(benchmark::kMillisecond);

void BM_MemcpyBaseline(benchmark::State& state) {
  std::vector<unsigned char> source(kLargeBytes, 7);
  for (auto _ : state) {
    unsigned char* copy = new unsigned char[kLargeBytes];
    std::memcpy(copy, source.data(), kLargeBytes);
    benchmark::DoNotOptimize(copy);
    delete[] copy;
  }
  state.SetBytesProcessed(state.iterations() * kLargeBytes);
}
BENCHMARK(BM_MemcpyBaseline)->Unit(benchmark::kMillisecond);

}  // namespace
