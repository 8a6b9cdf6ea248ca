#include "VYRRasterLinearGradient.h"

VYR_IMPLEMENT_ABSTRACT_CLASS(VYRRasterLinearGradient, VYRRasterGradientShader, "Engine")

VYRRasterLinearGradient::VYRRasterLinearGradient(const VYRMathPoint2Df& i_start, const VYRMathPoint2Df& i_end,
                                                 const uint32_t* i_colors, const float* i_positions, int i_count,
                                                 TileMode i_mode)
    : VYRRasterGradientShader(i_colors, i_positions, i_count, i_mode), _start(i_start), _end(i_end) {}

bool VYRRasterLinearGradient::setContext(const VYRRasterMatrix& i_totalMatrix, uint8_t i_paintAlpha) {
  if (!VYRRasterGradientShader::setContext(i_totalMatrix, i_paintAlpha)) return false;
  const double dx = double(_end.x) - _start.x, dy = double(_end.y) - _start.y;
  const double lengthSquared = dx * dx + dy * dy;
  if (!(lengthSquared > 0)) {
    _dtdx = _dtdy = 0;
    _t0 = 1;
    return true;
  }
  // t(shader point s) = ((s - start) . d) / |d|^2, with s = deviceToShader(device point).
  const VYRRasterMatrix& m = _deviceToShader;
  const double kx = dx / lengthSquared, ky = dy / lengthSquared;
  _dtdx = kx * m.getScaleX() + ky * m.getSkewY();
  _dtdy = kx * m.getSkewX() + ky * m.getScaleY();
  _t0 = kx * (m.getTranslateX() - _start.x) + ky * (m.getTranslateY() - _start.y);
  return true;
}

void VYRRasterLinearGradient::shadeRow(int x, int y, int count, uint32_t* o_premultiplied) {
  // Sampled at pixel centres; t moves by the same step from one pixel to the next.
  const double t = _dtdx * (x + 0.5) + _dtdy * (y + 0.5) + _t0;
  ShadeLinearSpan(ToFixed(t), ToFixed(_dtdx), count, o_premultiplied);
}
