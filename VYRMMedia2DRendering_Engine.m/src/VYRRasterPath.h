#pragma once

#include <cstdint>
#include <vector>

#include "VYRExport.h"
#include "VYRMathPoint2Df.h"
#include "VYRRasterMatrix.h"
#include "VYRRasterRect.h"

// A path of contours (move, line, quadratic, cubic, close) with a fill rule.
// Points are stored untransformed; the canvas applies its matrix when drawing.
class VYR_EXPORT VYRRasterPath {
 public:
  enum FillType { kWinding_FillType, kEvenOdd_FillType, kInverseWinding_FillType, kInverseEvenOdd_FillType };
  enum Direction { kCW_Direction, kCCW_Direction };
  enum Verb : uint8_t { kMove_Verb, kLine_Verb, kQuad_Verb, kCubic_Verb, kClose_Verb, kDone_Verb };

  VYRRasterPath() = default;

  FillType getFillType() const { return _fillType; }
  void setFillType(FillType i_type) { _fillType = i_type; }
  bool isInverseFillType() const { return _fillType >= kInverseWinding_FillType; }
  // The builder's word that no two parts of the fill overlap but where nested contours cut
  // holes, as in glyph outlines: coverage may then be summed contour by contour. Adding
  // geometry withdraws it; transforms keep it.
  bool isNonOverlapping() const { return _nonOverlapping; }
  void setNonOverlapping(bool i_nonOverlapping) { _nonOverlapping = i_nonOverlapping; }

  // Empties the path and sets the fill type back to winding.
  void reset();
  bool isEmpty() const { return _verbs.empty(); }
  bool isFinite() const;
  int countPoints() const { return static_cast<int>(_points.size()); }
  int countVerbs() const { return static_cast<int>(_verbs.size()); }
  // The last point, or false (and (0, 0)) on an empty path.
  bool getLastPt(VYRMathPoint2Df* o_point) const;
  // Bounds of all points, control points included; empty for an empty path.
  VYRRasterRect getBounds() const;

  // A segment with no current contour starts one at the last move point (or (0, 0)).
  void moveTo(float x, float y);
  void lineTo(float x, float y);
  void quadTo(float x1, float y1, float x2, float y2);
  void cubicTo(float x1, float y1, float x2, float y2, float x3, float y3);
  void moveTo(const VYRMathPoint2Df& p) { moveTo(p.x, p.y); }
  void lineTo(const VYRMathPoint2Df& p) { lineTo(p.x, p.y); }
  // Closes the current contour; the next segment starts again at its first point.
  void close();

  // Closed contours starting at the top-left corner (clockwise with y down) or going the other way.
  void addRect(const VYRRasterRect& i_rect, Direction i_dir = kCW_Direction);
  void addRect(float l, float t, float r, float b, Direction i_dir = kCW_Direction);
  void addOval(const VYRRasterRect& i_oval, Direction i_dir = kCW_Direction);
  void addCircle(float cx, float cy, float radius, Direction i_dir = kCW_Direction);
  // Corner radii are clamped to half the sides; zero radii give a plain rectangle.
  void addRoundRect(const VYRRasterRect& i_rect, float rx, float ry, Direction i_dir = kCW_Direction);
  // Appends the arc of the oval from startAngle through sweepAngle (degrees). Unless forceMoveTo
  // or the path is empty, a line joins the current point to the arc's start; otherwise the arc
  // starts a new contour. A sweep of 360 degrees or more (either sign) appends the whole oval.
  void arcTo(const VYRRasterRect& i_oval, float startAngle, float sweepAngle, bool forceMoveTo);
  // The arc as a new contour (arcTo with forceMoveTo).
  void addArc(const VYRRasterRect& i_oval, float startAngle, float sweepAngle);

  // Appends every contour of i_src (transformed by i_matrix).
  void addPath(const VYRRasterPath& i_src);
  void addPath(const VYRRasterPath& i_src, const VYRRasterMatrix& i_matrix);
  void addPath(const VYRRasterPath& i_src, float dx, float dy);
  // Transforms every point, in place or into o_dst (which may be this).
  void transform(const VYRRasterMatrix& i_matrix);
  void transform(const VYRRasterMatrix& i_matrix, VYRRasterPath* o_dst) const;
  void offset(float dx, float dy);

  // Raw storage: one entry per verb, and the points the verbs consume in order
  // (move 1, line 1, quad 2, cubic 3, close 0).
  const std::vector<uint8_t>& verbs() const { return _verbs; }
  const std::vector<VYRMathPoint2Df>& points() const { return _points; }

  bool operator==(const VYRRasterPath& o) const;
  bool operator!=(const VYRRasterPath& o) const { return !(*this == o); }

  // Walks the segments. next() fills pts with the segment's points starting with its
  // start point: move pts[0]; line pts[0..1]; quad pts[0..2]; cubic pts[0..3];
  // close pts[0] = the contour's last point, pts[1] = its first point. kDone_Verb at the end.
  class VYR_EXPORT Iter {
   public:
    explicit Iter(const VYRRasterPath& i_path) : _path(i_path) {}
    Verb next(VYRMathPoint2Df o_pts[4]);

   private:
    const VYRRasterPath& _path;
    size_t _verbIndex = 0;
    size_t _pointIndex = 0;
    VYRMathPoint2Df _moveTo;
    VYRMathPoint2Df _last;
  };

 private:
  void injectMoveToIfNeeded();

  std::vector<uint8_t> _verbs;
  std::vector<VYRMathPoint2Df> _points;
  FillType _fillType = kWinding_FillType;
  int _lastMoveIndex = -1;      // point index of the current contour's move, -1 when none
  bool _contourOpen = false;    // false after close() or before the first moveTo
  bool _nonOverlapping = false;
};
