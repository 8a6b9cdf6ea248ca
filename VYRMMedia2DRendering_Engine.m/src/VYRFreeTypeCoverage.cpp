#include "VYRFreeTypeCoverage.h"

#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_OUTLINE_H

#include <algorithm>
#include <climits>
#include <cmath>
#include <cstring>

namespace {

// FreeType keeps outline coordinates in 26.6 fixed point and counts points in shorts.
constexpr float kCoordinateLimit = 1 << 20;
constexpr size_t kPointLimit = SHRT_MAX;

long ToFixed(float i_value) { return std::lround(i_value * 64.0f); }

struct SpanTarget {
  VYRRasterMask* mask;
  bool covered = false;
  bool accumulate = false;  // add to the coverage already there (outline drawn in parts)
};

void WriteSpans(int i_y, int i_count, const FT_Span* i_spans, void* i_user) {
  SpanTarget* target = static_cast<SpanTarget*>(i_user);
  VYRRasterMask* mask = target->mask;
  if (i_y < mask->bounds.top || i_y >= mask->bounds.bottom) return;
  uint8_t* row = mask->row(i_y);
  for (int i = 0; i < i_count; ++i) {
    const int from = std::max<int>(i_spans[i].x, mask->bounds.left);
    const int to = std::min<int>(i_spans[i].x + i_spans[i].len, mask->bounds.right);
    if (from < to && i_spans[i].coverage != 0) {
      uint8_t* pixel = row + (from - mask->bounds.left);
      if (target->accumulate) {
        for (int x = from; x < to; ++x, ++pixel)
          *pixel = static_cast<uint8_t>(std::min(*pixel + i_spans[i].coverage, 255));
      } else {
        std::memset(pixel, i_spans[i].coverage, static_cast<size_t>(to - from));
      }
      target->covered = true;
    }
  }
}

// The points of a path made of one contour, repeated points and the closing point dropped;
// empty for paths of several contours.
std::vector<VYRMathPoint2Df> SingleRing(const VYRRasterPath& i_path) {
  const std::vector<uint8_t>& verbs = i_path.verbs();
  std::vector<VYRMathPoint2Df> ring;
  if (verbs.empty() || verbs[0] != VYRRasterPath::kMove_Verb) return ring;
  for (size_t i = 1; i < verbs.size(); ++i)
    if (verbs[i] == VYRRasterPath::kMove_Verb) return ring;
  for (const VYRMathPoint2Df& p : i_path.points())
    if (ring.empty() || p != ring.back()) ring.push_back(p);
  while (ring.size() > 1 && ring.front() == ring.back()) ring.pop_back();
  return ring;
}

// Whether the ring's points, control points included, turn one way only and once round.
bool IsConvexRing(const std::vector<VYRMathPoint2Df>& i_ring) {
  const size_t n = i_ring.size();
  int sign = 0;
  double turned = 0;
  for (size_t i = 0; i < n; ++i) {
    const VYRMathPoint2Df& a = i_ring[i];
    const VYRMathPoint2Df& b = i_ring[(i + 1) % n];
    const VYRMathPoint2Df& c = i_ring[(i + 2) % n];
    const double ux = b.x - a.x, uy = b.y - a.y, vx = c.x - b.x, vy = c.y - b.y;
    const double cross = ux * vy - uy * vx;
    if (cross != 0) {
      const int s = cross > 0 ? 1 : -1;
      if (sign != 0 && s != sign) return false;
      sign = s;
    }
    turned += std::atan2(cross, ux * vx + uy * vy);
  }
  return std::fabs(std::fabs(turned) - 2 * M_PI) < 1e-3;
}

double Orientation(const VYRMathPoint2Df& a, const VYRMathPoint2Df& b, const VYRMathPoint2Df& c) {
  return (double(b.x) - a.x) * (double(c.y) - a.y) - (double(b.y) - a.y) * (double(c.x) - a.x);
}

// Whether segments ab and cd meet; touching and collinear overlaps count as meeting.
bool SegmentsMeet(const VYRMathPoint2Df& a, const VYRMathPoint2Df& b, const VYRMathPoint2Df& c,
                  const VYRMathPoint2Df& d) {
  const double o1 = Orientation(a, b, c), o2 = Orientation(a, b, d);
  const double o3 = Orientation(c, d, a), o4 = Orientation(c, d, b);
  if (((o1 > 0 && o2 < 0) || (o1 < 0 && o2 > 0)) && ((o3 > 0 && o4 < 0) || (o3 < 0 && o4 > 0))) return true;
  auto within = [](const VYRMathPoint2Df& p, const VYRMathPoint2Df& q, const VYRMathPoint2Df& r) {
    return std::min(p.x, q.x) <= r.x && r.x <= std::max(p.x, q.x) && std::min(p.y, q.y) <= r.y &&
           r.y <= std::max(p.y, q.y);
  };
  return (o1 == 0 && within(a, b, c)) || (o2 == 0 && within(a, b, d)) || (o3 == 0 && within(c, d, a)) ||
         (o4 == 0 && within(c, d, b));
}

// Whether a ring of straight edges never crosses or touches itself. Checked pair by pair,
// so only short rings are worth it.
bool IsSimplePolygon(const std::vector<VYRMathPoint2Df>& i_ring) {
  const size_t n = i_ring.size();
  if (n > 32) return false;
  for (size_t i = 0; i < n; ++i)
    for (size_t j = i + 2; j < n; ++j) {
      if (i == 0 && j == n - 1) continue;  // neighbours across the closing point
      if (SegmentsMeet(i_ring[i], i_ring[i + 1], i_ring[j], i_ring[(j + 1) % n])) return false;
    }
  return true;
}

bool HasCurves(const VYRRasterPath& i_path) {
  for (uint8_t verb : i_path.verbs())
    if (verb == VYRRasterPath::kQuad_Verb || verb == VYRRasterPath::kCubic_Verb) return true;
  return false;
}

// FreeType adds up the coverage of overlapping parts at anti-aliased edges, where a union is
// wanted, so only outlines that never overlap themselves go to it: one convex contour (curves
// allowed, judged by their control points) or one simple polygon; or a path whose builder
// vouches for it, such as glyph outlines, which font renderers sum the same way.
bool NeverOverlapsItself(const VYRRasterPath& i_path) {
  if (i_path.isNonOverlapping()) return true;
  const std::vector<VYRMathPoint2Df> ring = SingleRing(i_path);
  if (ring.size() < 3) return false;
  return IsConvexRing(ring) || (!HasCurves(i_path) && IsSimplePolygon(ring));
}

}  // namespace

VYRRasterCoverage* VYRRasterCoverage::Create() { return new VYRFreeTypeCoverage(); }

VYRFreeTypeCoverage::VYRFreeTypeCoverage() {
  FT_Library library = nullptr;
  if (FT_Init_FreeType(&library) == 0) _library = library;
}

VYRFreeTypeCoverage::~VYRFreeTypeCoverage() {
  if (_library) FT_Done_FreeType(static_cast<FT_Library>(_library));
}

bool VYRFreeTypeCoverage::BuildOutline(const VYRRasterPath& i_path) {
  _points.clear();
  _tags.clear();
  _contourEnds.clear();
  const VYRRasterRect bounds = i_path.getBounds();
  if (!(std::max({std::fabs(bounds.left), std::fabs(bounds.top), std::fabs(bounds.right),
                  std::fabs(bounds.bottom)}) < kCoordinateLimit))
    return false;
  const auto add = [&](const VYRMathPoint2Df& p, char tag) {
    _points.push_back(ToFixed(p.x));
    _points.push_back(ToFixed(p.y));
    _tags.push_back(tag);
  };
  const auto endContour = [&] {
    const short start = _contourEnds.empty() ? 0 : static_cast<short>(_contourEnds.back() + 1);
    const size_t count = _tags.size();
    if (count > static_cast<size_t>(start)) _contourEnds.push_back(static_cast<short>(count - 1));
  };
  VYRRasterPath::Iter iter(i_path);
  VYRMathPoint2Df p[4];
  for (VYRRasterPath::Verb verb; (verb = iter.next(p)) != VYRRasterPath::kDone_Verb;) {
    if (_tags.size() + 3 >= kPointLimit) return false;
    switch (verb) {
      case VYRRasterPath::kMove_Verb:
        endContour();
        add(p[0], FT_CURVE_TAG_ON);
        break;
      case VYRRasterPath::kLine_Verb:
        add(p[1], FT_CURVE_TAG_ON);
        break;
      case VYRRasterPath::kQuad_Verb:
        add(p[1], FT_CURVE_TAG_CONIC);
        add(p[2], FT_CURVE_TAG_ON);
        break;
      case VYRRasterPath::kCubic_Verb:
        add(p[1], FT_CURVE_TAG_CUBIC);
        add(p[2], FT_CURVE_TAG_CUBIC);
        add(p[3], FT_CURVE_TAG_ON);
        break;
      default:  // close: FreeType closes every contour of a fill itself
        break;
    }
  }
  endContour();
  return !_contourEnds.empty();
}

bool VYRFreeTypeCoverage::FillPath(const VYRRasterPath& i_devicePath, bool i_antiAlias, const VYRRasterIRect& i_clip,
                                   VYRRasterMask* o_mask) {
  o_mask->reset();
  if (i_devicePath.isEmpty() || !i_devicePath.isFinite()) return false;
  if (!i_antiAlias || !_library || !NeverOverlapsItself(i_devicePath) || !BuildOutline(i_devicePath))
    return _cairo.FillPath(i_devicePath, i_antiAlias, i_clip, o_mask);
  VYRRasterIRect bounds = VYRRasterRoundOut(i_devicePath.getBounds());
  if (!bounds.intersect(i_clip)) return false;
  o_mask->allocate(bounds, 0);

  const bool evenOdd = i_devicePath.getFillType() == VYRRasterPath::kEvenOdd_FillType ||
                       i_devicePath.getFillType() == VYRRasterPath::kInverseEvenOdd_FillType;
  SpanTarget target{o_mask};
  // The rasteriser keeps each row's cells in a list it walks for every new cell, so a long
  // run of glyphs costs far more at once than glyph by glyph. Contours of a vouched-for path
  // are therefore drawn in groups side by side, their coverage added up.
  target.accumulate = i_devicePath.isNonOverlapping() && _contourEnds.size() > 1;
  short first = 0;
  while (first < static_cast<short>(_contourEnds.size())) {
    const short last = target.accumulate ? LastContourOfGroup(first) : static_cast<short>(_contourEnds.size() - 1);
    if (!RenderContours(first, last, evenOdd, bounds, &target))
      return _cairo.FillPath(i_devicePath, i_antiAlias, i_clip, o_mask);
    first = static_cast<short>(last + 1);
  }
  if (!target.covered) o_mask->reset();
  return target.covered;
}

short VYRFreeTypeCoverage::LastContourOfGroup(short i_first) const {
  // Contours join the group while they reach back within its horizontal extent.
  const auto extent = [&](short i_contour, long* o_left, long* o_right) {
    const size_t from = i_contour == 0 ? 0 : static_cast<size_t>(_contourEnds[i_contour - 1] + 1);
    *o_left = LONG_MAX;
    *o_right = LONG_MIN;
    for (size_t i = from; i <= static_cast<size_t>(_contourEnds[i_contour]); ++i) {
      *o_left = std::min(*o_left, _points[2 * i]);
      *o_right = std::max(*o_right, _points[2 * i]);
    }
  };
  long groupLeft, groupRight;
  extent(i_first, &groupLeft, &groupRight);
  short last = i_first;
  while (last + 1 < static_cast<short>(_contourEnds.size())) {
    long left, right;
    extent(static_cast<short>(last + 1), &left, &right);
    if (right <= groupLeft || left >= groupRight) break;
    groupLeft = std::min(groupLeft, left);
    groupRight = std::max(groupRight, right);
    ++last;
  }
  return last;
}

bool VYRFreeTypeCoverage::RenderContours(short i_first, short i_last, bool i_evenOdd, const VYRRasterIRect& i_clip,
                                         void* io_target) {
  const short firstPoint = i_first == 0 ? 0 : static_cast<short>(_contourEnds[i_first - 1] + 1);
  _groupEnds.assign(_contourEnds.begin() + i_first, _contourEnds.begin() + i_last + 1);
  for (short& end : _groupEnds) end = static_cast<short>(end - firstPoint);
  FT_Outline outline{};
  outline.n_points = static_cast<short>(_contourEnds[i_last] + 1 - firstPoint);
  outline.n_contours = static_cast<short>(_groupEnds.size());
  outline.points = reinterpret_cast<FT_Vector*>(_points.data()) + firstPoint;
  outline.tags = _tags.data() + firstPoint;
  outline.contours = _groupEnds.data();
  outline.flags = i_evenOdd ? FT_OUTLINE_EVEN_ODD_FILL : FT_OUTLINE_NONE;

  FT_Raster_Params params{};
  params.source = &outline;
  params.flags = FT_RASTER_FLAG_AA | FT_RASTER_FLAG_DIRECT | FT_RASTER_FLAG_CLIP;
  params.gray_spans = &WriteSpans;
  params.user = io_target;
  params.clip_box = {i_clip.left, i_clip.top, i_clip.right, i_clip.bottom};
  return FT_Outline_Render(static_cast<FT_Library>(_library), &outline, &params) == 0;
}

bool VYRFreeTypeCoverage::StrokePath(const VYRRasterPath& i_localPath, const VYRRasterMatrix& i_matrix,
                                     const Stroke& i_stroke, bool i_antiAlias, const VYRRasterIRect& i_clip,
                                     VYRRasterMask* o_mask) {
  return _cairo.StrokePath(i_localPath, i_matrix, i_stroke, i_antiAlias, i_clip, o_mask);
}
