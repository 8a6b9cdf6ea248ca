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
        const unsigned coverage = i_spans[i].coverage;
        for (int x = from; x < to; ++x, ++pixel) {
          const unsigned sum = *pixel + coverage;
          *pixel = static_cast<uint8_t>(sum > 255 ? 255 : sum);
        }
      } else if (to - from == 1) {  // most spans are one edge pixel: no call for them
        *pixel = i_spans[i].coverage;
      } else {
        std::memset(pixel, i_spans[i].coverage, static_cast<size_t>(to - from));
      }
      target->covered = true;
    }
  }
}

// The points of a path made of one contour, repeated points and the closing point dropped
// (o_ring is left empty for paths of several contours).
void SingleRing(const VYRRasterPath& i_path, std::vector<VYRMathPoint2Df>* o_ring) {
  const std::vector<uint8_t>& verbs = i_path.verbs();
  std::vector<VYRMathPoint2Df>& ring = *o_ring;
  ring.clear();
  if (verbs.empty() || verbs[0] != VYRRasterPath::kMove_Verb) return;
  for (size_t i = 1; i < verbs.size(); ++i)
    if (verbs[i] == VYRRasterPath::kMove_Verb) return;
  for (const VYRMathPoint2Df& p : i_path.points())
    if (ring.empty() || p != ring.back()) ring.push_back(p);
  while (ring.size() > 1 && ring.front() == ring.back()) ring.pop_back();
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

enum class Meeting { kApart, kCross, kTouch };

// How segments ab and cd meet: crossing at one point inside both, or touching (an end on
// the other segment, collinear overlaps included).
Meeting SegmentsMeet(const VYRMathPoint2Df& a, const VYRMathPoint2Df& b, const VYRMathPoint2Df& c,
                     const VYRMathPoint2Df& d) {
  const double o1 = Orientation(a, b, c), o2 = Orientation(a, b, d);
  const double o3 = Orientation(c, d, a), o4 = Orientation(c, d, b);
  if (((o1 > 0 && o2 < 0) || (o1 < 0 && o2 > 0)) && ((o3 > 0 && o4 < 0) || (o3 < 0 && o4 > 0))) return Meeting::kCross;
  auto within = [](const VYRMathPoint2Df& p, const VYRMathPoint2Df& q, const VYRMathPoint2Df& r) {
    return std::min(p.x, q.x) <= r.x && r.x <= std::max(p.x, q.x) && std::min(p.y, q.y) <= r.y &&
           r.y <= std::max(p.y, q.y);
  };
  const bool touch = (o1 == 0 && within(a, b, c)) || (o2 == 0 && within(a, b, d)) || (o3 == 0 && within(c, d, a)) ||
                     (o4 == 0 && within(c, d, b));
  return touch ? Meeting::kTouch : Meeting::kApart;
}

// Rings are checked edge pair by edge pair, so only short ones are worth it.
constexpr size_t kCheckedRingLimit = 32;

// How a short ring of straight edges meets itself: never, at one point where edges
// o_first < o_second (edge k runs from point k to the next) cross, or some other way
// (several crossings, touches, too long to check).
enum class SelfMeeting { kNever, kOneCrossing, kOther };
SelfMeeting FindSelfMeeting(const std::vector<VYRMathPoint2Df>& i_ring, size_t* o_first, size_t* o_second) {
  const size_t n = i_ring.size();
  if (n > kCheckedRingLimit) return SelfMeeting::kOther;
  SelfMeeting found = SelfMeeting::kNever;
  for (size_t i = 0; i < n; ++i)
    for (size_t j = i + 2; j < n; ++j) {
      if (i == 0 && j == n - 1) continue;  // neighbours across the closing point
      const Meeting meeting = SegmentsMeet(i_ring[i], i_ring[i + 1], i_ring[j], i_ring[(j + 1) % n]);
      if (meeting == Meeting::kApart) continue;
      if (meeting == Meeting::kTouch || found != SelfMeeting::kNever) return SelfMeeting::kOther;
      found = SelfMeeting::kOneCrossing;
      *o_first = i;
      *o_second = j;
    }
  return found;
}

// Whether p lies inside the polygon (crossing count; p is known not to be on its edges).
bool Contains(const std::vector<VYRMathPoint2Df>& i_polygon, const VYRMathPoint2Df& p) {
  bool inside = false;
  for (size_t i = 0, j = i_polygon.size() - 1; i < i_polygon.size(); j = i++) {
    const VYRMathPoint2Df& a = i_polygon[i];
    const VYRMathPoint2Df& b = i_polygon[j];
    if ((a.y > p.y) != (b.y > p.y) &&
        p.x < (double(b.x) - a.x) * (double(p.y) - a.y) / (double(b.y) - a.y) + a.x)
      inside = !inside;
  }
  return inside;
}

// A ring crossing itself once is two loops meeting at the crossing point. When neither loop
// holds the other they cover what the ring covers, without overlapping: drawn one after the
// other, their coverages add up to the ring's. Returns false when the ring is not such a one.
bool SplitAtCrossing(const std::vector<VYRMathPoint2Df>& i_ring, VYRRasterPath* o_loops) {
  size_t first = 0, second = 0;
  if (FindSelfMeeting(i_ring, &first, &second) != SelfMeeting::kOneCrossing) return false;
  const size_t n = i_ring.size();
  const VYRMathPoint2Df& a = i_ring[first];
  const VYRMathPoint2Df& b = i_ring[first + 1];
  const VYRMathPoint2Df& c = i_ring[second];
  const VYRMathPoint2Df& d = i_ring[(second + 1) % n];
  const double ux = double(b.x) - a.x, uy = double(b.y) - a.y, vx = double(d.x) - c.x, vy = double(d.y) - c.y;
  const double t = ((double(c.x) - a.x) * vy - (double(c.y) - a.y) * vx) / (ux * vy - uy * vx);
  const VYRMathPoint2Df crossing(static_cast<float>(a.x + t * ux), static_cast<float>(a.y + t * uy));
  std::vector<VYRMathPoint2Df> inner{crossing}, outer{crossing};
  for (size_t k = first + 1; k <= second; ++k) inner.push_back(i_ring[k]);
  for (size_t k = second + 1; k < n + first + 1; ++k) outer.push_back(i_ring[k % n]);
  if (Contains(outer, inner[1]) || Contains(inner, outer[1])) return false;
  o_loops->reset();
  for (const std::vector<VYRMathPoint2Df>* pLoop : {&inner, &outer}) {
    o_loops->moveTo((*pLoop)[0]);
    for (size_t k = 1; k < pLoop->size(); ++k) o_loops->lineTo((*pLoop)[k]);
    o_loops->close();
  }
  return true;
}

bool HasCurves(const VYRRasterPath& i_path) {
  for (uint8_t verb : i_path.verbs())
    if (verb == VYRRasterPath::kQuad_Verb || verb == VYRRasterPath::kCubic_Verb) return true;
  return false;
}

// FreeType adds up the coverage of overlapping parts at anti-aliased edges, where a union is
// wanted, so only outlines that never overlap themselves go to it whole: one convex contour
// (curves allowed, judged by their control points) or one simple polygon; or a path whose
// builder vouches for it, such as glyph outlines, which font renderers sum the same way.
bool NeverOverlapsItself(const VYRRasterPath& i_path, const std::vector<VYRMathPoint2Df>& i_ring) {
  if (i_path.isNonOverlapping()) return true;
  if (i_ring.size() < 3) return false;
  size_t first, second;
  return IsConvexRing(i_ring) ||
         (!HasCurves(i_path) && FindSelfMeeting(i_ring, &first, &second) == SelfMeeting::kNever);
}

// An axis-aligned rectangle, the commonest fill, has its coverage worked out directly with the
// rasteriser's own arithmetic: on the 26.6 grid a pixel covered h x v 64ths takes
// h v / 16 (255 at most), rounded down when the outline runs clockwise on the device and one
// below the rounded-up value when it runs the other way, so the bytes are the rasteriser's.
// Returns false, touching nothing, for any other path.
bool FillAxisAlignedRectangle(const VYRRasterPath& i_path, const VYRRasterIRect& i_clip, VYRRasterMask* o_mask) {
  const std::vector<uint8_t>& verbs = i_path.verbs();
  const std::vector<VYRMathPoint2Df>& p = i_path.points();
  const bool fourSides = verbs.size() == 5 && verbs[0] == VYRRasterPath::kMove_Verb &&
                         verbs[1] == VYRRasterPath::kLine_Verb && verbs[2] == VYRRasterPath::kLine_Verb &&
                         verbs[3] == VYRRasterPath::kLine_Verb && verbs[4] == VYRRasterPath::kClose_Verb &&
                         p.size() == 4;
  if (!fourSides || i_path.getFillType() != VYRRasterPath::kWinding_FillType) return false;
  const bool alongX = p[0].y == p[1].y && p[1].x == p[2].x && p[2].y == p[3].y && p[3].x == p[0].x;
  const bool alongY = p[0].x == p[1].x && p[1].y == p[2].y && p[2].x == p[3].x && p[3].y == p[0].y;
  // Flat rectangles are no simple polygon: they go where FillPath sends those.
  if ((!alongX && !alongY) || p[0] == p[1] || p[1] == p[2]) return false;
  for (const VYRMathPoint2Df& point : p)
    if (!(std::fabs(point.x) < kCoordinateLimit && std::fabs(point.y) < kCoordinateLimit)) return false;
  const long x0 = ToFixed(std::min(p[0].x, p[2].x)), x1 = ToFixed(std::max(p[0].x, p[2].x));
  const long y0 = ToFixed(std::min(p[0].y, p[2].y)), y1 = ToFixed(std::max(p[0].y, p[2].y));
  // Twice the signed area of the ring as the rasteriser receives it.
  long long area = 0;
  for (size_t i = 0; i < 4; ++i) {
    const VYRMathPoint2Df& a = p[i];
    const VYRMathPoint2Df& b = p[(i + 1) % 4];
    area += static_cast<long long>(ToFixed(a.x)) * ToFixed(b.y) - static_cast<long long>(ToFixed(b.x)) * ToFixed(a.y);
  }
  const bool clockwise = area > 0;
  VYRRasterIRect bounds = VYRRasterRoundOut(i_path.getBounds());
  if (!bounds.intersect(i_clip)) return true;
  // 64ths of pixel i inside [i_from, i_to] along one axis.
  const auto overlap = [](long i_from, long i_to, int i_pixel) {
    return static_cast<int>(std::max(0L, std::min(i_to, 64L * i_pixel + 64) - std::max(i_from, 64L * i_pixel)));
  };
  const int bias = clockwise ? 15 : 0, offset = clockwise ? 1 : 0;
  std::vector<int> columns(static_cast<size_t>(bounds.width()));
  for (int x = bounds.left; x < bounds.right; ++x) columns[size_t(x - bounds.left)] = overlap(x0, x1, x);
  // Rows wholly inside the rectangle vertically all look alike.
  std::vector<uint8_t> inside(columns.size());
  o_mask->allocate(bounds, 0);
  unsigned covered = 0;
  const auto fillRow = [&](int i_rowCover, uint8_t* o_row) {
    unsigned any = 0;
    for (size_t i = 0; i < columns.size(); ++i) {
      o_row[i] = static_cast<uint8_t>(std::clamp((columns[i] * i_rowCover + bias) / 16 - offset, 0, 255));
      any |= o_row[i];
    }
    return any;
  };
  const unsigned insideCovered = fillRow(64, inside.data());
  for (int y = bounds.top; y < bounds.bottom; ++y) {
    const int v = overlap(y0, y1, y);
    uint8_t* row = o_mask->row(y);
    if (v == 64) {
      std::memcpy(row, inside.data(), inside.size());
      covered |= insideCovered;
    } else {
      covered |= fillRow(v, row);
    }
  }
  if (!covered) o_mask->reset();
  return true;
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
  if (i_antiAlias && _library && FillAxisAlignedRectangle(i_devicePath, i_clip, o_mask)) return !o_mask->isEmpty();
  if (!i_antiAlias || !_library) return _cairo.FillPath(i_devicePath, i_antiAlias, i_clip, o_mask);
  // What FreeType draws: the path, or the loops of a ring crossing itself once, each alone.
  const VYRRasterPath* pOutline = &i_devicePath;
  bool loopByLoop = false;
  if (!i_devicePath.isNonOverlapping()) SingleRing(i_devicePath, &_ring);
  if (!NeverOverlapsItself(i_devicePath, _ring)) {
    if (_ring.size() < 3 || HasCurves(i_devicePath) || !SplitAtCrossing(_ring, &_loops))
      return _cairo.FillPath(i_devicePath, i_antiAlias, i_clip, o_mask);
    pOutline = &_loops;
    loopByLoop = true;
  }
  if (!BuildOutline(*pOutline)) return _cairo.FillPath(i_devicePath, i_antiAlias, i_clip, o_mask);
  VYRRasterIRect bounds = VYRRasterRoundOut(i_devicePath.getBounds());
  if (!bounds.intersect(i_clip)) return false;
  o_mask->allocate(bounds, 0);

  const bool evenOdd = i_devicePath.getFillType() == VYRRasterPath::kEvenOdd_FillType ||
                       i_devicePath.getFillType() == VYRRasterPath::kInverseEvenOdd_FillType;
  SpanTarget target{o_mask};
  // The rasteriser keeps each row's cells in a list it walks for every new cell, so a long
  // run of glyphs costs far more at once than glyph by glyph. Contours of a vouched-for path
  // are therefore drawn in groups side by side, their coverage added up.
  target.accumulate = loopByLoop || (i_devicePath.isNonOverlapping() && _contourEnds.size() > 1);
  short first = 0;
  while (first < static_cast<short>(_contourEnds.size())) {
    const short last = loopByLoop         ? first
                       : target.accumulate ? LastContourOfGroup(first)
                                           : static_cast<short>(_contourEnds.size() - 1);
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
