#include "VYRRasterContours.h"

#include <algorithm>
#include <cmath>

namespace {
// Number of line pieces keeping a curve with these control-polygon deviations within tolerance.
int PieceCount(float i_deviation, float i_tolerance) {
  if (!(i_deviation > i_tolerance)) return 1;
  const float n = std::sqrt(i_deviation / i_tolerance);
  return std::clamp(static_cast<int>(std::ceil(n)), 1, 1000);
}

void AppendQuad(const VYRMathPoint2Df p[3], float i_tolerance, std::vector<VYRMathPoint2Df>* o_points) {
  const float dx = p[0].x - 2 * p[1].x + p[2].x, dy = p[0].y - 2 * p[1].y + p[2].y;
  const int n = PieceCount(std::hypot(dx, dy) / 4, i_tolerance);
  for (int i = 1; i <= n; ++i) {
    const float t = float(i) / n, u = 1 - t;
    o_points->emplace_back(u * u * p[0].x + 2 * u * t * p[1].x + t * t * p[2].x,
                           u * u * p[0].y + 2 * u * t * p[1].y + t * t * p[2].y);
  }
}

void AppendCubic(const VYRMathPoint2Df p[4], float i_tolerance, std::vector<VYRMathPoint2Df>* o_points) {
  const float d1 = std::hypot(p[0].x - 2 * p[1].x + p[2].x, p[0].y - 2 * p[1].y + p[2].y);
  const float d2 = std::hypot(p[1].x - 2 * p[2].x + p[3].x, p[1].y - 2 * p[2].y + p[3].y);
  const int n = PieceCount(0.75f * std::max(d1, d2), i_tolerance);
  for (int i = 1; i <= n; ++i) {
    const float t = float(i) / n, u = 1 - t;
    const float a = u * u * u, b = 3 * u * u * t, c = 3 * u * t * t, d = t * t * t;
    o_points->emplace_back(a * p[0].x + b * p[1].x + c * p[2].x + d * p[3].x,
                           a * p[0].y + b * p[1].y + c * p[2].y + d * p[3].y);
  }
}
}  // namespace

std::vector<VYRRasterContour> VYRRasterContours::Flatten(const VYRRasterPath& i_path, float i_tolerance) {
  std::vector<VYRRasterContour> contours;
  if (!(i_tolerance > 0)) i_tolerance = 0.1f;
  VYRRasterPath::Iter iter(i_path);
  VYRMathPoint2Df pts[4];
  for (;;) {
    const VYRRasterPath::Verb verb = iter.next(pts);
    if (verb == VYRRasterPath::kDone_Verb) break;
    if (verb == VYRRasterPath::kMove_Verb) {
      contours.emplace_back();
      contours.back().points.push_back(pts[0]);
      continue;
    }
    if (contours.empty()) continue;
    VYRRasterContour& c = contours.back();
    switch (verb) {
      case VYRRasterPath::kLine_Verb:
        c.points.push_back(pts[1]);
        break;
      case VYRRasterPath::kQuad_Verb:
        AppendQuad(pts, i_tolerance, &c.points);
        break;
      case VYRRasterPath::kCubic_Verb:
        AppendCubic(pts, i_tolerance, &c.points);
        break;
      case VYRRasterPath::kClose_Verb:
        c.closed = true;
        // A segment after the close starts a new contour at the same point.
        contours.emplace_back();
        contours.back().points.push_back(pts[1]);
        break;
      default:
        break;
    }
  }
  // Drop the lone points left by a close or a trailing move.
  contours.erase(std::remove_if(contours.begin(), contours.end(),
                                [](const VYRRasterContour& c) { return c.points.size() < 2 && !c.closed; }),
                 contours.end());
  return contours;
}
