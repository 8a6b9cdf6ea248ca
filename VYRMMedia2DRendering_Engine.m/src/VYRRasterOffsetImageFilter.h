#pragma once

#include "VYRRasterImageFilter.h"

// Its input moved by whole device pixels: the offsets are rounded to the nearest pixel, so
// the pixels move unchanged instead of being resampled.
class VYR_EXPORT VYRRasterOffsetImageFilter : public VYRRasterImageFilter {
  VYR_DECLARE_CLASS(VYRRasterOffsetImageFilter)
 public:
  VYRRasterOffsetImageFilter(float i_dx, float i_dy, VYRRasterImageFilter* ipInput = nullptr);

  int getDx() const { return _dx; }
  int getDy() const { return _dy; }

 protected:
  VYRRasterImage onFilterImage(Context& io_context) const override;

 private:
  int _dx;
  int _dy;
};
