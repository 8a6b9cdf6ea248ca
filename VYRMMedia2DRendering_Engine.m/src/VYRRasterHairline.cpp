#include "VYRRasterHairline.h"

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

#include "VYRRasterContours.h"

namespace {

// Accumulates coverage as a union, as if each piece were composited in turn.
void AddCoverage(VYRRasterMask* io_mask, int i_x, int i_y, float i_amount) {
  if (i_x < io_mask->bounds.left || i_x >= io_mask->bounds.right || i_y < io_mask->bounds.top ||
      i_y >= io_mask->bounds.bottom || !(i_amount > 0))
    return;
  uint8_t& value = io_mask->row(i_y)[i_x - io_mask->bounds.left];
  const int add = static_cast<int>(std::min(i_amount, 1.0f) * 255.0f + 0.5f);
  value = static_cast<uint8_t>(value + add - (value * add + 127) / 255);
}

// One segment, walked along x (the caller swaps axes for steep segments through i_plot).
template <class Plot>
void WalkSegment(float x0, float y0, float x1, float y1, float i_limitLow, float i_limitHigh, Plot i_plot) {
  if (x0 > x1) {
    std::swap(x0, x1);
    std::swap(y0, y1);
  }
  const float slope = (y1 - y0) / (x1 - x0);
  // Only the part of the segment over the mask matters (also bounds the loop for huge lines).
  const float from = std::max(x0, i_limitLow), to = std::min(x1, i_limitHigh);
  for (int column = static_cast<int>(std::floor(from)); column < to; ++column) {
    const float left = std::max(from, static_cast<float>(column));
    const float right = std::min(to, static_cast<float>(column + 1));
    const float share = right - left;
    if (!(share > 0)) continue;
    const float across = y0 + slope * (0.5f * (left + right) - x0) - 0.5f;
    if (!(std::fabs(across) < 1e8f)) continue;  // far off the mask; also keeps the casts defined
    const float below = std::floor(across);
    const float fraction = across - below;
    i_plot(column, static_cast<int>(below), share * (1.0f - fraction));
    i_plot(column, static_cast<int>(below) + 1, share * fraction);
  }
}

}  // namespace

bool VYRRasterHairline::Rasterize(const VYRRasterPath& i_devicePath, const VYRRasterIRect& i_clip,
                                  VYRRasterMask* o_mask) {
  *o_mask = VYRRasterMask();
  if (i_devicePath.isEmpty() || !i_devicePath.isFinite()) return false;
  const VYRRasterRect pathBounds = i_devicePath.getBounds();
  VYRRasterIRect bounds = VYRRasterRoundOut(
      VYRRasterRect{pathBounds.left - 1, pathBounds.top - 1, pathBounds.right + 1, pathBounds.bottom + 1});
  if (!bounds.intersect(i_clip)) return false;
  o_mask->allocate(bounds, 0);

  const auto plotXMajor = [&](int x, int y, float amount) { AddCoverage(o_mask, x, y, amount); };
  const auto plotYMajor = [&](int y, int x, float amount) { AddCoverage(o_mask, x, y, amount); };
  for (const VYRRasterContour& contour : VYRRasterContours::Flatten(i_devicePath, 0.1f)) {
    std::vector<VYRMathPoint2Df> points = contour.points;
    if (contour.closed && points.size() > 1) points.push_back(points.front());
    for (size_t i = 1; i < points.size(); ++i) {
      const VYRMathPoint2Df a = points[i - 1], b = points[i];
      if (std::fabs(b.x - a.x) >= std::fabs(b.y - a.y)) {
        if (a.x != b.x) WalkSegment(a.x, a.y, b.x, b.y, bounds.left, bounds.right, plotXMajor);
      } else {
        WalkSegment(a.y, a.x, b.y, b.x, bounds.top, bounds.bottom, plotYMajor);
      }
    }
  }
  return true;
}
