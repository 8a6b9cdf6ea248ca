#include "VYRRasterRadialGradient.h"

#include <cmath>

VYR_IMPLEMENT_ABSTRACT_CLASS(VYRRasterRadialGradient, VYRRasterGradientShader, "Engine")

VYRRasterRadialGradient::VYRRasterRadialGradient(const VYRMathPoint2Df& i_focus, const VYRMathPoint2Df& i_centre,
                                                 float i_radius, const uint32_t* i_colors, const float* i_positions,
                                                 int i_count, TileMode i_mode)
    : VYRRasterGradientShader(i_colors, i_positions, i_count, i_mode),
      _focus(i_focus),
      _centre(i_centre),
      _radius(i_radius) {}

bool VYRRasterRadialGradient::isOpaque() const {
  const double cx = double(_centre.x) - _focus.x, cy = double(_centre.y) - _focus.y;
  const bool focusInside = cx * cx + cy * cy < double(_radius) * _radius;
  return (focusInside || !(_radius > 0)) && VYRRasterGradientShader::isOpaque();
}

void VYRRasterRadialGradient::shadeRow(int x, int y, int count, uint32_t* o_premultiplied) {
  if (!(_radius > 0)) {
    std::fill(o_premultiplied, o_premultiplied + count, _table[Index(kFixedOne)]);
    return;
  }
  // With p the pixel relative to the focus and c the centre relative to the focus, the circle
  // of parameter t has centre t c and radius t r: |p - t c| = t r gives
  //   a t^2 - 2 b t + q = 0,  a = |c|^2 - r^2,  b = p . c,  q = |p|^2.
  // p moves by a constant step along the row, so only b and q change per pixel.
  const VYRRasterMatrix& m = _deviceToShader;
  const VYRMathPoint2Df start = m.mapXY(x + 0.5f, y + 0.5f);
  const double stepX = m.getScaleX(), stepY = m.getSkewY();
  const double cx = double(_centre.x) - _focus.x, cy = double(_centre.y) - _focus.y;
  const double r = _radius;
  const double a = cx * cx + cy * cy - r * r;
  const double px0 = double(start.x) - _focus.x, py0 = double(start.y) - _focus.y;
  if (a < 0) {
    // Focus inside: the larger root is always there and never negative.
    const double invA = 1.0 / a;
    for (int i = 0; i < count; ++i) {
      const double px = px0 + i * stepX, py = py0 + i * stepY;
      const double b = px * cx + py * cy, q = px * px + py * py;
      const double t = (b - std::sqrt(b * b - a * q)) * invA;
      o_premultiplied[i] = _table[Index(ToFixed(t))];
    }
    return;
  }
  for (int i = 0; i < count; ++i) {
    const double px = px0 + i * stepX, py = py0 + i * stepY;
    const double b = px * cx + py * cy, q = px * px + py * py;
    double t = -1;
    if (a == 0) {
      if (b > 0) t = q / (2 * b);
    } else {
      const double discriminant = b * b - a * q;
      if (discriminant >= 0) t = (b + std::sqrt(discriminant)) / a;
    }
    o_premultiplied[i] = t >= 0 ? _table[Index(ToFixed(t))] : 0u;
  }
}
