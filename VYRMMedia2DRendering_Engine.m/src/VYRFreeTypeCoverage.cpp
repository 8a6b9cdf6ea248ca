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
};

void WriteSpans(int i_y, int i_count, const FT_Span* i_spans, void* i_user) {
  VYRRasterMask* mask = static_cast<SpanTarget*>(i_user)->mask;
  if (i_y < mask->bounds.top || i_y >= mask->bounds.bottom) return;
  uint8_t* row = mask->row(i_y);
  for (int i = 0; i < i_count; ++i) {
    const int from = std::max<int>(i_spans[i].x, mask->bounds.left);
    const int to = std::min<int>(i_spans[i].x + i_spans[i].len, mask->bounds.right);
    if (from < to) std::memset(row + (from - mask->bounds.left), i_spans[i].coverage, static_cast<size_t>(to - from));
  }
}

// Whether the path is one contour whose points, control points included, turn one way only
// and once round: such an outline never overlaps itself. FreeType adds up the coverage of
// overlapping parts at anti-aliased edges, where a union is wanted, so only these go to it.
bool IsConvexContour(const VYRRasterPath& i_path) {
  const std::vector<uint8_t>& verbs = i_path.verbs();
  const std::vector<VYRMathPoint2Df>& points = i_path.points();
  if (verbs.empty() || verbs[0] != VYRRasterPath::kMove_Verb) return false;
  for (size_t i = 1; i < verbs.size(); ++i)
    if (verbs[i] == VYRRasterPath::kMove_Verb) return false;
  std::vector<VYRMathPoint2Df> ring;
  for (const VYRMathPoint2Df& p : points)
    if (ring.empty() || p != ring.back()) ring.push_back(p);
  while (ring.size() > 1 && ring.front() == ring.back()) ring.pop_back();
  const size_t n = ring.size();
  if (n < 3) return false;
  int sign = 0;
  double turned = 0;
  for (size_t i = 0; i < n; ++i) {
    const VYRMathPoint2Df& a = ring[i];
    const VYRMathPoint2Df& b = ring[(i + 1) % n];
    const VYRMathPoint2Df& c = ring[(i + 2) % n];
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
  *o_mask = VYRRasterMask();
  if (i_devicePath.isEmpty() || !i_devicePath.isFinite()) return false;
  if (!i_antiAlias || !_library || !IsConvexContour(i_devicePath) || !BuildOutline(i_devicePath))
    return _cairo.FillPath(i_devicePath, i_antiAlias, i_clip, o_mask);
  VYRRasterIRect bounds = VYRRasterRoundOut(i_devicePath.getBounds());
  if (!bounds.intersect(i_clip)) return false;
  o_mask->allocate(bounds, 0);

  FT_Outline outline{};
  outline.n_points = static_cast<short>(_tags.size());
  outline.n_contours = static_cast<short>(_contourEnds.size());
  outline.points = reinterpret_cast<FT_Vector*>(_points.data());
  outline.tags = _tags.data();
  outline.contours = _contourEnds.data();
  const bool evenOdd = i_devicePath.getFillType() == VYRRasterPath::kEvenOdd_FillType ||
                       i_devicePath.getFillType() == VYRRasterPath::kInverseEvenOdd_FillType;
  outline.flags = evenOdd ? FT_OUTLINE_EVEN_ODD_FILL : FT_OUTLINE_NONE;

  SpanTarget target{o_mask};
  FT_Raster_Params params{};
  params.source = &outline;
  params.flags = FT_RASTER_FLAG_AA | FT_RASTER_FLAG_DIRECT | FT_RASTER_FLAG_CLIP;
  params.gray_spans = &WriteSpans;
  params.user = &target;
  params.clip_box = {bounds.left, bounds.top, bounds.right, bounds.bottom};
  if (FT_Outline_Render(static_cast<FT_Library>(_library), &outline, &params) != 0)
    return _cairo.FillPath(i_devicePath, i_antiAlias, i_clip, o_mask);
  return true;
}

bool VYRFreeTypeCoverage::StrokePath(const VYRRasterPath& i_localPath, const VYRRasterMatrix& i_matrix,
                                     const Stroke& i_stroke, bool i_antiAlias, const VYRRasterIRect& i_clip,
                                     VYRRasterMask* o_mask) {
  return _cairo.StrokePath(i_localPath, i_matrix, i_stroke, i_antiAlias, i_clip, o_mask);
}
