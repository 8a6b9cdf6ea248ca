#include "VYRCairoCoverage.h"

#include <algorithm>
#include <cmath>
#include <cstring>

#include "VYRAssert.h"

namespace {
// Cairo keeps coordinates in 24.8 fixed point: points farther out would wrap around. Clamping
// them this far outside any device keeps axis-aligned edges exact and slanted ones close.
constexpr double kCoordinateLimit = 1 << 22;
double Safe(double v) { return std::clamp(v, -kCoordinateLimit, kCoordinateLimit); }

// Stroke reach beyond the path's points, in device pixels, for the bounds of a stroke mask.
double StrokeReach(const VYRRasterCoverage::Stroke& i_stroke, const VYRRasterMatrix& i_matrix) {
  const VYRMathPoint2Df u = i_matrix.mapVector(1, 0), v = i_matrix.mapVector(0, 1);
  const double scale = std::hypot(u.x, u.y) + std::hypot(v.x, v.y);
  double factor = 0.5;
  if (i_stroke.join == VYRRasterPaint::kMiter_Join) factor = std::max(factor, 0.5 * i_stroke.miterLimit);
  if (i_stroke.cap == VYRRasterPaint::kSquare_Cap) factor = std::max(factor, M_SQRT1_2);
  return i_stroke.width * factor * scale + 2.0;
}
}  // namespace



cairo_t* VYRCairoCoverage::beginMask(const VYRRasterIRect& i_bounds, bool i_antiAlias, VYRRasterMask* o_mask) {
  // Cairo draws straight into the mask: its rows are padded to Cairo's A8 stride.
  o_mask->allocate(i_bounds, 0);
  VYR_CHECK_CONDITION(cairo_format_stride_for_width(CAIRO_FORMAT_A8, i_bounds.width()) == o_mask->rowBytes());
  cairo_surface_t* surface = cairo_image_surface_create_for_data(o_mask->alpha.data(), CAIRO_FORMAT_A8,
                                                                 i_bounds.width(), i_bounds.height(), o_mask->rowBytes());
  cairo_t* cr = cairo_create(surface);
  cairo_surface_destroy(surface);  // the context holds its own reference
  cairo_set_antialias(cr, i_antiAlias ? CAIRO_ANTIALIAS_GRAY : CAIRO_ANTIALIAS_NONE);
  cairo_set_tolerance(cr, 0.1);
  cairo_translate(cr, -i_bounds.left, -i_bounds.top);
  return cr;
}

void VYRCairoCoverage::endMask(cairo_t* ipCairo, VYRRasterMask* o_mask) {
  cairo_surface_flush(cairo_get_target(ipCairo));
  const bool ok = cairo_status(ipCairo) == CAIRO_STATUS_SUCCESS;
  cairo_destroy(ipCairo);
  if (!ok) o_mask->reset();
}

void VYRCairoCoverage::appendPath(cairo_t* ipCairo, const VYRRasterPath& i_path) {
  VYRRasterPath::Iter iter(i_path);
  VYRMathPoint2Df p[4];
  for (;;) {
    switch (iter.next(p)) {
      case VYRRasterPath::kMove_Verb:
        cairo_move_to(ipCairo, Safe(p[0].x), Safe(p[0].y));
        break;
      case VYRRasterPath::kLine_Verb:
        cairo_line_to(ipCairo, Safe(p[1].x), Safe(p[1].y));
        break;
      case VYRRasterPath::kQuad_Verb: {
        // The quadratic as the cubic with the same curve.
        const double c1x = p[0].x + 2.0 / 3.0 * (p[1].x - p[0].x), c1y = p[0].y + 2.0 / 3.0 * (p[1].y - p[0].y);
        const double c2x = p[2].x + 2.0 / 3.0 * (p[1].x - p[2].x), c2y = p[2].y + 2.0 / 3.0 * (p[1].y - p[2].y);
        cairo_curve_to(ipCairo, Safe(c1x), Safe(c1y), Safe(c2x), Safe(c2y), Safe(p[2].x), Safe(p[2].y));
        break;
      }
      case VYRRasterPath::kCubic_Verb:
        cairo_curve_to(ipCairo, Safe(p[1].x), Safe(p[1].y), Safe(p[2].x), Safe(p[2].y), Safe(p[3].x), Safe(p[3].y));
        break;
      case VYRRasterPath::kClose_Verb:
        cairo_close_path(ipCairo);
        break;
      default:
        return;
    }
  }
}

bool VYRCairoCoverage::FillPath(const VYRRasterPath& i_devicePath, bool i_antiAlias, const VYRRasterIRect& i_clip,
                                VYRRasterMask* o_mask) {
  o_mask->reset();
  if (i_devicePath.isEmpty() || !i_devicePath.isFinite()) return false;
  VYRRasterIRect bounds = VYRRasterRoundOut(i_devicePath.getBounds());
  if (!bounds.intersect(i_clip)) return false;
  cairo_t* cr = beginMask(bounds, i_antiAlias, o_mask);
  appendPath(cr, i_devicePath);
  const bool evenOdd = i_devicePath.getFillType() == VYRRasterPath::kEvenOdd_FillType ||
                       i_devicePath.getFillType() == VYRRasterPath::kInverseEvenOdd_FillType;
  cairo_set_fill_rule(cr, evenOdd ? CAIRO_FILL_RULE_EVEN_ODD : CAIRO_FILL_RULE_WINDING);
  cairo_fill(cr);
  endMask(cr, o_mask);
  return !o_mask->isEmpty();
}

bool VYRCairoCoverage::StrokePath(const VYRRasterPath& i_localPath, const VYRRasterMatrix& i_matrix,
                                  const Stroke& i_stroke, bool i_antiAlias, const VYRRasterIRect& i_clip,
                                  VYRRasterMask* o_mask) {
  o_mask->reset();
  if (i_localPath.isEmpty() || !i_localPath.isFinite() || !i_matrix.isFinite()) return false;
  if (!(i_stroke.width > 0) || !std::isfinite(i_stroke.width)) return false;
  VYRRasterMatrix inverse;
  if (!i_matrix.invert(&inverse)) return false;  // a collapsed stroke covers nothing
  VYRRasterRect deviceRect;
  i_matrix.mapRect(&deviceRect, i_localPath.getBounds());
  const float reach = static_cast<float>(StrokeReach(i_stroke, i_matrix));
  deviceRect = VYRRasterRect{deviceRect.left - reach, deviceRect.top - reach, deviceRect.right + reach,
                             deviceRect.bottom + reach};
  VYRRasterIRect bounds = VYRRasterRoundOut(deviceRect);
  if (!bounds.intersect(i_clip)) return false;

  cairo_t* cr = beginMask(bounds, i_antiAlias, o_mask);
  // The pen follows the matrix: stroke in path units under it.
  cairo_matrix_t m;
  cairo_matrix_init(&m, i_matrix.getScaleX(), i_matrix.getSkewY(), i_matrix.getSkewX(), i_matrix.getScaleY(),
                    i_matrix.getTranslateX(), i_matrix.getTranslateY());
  cairo_transform(cr, &m);
  appendPath(cr, i_localPath);
  cairo_set_line_width(cr, i_stroke.width);
  static const cairo_line_cap_t caps[] = {CAIRO_LINE_CAP_BUTT, CAIRO_LINE_CAP_ROUND, CAIRO_LINE_CAP_SQUARE};
  static const cairo_line_join_t joins[] = {CAIRO_LINE_JOIN_MITER, CAIRO_LINE_JOIN_ROUND, CAIRO_LINE_JOIN_BEVEL};
  cairo_set_line_cap(cr, caps[std::clamp(int(i_stroke.cap), 0, 2)]);
  cairo_set_line_join(cr, joins[std::clamp(int(i_stroke.join), 0, 2)]);
  cairo_set_miter_limit(cr, std::max(1.0f, i_stroke.miterLimit));
  cairo_stroke(cr);
  endMask(cr, o_mask);
  return !o_mask->isEmpty();
}
