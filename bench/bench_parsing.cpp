#include <benchmark/benchmark.h>

#include <cstdlib>
#include <random>
#include <string>

#include "MMParsingTools.h"

namespace {

constexpr size_t kTextSize = 10u << 20;

// Integers, decimals, signed values and exponents separated by spaces or commas,
// as they appear in filter matrices and path data.
const std::string& MixedNumbers() {
  static const std::string text = [] {
    std::mt19937 random(42);
    std::uniform_int_distribution<int> kind(0, 4);
    std::uniform_int_distribution<int> integer(0, 99999);
    std::string result;
    result.reserve(kTextSize + 64);
    while (result.size() < kTextSize) {
      switch (kind(random)) {
        case 0: result += std::to_string(integer(random)); break;
        case 1: result += std::to_string(integer(random)) + "." + std::to_string(integer(random)); break;
        case 2: result += "-" + std::to_string(integer(random) % 100) + "." + std::to_string(integer(random)); break;
        case 3: result += "." + std::to_string(integer(random)); break;
        default: result += std::to_string(integer(random) % 10) + "." + std::to_string(integer(random) % 1000) +
                           "e" + std::to_string(integer(random) % 40 - 20); break;
      }
      result += (integer(random) % 3 == 0) ? ", " : " ";
    }
    return result;
  }();
  return text;
}

// "x,y x,y ..." with coordinates of a drawing a few thousand units wide.
const std::string& Polyline() {
  static const std::string text = [] {
    std::mt19937 random(7);
    std::uniform_real_distribution<double> coordinate(-5000.0, 5000.0);
    std::string result;
    result.reserve(kTextSize + 64);
    char buffer[64];
    while (result.size() < kTextSize) {
      int length = std::snprintf(buffer, sizeof buffer, "%.3f,%.3f ", coordinate(random), coordinate(random));
      result.append(buffer, static_cast<size_t>(length));
    }
    return result;
  }();
  return text;
}

void BM_ParseNumberList(benchmark::State& state) {
  const std::string& text = MixedNumbers();
  for (auto _ : state) {
    VYRSYPDynArray<double> numbers;
    const char* cursor = text.data();
    bool ok = MMParsingTools::ParseNumberList(cursor, text.data() + text.size(), numbers);
    benchmark::DoNotOptimize(ok);
    benchmark::DoNotOptimize(numbers.GetData());
  }
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * text.size()));
}
BENCHMARK(BM_ParseNumberList)->Unit(benchmark::kMillisecond);

// Baseline: the C library's conversion over the same text, separators skipped by hand.
void BM_StrtodLoop(benchmark::State& state) {
  const std::string& text = MixedNumbers();
  for (auto _ : state) {
    VYRSYPDynArray<double> numbers;
    const char* cursor = text.c_str();
    const char* const end = cursor + text.size();
    while (cursor < end) {
      char* next = nullptr;
      double value = std::strtod(cursor, &next);
      if (next == cursor) break;
      numbers.Append(value);
      cursor = next;
      while (cursor < end && (*cursor == ' ' || *cursor == ',')) ++cursor;
    }
    benchmark::DoNotOptimize(numbers.GetData());
  }
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * text.size()));
}
BENCHMARK(BM_StrtodLoop)->Unit(benchmark::kMillisecond);

void BM_ParseSVGPointList(benchmark::State& state) {
  const std::string& text = Polyline();
  for (auto _ : state) {
    VYRSYPDynArray<VYRMathPoint2D> points;
    const char* cursor = text.data();
    bool ok = MMParsingTools::ParseSVGPointList(cursor, text.data() + text.size(), points, MM2D::PathCoordAbsolute,
                                                true, 1000.0);
    benchmark::DoNotOptimize(ok);
    benchmark::DoNotOptimize(points.GetData());
  }
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * text.size()));
}
BENCHMARK(BM_ParseSVGPointList)->Unit(benchmark::kMillisecond);

}  // namespace
