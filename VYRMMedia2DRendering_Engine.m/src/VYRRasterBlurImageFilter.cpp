#include "VYRRasterBlurImageFilter.h"

#include <algorithm>
#include <cmath>
#include <cstring>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

VYR_IMPLEMENT_ABSTRACT_CLASS(VYRRasterBlurImageFilter, VYRRasterImageFilter, "Engine")

// Every pass runs down the columns of a plane: a row of running sums moves down the image,
// adding the row entering the box and removing the one leaving it, so the cost does not
// depend on the deviation and whole rows go through SIMD registers at once. Blurring along x
// transposes the plane first and back afterwards.

namespace {

constexpr float kBoxThreshold = 2.0f;
// Box sizes up to this keep their running sums in 16 bits with exact rounding of uniform areas.
constexpr int kMaxShortBox = 128;

struct Plane {
  int width = 0;
  int height = 0;
  std::vector<uint32_t> px;

  void allocate(int i_width, int i_height) {
    width = i_width;
    height = i_height;
    px.assign(static_cast<size_t>(width) * static_cast<size_t>(height), 0u);
  }
  uint32_t* row(int y) { return px.data() + static_cast<size_t>(y) * width; }
};

// Rows of a plane, with a row of zeros above and below it.
class RowSource {
 public:
  RowSource(const uint32_t* i_pixels, int i_width, int i_height)
      : _pixels(i_pixels), _width(i_width), _height(i_height), _zeros(static_cast<size_t>(i_width), 0u) {}
  const uint32_t* operator()(int y) const {
    return y >= 0 && y < _height ? _pixels + static_cast<size_t>(y) * _width : _zeros.data();
  }

 private:
  const uint32_t* _pixels;
  int _width, _height;
  std::vector<uint32_t> _zeros;
};

// One output row of a short box: sums += entering; out = round(sums / d); sums -= leaving.
// round(n / d) is taken as ((n + d / 2) * ceil(65536 / d)) >> 16, never below the exact value
// and exact on uniform areas, so opaque stays opaque and colour never exceeds alpha.
void ShortBoxRow(uint16_t* io_sums, const uint32_t* i_entering, const uint32_t* i_leaving, uint32_t* o_row,
                 int i_width, uint16_t i_inverse, uint16_t i_half) {
  int x = 0;
#if defined(__SSE2__)
  const __m128i zero = _mm_setzero_si128();
  const __m128i inverse = _mm_set1_epi16(static_cast<short>(i_inverse));
  const __m128i half = _mm_set1_epi16(static_cast<short>(i_half));
  for (; x + 4 <= i_width; x += 4) {
    const __m128i in = _mm_loadu_si128(reinterpret_cast<const __m128i*>(i_entering + x));
    const __m128i out = _mm_loadu_si128(reinterpret_cast<const __m128i*>(i_leaving + x));
    __m128i* sums = reinterpret_cast<__m128i*>(io_sums + 4 * x);
    const __m128i s0 = _mm_add_epi16(_mm_loadu_si128(sums), _mm_unpacklo_epi8(in, zero));
    const __m128i s1 = _mm_add_epi16(_mm_loadu_si128(sums + 1), _mm_unpackhi_epi8(in, zero));
    const __m128i r0 = _mm_mulhi_epu16(_mm_add_epi16(s0, half), inverse);
    const __m128i r1 = _mm_mulhi_epu16(_mm_add_epi16(s1, half), inverse);
    _mm_storeu_si128(reinterpret_cast<__m128i*>(o_row + x), _mm_packus_epi16(r0, r1));
    _mm_storeu_si128(sums, _mm_sub_epi16(s0, _mm_unpacklo_epi8(out, zero)));
    _mm_storeu_si128(sums + 1, _mm_sub_epi16(s1, _mm_unpackhi_epi8(out, zero)));
  }
#endif
  for (; x < i_width; ++x) {
    uint32_t result = 0;
    for (int c = 0; c < 4; ++c) {
      uint16_t& sum = io_sums[4 * x + c];
      sum = static_cast<uint16_t>(sum + ((i_entering[x] >> (8 * c)) & 0xFF));
      result |= (((uint32_t(sum) + i_half) * i_inverse) >> 16) << (8 * c);
      sum = static_cast<uint16_t>(sum - ((i_leaving[x] >> (8 * c)) & 0xFF));
    }
    o_row[x] = result;
  }
}

// The same for boxes too long for 16-bit sums.
void LongBoxRow(uint32_t* io_sums, const uint32_t* i_entering, const uint32_t* i_leaving, uint32_t* o_row,
                int i_width, uint32_t i_size) {
  for (int x = 0; x < i_width; ++x) {
    uint32_t result = 0;
    for (int c = 0; c < 4; ++c) {
      uint32_t& sum = io_sums[4 * x + c];
      sum += (i_entering[x] >> (8 * c)) & 0xFF;
      result |= ((sum + i_size / 2) / i_size) << (8 * c);
      sum -= (i_leaving[x] >> (8 * c)) & 0xFF;
    }
    o_row[x] = result;
  }
}

// dst = src averaged down its columns over the box.
void BoxColumns(const Plane& i_src, Plane& o_dst, VYRRasterBlurImageFilter::Box i_box) {
  const int width = i_src.width, height = i_src.height;
  const int size = i_box.left + i_box.right + 1;
  const RowSource rows(i_src.px.data(), width, height);
  o_dst.allocate(width, height);
  if (size <= kMaxShortBox) {
    std::vector<uint16_t> sums(static_cast<size_t>(width) * 4, 0);
    const auto inverse = static_cast<uint16_t>((65536 + size - 1) / size);
    const auto half = static_cast<uint16_t>(size / 2);
    std::vector<uint32_t> ignored(static_cast<size_t>(width));
    // Prime the sums with the rows above the first output's entering row.
    for (int y = -i_box.left; y < i_box.right; ++y)
      ShortBoxRow(sums.data(), rows(y), rows(-1), ignored.data(), width, inverse, half);
    for (int y = 0; y < height; ++y)
      ShortBoxRow(sums.data(), rows(y + i_box.right), rows(y - i_box.left), o_dst.row(y), width, inverse, half);
  } else {
    std::vector<uint32_t> sums(static_cast<size_t>(width) * 4, 0), ignored(static_cast<size_t>(width));
    for (int y = -i_box.left; y < i_box.right; ++y)
      LongBoxRow(sums.data(), rows(y), rows(-1), ignored.data(), width, static_cast<uint32_t>(size));
    for (int y = 0; y < height; ++y)
      LongBoxRow(sums.data(), rows(y + i_box.right), rows(y - i_box.left), o_dst.row(y), width,
                 static_cast<uint32_t>(size));
  }
}

// Weights of the exact Gaussian, taps -radius .. radius, summing to 65536.
std::vector<uint32_t> GaussianWeights(float i_sigma, int* o_radius) {
  const int radius = std::max(1, static_cast<int>(std::ceil(3.0f * i_sigma)));
  auto cdf = [&](double x) { return 0.5 * std::erfc(-x / (i_sigma * std::sqrt(2.0))); };
  std::vector<uint32_t> weights(static_cast<size_t>(2 * radius + 1));
  uint32_t total = 0;
  for (int k = -radius; k <= radius; ++k) {
    const double w = (cdf(k + 0.5) - cdf(k - 0.5)) * 65536.0;
    weights[static_cast<size_t>(k + radius)] = static_cast<uint32_t>(std::lround(w));
    total += weights[static_cast<size_t>(k + radius)];
  }
  weights[static_cast<size_t>(radius)] += 65536u - total;
  *o_radius = radius;
  return weights;
}

void KernelColumns(const Plane& i_src, Plane& o_dst, float i_sigma) {
  int radius = 0;
  const std::vector<uint32_t> weights = GaussianWeights(i_sigma, &radius);
  const int width = i_src.width, height = i_src.height;
  const RowSource rows(i_src.px.data(), width, height);
  o_dst.allocate(width, height);
  std::vector<uint32_t> acc(static_cast<size_t>(width) * 4);
  for (int y = 0; y < height; ++y) {
    std::fill(acc.begin(), acc.end(), 32768u);
    for (int k = -radius; k <= radius; ++k) {
      if (y + k < 0 || y + k >= height) continue;
      const uint32_t* in = rows(y + k);
      const uint32_t w = weights[static_cast<size_t>(k + radius)];
      for (int x = 0; x < width; ++x) {
        const uint32_t p = in[x];
        uint32_t* a = &acc[4 * static_cast<size_t>(x)];
        a[0] += w * (p & 0xFF);
        a[1] += w * ((p >> 8) & 0xFF);
        a[2] += w * ((p >> 16) & 0xFF);
        a[3] += w * (p >> 24);
      }
    }
    uint32_t* out = o_dst.row(y);
    for (int x = 0; x < width; ++x) {
      const uint32_t* a = &acc[4 * static_cast<size_t>(x)];
      out[x] = (a[0] >> 16) | ((a[1] >> 16) << 8) | ((a[2] >> 16) << 16) | ((a[3] >> 16) << 24);
    }
  }
}

// Blurs the plane down its columns.
void BlurColumns(Plane& io_plane, float i_sigma) {
  Plane scratch;
  if (i_sigma < kBoxThreshold) {
    KernelColumns(io_plane, scratch, i_sigma);
    std::swap(io_plane, scratch);
    return;
  }
  for (const VYRRasterBlurImageFilter::Box& box : VYRRasterBlurImageFilter::BoxesFor(i_sigma)) {
    BoxColumns(io_plane, scratch, box);
    std::swap(io_plane, scratch);
  }
}

// dst[x * dstStride + y] = src[y * srcStride + x] for a width x height block, in tiles that
// stay in the cache.
void Transpose(const uint32_t* i_src, int i_srcStride, int i_width, int i_height, uint32_t* o_dst, int i_dstStride) {
  constexpr int kTile = 16;
  for (int y0 = 0; y0 < i_height; y0 += kTile) {
    const int y1 = std::min(i_height, y0 + kTile);
    for (int x0 = 0; x0 < i_width; x0 += kTile) {
      const int x1 = std::min(i_width, x0 + kTile);
      for (int x = x0; x < x1; ++x) {
        uint32_t* out = o_dst + static_cast<size_t>(x) * i_dstStride;
        for (int y = y0; y < y1; ++y) out[y] = i_src[static_cast<size_t>(y) * i_srcStride + x];
      }
    }
  }
}

}  // namespace

VYRRasterBlurImageFilter::VYRRasterBlurImageFilter(float i_sigmaX, float i_sigmaY, VYRRasterImageFilter* ipInput)
    : VYRRasterImageFilter(std::vector<VYRRasterImageFilter*>{ipInput}),
      _sigmaX(std::isfinite(i_sigmaX) ? i_sigmaX : 0.0f),
      _sigmaY(std::isfinite(i_sigmaY) ? i_sigmaY : 0.0f) {}

std::vector<VYRRasterBlurImageFilter::Box> VYRRasterBlurImageFilter::BoxesFor(float i_sigma) {
  const double size = std::floor(i_sigma * 3.0 * std::sqrt(2.0 * M_PI) / 4.0 + 0.5);
  // Beyond any image the engine can hold; keeps the integers sane.
  const int d = static_cast<int>(std::clamp(size, 1.0, 1.0e6));
  if (d % 2 == 1) return {{d / 2, d / 2}, {d / 2, d / 2}, {d / 2, d / 2}};
  return {{d / 2, d / 2 - 1}, {d / 2 - 1, d / 2}, {d / 2, d / 2}};
}

int VYRRasterBlurImageFilter::ReachOf(float i_sigma) {
  if (!(i_sigma > 0.0f)) return 0;
  if (i_sigma < kBoxThreshold) return std::max(1, static_cast<int>(std::ceil(3.0f * i_sigma)));
  int reach = 0;
  for (const Box& box : BoxesFor(i_sigma)) reach += std::max(box.left, box.right);
  return reach;
}

VYRRasterImage VYRRasterBlurImageFilter::onFilterImage(Context& io_context) const {
  const Result pInput = input(0, io_context);
  const VYRRasterImage& src = *pInput;
  const int reachX = ReachOf(_sigmaX), reachY = ReachOf(_sigmaY);
  VYRRasterIRect outBounds{src.bounds.left - reachX, src.bounds.top - reachY, src.bounds.right + reachX,
                           src.bounds.bottom + reachY};
  if (src.isEmpty() || !outBounds.intersect(io_context.clip)) return VYRRasterImage{};
  const int srcWidth = src.bounds.width(), srcHeight = src.bounds.height();

  // Along x: the rows of the input, widened by the reach, then cut to the output's columns.
  Plane rows;
  rows.allocate(outBounds.width(), srcHeight);
  const int firstColumn = outBounds.left - (src.bounds.left - reachX);
  if (reachX > 0) {
    Plane columns;
    columns.allocate(srcHeight, srcWidth + 2 * reachX);
    Transpose(src.pixels.data(), srcWidth, srcWidth, srcHeight, columns.row(reachX), columns.width);
    BlurColumns(columns, _sigmaX);
    Transpose(columns.row(firstColumn), columns.width, srcHeight, outBounds.width(), rows.px.data(), rows.width);
  } else {
    for (int y = 0; y < srcHeight; ++y)
      std::memcpy(rows.row(y), src.pixels.data() + static_cast<size_t>(y) * srcWidth + firstColumn,
                  sizeof(uint32_t) * static_cast<size_t>(rows.width));
  }

  // Along y: the same, down the columns.
  VYRRasterImage out;
  out.allocate(outBounds);
  const int firstRow = outBounds.top - (src.bounds.top - reachY);
  if (reachY > 0) {
    Plane tall;
    tall.allocate(rows.width, srcHeight + 2 * reachY);
    std::memcpy(tall.row(reachY), rows.px.data(), sizeof(uint32_t) * rows.px.size());
    BlurColumns(tall, _sigmaY);
    std::memcpy(out.pixels.data(), tall.row(firstRow), sizeof(uint32_t) * out.pixels.size());
  } else {
    std::memcpy(out.pixels.data(), rows.row(firstRow), sizeof(uint32_t) * out.pixels.size());
  }
  return out;
}
