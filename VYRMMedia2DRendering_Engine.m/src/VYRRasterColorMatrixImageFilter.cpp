#include "VYRRasterColorMatrixImageFilter.h"

#include <algorithm>
#include <cmath>

VYR_IMPLEMENT_ABSTRACT_CLASS(VYRRasterColorMatrixImageFilter, VYRRasterImageFilter, "Engine")

namespace {
inline int ToByte(float i_value) {
  if (!(i_value > 0.0f)) return 0;  // NaN too
  return i_value >= 255.0f ? 255 : static_cast<int>(i_value + 0.5f);
}
}  // namespace

VYRRasterColorMatrixImageFilter::VYRRasterColorMatrixImageFilter(const float (&i_matrix)[kCount],
                                                                 VYRRasterImageFilter* ipInput)
    : VYRRasterImageFilter(std::vector<VYRRasterImageFilter*>{ipInput}) {
  std::copy(i_matrix, i_matrix + kCount, _matrix);
}

void VYRRasterColorMatrixImageFilter::SourceAlphaMatrix(float (&o_matrix)[kCount]) {
  std::fill(o_matrix, o_matrix + kCount, 0.0f);
  o_matrix[18] = 1.0f;
}

uint32_t VYRRasterColorMatrixImageFilter::filterPixel(uint32_t i_premultiplied) const {
  const int a = static_cast<int>(i_premultiplied >> 24);
  float in[4] = {0.0f, 0.0f, 0.0f, static_cast<float>(a)};  // R, G, B, A straight
  if (a != 0) {
    const float unscale = 255.0f / static_cast<float>(a);
    for (int c = 0; c < 3; ++c)
      in[c] = std::min(255.0f, static_cast<float>((i_premultiplied >> (16 - 8 * c)) & 0xFF) * unscale);
  }
  int out[4];
  for (int row = 0; row < 4; ++row) {
    const float* m = _matrix + 5 * row;
    out[row] = ToByte(m[0] * in[0] + m[1] * in[1] + m[2] * in[2] + m[3] * in[3] + m[4]);
  }
  const int outA = out[3];
  auto premultiply = [outA](int c) { return static_cast<uint32_t>((c * outA + 127) / 255); };
  return (static_cast<uint32_t>(outA) << 24) | (premultiply(out[0]) << 16) | (premultiply(out[1]) << 8) |
         premultiply(out[2]);
}

VYRRasterImage VYRRasterColorMatrixImageFilter::onFilterImage(Context& io_context) const {
  const Result pInput = input(0, io_context);
  const VYRRasterImage& src = *pInput;
  const uint32_t fromTransparent = filterPixel(0);
  VYRRasterIRect bounds = fromTransparent != 0 ? io_context.clip : src.bounds;
  VYRRasterImage out;
  if (!bounds.intersect(io_context.clip)) return out;
  out.allocate(bounds);
  std::vector<uint32_t> row(static_cast<size_t>(bounds.width()));
  // Flat areas repeat one colour: remember the last pixel's result.
  uint32_t lastIn = 0, lastOut = fromTransparent;
  for (int y = bounds.top; y < bounds.bottom; ++y) {
    src.readRow(bounds.left, y, bounds.width(), row.data());
    uint32_t* dst = out.row(y);
    for (int x = 0; x < bounds.width(); ++x) {
      if (row[x] != lastIn) {
        lastIn = row[x];
        lastOut = filterPixel(lastIn);
      }
      dst[x] = lastOut;
    }
  }
  return out;
}
