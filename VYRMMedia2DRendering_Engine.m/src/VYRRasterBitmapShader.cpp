#include "VYRRasterBitmapShader.h"

#include <algorithm>
#include <cmath>
#include <cstring>

#include "VYRRasterPixelLanes.h"

VYR_IMPLEMENT_ABSTRACT_CLASS(VYRRasterBitmapShader, VYRRasterShader, "Engine")

namespace {

// Shader-space coordinates are fixed point with 32 fractional bits: steps along a 1024-pixel
// row then stay far below a hundredth of a bitmap pixel off.
constexpr int kShift = 32;
constexpr double kOne = 4294967296.0;

int64_t ToFixed(double i_value) {
  // Beyond this a clamped coordinate is decided anyway; the limit keeps a row's sums in range.
  constexpr double kLimit = 1.0e5;
  if (!(i_value == i_value)) return 0;
  return static_cast<int64_t>(std::clamp(i_value, -kLimit, kLimit) * kOne);
}

// One axis of a walk along a row: the coordinate steps in fixed point and is brought into
// the bitmap by the tile mode. Index() is the pixel holding the coordinate; Pair() the two
// pixels around it with Weight() the share of the second (bilinear).
class ClampAxis {
 public:
  ClampAxis(double i_start, double i_step, int i_size)
      : _pos(ToFixed(i_start)), _step(ToFixed(i_step)), _last(i_size - 1) {}
  int Index() const { return Clamp(_pos >> kShift); }
  void Pair(int& o_first, int& o_second) const {
    const int64_t cell = _pos >> kShift;
    o_first = Clamp(cell);
    o_second = Clamp(cell + 1);
  }
  unsigned Weight() const { return static_cast<unsigned>((_pos >> (kShift - 8)) & 0xFF); }
  void Advance() { _pos += _step; }

 private:
  int Clamp(int64_t i_cell) const { return static_cast<int>(std::clamp<int64_t>(i_cell, 0, _last)); }
  int64_t _pos, _step;
  int _last;
};

// Repeat and mirror walk within one period (the bitmap, or the bitmap and its mirror image):
// one comparison per step keeps the coordinate there.
template <bool Mirror>
class PeriodicAxis {
 public:
  PeriodicAxis(double i_start, double i_step, int i_size) : _size(i_size) {
    const double period = Mirror ? 2.0 * i_size : i_size;
    _period = static_cast<int64_t>(period * kOne);
    _pos = std::min(Reduce(i_start, period), _period - 1);
    _step = std::min(Reduce(i_step, period), _period - 1);
  }
  int Index() const { return Fold(static_cast<int>(_pos >> kShift)); }
  void Pair(int& o_first, int& o_second) const {
    const int cell = static_cast<int>(_pos >> kShift);
    const int cells = static_cast<int>(_period >> kShift);
    o_first = Fold(cell);
    o_second = Fold(cell + 1 == cells ? 0 : cell + 1);
  }
  unsigned Weight() const { return static_cast<unsigned>((_pos >> (kShift - 8)) & 0xFF); }
  void Advance() {
    _pos += _step;
    if (_pos >= _period) _pos -= _period;
  }
  // The walk itself, for walks taken several pixels at a time: both in [0, Period()).
  int64_t Position() const { return _pos; }
  int64_t Step() const { return _step; }
  int64_t Period() const { return _period; }

 private:
  static int64_t Reduce(double i_value, double i_period) {
    if (!std::isfinite(i_value)) return 0;
    const double reduced = i_value - std::floor(i_value / i_period) * i_period;
    return static_cast<int64_t>(std::max(reduced, 0.0) * kOne);
  }
  int Fold(int i_cell) const { return Mirror && i_cell >= _size ? 2 * _size - 1 - i_cell : i_cell; }
  int64_t _pos, _step, _period;
  int _size;
};

template <class F>
void WithAxis(VYRRasterShader::TileMode i_mode, double i_start, double i_step, int i_size, F&& f) {
  switch (i_mode) {
    case VYRRasterShader::kRepeat_TileMode: f(PeriodicAxis<false>(i_start, i_step, i_size)); break;
    case VYRRasterShader::kMirror_TileMode: f(PeriodicAxis<true>(i_start, i_step, i_size)); break;
    default: f(ClampAxis(i_start, i_step, i_size)); break;
  }
}

// A pixel spread over four 16-bit lanes (blue, red, green, alpha), so that one 64-bit multiply
// weighs all four channels at once.
constexpr uint64_t kLanes = 0x00FF00FF00FF00FFull;
inline uint64_t Expand(uint32_t i_pixel) { return (i_pixel | (uint64_t(i_pixel) << 24)) & kLanes; }
inline uint32_t Pack(uint64_t i_lanes) {
  i_lanes &= kLanes;
  return static_cast<uint32_t>(i_lanes | (i_lanes >> 24));
}
// Between a and b by w / 256 (w in 0..255).
inline uint64_t Lerp(uint64_t a, uint64_t b, unsigned w) { return ((a * (256 - w) + b * w) >> 8) & kLanes; }

struct Pixels {
  const uint8_t* base;
  size_t rowBytes;
  const uint32_t* Row(int i_y) const { return reinterpret_cast<const uint32_t*>(base + size_t(i_y) * rowBytes); }
};

template <class AxisX, class AxisY>
void ShadeNearest(const Pixels& i_pixels, AxisX x, AxisY y, int i_count, uint32_t* o_pixels) {
  for (int i = 0; i < i_count; ++i, x.Advance(), y.Advance()) o_pixels[i] = i_pixels.Row(y.Index())[x.Index()];
}

#if defined(VYR_RASTER_AVX2)
// ShadeNearest for a bitmap repeated both ways, four pixels at a time: lane k walks from
// pixel k in steps of four pixels, brought back into the period by one subtraction, so every
// lane holds exactly the position the one-pixel walk reaches; the pixels are then gathered.
VYR_RASTER_AVX2 void ShadeNearestRepeatedAvx2(const Pixels& i_pixels, PeriodicAxis<false> x, PeriodicAxis<false> y,
                                              int i_count, uint32_t* o_pixels) {
  alignas(32) int64_t us[4], vs[4];
  for (int k = 0; k < 4; ++k, x.Advance(), y.Advance()) us[k] = x.Position(), vs[k] = y.Position();
  // Four steps, kept within the period as the walk keeps its position.
  auto fourSteps = [](const PeriodicAxis<false>& i_axis) {
    int64_t four = 0;
    for (int k = 0; k < 4; ++k) {
      four += i_axis.Step();
      if (four >= i_axis.Period()) four -= i_axis.Period();
    }
    return four;
  };
  const __m256i stepU = _mm256_set1_epi64x(fourSteps(x)), stepV = _mm256_set1_epi64x(fourSteps(y));
  const __m256i periodU = _mm256_set1_epi64x(x.Period()), periodV = _mm256_set1_epi64x(y.Period());
  const __m256i lastU = _mm256_sub_epi64(periodU, _mm256_set1_epi64x(1));
  const __m256i lastV = _mm256_sub_epi64(periodV, _mm256_set1_epi64x(1));
  const __m256i rowBytes = _mm256_set1_epi64x(static_cast<long long>(i_pixels.rowBytes));
  __m256i u = _mm256_load_si256(reinterpret_cast<const __m256i*>(us));
  __m256i v = _mm256_load_si256(reinterpret_cast<const __m256i*>(vs));
  int i = 0;
  for (; i + 4 <= i_count; i += 4) {
    // Byte offsets row * rowBytes + column * 4 (rows and columns are the positions' upper halves).
    const __m256i offsets = _mm256_add_epi64(_mm256_mul_epu32(_mm256_srli_epi64(v, kShift), rowBytes),
                                             _mm256_slli_epi64(_mm256_srli_epi64(u, kShift), 2));
    const __m128i four = _mm256_i64gather_epi32(reinterpret_cast<const int*>(i_pixels.base), offsets, 1);
    _mm_storeu_si128(reinterpret_cast<__m128i*>(o_pixels + i), four);
    u = _mm256_add_epi64(u, stepU);
    v = _mm256_add_epi64(v, stepV);
    u = _mm256_sub_epi64(u, _mm256_and_si256(_mm256_cmpgt_epi64(u, lastU), periodU));
    v = _mm256_sub_epi64(v, _mm256_and_si256(_mm256_cmpgt_epi64(v, lastV), periodV));
  }
  _mm256_store_si256(reinterpret_cast<__m256i*>(us), u);
  _mm256_store_si256(reinterpret_cast<__m256i*>(vs), v);
  for (int k = 0; i < i_count; ++i, ++k) o_pixels[i] = i_pixels.Row(int(vs[k] >> kShift))[us[k] >> kShift];
}
#endif

void ShadeNearest(const Pixels& i_pixels, PeriodicAxis<false> x, PeriodicAxis<false> y, int i_count,
                  uint32_t* o_pixels) {
#if defined(VYR_RASTER_AVX2)
  if (VYRRasterHasAvx2()) {
    ShadeNearestRepeatedAvx2(i_pixels, x, y, i_count, o_pixels);
    return;
  }
#endif
  ShadeNearest<PeriodicAxis<false>, PeriodicAxis<false>>(i_pixels, x, y, i_count, o_pixels);
}

// The four pixels around a point weighed by wx, wy / 256 (the second column and row).
inline uint32_t Bilinear(uint32_t i_topLeft, uint32_t i_topRight, uint32_t i_bottomLeft, uint32_t i_bottomRight,
                         unsigned wx, unsigned wy) {
#if defined(__SSE2__)
  // Both columns side by side in eight 16-bit lanes: rows mixed first, then the two halves.
  const __m128i zero = _mm_setzero_si128();
  const __m128i top = _mm_unpacklo_epi8(_mm_cvtsi64_si128(i_topLeft | int64_t(i_topRight) << 32), zero);
  const __m128i bottom = _mm_unpacklo_epi8(_mm_cvtsi64_si128(i_bottomLeft | int64_t(i_bottomRight) << 32), zero);
  __m128i mixed = _mm_add_epi16(_mm_mullo_epi16(top, _mm_set1_epi16(static_cast<short>(256 - wy))),
                                _mm_mullo_epi16(bottom, _mm_set1_epi16(static_cast<short>(wy))));
  mixed = _mm_srli_epi16(mixed, 8);
  const short l = static_cast<short>(256 - wx), r = static_cast<short>(wx);
  mixed = _mm_mullo_epi16(mixed, _mm_set_epi16(r, r, r, r, l, l, l, l));
  mixed = _mm_srli_epi16(_mm_add_epi16(mixed, _mm_srli_si128(mixed, 8)), 8);
  return static_cast<uint32_t>(_mm_cvtsi128_si32(_mm_packus_epi16(mixed, mixed)));
#else
  const uint64_t upper = Lerp(Expand(i_topLeft), Expand(i_bottomLeft), wy);
  const uint64_t lower = Lerp(Expand(i_topRight), Expand(i_bottomRight), wy);
  return Pack(Lerp(upper, lower, wx));
#endif
}

template <class AxisX, class AxisY>
void ShadeBilinear(const Pixels& i_pixels, AxisX x, AxisY y, int i_count, uint32_t* o_pixels) {
  for (int i = 0; i < i_count; ++i, x.Advance(), y.Advance()) {
    int left, right, top, bottom;
    x.Pair(left, right);
    y.Pair(top, bottom);
    const uint32_t* upperRow = i_pixels.Row(top);
    const uint32_t* lowerRow = i_pixels.Row(bottom);
    o_pixels[i] = Bilinear(upperRow[left], upperRow[right], lowerRow[left], lowerRow[right], x.Weight(), y.Weight());
  }
}

// Bilinear sampling along a device row that stays between the same two bitmap rows (no
// rotation or skew): the rows are mixed once for each bitmap column in [i_firstColumn,
// i_lastColumn], then each pixel mixes the two columns its step names. The mixed columns keep
// their channels in 16-bit lanes; with SSE2 those lanes are in memory order and two columns or
// two pixels go at once, with the same arithmetic as Lerp, so both forms agree bit for bit.
template <class AxisY, class ColumnStep>
void ShadeBilinearAlongRows(const Pixels& i_pixels, AxisY y, int i_firstColumn, int i_lastColumn,
                            const ColumnStep* i_steps, int i_count, std::vector<uint64_t>& io_mixed,
                            uint32_t* o_pixels) {
  int top, bottom;
  y.Pair(top, bottom);
  const unsigned wy = y.Weight();
  const uint32_t* upperRow = i_pixels.Row(top);
  const uint32_t* lowerRow = i_pixels.Row(bottom);
  if (io_mixed.size() < size_t(i_lastColumn) + 2) io_mixed.resize(size_t(i_lastColumn) + 2);
  uint64_t* mixed = io_mixed.data();
#if defined(__SSE2__)
  const __m128i zero = _mm_setzero_si128();
  const __m128i full = _mm_set1_epi16(256);
  const __m128i lower = _mm_set1_epi16(static_cast<short>(wy)), upper = _mm_sub_epi16(full, lower);
  int c = i_firstColumn;
  for (; c < i_lastColumn; c += 2) {
    const __m128i a = _mm_unpacklo_epi8(_mm_loadl_epi64(reinterpret_cast<const __m128i*>(upperRow + c)), zero);
    const __m128i b = _mm_unpacklo_epi8(_mm_loadl_epi64(reinterpret_cast<const __m128i*>(lowerRow + c)), zero);
    const __m128i m = _mm_srli_epi16(_mm_add_epi16(_mm_mullo_epi16(a, upper), _mm_mullo_epi16(b, lower)), 8);
    _mm_storeu_si128(reinterpret_cast<__m128i*>(mixed + c), m);
  }
  if (c == i_lastColumn) {
    const __m128i a = _mm_unpacklo_epi8(_mm_cvtsi32_si128(static_cast<int>(upperRow[c])), zero);
    const __m128i b = _mm_unpacklo_epi8(_mm_cvtsi32_si128(static_cast<int>(lowerRow[c])), zero);
    const __m128i m = _mm_srli_epi16(_mm_add_epi16(_mm_mullo_epi16(a, upper), _mm_mullo_epi16(b, lower)), 8);
    _mm_storel_epi64(reinterpret_cast<__m128i*>(mixed + c), m);
  }
  auto column = [mixed](int i_column) { return _mm_loadl_epi64(reinterpret_cast<const __m128i*>(mixed + i_column)); };
  int i = 0;
  for (; i + 2 <= i_count; i += 2) {
    const ColumnStep& s0 = i_steps[i];
    const ColumnStep& s1 = i_steps[i + 1];
    // Both columns of a step in one load: the loop is bound by its loads.
    uint64_t columns0, columns1;
    std::memcpy(&columns0, &s0.left, sizeof columns0);
    std::memcpy(&columns1, &s1.left, sizeof columns1);
    const __m128i left = _mm_unpacklo_epi64(column(int32_t(columns0)), column(int32_t(columns1)));
    const __m128i right = _mm_unpacklo_epi64(column(int32_t(columns0 >> 32)), column(int32_t(columns1 >> 32)));
    const __m128i wx = _mm_unpacklo_epi64(_mm_loadl_epi64(reinterpret_cast<const __m128i*>(&s0.weightLanes)),
                                          _mm_loadl_epi64(reinterpret_cast<const __m128i*>(&s1.weightLanes)));
    const __m128i m =
        _mm_srli_epi16(_mm_add_epi16(_mm_mullo_epi16(left, _mm_sub_epi16(full, wx)), _mm_mullo_epi16(right, wx)), 8);
    _mm_storel_epi64(reinterpret_cast<__m128i*>(o_pixels + i), _mm_packus_epi16(m, m));
  }
  if (i < i_count) {
    const ColumnStep& s = i_steps[i];
    const __m128i wx = _mm_loadl_epi64(reinterpret_cast<const __m128i*>(&s.weightLanes));
    const __m128i m = _mm_srli_epi16(
        _mm_add_epi16(_mm_mullo_epi16(column(s.left), _mm_sub_epi16(full, wx)), _mm_mullo_epi16(column(s.right), wx)),
        8);
    o_pixels[i] = static_cast<uint32_t>(_mm_cvtsi128_si32(_mm_packus_epi16(m, m)));
  }
#else
  for (int c = i_firstColumn; c <= i_lastColumn; ++c) mixed[c] = Lerp(Expand(upperRow[c]), Expand(lowerRow[c]), wy);
  for (int i = 0; i < i_count; ++i) {
    o_pixels[i] = Pack(Lerp(mixed[i_steps[i].left], mixed[i_steps[i].right], i_steps[i].weight));
  }
#endif
}

#if defined(__SSE2__)
// Bitmap rows i_upper and i_lower mixed by wy / 256 over the columns [i_first, i_last] into
// o_mixed, with ShadeBilinearAlongRows's arithmetic so that both paths give the same pixels;
// the last column is repeated once beyond, as its own right neighbour.
void MixRows(const uint32_t* i_upper, const uint32_t* i_lower, unsigned wy, int i_first, int i_last,
             uint32_t* o_mixed) {
  const __m128i zero = _mm_setzero_si128();
  const __m128i lower = _mm_set1_epi16(static_cast<short>(wy)), upper = _mm_sub_epi16(_mm_set1_epi16(256), lower);
  auto mix = [&](__m128i a, __m128i b) {
    return _mm_srli_epi16(_mm_add_epi16(_mm_mullo_epi16(a, upper), _mm_mullo_epi16(b, lower)), 8);
  };
  int c = i_first;
  for (; c + 4 <= i_last + 1; c += 4) {
    const __m128i a = _mm_loadu_si128(reinterpret_cast<const __m128i*>(i_upper + c));
    const __m128i b = _mm_loadu_si128(reinterpret_cast<const __m128i*>(i_lower + c));
    const __m128i mixed = _mm_packus_epi16(mix(_mm_unpacklo_epi8(a, zero), _mm_unpacklo_epi8(b, zero)),
                                           mix(_mm_unpackhi_epi8(a, zero), _mm_unpackhi_epi8(b, zero)));
    _mm_storeu_si128(reinterpret_cast<__m128i*>(o_mixed + c), mixed);
  }
  for (; c <= i_last; ++c) {
    const __m128i a = _mm_cvtsi32_si128(static_cast<int>(i_upper[c]));
    const __m128i b = _mm_cvtsi32_si128(static_cast<int>(i_lower[c]));
    o_mixed[c] = static_cast<uint32_t>(
        _mm_cvtsi128_si32(_mm_packus_epi16(mix(_mm_unpacklo_epi8(a, zero), _mm_unpacklo_epi8(b, zero)), zero)));
  }
  o_mixed[i_last + 1] = o_mixed[i_last];
}

// Each mixed column from i_first to i_last (and up to three beyond: i_mixed holds four more)
// next to its right neighbour as the 16-bit lanes (b, b', g, g', r, r', a, a'), which one
// multiply-add weighs horizontally.
void PairColumns(const uint32_t* i_mixed, int i_first, int i_last, uint16_t* o_pairs) {
  const __m128i zero = _mm_setzero_si128();
  for (int c = i_first; c <= i_last; c += 4) {
    const __m128i columns = _mm_loadu_si128(reinterpret_cast<const __m128i*>(i_mixed + c));
    const __m128i neighbours = _mm_loadu_si128(reinterpret_cast<const __m128i*>(i_mixed + c + 1));
    const __m128i low = _mm_unpacklo_epi8(columns, neighbours), high = _mm_unpackhi_epi8(columns, neighbours);
    __m128i* pairs = reinterpret_cast<__m128i*>(o_pairs + 8 * size_t(c));
    _mm_storeu_si128(pairs, _mm_unpacklo_epi8(low, zero));
    _mm_storeu_si128(pairs + 1, _mm_unpackhi_epi8(low, zero));
    _mm_storeu_si128(pairs + 2, _mm_unpacklo_epi8(high, zero));
    _mm_storeu_si128(pairs + 3, _mm_unpackhi_epi8(high, zero));
  }
}

// Source-over straight into io_dst of the pixels sampled from column pairs: pixel i weighs
// the pair of column i_columns[i] by the lanes at i_weights + 8 i, then takes the paint alpha
// (i_alpha / 256) and its coverage, with the arithmetic of ScaleByAlpha and the blender.
// Columns and weights go seven entries beyond i_count (the last group of pixels reads them).
void BlendColumnPairs(const uint16_t* i_pairs, const int* i_columns, const uint16_t* i_weights, int i_count,
                      unsigned i_alpha, const uint8_t* i_coverage, uint32_t* io_dst) {
  const __m128i zero = _mm_setzero_si128();
  const __m128i alpha = _mm_set1_epi16(static_cast<short>(i_alpha));
  auto sample = [&](int i) {
    const __m128i pair = _mm_loadu_si128(reinterpret_cast<const __m128i*>(i_pairs + 8 * size_t(i_columns[i])));
    const __m128i weights = _mm_loadu_si128(reinterpret_cast<const __m128i*>(i_weights + 8 * size_t(i)));
    return _mm_srli_epi32(_mm_madd_epi16(pair, weights), 8);
  };
  auto blendFour = [&](int i, uint32_t i_four, uint32_t* io_four) {
    __m128i lo = _mm_packs_epi32(sample(i), sample(i + 1));
    __m128i hi = _mm_packs_epi32(sample(i + 2), sample(i + 3));
    if (i_alpha != 256) {
      lo = _mm_srli_epi16(_mm_mullo_epi16(lo, alpha), 8);
      hi = _mm_srli_epi16(_mm_mullo_epi16(hi, alpha), 8);
    }
    if (i_four != 0xFFFFFFFFu) {
      __m128i coverageLo, coverageHi;
      CoverageLanes(i_four, &coverageLo, &coverageHi);
      lo = Div255Lanes(_mm_mullo_epi16(lo, coverageLo));
      hi = Div255Lanes(_mm_mullo_epi16(hi, coverageHi));
    }
    const __m128i d = _mm_loadu_si128(reinterpret_cast<const __m128i*>(io_four));
    lo = SrcOverLanes(lo, _mm_unpacklo_epi8(d, zero));
    hi = SrcOverLanes(hi, _mm_unpackhi_epi8(d, zero));
    _mm_storeu_si128(reinterpret_cast<__m128i*>(io_four), _mm_packus_epi16(lo, hi));
  };
  int i = 0;
  for (; i + 4 <= i_count; i += 4) {
    uint32_t four = 0xFFFFFFFFu;
    if (i_coverage) std::memcpy(&four, i_coverage + i, 4);
    if (four != 0) blendFour(i, four, io_dst + i);
  }
  if (i < i_count) {
    // The last pixels go through a group of four padded with no coverage.
    const int rest = i_count - i;
    uint8_t coverage[4] = {0, 0, 0, 0};
    uint32_t pixels[4] = {0, 0, 0, 0};
    for (int j = 0; j < rest; ++j) coverage[j] = i_coverage ? i_coverage[i + j] : 255;
    std::memcpy(pixels, io_dst + i, sizeof(uint32_t) * size_t(rest));
    uint32_t four;
    std::memcpy(&four, coverage, 4);
    blendFour(i, four, pixels);
    std::memcpy(io_dst + i, pixels, sizeof(uint32_t) * size_t(rest));
  }
}
#endif

#if defined(VYR_RASTER_AVX2)
// The same arithmetic as the SSE2 lane helpers, on eight pixels at once.
VYR_RASTER_AVX2 inline __m256i SrcOverLanes8(__m256i s, __m256i d) {
  // Each pixel's alpha (bytes 6, 7 and 14, 15 of a half) into its four lanes.
  const __m256i spread = _mm256_setr_epi8(6, 7, 6, 7, 6, 7, 6, 7, 14, 15, 14, 15, 14, 15, 14, 15,  //
                                          6, 7, 6, 7, 6, 7, 6, 7, 14, 15, 14, 15, 14, 15, 14, 15);
  const __m256i alpha = _mm256_shuffle_epi8(s, spread);
  return _mm256_add_epi16(s, Div255Lanes256(_mm256_mullo_epi16(d, _mm256_sub_epi16(_mm256_set1_epi16(255), alpha))));
}

// MixRows and PairColumns in one pass, eight columns at a time: a group's mixed columns stay
// in a register until the next group's first column, the right neighbour of its last one, is
// known. Unpacking and packing stay within 128-bit halves, so the columns keep their order.
// Columns beyond i_last are not read (masked loads); what the last column is paired with
// never counts, since a pixel whose left sample is the last column has weight 0 (see
// preparePairSteps).
VYR_RASTER_AVX2 void MixPairsAvx2(const uint32_t* i_upper, const uint32_t* i_lower, unsigned wy, int i_first,
                                  int i_last, uint16_t* o_pairs) {
  const __m256i zero = _mm256_setzero_si256();
  const __m256i lower = _mm256_set1_epi16(static_cast<short>(wy));
  const __m256i upper = _mm256_sub_epi16(_mm256_set1_epi16(256), lower);
  const __m256i lanes = _mm256_setr_epi32(0, 1, 2, 3, 4, 5, 6, 7);
  auto mixGroup = [&](int c) VYR_RASTER_AVX2_INLINE {
    __m256i a, b;
    if (c + 8 <= i_last + 1) {
      a = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(i_upper + c));
      b = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(i_lower + c));
    } else {
      const __m256i present = _mm256_cmpgt_epi32(_mm256_set1_epi32(i_last + 1 - c), lanes);
      a = _mm256_maskload_epi32(reinterpret_cast<const int*>(i_upper + c), present);
      b = _mm256_maskload_epi32(reinterpret_cast<const int*>(i_lower + c), present);
    }
    const __m256i low = _mm256_add_epi16(_mm256_mullo_epi16(_mm256_unpacklo_epi8(a, zero), upper),
                                         _mm256_mullo_epi16(_mm256_unpacklo_epi8(b, zero), lower));
    const __m256i high = _mm256_add_epi16(_mm256_mullo_epi16(_mm256_unpackhi_epi8(a, zero), upper),
                                          _mm256_mullo_epi16(_mm256_unpackhi_epi8(b, zero), lower));
    return _mm256_packus_epi16(_mm256_srli_epi16(low, 8), _mm256_srli_epi16(high, 8));
  };
  __m256i columns = mixGroup(i_first);
  for (int c = i_first; c <= i_last; c += 8) {
    const __m256i next = c + 8 <= i_last ? mixGroup(c + 8) : columns;
    // Columns c + 1 to c + 8: this group moved on by one, the next group's first column last.
    const __m256i neighbours =
        _mm256_alignr_epi8(_mm256_permute2x128_si256(columns, next, 0x21), columns, sizeof(uint32_t));
    // Columns 0, 1 | 4, 5 and 2, 3 | 6, 7 with their neighbours' bytes interleaved.
    const __m256i low = _mm256_unpacklo_epi8(columns, neighbours), high = _mm256_unpackhi_epi8(columns, neighbours);
    __m256i* pairs = reinterpret_cast<__m256i*>(o_pairs + 8 * size_t(c));
    _mm256_storeu_si256(pairs, _mm256_cvtepu8_epi16(_mm256_castsi256_si128(low)));
    _mm256_storeu_si256(pairs + 1, _mm256_cvtepu8_epi16(_mm256_castsi256_si128(high)));
    _mm256_storeu_si256(pairs + 2, _mm256_cvtepu8_epi16(_mm256_extracti128_si256(low, 1)));
    _mm256_storeu_si256(pairs + 3, _mm256_cvtepu8_epi16(_mm256_extracti128_si256(high, 1)));
    columns = next;
  }
}

// BlendColumnPairs eight pixels at a time. The 256-bit instructions work within 128-bit
// halves, so pixels j and j + 4 share a register (their weights lie side by side, see
// WeightSlot): after the packs the halves hold pixels 0, 1, 2, 3 and 4, 5, 6, 7, the order in
// which they are stored.
VYR_RASTER_AVX2 void BlendColumnPairsAvx2(const uint16_t* i_pairs, const int* i_columns, const uint16_t* i_weights,
                                          int i_count, unsigned i_alpha, const uint8_t* i_coverage,
                                          uint32_t* io_dst) {
  const __m256i zero = _mm256_setzero_si256();
  const __m256i alpha = _mm256_set1_epi16(static_cast<short>(i_alpha));
  auto load = [](const uint16_t* p) VYR_RASTER_AVX2_INLINE {
    return _mm_loadu_si128(reinterpret_cast<const __m128i*>(p));
  };
  // Pixels i to i + 7 under the coverage bytes in eight; only the lanes of i_lanes (all of them,
  // or those of a row's last pixels) are read and written.
  // Pixels i + j and i + j + 4, sampled from their column pairs.
  auto sampleTwo = [&](int i, int j) VYR_RASTER_AVX2_INLINE {
    const __m256i pairs = _mm256_inserti128_si256(_mm256_castsi128_si256(load(i_pairs + 8 * size_t(i_columns[i + j]))),
                                                  load(i_pairs + 8 * size_t(i_columns[i + j + 4])), 1);
    const __m256i weights = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(i_weights + 8 * size_t(i + 2 * j)));
    return _mm256_srli_epi32(_mm256_madd_epi16(pairs, weights), 8);
  };
  auto blendEight = [&](int i, uint64_t eight, uint32_t* io_eight, const __m256i* i_lanes) VYR_RASTER_AVX2_INLINE {
    __m256i x = _mm256_packs_epi32(sampleTwo(i, 0), sampleTwo(i, 1));  // pixels 0, 1 | 4, 5
    __m256i y = _mm256_packs_epi32(sampleTwo(i, 2), sampleTwo(i, 3));  // pixels 2, 3 | 6, 7
    if (i_alpha != 256) {
      x = _mm256_srli_epi16(_mm256_mullo_epi16(x, alpha), 8);
      y = _mm256_srli_epi16(_mm256_mullo_epi16(y, alpha), 8);
    }
    if (eight != ~uint64_t(0)) {
      __m128i c = _mm_cvtsi64_si128(static_cast<long long>(eight));
      c = _mm_unpacklo_epi8(c, c);
      const __m128i first4 = _mm_unpacklo_epi16(c, c), second4 = _mm_unpackhi_epi16(c, c);
      x = Div255Lanes256(_mm256_mullo_epi16(x, _mm256_cvtepu8_epi16(_mm_unpacklo_epi64(first4, second4))));
      y = Div255Lanes256(_mm256_mullo_epi16(y, _mm256_cvtepu8_epi16(_mm_unpackhi_epi64(first4, second4))));
    }
    int* dst = reinterpret_cast<int*>(io_eight);
    const __m256i d = i_lanes ? _mm256_maskload_epi32(dst, *i_lanes)
                              : _mm256_loadu_si256(reinterpret_cast<const __m256i*>(dst));
    x = SrcOverLanes8(x, _mm256_unpacklo_epi8(d, zero));
    y = SrcOverLanes8(y, _mm256_unpackhi_epi8(d, zero));
    if (i_lanes) {
      _mm256_maskstore_epi32(dst, *i_lanes, _mm256_packus_epi16(x, y));
    } else {
      _mm256_storeu_si256(reinterpret_cast<__m256i*>(dst), _mm256_packus_epi16(x, y));
    }
  };
  int i = 0;
  for (; i + 8 <= i_count; i += 8) {
    uint64_t eight = ~uint64_t(0);
    if (i_coverage) std::memcpy(&eight, i_coverage + i, 8);
    if (eight != 0) blendEight(i, eight, io_dst + i, nullptr);
  }
  if (i < i_count) {
    // The last pixels: lanes beyond the row are neither read nor written, and have no coverage.
    const int rest = i_count - i;
    const __m256i lanes = _mm256_cmpgt_epi32(_mm256_set1_epi32(rest), _mm256_setr_epi32(0, 1, 2, 3, 4, 5, 6, 7));
    uint64_t eight = 0;
    for (int j = 0; j < rest; ++j) eight |= uint64_t(i_coverage ? i_coverage[i + j] : 255) << (8 * j);
    if (eight != 0) blendEight(i, eight, io_dst + i, &lanes);
  }
}
#endif

// The start of a row buffer from which element i_first lies on a cache line, so that wide
// stores from there never straddle two lines; the buffer has a line's worth of room for it.
template <class T>
T* AlignedFrom(std::vector<T>& io_buffer, int i_first) {
  constexpr size_t kLine = 64;
  const uintptr_t address = reinterpret_cast<uintptr_t>(io_buffer.data() + i_first);
  return io_buffer.data() + (kLine - address % kLine) % kLine / sizeof(T);
}

// Where the weights of pixel i of a row sit among the eight-lane groups: in pixel order, or for
// the AVX2 path pixels j and j + 4 of each eight side by side, as its registers take them.
size_t WeightSlot(int i) {
#if defined(VYR_RASTER_AVX2)
  if (VYRRasterHasAvx2()) return size_t(i & ~7) + size_t((i & 3) * 2 + ((i >> 2) & 1));
#endif
  return size_t(i);
}

void ScaleByAlpha(uint32_t* io_pixels, int i_count, unsigned i_alpha) {
  const unsigned k = i_alpha + (i_alpha >> 7);  // 0..256, 255 -> 256 keeps opaque exact
  for (int i = 0; i < i_count; ++i) io_pixels[i] = Pack((Expand(io_pixels[i]) * k) >> 8);
}

}  // namespace

VYRRasterBitmapShader::VYRRasterBitmapShader(const VYRRasterBitmap& i_bitmap, VYRBaseUnknown* i_pPixelOwner,
                                             TileMode i_tileX, TileMode i_tileY, Filter i_filter)
    : _bitmap(i_bitmap), _pPixelOwner(i_pPixelOwner), _tileX(i_tileX), _tileY(i_tileY), _filter(i_filter) {
  if (_pPixelOwner) _pPixelOwner->AddRef();
}

VYRRasterBitmapShader::~VYRRasterBitmapShader() {
  if (_pPixelOwner) _pPixelOwner->Release();
}

bool VYRRasterBitmapShader::setContext(const VYRRasterMatrix& i_totalMatrix, uint8_t i_paintAlpha) {
  const bool invertible = VYRRasterShader::setContext(i_totalMatrix, i_paintAlpha);
  _stepsCount = -1;
  _pairsCount = -1;
  _drawsNothing = !invertible || _bitmap.drawsNothing() || _bitmap.config() != VYRRasterBitmap::kARGB_8888_Config;
  return invertible;
}

void VYRRasterBitmapShader::shadeRow(int x, int y, int count, uint32_t* o_premultiplied) {
  if (_drawsNothing) {
    std::fill(o_premultiplied, o_premultiplied + count, 0u);
    return;
  }
  const VYRRasterMatrix& m = _deviceToShader;
  const double px = x + 0.5, py = y + 0.5;
  double u = m.getScaleX() * px + m.getSkewX() * py + m.getTranslateX();
  double v = m.getSkewY() * px + m.getScaleY() * py + m.getTranslateY();
  const double du = m.getScaleX(), dv = m.getSkewY();
  const Pixels pixels{static_cast<const uint8_t*>(_bitmap.getPixels()), size_t(_bitmap.rowBytes())};
  // Bilinear weights come from the distances to the four nearest pixel centres.
  const bool bilinear = _filter == kBilinear_Filter;
  if (bilinear) u -= 0.5, v -= 0.5;
  if (x == _stepsX && count == _stepsCount) {
    // A later row of a scale-only bilinear walk: the same columns and steps, only v moves.
    WithAxis(_tileY, v, dv, _bitmap.height(), [&](auto i_axisY) {
      ShadeBilinearAlongRows(pixels, i_axisY, _stepsFirstColumn, _stepsLastColumn, _columnSteps.data(), count,
                             _mixedRow, o_premultiplied);
    });
    if (_paintAlpha != 255) ScaleByAlpha(o_premultiplied, count, _paintAlpha);
    return;
  }
  // The bitmap columns a row touches, when few enough to mix the two rows column by column
  // first (-1 otherwise): a clamped row's span of columns, or all columns of a repeated one.
  const int width = _bitmap.width();
  int firstColumn = -1, lastColumn = -1;
  if (bilinear && std::isfinite(u) && std::isfinite(du)) {
    if (_tileX == kClamp_TileMode) {
      const double from = std::min(u, u + du * (count - 1)), to = std::max(u, u + du * (count - 1));
      firstColumn = static_cast<int>(std::clamp(std::floor(from), 0.0, width - 1.0));
      lastColumn = static_cast<int>(std::clamp(std::floor(to) + 1, 0.0, width - 1.0));
      if (lastColumn - firstColumn > 4 * count) firstColumn = -1;
    } else if (width <= 2 * count) {
      firstColumn = 0;
      lastColumn = width - 1;
    }
  }
  WithAxis(_tileX, u, du, _bitmap.width(), [&](auto i_axisX) {
    WithAxis(_tileY, v, dv, _bitmap.height(), [&](auto i_axisY) {
      if (bilinear && dv == 0 && m.getSkewX() == 0 && firstColumn >= 0) {
        _columnSteps.resize(size_t(count));
        auto axisX = i_axisX;
        for (ColumnStep& step : _columnSteps) {
          axisX.Pair(step.left, step.right);
          step.weight = axisX.Weight();
          step.weightLanes = step.weight * 0x0001000100010001ull;
          axisX.Advance();
        }
        _stepsX = x;
        _stepsCount = count;
        _stepsFirstColumn = firstColumn;
        _stepsLastColumn = lastColumn;
        ShadeBilinearAlongRows(pixels, i_axisY, firstColumn, lastColumn, _columnSteps.data(), count, _mixedRow,
                               o_premultiplied);
      } else if (bilinear) {
        ShadeBilinear(pixels, i_axisX, i_axisY, count, o_premultiplied);
      } else {
        ShadeNearest(pixels, i_axisX, i_axisY, count, o_premultiplied);
      }
    });
  });
  if (_paintAlpha != 255) ScaleByAlpha(o_premultiplied, count, _paintAlpha);
}

bool VYRRasterBitmapShader::preparePairSteps(int x, int y, int count) {
  const VYRRasterMatrix& m = _deviceToShader;
  // The same start as shadeRow's, so that both paths sample the same points.
  const double u = m.getScaleX() * (x + 0.5) + m.getSkewX() * (y + 0.5) + m.getTranslateX() - 0.5;
  const double du = m.getScaleX();
  if (!std::isfinite(u) || !std::isfinite(du) || count <= 0) return false;
  _pairColumns.assign(size_t(count) + 7, 0);
  _pairWeights.assign(8 * (size_t(count) + 7), 0);
  ClampAxis axis(u, du, _bitmap.width());
  int first = _bitmap.width(), last = 0;
  for (int i = 0; i < count; ++i, axis.Advance()) {
    int left, right;
    axis.Pair(left, right);
    // A pixel clamped to one column takes it whole, whatever the pair next to it holds.
    const uint16_t weight = left == right ? 0 : static_cast<uint16_t>(axis.Weight());
    _pairColumns[size_t(i)] = left;
    uint16_t* weights = &_pairWeights[8 * WeightSlot(i)];
    for (int lane = 0; lane < 8; lane += 2) {
      weights[lane] = static_cast<uint16_t>(256 - weight);
      weights[lane + 1] = weight;
    }
    first = std::min(first, left);
    last = std::max(last, right);
  }
  // A strong reduction would mix far more columns per row than it draws pixels.
  if (last - first > 4 * count) return false;
  // Pairs are made up to eight columns at a time, from the mixed pixels and their neighbours.
  _pairMixed.resize(size_t(last) + 9 + 64 / sizeof(uint32_t));
  _pairRow.resize(8 * (size_t(last) + 8) + 64 / sizeof(uint16_t));
  _pairsX = x;
  _pairsCount = count;
  _pairsFirstColumn = first;
  _pairsLastColumn = last;
  return true;
}

bool VYRRasterBitmapShader::blendRowSrcOver(int x, int y, int count, uint32_t* io_dst, const uint8_t* i_coverage) {
#if defined(__SSE2__)
  const VYRRasterMatrix& m = _deviceToShader;
  if (_drawsNothing || _filter != kBilinear_Filter || _tileX != kClamp_TileMode || _tileY != kClamp_TileMode ||
      m.getSkewX() != 0 || m.getSkewY() != 0)
    return false;
  if ((x != _pairsX || count != _pairsCount) && !preparePairSteps(x, y, count)) return false;
  const double v = m.getSkewY() * (x + 0.5) + m.getScaleY() * (y + 0.5) + m.getTranslateY() - 0.5;
  const ClampAxis axisY(v, 0, _bitmap.height());
  int top, bottom;
  axisY.Pair(top, bottom);
  const Pixels pixels{static_cast<const uint8_t*>(_bitmap.getPixels()), size_t(_bitmap.rowBytes())};
  const unsigned wy = axisY.Weight(), alpha = _paintAlpha + (_paintAlpha >> 7);
  const int first = _pairsFirstColumn, last = _pairsLastColumn;
  uint32_t* mixed = AlignedFrom(_pairMixed, first);
  uint16_t* pairs = AlignedFrom(_pairRow, 8 * first);
#if defined(VYR_RASTER_AVX2)
  if (VYRRasterHasAvx2()) {
    MixPairsAvx2(pixels.Row(top), pixels.Row(bottom), wy, first, last, pairs);
    BlendColumnPairsAvx2(pairs, _pairColumns.data(), _pairWeights.data(), count, alpha, i_coverage, io_dst);
    return true;
  }
#endif
  MixRows(pixels.Row(top), pixels.Row(bottom), wy, first, last, mixed);
  PairColumns(mixed, first, last, pairs);
  BlendColumnPairs(pairs, _pairColumns.data(), _pairWeights.data(), count, alpha, i_coverage, io_dst);
  return true;
#else
  (void)x, (void)y, (void)count, (void)io_dst, (void)i_coverage;
  return false;
#endif
}
