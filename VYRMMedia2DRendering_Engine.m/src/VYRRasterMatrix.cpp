#include "VYRRasterMatrix.h"

#include <algorithm>
#include <cmath>

#include "VYRAssert.h"

namespace {
// sin and cos of an angle in degrees, exact at multiples of 90 degrees so that quarter turns
// keep rectangles rectangles.
void SinCosDegrees(float i_degrees, float* o_sin, float* o_cos) {
  const double radians = static_cast<double>(i_degrees) * M_PI / 180.0;
  double s = std::sin(radians);
  double c = std::cos(radians);
  if (std::fabs(s) < 1e-7) s = 0.0;
  if (std::fabs(c) < 1e-7) c = 0.0;
  *o_sin = static_cast<float>(s);
  *o_cos = static_cast<float>(c);
}
}  // namespace

VYRRasterIRect VYRRasterRoundOut(const VYRRasterRect& i_rect) {
  if (!(i_rect.left <= i_rect.right) || !(i_rect.top <= i_rect.bottom)) return VYRRasterIRect{};
  // Beyond this range no device can be reached; clamping keeps the integer conversion defined.
  const double kLimit = 1 << 29;
  auto lo = [&](float v) { return static_cast<int>(std::clamp(std::floor(double(v)), -kLimit, kLimit)); };
  auto hi = [&](float v) { return static_cast<int>(std::clamp(std::ceil(double(v)), -kLimit, kLimit)); };
  return VYRRasterIRect{lo(i_rect.left), lo(i_rect.top), hi(i_rect.right), hi(i_rect.bottom)};
}

VYRRasterMatrix VYRRasterMatrix::MakeAll(float scaleX, float skewX, float transX, float skewY, float scaleY,
                                         float transY) {
  VYRRasterMatrix m;
  m.setAll(scaleX, skewX, transX, skewY, scaleY, transY);
  return m;
}

VYRRasterMatrix VYRRasterMatrix::MakeTranslate(float dx, float dy) {
  VYRRasterMatrix m;
  m.setTranslate(dx, dy);
  return m;
}

VYRRasterMatrix VYRRasterMatrix::MakeScale(float sx, float sy) {
  VYRRasterMatrix m;
  m.setScale(sx, sy);
  return m;
}

void VYRRasterMatrix::setIdentity() { setAll(1, 0, 0, 0, 1, 0); }

void VYRRasterMatrix::setAll(float scaleX, float skewX, float transX, float skewY, float scaleY, float transY) {
  _m[kMScaleX] = scaleX;
  _m[kMSkewX] = skewX;
  _m[kMTransX] = transX;
  _m[kMSkewY] = skewY;
  _m[kMScaleY] = scaleY;
  _m[kMTransY] = transY;
}

float VYRRasterMatrix::get(int i_index) const {
  if (!VYR_CHECK_CONDITION(i_index >= 0 && i_index < 6)) return 0.0f;
  return _m[i_index];
}

void VYRRasterMatrix::set(int i_index, float i_value) {
  if (!VYR_CHECK_CONDITION(i_index >= 0 && i_index < 6)) return;
  _m[i_index] = i_value;
}

void VYRRasterMatrix::setTranslate(float dx, float dy) { setAll(1, 0, dx, 0, 1, dy); }
void VYRRasterMatrix::setScale(float sx, float sy) { setAll(sx, 0, 0, 0, sy, 0); }
void VYRRasterMatrix::setScale(float sx, float sy, float px, float py) {
  setAll(sx, 0, px - sx * px, 0, sy, py - sy * py);
}

void VYRRasterMatrix::setRotate(float degrees) {
  float s, c;
  SinCosDegrees(degrees, &s, &c);
  setAll(c, -s, 0, s, c, 0);
}

void VYRRasterMatrix::setRotate(float degrees, float px, float py) {
  float s, c;
  SinCosDegrees(degrees, &s, &c);
  setAll(c, -s, px - c * px + s * py, s, c, py - s * px - c * py);
}

void VYRRasterMatrix::setSkew(float kx, float ky) { setAll(1, kx, 0, ky, 1, 0); }

void VYRRasterMatrix::setConcat(const VYRRasterMatrix& a, const VYRRasterMatrix& b) {
  // Products in double so that a chain of operations does not drift more than float storage must.
  const float* p = a._m;
  const float* q = b._m;
  auto mul = [](float x, float y, float z, float w) { return float(double(x) * y + double(z) * w); };
  float r[6];
  r[kMScaleX] = mul(p[kMScaleX], q[kMScaleX], p[kMSkewX], q[kMSkewY]);
  r[kMSkewX] = mul(p[kMScaleX], q[kMSkewX], p[kMSkewX], q[kMScaleY]);
  r[kMTransX] = float(double(p[kMScaleX]) * q[kMTransX] + double(p[kMSkewX]) * q[kMTransY] + p[kMTransX]);
  r[kMSkewY] = mul(p[kMSkewY], q[kMScaleX], p[kMScaleY], q[kMSkewY]);
  r[kMScaleY] = mul(p[kMSkewY], q[kMSkewX], p[kMScaleY], q[kMScaleY]);
  r[kMTransY] = float(double(p[kMSkewY]) * q[kMTransX] + double(p[kMScaleY]) * q[kMTransY] + p[kMTransY]);
  std::copy(r, r + 6, _m);
}

void VYRRasterMatrix::preConcat(const VYRRasterMatrix& m) { setConcat(*this, m); }
void VYRRasterMatrix::postConcat(const VYRRasterMatrix& m) { setConcat(m, *this); }
void VYRRasterMatrix::preTranslate(float dx, float dy) { preConcat(MakeTranslate(dx, dy)); }
void VYRRasterMatrix::preScale(float sx, float sy) { preConcat(MakeScale(sx, sy)); }
void VYRRasterMatrix::postTranslate(float dx, float dy) { postConcat(MakeTranslate(dx, dy)); }
void VYRRasterMatrix::postScale(float sx, float sy) { postConcat(MakeScale(sx, sy)); }

void VYRRasterMatrix::preRotate(float degrees) {
  VYRRasterMatrix r;
  r.setRotate(degrees);
  preConcat(r);
}

void VYRRasterMatrix::postRotate(float degrees) {
  VYRRasterMatrix r;
  r.setRotate(degrees);
  postConcat(r);
}

void VYRRasterMatrix::preSkew(float kx, float ky) {
  VYRRasterMatrix k;
  k.setSkew(kx, ky);
  preConcat(k);
}

bool VYRRasterMatrix::invert(VYRRasterMatrix* o_inverse) const {
  if (!VYR_CHECK_POINTER(o_inverse)) return false;
  const double a = _m[kMScaleX], b = _m[kMSkewX], c = _m[kMTransX];
  const double d = _m[kMSkewY], e = _m[kMScaleY], f = _m[kMTransY];
  const double det = a * e - b * d;
  if (!std::isfinite(det) || std::fabs(det) < 1e-30 || !isFinite()) return false;
  const double inv = 1.0 / det;
  VYRRasterMatrix r;
  r.setAll(float(e * inv), float(-b * inv), float((b * f - c * e) * inv), float(-d * inv), float(a * inv),
           float((c * d - a * f) * inv));
  if (!r.isFinite()) return false;
  *o_inverse = r;
  return true;
}

void VYRRasterMatrix::mapPoints(VYRMathPoint2Df* o_dst, const VYRMathPoint2Df* i_src, int i_count) const {
  for (int i = 0; i < i_count; ++i) o_dst[i] = mapXY(i_src[i].x, i_src[i].y);
}

VYRMathPoint2Df VYRRasterMatrix::mapXY(float x, float y) const {
  return VYRMathPoint2Df(_m[kMScaleX] * x + _m[kMSkewX] * y + _m[kMTransX],
                         _m[kMSkewY] * x + _m[kMScaleY] * y + _m[kMTransY]);
}

VYRMathPoint2Df VYRRasterMatrix::mapVector(float dx, float dy) const {
  return VYRMathPoint2Df(_m[kMScaleX] * dx + _m[kMSkewX] * dy, _m[kMSkewY] * dx + _m[kMScaleY] * dy);
}

bool VYRRasterMatrix::mapRect(VYRRasterRect* o_dst, const VYRRasterRect& i_src) const {
  if (!VYR_CHECK_POINTER(o_dst)) return false;
  VYRMathPoint2Df corners[4] = {{i_src.left, i_src.top},
                                {i_src.right, i_src.top},
                                {i_src.right, i_src.bottom},
                                {i_src.left, i_src.bottom}};
  mapPoints(corners, 4);
  VYRRasterRect r{corners[0].x, corners[0].y, corners[0].x, corners[0].y};
  for (const VYRMathPoint2Df& p : corners) {
    r.left = std::min(r.left, p.x);
    r.top = std::min(r.top, p.y);
    r.right = std::max(r.right, p.x);
    r.bottom = std::max(r.bottom, p.y);
  }
  *o_dst = r;
  return rectStaysRect();
}

bool VYRRasterMatrix::isIdentity() const {
  return _m[kMScaleX] == 1 && _m[kMSkewX] == 0 && _m[kMTransX] == 0 && _m[kMSkewY] == 0 && _m[kMScaleY] == 1 &&
         _m[kMTransY] == 0;
}

bool VYRRasterMatrix::isTranslate() const {
  return _m[kMScaleX] == 1 && _m[kMSkewX] == 0 && _m[kMSkewY] == 0 && _m[kMScaleY] == 1;
}

bool VYRRasterMatrix::rectStaysRect() const {
  return (_m[kMSkewX] == 0 && _m[kMSkewY] == 0) || (_m[kMScaleX] == 0 && _m[kMScaleY] == 0);
}

bool VYRRasterMatrix::isFinite() const {
  for (float v : _m)
    if (!std::isfinite(v)) return false;
  return true;
}

bool VYRRasterMatrix::operator==(const VYRRasterMatrix& o) const { return std::equal(_m, _m + 6, o._m); }
