#pragma once

#include <algorithm>
#include <cstdint>

#include "VYRRasterShader.h"

// Common part of the gradients: colour stops turned into a 256-entry colour table along the
// gradient parameter t (0 at the start, 1 at the end), and the tile mode that folds any t into
// 0..1. Colours are interpolated straight (unpremultiplied), then premultiplied and scaled by
// the paint alpha when a draw starts. Subclasses compute t per pixel and look colours up with
// ShadeLinearSpan or Index().
class VYR_EXPORT VYRRasterGradientShader : public VYRRasterShader {
  VYR_DECLARE_CLASS(VYRRasterGradientShader)
 public:
  static constexpr int kTableSize = 256;

  bool setContext(const VYRRasterMatrix& i_totalMatrix, uint8_t i_paintAlpha) override;
  bool isOpaque() const override { return _opaque && _paintAlpha == 255; }
  TileMode getTileMode() const { return _tileMode; }

 protected:
  // i_colors: straight 0xAARRGGBB; i_positions: rising offsets in 0..1 (null spaces the
  // colours evenly). Positions are clamped into 0..1 and made non-decreasing; a first stop
  // after 0 or a last one before 1 is held out to the end. No colour at all gives transparent.
  VYRRasterGradientShader(const uint32_t* i_colors, const float* i_positions, int i_count, TileMode i_mode);

  // The t values are fixed point with 32 fractional bits (so that stepping along a long row
  // stays within a table entry); Index folds one by the tile mode into a table index.
  static constexpr int64_t kFixedOne = int64_t(1) << 32;
  static int64_t ToFixed(double i_t) {
    // Far beyond 0..1 every mode's answer is already decided by the low bits or the clamp;
    // the limit keeps sums of many steps inside 64 bits (NaN becomes 0).
    constexpr double kLimit = 1.0e6;
    const double t = i_t > -kLimit ? (i_t < kLimit ? i_t : kLimit) : (i_t < kLimit ? -kLimit : 0.0);
    return static_cast<int64_t>(t * 4294967296.0);
  }
  int Index(int64_t i_t) const {
    switch (_tileMode) {
      case kRepeat_TileMode: return static_cast<int>((i_t & (kFixedOne - 1)) >> 24);
      case kMirror_TileMode: return static_cast<int>((((i_t & kFixedOne) ? ~i_t : i_t) & (kFixedOne - 1)) >> 24);
      default: return static_cast<int>(std::clamp<int64_t>(i_t, 0, kFixedOne - 1) >> 24);
    }
  }
  // Colours for count fixed-point t values t0, t0 + dt, ...: one tile-mode switch per row.
  void ShadeLinearSpan(int64_t i_t0, int64_t i_dt, int i_count, uint32_t* o_premultiplied) const;

  uint32_t _table[kTableSize];  // premultiplied, scaled by the paint alpha (after setContext)

 private:
  uint32_t _straight[kTableSize];  // straight colours along t
  TileMode _tileMode;
  bool _opaque = true;
  int _tableAlpha = -1;  // the paint alpha _table was made for
};
