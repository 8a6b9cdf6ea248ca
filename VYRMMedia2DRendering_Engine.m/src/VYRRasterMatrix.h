#pragma once

#include "VYRExport.h"
#include "VYRMathPoint2Df.h"
#include "VYRRasterRect.h"

// A float affine transform:
//   x' = scaleX * x + skewX * y + transX
//   y' = skewY * x + scaleY * y + transY
// "pre" operations apply the new transform before this one (to the points first),
// "post" operations after it. Angles are in degrees; with y down, a positive
// angle turns +x towards +y.
class VYR_EXPORT VYRRasterMatrix {
 public:
  enum { kMScaleX = 0, kMSkewX, kMTransX, kMSkewY, kMScaleY, kMTransY };

  VYRRasterMatrix() { setIdentity(); }
  static VYRRasterMatrix MakeAll(float scaleX, float skewX, float transX, float skewY, float scaleY,
                                 float transY);
  static VYRRasterMatrix MakeTranslate(float dx, float dy);
  static VYRRasterMatrix MakeScale(float sx, float sy);

  void setIdentity();
  void reset() { setIdentity(); }
  void setAll(float scaleX, float skewX, float transX, float skewY, float scaleY, float transY);
  // Entry by index kMScaleX..kMTransY; any other index reports and gives 0.
  float get(int i_index) const;
  void set(int i_index, float i_value);
  float getScaleX() const { return _m[kMScaleX]; }
  float getSkewX() const { return _m[kMSkewX]; }
  float getTranslateX() const { return _m[kMTransX]; }
  float getSkewY() const { return _m[kMSkewY]; }
  float getScaleY() const { return _m[kMScaleY]; }
  float getTranslateY() const { return _m[kMTransY]; }

  void setTranslate(float dx, float dy);
  void setScale(float sx, float sy);
  void setScale(float sx, float sy, float px, float py);  // about the pivot (px, py)
  void setRotate(float degrees);
  void setRotate(float degrees, float px, float py);
  void setSkew(float kx, float ky);  // x' = x + kx * y, y' = ky * x + y
  // this = a * b (b applies first).
  void setConcat(const VYRRasterMatrix& a, const VYRRasterMatrix& b);

  void preConcat(const VYRRasterMatrix& m);   // this = this * m
  void postConcat(const VYRRasterMatrix& m);  // this = m * this
  void preTranslate(float dx, float dy);
  void preScale(float sx, float sy);
  void preRotate(float degrees);
  void preSkew(float kx, float ky);
  void postTranslate(float dx, float dy);
  void postScale(float sx, float sy);
  void postRotate(float degrees);

  // Writes the inverse into o_inverse (may be this) and returns true; false, leaving
  // o_inverse untouched, when the matrix is singular or not finite.
  bool invert(VYRRasterMatrix* o_inverse) const;

  void mapPoints(VYRMathPoint2Df* o_dst, const VYRMathPoint2Df* i_src, int i_count) const;
  void mapPoints(VYRMathPoint2Df* io_pts, int i_count) const { mapPoints(io_pts, io_pts, i_count); }
  VYRMathPoint2Df mapXY(float x, float y) const;
  // Maps a vector (no translation).
  VYRMathPoint2Df mapVector(float dx, float dy) const;
  // Bounds of the four mapped corners; returns whether the result is exactly the mapped rectangle.
  bool mapRect(VYRRasterRect* o_dst, const VYRRasterRect& i_src) const;

  bool isIdentity() const;
  bool isTranslate() const;     // scale 1, no skew
  bool rectStaysRect() const;   // axis-aligned rectangles map to axis-aligned rectangles
  bool isFinite() const;

  bool operator==(const VYRRasterMatrix& o) const;
  bool operator!=(const VYRRasterMatrix& o) const { return !(*this == o); }

 private:
  float _m[6];
};
