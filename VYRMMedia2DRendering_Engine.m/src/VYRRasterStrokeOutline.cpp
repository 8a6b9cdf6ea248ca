#include "VYRRasterStrokeOutline.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace {
using Pt = VYRMathPoint2Df;

Pt Add(Pt a, Pt b, float k) { return Pt(a.x + b.x * k, a.y + b.y * k); }

// Unit direction from a to b, false when they coincide.
bool Direction(Pt a, Pt b, Pt* o_dir) {
  const float len = std::hypot(b.x - a.x, b.y - a.y);
  if (!(len > 0)) return false;
  *o_dir = Pt((b.x - a.x) / len, (b.y - a.y) / len);
  return true;
}

void AppendDisc(Pt c, float r, float tolerance, VYRRasterPath* o_dst) {
  const int n = std::clamp(static_cast<int>(std::ceil(M_PI / std::acos(std::max(-1.0f, 1 - tolerance / r)))), 8, 256);
  std::vector<Pt> pts(n);
  for (int i = 0; i < n; ++i) {
    const double a = 2 * M_PI * i / n;
    // Vertices slightly outside the circle so that the polygon's sides straddle it.
    const float rr = r / static_cast<float>(std::cos(M_PI / n));
    pts[i] = Pt(c.x + rr * float(std::cos(a)), c.y + rr * float(std::sin(a)));
  }
  VYRRasterStrokeOutline::AppendPolygon(pts.data(), n, o_dst);
}
}  // namespace

void VYRRasterStrokeOutline::AppendPolygon(const VYRMathPoint2Df* i_points, int i_count, VYRRasterPath* o_dst) {
  if (i_count < 3) return;
  double area = 0;
  for (int i = 0; i < i_count; ++i) {
    const Pt& a = i_points[i];
    const Pt& b = i_points[(i + 1) % i_count];
    area += double(a.x) * b.y - double(b.x) * a.y;
  }
  if (area == 0) return;
  o_dst->moveTo(i_points[0]);
  if (area > 0) {
    for (int i = 1; i < i_count; ++i) o_dst->lineTo(i_points[i]);
  } else {
    for (int i = i_count - 1; i >= 1; --i) o_dst->lineTo(i_points[i]);
  }
  o_dst->close();
}

void VYRRasterStrokeOutline::Append(const VYRRasterPath& i_src, const Settings& s, VYRRasterPath* o_dst) {
  const float hw = s.width / 2;
  if (!(hw > 0)) return;
  const float tolerance = std::min(s.tolerance, hw / 4);
  for (const VYRRasterContour& contour : VYRRasterContours::Flatten(i_src, tolerance)) {
    // Points with the repeats removed; a closed contour does not repeat its start.
    std::vector<Pt> pts;
    for (const Pt& p : contour.points)
      if (pts.empty() || p != pts.back()) pts.push_back(p);
    if (contour.closed && pts.size() > 1 && pts.front() == pts.back()) pts.pop_back();
    if (pts.size() < 2) {
      // A dot: only round and square caps show it.
      const Pt c = pts[0];
      if (s.cap == VYRRasterPaint::kRound_Cap) AppendDisc(c, hw, tolerance, o_dst);
      if (s.cap == VYRRasterPaint::kSquare_Cap) {
        const Pt sq[4] = {{c.x - hw, c.y - hw}, {c.x + hw, c.y - hw}, {c.x + hw, c.y + hw}, {c.x - hw, c.y + hw}};
        AppendPolygon(sq, 4, o_dst);
      }
      continue;
    }
    const size_t n = pts.size();
    const size_t segments = contour.closed ? n : n - 1;
    std::vector<Pt> dirs(segments);
    for (size_t i = 0; i < segments; ++i) Direction(pts[i], pts[(i + 1) % n], &dirs[i]);
    for (size_t i = 0; i < segments; ++i) {
      const Pt a = pts[i], b = pts[(i + 1) % n], nrm(-dirs[i].y, dirs[i].x);
      const Pt quad[4] = {Add(a, nrm, hw), Add(b, nrm, hw), Add(b, nrm, -hw), Add(a, nrm, -hw)};
      AppendPolygon(quad, 4, o_dst);
    }
    // Joins between consecutive segments.
    const size_t firstJoin = contour.closed ? 0 : 1, endJoin = contour.closed ? n : n - 1;
    for (size_t j = firstJoin; j < endJoin; ++j) {
      const Pt v = pts[j];
      const Pt d0 = dirs[(j + segments - 1) % segments], d1 = dirs[j % segments];
      const float cross = d0.x * d1.y - d0.y * d1.x, dot = d0.x * d1.x + d0.y * d1.y;
      if (std::fabs(cross) < 1e-6f && dot > 0) continue;  // straight on
      if (s.join == VYRRasterPaint::kRound_Join) {
        AppendDisc(v, hw, tolerance, o_dst);
        continue;
      }
      // The outer side is the one the path turns away from.
      const float side = cross > 0 ? -1.0f : 1.0f;
      const Pt n0(-d0.y * side, d0.x * side), n1(-d1.y * side, d1.x * side);
      const Pt p0 = Add(v, n0, hw), p1 = Add(v, n1, hw);
      // Miter length over width is 1 / sin(half the angle between the segments).
      const float cosTheta = -dot;
      const float sinHalf = std::sqrt(std::max(0.0f, (1 - cosTheta) / 2));
      if (s.join == VYRRasterPaint::kMiter_Join && sinHalf > 0 && 1 / sinHalf <= s.miterLimit) {
        const Pt bisector(n0.x + n1.x, n0.y + n1.y);
        const float len = std::hypot(bisector.x, bisector.y);
        const Pt tip = Add(v, Pt(bisector.x / len, bisector.y / len), hw / sinHalf);
        const Pt miter[4] = {v, p0, tip, p1};
        AppendPolygon(miter, 4, o_dst);
      } else {
        const Pt bevel[3] = {v, p0, p1};
        AppendPolygon(bevel, 3, o_dst);
      }
    }
    if (contour.closed) continue;
    // Caps at both ends of an open contour.
    const Pt ends[2] = {pts[0], pts[n - 1]};
    const Pt outward[2] = {Pt(-dirs[0].x, -dirs[0].y), dirs[segments - 1]};
    for (int e = 0; e < 2; ++e) {
      if (s.cap == VYRRasterPaint::kRound_Cap) {
        AppendDisc(ends[e], hw, tolerance, o_dst);
      } else if (s.cap == VYRRasterPaint::kSquare_Cap) {
        const Pt o = outward[e], nrm(-o.y, o.x), c = ends[e];
        const Pt sq[4] = {Add(c, nrm, hw), Add(Add(c, nrm, hw), o, hw), Add(Add(c, nrm, -hw), o, hw),
                          Add(c, nrm, -hw)};
        AppendPolygon(sq, 4, o_dst);
      }
    }
  }
}
