#include "VYRRasterDashPathEffect.h"

#include <cmath>

#include "VYRAssert.h"
#include "VYRRasterContours.h"

VYR_IMPLEMENT_ABSTRACT_CLASS(VYRRasterPathEffect, VYRBaseUnknown, "Engine")
VYR_IMPLEMENT_CLASS(VYRRasterDashPathEffect, VYRRasterPathEffect, "Engine")

VYRRasterDashPathEffect::VYRRasterDashPathEffect(const float* i_intervals, int i_count, float i_phase) {
  if (!VYR_CHECK_POINTER(i_intervals)) return;
  if (!VYR_CHECK_CONDITION(i_count >= 2 && i_count % 2 == 0)) return;
  double length = 0;
  for (int i = 0; i < i_count; ++i) {
    if (!VYR_CHECK_CONDITION(std::isfinite(i_intervals[i]) && i_intervals[i] >= 0)) return;
    length += i_intervals[i];
  }
  if (!VYR_CHECK_CONDITION(length > 0 && std::isfinite(length))) return;
  _intervals.assign(i_intervals, i_intervals + i_count);
  _length = static_cast<float>(length);
  // A phase outside the pattern wraps (negative phases count back from the end).
  _phase = std::isfinite(i_phase) ? static_cast<float>(std::fmod(double(i_phase), length)) : 0.0f;
  if (_phase < 0) _phase += _length;
}

bool VYRRasterDashPathEffect::filterPath(VYRRasterPath* o_dst, const VYRRasterPath& i_src, float i_resScale) const {
  if (!VYR_CHECK_POINTER(o_dst) || !isValid()) return false;
  const float tolerance = 0.1f / (i_resScale > 0 && std::isfinite(i_resScale) ? i_resScale : 1.0f);
  const std::vector<VYRRasterContour> contours = VYRRasterContours::Flatten(i_src, tolerance);
  o_dst->reset();
  o_dst->setFillType(i_src.getFillType());
  // More dashes than this per contour cannot be told apart on any device; stop there.
  const long kMaxDashes = 1000000;
  for (const VYRRasterContour& contour : contours) {
    std::vector<VYRMathPoint2Df> pts = contour.points;
    if (contour.closed) pts.push_back(pts.front());
    // Where the pattern stands at the contour's start.
    size_t index = 0;
    double left = _phase;
    while (left >= _intervals[index]) {
      left -= _intervals[index];
      index = (index + 1) % _intervals.size();
    }
    double remaining = _intervals[index] - left;  // of the current interval
    bool on = index % 2 == 0;
    bool penDown = false;
    long dashes = 0;
    for (size_t i = 0; i + 1 < pts.size() && dashes < kMaxDashes; ++i) {
      const VYRMathPoint2Df a = pts[i], b = pts[i + 1];
      const double segment = std::hypot(double(b.x) - a.x, double(b.y) - a.y);
      double done = 0;
      while (dashes < kMaxDashes) {
        const double take = std::min(remaining, segment - done);
        const double t0 = segment > 0 ? done / segment : 0.0, t1 = segment > 0 ? (done + take) / segment : 0.0;
        if (on) {
          if (!penDown) {
            o_dst->moveTo(float(a.x + (b.x - a.x) * t0), float(a.y + (b.y - a.y) * t0));
            penDown = true;
          }
          o_dst->lineTo(float(a.x + (b.x - a.x) * t1), float(a.y + (b.y - a.y) * t1));
        }
        done += take;
        remaining -= take;
        if (remaining > 0) break;  // the segment ended inside the interval
        index = (index + 1) % _intervals.size();
        remaining = _intervals[index];
        on = !on;
        penDown = false;
        ++dashes;
        if (done >= segment && remaining > 0) break;
      }
    }
  }
  return true;
}
