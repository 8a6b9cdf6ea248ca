#pragma once

#include "VYRRasterGradientShader.h"

// Colours along the line from one point to another: t is the projection of the pixel on that
// line, 0 at the start point and 1 at the end point, constant across it.
class VYR_EXPORT VYRRasterLinearGradient : public VYRRasterGradientShader {
  VYR_DECLARE_CLASS(VYRRasterLinearGradient)
 public:
  // Equal points make a gradient whose t is 1 everywhere (its last colour when padded).
  VYRRasterLinearGradient(const VYRMathPoint2Df& i_start, const VYRMathPoint2Df& i_end, const uint32_t* i_colors,
                          const float* i_positions, int i_count, TileMode i_mode);

  bool setContext(const VYRRasterMatrix& i_totalMatrix, uint8_t i_paintAlpha) override;
  void shadeRow(int x, int y, int count, uint32_t* o_premultiplied) override;

 private:
  VYRMathPoint2Df _start, _end;
  // t = _dtdx * x + _dtdy * y + _t0 in device pixels, set by setContext.
  double _dtdx = 0, _dtdy = 0, _t0 = 1;
};
