#include "VYRRasterPath.h"

#include <algorithm>
#include <cmath>

namespace {
// Control-point distance of a cubic approximating a circular arc of the given angle.
double ArcHandle(double i_angle) { return 4.0 / 3.0 * std::tan(i_angle / 4.0); }

// The point of the oval at an angle in radians (measured on the unit circle, then scaled).
VYRMathPoint2Df OvalPoint(double cx, double cy, double rx, double ry, double angle) {
  double c = std::cos(angle), s = std::sin(angle);
  if (std::fabs(c) < 1e-12) c = 0.0;
  if (std::fabs(s) < 1e-12) s = 0.0;
  return VYRMathPoint2Df(float(cx + rx * c), float(cy + ry * s));
}
}  // namespace

void VYRRasterPath::reset() {
  _verbs.clear();
  _points.clear();
  _fillType = kWinding_FillType;
  _lastMoveIndex = -1;
  _contourOpen = false;
  _nonOverlapping = false;
}

bool VYRRasterPath::isFinite() const {
  for (const VYRMathPoint2Df& p : _points)
    if (!std::isfinite(p.x) || !std::isfinite(p.y)) return false;
  return true;
}

bool VYRRasterPath::getLastPt(VYRMathPoint2Df* o_point) const {
  if (_points.empty()) {
    if (o_point) *o_point = VYRMathPoint2Df();
    return false;
  }
  if (o_point) *o_point = _points.back();
  return true;
}

VYRRasterRect VYRRasterPath::getBounds() const {
  if (_points.empty()) return VYRRasterRect{};
  VYRRasterRect r{_points[0].x, _points[0].y, _points[0].x, _points[0].y};
  for (const VYRMathPoint2Df& p : _points) {
    r.left = std::min(r.left, p.x);
    r.top = std::min(r.top, p.y);
    r.right = std::max(r.right, p.x);
    r.bottom = std::max(r.bottom, p.y);
  }
  return r;
}

void VYRRasterPath::moveTo(float x, float y) {
  _nonOverlapping = false;
  // Consecutive moves: the last one wins, as a lone move draws nothing.
  if (!_verbs.empty() && _verbs.back() == kMove_Verb) {
    _points.back() = VYRMathPoint2Df(x, y);
  } else {
    _lastMoveIndex = static_cast<int>(_points.size());
    _verbs.push_back(kMove_Verb);
    _points.emplace_back(x, y);
  }
  _contourOpen = true;
}

void VYRRasterPath::injectMoveToIfNeeded() {
  _nonOverlapping = false;
  if (_contourOpen) return;
  VYRMathPoint2Df start;
  if (_lastMoveIndex >= 0) start = _points[_lastMoveIndex];
  moveTo(start.x, start.y);
}

void VYRRasterPath::lineTo(float x, float y) {
  injectMoveToIfNeeded();
  _verbs.push_back(kLine_Verb);
  _points.emplace_back(x, y);
}

void VYRRasterPath::quadTo(float x1, float y1, float x2, float y2) {
  injectMoveToIfNeeded();
  _verbs.push_back(kQuad_Verb);
  _points.emplace_back(x1, y1);
  _points.emplace_back(x2, y2);
}

void VYRRasterPath::cubicTo(float x1, float y1, float x2, float y2, float x3, float y3) {
  injectMoveToIfNeeded();
  _verbs.push_back(kCubic_Verb);
  _points.emplace_back(x1, y1);
  _points.emplace_back(x2, y2);
  _points.emplace_back(x3, y3);
}

void VYRRasterPath::close() {
  if (_contourOpen && !_verbs.empty() && _verbs.back() != kClose_Verb) _verbs.push_back(kClose_Verb);
  _contourOpen = false;
}

void VYRRasterPath::addRect(const VYRRasterRect& r, Direction i_dir) { addRect(r.left, r.top, r.right, r.bottom, i_dir); }

void VYRRasterPath::addRect(float l, float t, float r, float b, Direction i_dir) {
  moveTo(l, t);
  if (i_dir == kCW_Direction) {
    lineTo(r, t);
    lineTo(r, b);
    lineTo(l, b);
  } else {
    lineTo(l, b);
    lineTo(r, b);
    lineTo(r, t);
  }
  close();
}

void VYRRasterPath::addOval(const VYRRasterRect& i_oval, Direction i_dir) {
  VYRRasterRect oval = i_oval;
  oval.sort();
  if (!(oval.width() >= 0) || !(oval.height() >= 0)) return;
  // Starts at the right-most point; clockwise turns towards +y first.
  addArc(oval, 0.0f, i_dir == kCW_Direction ? 360.0f : -360.0f);
}

void VYRRasterPath::addCircle(float cx, float cy, float radius, Direction i_dir) {
  if (radius > 0) addOval(VYRRasterRect{cx - radius, cy - radius, cx + radius, cy + radius}, i_dir);
}

void VYRRasterPath::addRoundRect(const VYRRasterRect& i_rect, float rx, float ry, Direction i_dir) {
  VYRRasterRect r = i_rect;
  r.sort();
  if (!(rx > 0) || !(ry > 0)) {
    addRect(r, i_dir);
    return;
  }
  // Radii too large for the rectangle shrink together, keeping the corners' shape.
  const float scale = std::min({1.0f, r.width() / (2 * rx), r.height() / (2 * ry)});
  rx *= scale;
  ry *= scale;
  // Corner ovals in clockwise order from the top-right; each contributes a quarter arc.
  const VYRRasterRect corners[4] = {{r.right - 2 * rx, r.top, r.right, r.top + 2 * ry},
                                    {r.right - 2 * rx, r.bottom - 2 * ry, r.right, r.bottom},
                                    {r.left, r.bottom - 2 * ry, r.left + 2 * rx, r.bottom},
                                    {r.left, r.top, r.left + 2 * rx, r.top + 2 * ry}};
  moveTo(r.left + rx, r.top);
  if (i_dir == kCW_Direction) {
    for (int i = 0; i < 4; ++i) arcTo(corners[i], 270.0f + 90.0f * i, 90.0f, false);
  } else {
    for (int i = 3; i >= 0; --i) arcTo(corners[i], 90.0f * i, -90.0f, false);
  }
  close();
}

void VYRRasterPath::arcTo(const VYRRasterRect& i_oval, float startAngle, float sweepAngle, bool forceMoveTo) {
  VYRRasterRect oval = i_oval;
  if (!(oval.width() >= 0) || !(oval.height() >= 0) || !std::isfinite(startAngle) || !std::isfinite(sweepAngle))
    return;
  const double cx = oval.centerX(), cy = oval.centerY();
  const double rx = oval.width() / 2.0, ry = oval.height() / 2.0;
  const double sweep = std::clamp(double(sweepAngle), -360.0, 360.0) * M_PI / 180.0;
  const double start = std::fmod(double(startAngle), 360.0) * M_PI / 180.0;

  const VYRMathPoint2Df first = OvalPoint(cx, cy, rx, ry, start);
  if (forceMoveTo || _verbs.empty())
    moveTo(first);
  else
    lineTo(first);
  if (sweep == 0.0) return;

  // Cubic pieces of at most a quarter turn each.
  const int pieces = std::max(1, int(std::ceil(std::fabs(sweep) / (M_PI / 2) - 1e-9)));
  const double step = sweep / pieces;
  const double k = ArcHandle(step);
  double a0 = start;
  for (int i = 0; i < pieces; ++i) {
    const double a1 = a0 + step;
    const double c0 = std::cos(a0), s0 = std::sin(a0), c1 = std::cos(a1), s1 = std::sin(a1);
    const VYRMathPoint2Df end = OvalPoint(cx, cy, rx, ry, a1);
    cubicTo(float(cx + rx * (c0 - k * s0)), float(cy + ry * (s0 + k * c0)), float(cx + rx * (c1 + k * s1)),
            float(cy + ry * (s1 - k * c1)), end.x, end.y);
    a0 = a1;
  }
}

void VYRRasterPath::addArc(const VYRRasterRect& i_oval, float startAngle, float sweepAngle) {
  const bool full = std::fabs(sweepAngle) >= 360.0f;
  arcTo(i_oval, startAngle, sweepAngle, true);
  if (full) close();
}

void VYRRasterPath::addPath(const VYRRasterPath& i_src) { addPath(i_src, VYRRasterMatrix()); }

void VYRRasterPath::addPath(const VYRRasterPath& i_src, float dx, float dy) {
  addPath(i_src, VYRRasterMatrix::MakeTranslate(dx, dy));
}

void VYRRasterPath::addPath(const VYRRasterPath& i_src, const VYRRasterMatrix& i_matrix) {
  _nonOverlapping = false;
  // A copy first: i_src may be this path.
  const std::vector<uint8_t> verbs = i_src._verbs;
  std::vector<VYRMathPoint2Df> pts = i_src._points;
  i_matrix.mapPoints(pts.data(), static_cast<int>(pts.size()));
  size_t p = 0;
  for (uint8_t verb : verbs) {
    switch (verb) {
      case kMove_Verb:
        // A move right after another contour's move must not merge with it.
        _lastMoveIndex = static_cast<int>(_points.size());
        _verbs.push_back(kMove_Verb);
        _points.push_back(pts[p++]);
        _contourOpen = true;
        break;
      case kLine_Verb:
        lineTo(pts[p].x, pts[p].y);
        p += 1;
        break;
      case kQuad_Verb:
        quadTo(pts[p].x, pts[p].y, pts[p + 1].x, pts[p + 1].y);
        p += 2;
        break;
      case kCubic_Verb:
        cubicTo(pts[p].x, pts[p].y, pts[p + 1].x, pts[p + 1].y, pts[p + 2].x, pts[p + 2].y);
        p += 3;
        break;
      case kClose_Verb:
        close();
        break;
    }
  }
}

void VYRRasterPath::transform(const VYRRasterMatrix& i_matrix) { transform(i_matrix, this); }

void VYRRasterPath::transform(const VYRRasterMatrix& i_matrix, VYRRasterPath* o_dst) const {
  if (!o_dst) return;
  if (o_dst != this) *o_dst = *this;
  i_matrix.mapPoints(o_dst->_points.data(), static_cast<int>(o_dst->_points.size()));
}

void VYRRasterPath::offset(float dx, float dy) { transform(VYRRasterMatrix::MakeTranslate(dx, dy)); }

bool VYRRasterPath::operator==(const VYRRasterPath& o) const {
  return _fillType == o._fillType && _verbs == o._verbs && _points == o._points;
}

VYRRasterPath::Verb VYRRasterPath::Iter::next(VYRMathPoint2Df o_pts[4]) {
  if (_verbIndex >= _path._verbs.size()) return kDone_Verb;
  const Verb verb = static_cast<Verb>(_path._verbs[_verbIndex++]);
  const std::vector<VYRMathPoint2Df>& pts = _path._points;
  switch (verb) {
    case kMove_Verb:
      o_pts[0] = _moveTo = _last = pts[_pointIndex++];
      break;
    case kLine_Verb:
    case kQuad_Verb:
    case kCubic_Verb: {
      const int count = verb == kLine_Verb ? 1 : verb == kQuad_Verb ? 2 : 3;
      o_pts[0] = _last;
      for (int i = 0; i < count; ++i) o_pts[i + 1] = pts[_pointIndex++];
      _last = o_pts[count];
      break;
    }
    case kClose_Verb:
      o_pts[0] = _last;
      o_pts[1] = _moveTo;
      _last = _moveTo;
      break;
    default:
      break;
  }
  return verb;
}
