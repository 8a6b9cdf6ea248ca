// 1,000 text runs of 20 characters on 1024 x 1024 drawn through
// VYR2DGSkiaDrawing, against Cairo filling the outlines of the same strings
// in the same face (cairo_text_path and a fill) in the same run. Also the
// layout alone: the advance of every run, with glyphs already cached.
#include <benchmark/benchmark.h>
#include <cairo.h>

#include <random>
#include <string>
#include <vector>

#include "VYR2DGSkiaDrawing.h"
#include "VYR2DGSkiaSupport.h"
#include "VYRUnicodeString.h"

namespace {

constexpr int kSize = 1024;
constexpr int kRuns = 1000;
constexpr int kRunLength = 20;
constexpr float kTextSize = 16.0f;

struct TextRun {
  std::string text;
  float x, y;
};

// Seeded, so both backends draw exactly the same runs.
std::vector<TextRun> MakeRuns() {
  static const std::string letters = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789 ";
  std::mt19937 random(7);
  std::uniform_int_distribution<size_t> letter(0, letters.size() - 1);
  std::uniform_real_distribution<float> x(0, kSize - 160), y(kTextSize, kSize);
  std::vector<TextRun> runs(kRuns);
  for (TextRun& run : runs) {
    for (int i = 0; i < kRunLength; ++i) run.text += letters[letter(random)];
    run.x = x(random);
    run.y = y(random);
  }
  return runs;
}

void BM_TextRuns_Drawing(benchmark::State& state) {
  const std::vector<TextRun> runs = MakeRuns();
  std::vector<VYRUnicodeString> texts;
  for (const TextRun& run : runs) texts.emplace_back(run.text);
  VYR2DGSkiaSupport support(kSize, kSize);
  VYR2DGSkiaDrawing drawing(support.GetDrawingContext());
  drawing.SetBlendingMode(eTransferSourceOver);
  drawing.SetFont(VYRUnicodeString("DejaVu Sans"));
  drawing.SetTextHeight(kTextSize);
  drawing.SetFillColor(20, 20, 20, static_cast<unsigned char>(230));
  drawing.SetFillMode(eFillModeColor);
  drawing.SetStrokeMode(eEdgeModeNone);
  for (auto _ : state) {
    for (size_t i = 0; i < runs.size(); ++i) drawing.DrawTextW({runs[i].x, runs[i].y}, texts[i], false);
  }
  state.SetItemsProcessed(state.iterations() * kRuns);
}

void BM_TextRuns_Cairo(benchmark::State& state) {
  const std::vector<TextRun> runs = MakeRuns();
  cairo_surface_t* surface = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, kSize, kSize);
  cairo_t* cr = cairo_create(surface);
  cairo_select_font_face(cr, "DejaVu Sans", CAIRO_FONT_SLANT_NORMAL, CAIRO_FONT_WEIGHT_NORMAL);
  cairo_set_font_size(cr, kTextSize);
  cairo_set_source_rgba(cr, 20 / 255.0, 20 / 255.0, 20 / 255.0, 230 / 255.0);
  for (auto _ : state) {
    for (const TextRun& run : runs) {
      cairo_move_to(cr, run.x, run.y);
      cairo_text_path(cr, run.text.c_str());
      cairo_fill(cr);
    }
  }
  cairo_destroy(cr);
  cairo_surface_destroy(surface);
  state.SetItemsProcessed(state.iterations() * kRuns);
}

void BM_TextRuns_AdvanceOnly(benchmark::State& state) {
  const std::vector<TextRun> runs = MakeRuns();
  std::vector<VYRUnicodeString> texts;
  for (const TextRun& run : runs) texts.emplace_back(run.text);
  VYR2DGSkiaSupport support(kSize, kSize);
  VYR2DGSkiaDrawing drawing(support.GetDrawingContext());
  drawing.SetFont(VYRUnicodeString("DejaVu Sans"));
  drawing.SetTextHeight(kTextSize);
  drawing.SetFillMode(eFillModeNone);
  drawing.SetStrokeMode(eEdgeModeNone);
  drawing.DrawTextW({0, 0}, texts[0], false);  // loads the paint's text settings
  for (auto _ : state) {
    int sum = 0;
    for (const VYRUnicodeString& text : texts) sum += drawing.GetTextAdvanceWidth(text);
    benchmark::DoNotOptimize(sum);
  }
  state.SetItemsProcessed(state.iterations() * kRuns);
}

}  // namespace

BENCHMARK(BM_TextRuns_Drawing)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_TextRuns_Cairo)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_TextRuns_AdvanceOnly)->Unit(benchmark::kMillisecond);
