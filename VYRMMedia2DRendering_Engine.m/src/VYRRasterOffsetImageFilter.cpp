#include "VYRRasterOffsetImageFilter.h"

#include <algorithm>
#include <cmath>

VYR_IMPLEMENT_ABSTRACT_CLASS(VYRRasterOffsetImageFilter, VYRRasterImageFilter, "Engine")

namespace {
// Offsets beyond any image move everything out of sight; the clamp keeps the sums in range.
int WholePixels(float i_offset) {
  if (!std::isfinite(i_offset)) return 0;
  return static_cast<int>(std::lround(std::clamp(i_offset, -1.0e8f, 1.0e8f)));
}
}  // namespace

VYRRasterOffsetImageFilter::VYRRasterOffsetImageFilter(float i_dx, float i_dy, VYRRasterImageFilter* ipInput)
    : VYRRasterImageFilter(std::vector<VYRRasterImageFilter*>{ipInput}), _dx(WholePixels(i_dx)), _dy(WholePixels(i_dy)) {}

VYRRasterImage VYRRasterOffsetImageFilter::onFilterImage(Context& io_context) const {
  const Result pInput = input(0, io_context);
  const VYRRasterImage& src = *pInput;
  VYRRasterIRect moved{src.bounds.left + _dx, src.bounds.top + _dy, src.bounds.right + _dx, src.bounds.bottom + _dy};
  VYRRasterImage out;
  if (src.isEmpty() || !moved.intersect(io_context.clip)) return out;
  out.allocate(moved);
  for (int y = moved.top; y < moved.bottom; ++y) src.readRow(moved.left - _dx, y - _dy, moved.width(), out.row(y));
  return out;
}
