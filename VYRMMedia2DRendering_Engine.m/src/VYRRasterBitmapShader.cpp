#include "VYRRasterBitmapShader.h"

#include <algorithm>
#include <cmath>

VYR_IMPLEMENT_ABSTRACT_CLASS(VYRRasterBitmapShader, VYRRasterShader, "Engine")

namespace {

// Shader-space coordinates are fixed point with 32 fractional bits: steps along a 1024-pixel
// row then stay far below a hundredth of a bitmap pixel off.
constexpr int kShift = 32;
constexpr double kOne = 4294967296.0;

int64_t ToFixed(double i_value) {
  // Beyond this every tile mode's answer repeats or clamps; the limit keeps sums in range.
  constexpr double kLimit = 1.0e8;
  if (!(i_value == i_value)) return 0;
  return static_cast<int64_t>(std::clamp(i_value, -kLimit, kLimit) * kOne);
}

// A pixel index outside 0..n-1 brought back by the tile mode.
int Tile(int64_t i_index, int n, VYRRasterShader::TileMode i_mode) {
  switch (i_mode) {
    case VYRRasterShader::kRepeat_TileMode: {
      const int64_t m = i_index % n;
      return static_cast<int>(m < 0 ? m + n : m);
    }
    case VYRRasterShader::kMirror_TileMode: {
      int64_t m = i_index % (2 * int64_t(n));
      if (m < 0) m += 2 * int64_t(n);
      return static_cast<int>(m < n ? m : 2 * int64_t(n) - 1 - m);
    }
    default: return static_cast<int>(std::clamp<int64_t>(i_index, 0, n - 1));
  }
}

inline int TileFast(int64_t i_index, int n, VYRRasterShader::TileMode i_mode) {
  return static_cast<uint64_t>(i_index) < static_cast<uint64_t>(n) ? static_cast<int>(i_index) : Tile(i_index, n, i_mode);
}

// A pixel spread over four 16-bit lanes (blue, red, green, alpha), so that one 64-bit multiply
// weighs all four channels at once.
constexpr uint64_t kLanes = 0x00FF00FF00FF00FFull;
inline uint64_t Expand(uint32_t i_pixel) { return (i_pixel | (uint64_t(i_pixel) << 24)) & kLanes; }
inline uint32_t Pack(uint64_t i_lanes) {
  i_lanes &= kLanes;
  return static_cast<uint32_t>(i_lanes | (i_lanes >> 24));
}
// Between a and b by w / 256 (w in 0..256).
inline uint64_t Lerp(uint64_t a, uint64_t b, unsigned w) { return ((a * (256 - w) + b * w) >> 8) & kLanes; }

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
  _drawsNothing = !invertible || _bitmap.drawsNothing() || _bitmap.config() != VYRRasterBitmap::kARGB_8888_Config;
  return invertible;
}

const uint32_t* VYRRasterBitmapShader::Row_(int i_y) const {
  return reinterpret_cast<const uint32_t*>(static_cast<const uint8_t*>(_bitmap.getPixels()) +
                                           size_t(i_y) * size_t(_bitmap.rowBytes()));
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
  if (_filter == kBilinear_Filter) {
    // Weights come from the distances to the four nearest pixel centres.
    ShadeBilinear_(ToFixed(u - 0.5), ToFixed(v - 0.5), ToFixed(m.getScaleX()), ToFixed(m.getSkewY()), count,
                   o_premultiplied);
  } else {
    ShadeNearest_(ToFixed(u), ToFixed(v), ToFixed(m.getScaleX()), ToFixed(m.getSkewY()), count, o_premultiplied);
  }
  if (_paintAlpha != 255) ScaleByAlpha(o_premultiplied, count, _paintAlpha);
}

void VYRRasterBitmapShader::ShadeNearest_(int64_t u, int64_t v, int64_t du, int64_t dv, int count,
                                          uint32_t* o_pixels) const {
  const int width = _bitmap.width(), height = _bitmap.height();
  if (dv == 0) {
    // No rotation or skew: one source row for the whole span.
    const uint32_t* row = Row_(TileFast(v >> kShift, height, _tileY));
    for (int i = 0; i < count; ++i, u += du) o_pixels[i] = row[TileFast(u >> kShift, width, _tileX)];
    return;
  }
  for (int i = 0; i < count; ++i, u += du, v += dv) {
    o_pixels[i] = Row_(TileFast(v >> kShift, height, _tileY))[TileFast(u >> kShift, width, _tileX)];
  }
}

void VYRRasterBitmapShader::ShadeBilinear_(int64_t u, int64_t v, int64_t du, int64_t dv, int count,
                                           uint32_t* o_pixels) const {
  const int width = _bitmap.width(), height = _bitmap.height();
  for (int i = 0; i < count; ++i, u += du, v += dv) {
    const int64_t x0 = u >> kShift, y0 = v >> kShift;
    const unsigned wx = static_cast<unsigned>((u >> (kShift - 8)) & 0xFF);
    const unsigned wy = static_cast<unsigned>((v >> (kShift - 8)) & 0xFF);
    const uint32_t* top;
    const uint32_t* bottom;
    int left, right;
    if (x0 >= 0 && y0 >= 0 && x0 + 1 < width && y0 + 1 < height) {
      top = Row_(static_cast<int>(y0));
      bottom = top + _bitmap.rowBytes() / 4;
      left = static_cast<int>(x0);
      right = left + 1;
    } else {
      top = Row_(Tile(y0, height, _tileY));
      bottom = Row_(Tile(y0 + 1, height, _tileY));
      left = Tile(x0, width, _tileX);
      right = Tile(x0 + 1, width, _tileX);
    }
    const uint64_t upper = Lerp(Expand(top[left]), Expand(top[right]), wx);
    const uint64_t lower = Lerp(Expand(bottom[left]), Expand(bottom[right]), wx);
    o_pixels[i] = Pack(Lerp(upper, lower, wy));
  }
}
