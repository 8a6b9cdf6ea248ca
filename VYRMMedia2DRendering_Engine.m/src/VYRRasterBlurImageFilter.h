#pragma once

#include <vector>

#include "VYRRasterImageFilter.h"

// Gaussian blur with its own deviation along x and along y (device pixels; 0 or less leaves
// that direction alone). Deviations of 2 or more run as three box blurs of size
// d = floor(s * 3 * sqrt(2 * pi) / 4 + 0.5); smaller ones convolve with the exact Gaussian,
// each tap weighted by the Gaussian's integral over its pixel. The output spreads beyond the
// input by the blur's reach, within the clip; content outside the input is transparent.
class VYR_EXPORT VYRRasterBlurImageFilter : public VYRRasterImageFilter {
  VYR_DECLARE_CLASS(VYRRasterBlurImageFilter)
 public:
  VYRRasterBlurImageFilter(float i_sigmaX, float i_sigmaY, VYRRasterImageFilter* ipInput = nullptr);

  float getSigmaX() const { return _sigmaX; }
  float getSigmaY() const { return _sigmaY; }

  // One box of a box blur: output pixel i averages input pixels i - left .. i + right.
  struct Box {
    int left, right;
  };
  // The three boxes of deviation i_sigma (>= 2). An even size d gives a box shifted half a
  // pixel left, one shifted half a pixel right and a centred one of size d + 1.
  static std::vector<Box> BoxesFor(float i_sigma);
  // How many pixels the blur of deviation i_sigma spreads content on each side (0 for none).
  static int ReachOf(float i_sigma);

 protected:
  VYRRasterImage onFilterImage(Context& io_context) const override;

 private:
  float _sigmaX;
  float _sigmaY;
};
