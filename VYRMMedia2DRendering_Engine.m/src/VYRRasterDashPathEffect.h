#pragma once

#include <vector>

#include "VYRRasterPathEffect.h"

// Dashes: on/off lengths repeated along every contour, starting phase units into the pattern.
// Each contour starts the pattern again; closed contours are dashed through their closing side.
class VYR_EXPORT VYRRasterDashPathEffect : public VYRRasterPathEffect {
  VYR_DECLARE_CLASS(VYRRasterDashPathEffect)
 public:
  VYRRasterDashPathEffect() = default;
  // Needs an even count >= 2 of non-negative finite lengths with a positive sum; otherwise
  // reports and the effect leaves paths unchanged.
  VYRRasterDashPathEffect(const float* i_intervals, int i_count, float i_phase);
  static VYRRasterDashPathEffect* Create(const float* i_intervals, int i_count, float i_phase) {
    return new VYRRasterDashPathEffect(i_intervals, i_count, i_phase);
  }

  Kind getKind() const override { return kDash_Kind; }
  bool filterPath(VYRRasterPath* o_dst, const VYRRasterPath& i_src, float i_resScale = 1.0f) const override;

  bool isValid() const { return !_intervals.empty(); }
  const std::vector<float>& intervals() const { return _intervals; }
  float phase() const { return _phase; }

 private:
  std::vector<float> _intervals;
  float _phase = 0.0f;
  float _length = 0.0f;
};
