#pragma once

#include "VYRRasterGradientShader.h"

// The two-point radial gradient between a circle of radius 0 at the focus (t = 0) and the
// circle of the given centre and radius (t = 1): a pixel takes the largest t whose
// interpolated circle passes through it. With the focus inside the end circle every pixel has
// one; with the focus on or outside it, pixels outside the cone the circles sweep stay
// transparent.
class VYR_EXPORT VYRRasterRadialGradient : public VYRRasterGradientShader {
  VYR_DECLARE_CLASS(VYRRasterRadialGradient)
 public:
  // A radius that is not positive makes a gradient whose t is 1 everywhere.
  VYRRasterRadialGradient(const VYRMathPoint2Df& i_focus, const VYRMathPoint2Df& i_centre, float i_radius,
                          const uint32_t* i_colors, const float* i_positions, int i_count, TileMode i_mode);

  bool isOpaque() const override;
  void shadeRow(int x, int y, int count, uint32_t* o_premultiplied) override;

 private:
  VYRMathPoint2Df _focus, _centre;
  float _radius;
};
