#pragma once

#include "VYRExport.h"
#include "VYRPrtModelForward.h"
#include "VYRPrtTransformAttributes.h"

struct VYRMathPoint2D;
class VYRPrtPointListElt;

// The axis-aligned extent, in model coordinates, of a model's images or of
// one element subtree: geometry only (no stroke width, markers drawn at
// vertices, filters, clip paths or masks; a text counts as a vertical segment
// of its height at its first character, a marker element measured itself as
// its width and height from its reference point; paths count nothing).
// Boxes come out as xmin, xmax, ymin, ymax; nothing measured gives the empty box (100000, -100000, 100000, -100000).
//
// Meant for one Compute and then discarded: the transform of an image of
// size 0 x 0 is dropped and not restored for that image's later siblings.
// Arc and ellipse angles and slopes, and a bitmap image's orientation, are in
// degrees, as the drawing engine's arcs take them; arcs run counterclockwise
// in model axes from their start angle, by their sweep (end minus start for
// the circular arc), clamped to one turn.
class VYR_EXPORT VYRPrintModelBoundingBoxComputer {
 public:
  VYRPrintModelBoundingBoxComputer();
  ~VYRPrintModelBoundingBoxComputer() = default;

  // The box of every image of the model: the result of the last image
  // measured (1), 0 for a null model or one without an image list (outputs
  // untouched), -1 when the list holds no image (outputs the empty box).
  int Compute(VYRPrtModel* ipModel, double& o_xmin, double& o_xmax, double& o_ymin, double& o_ymax);
  // The box of one element and its descendants: 1, or 0 for a null element (outputs untouched).
  int Compute(VYRPrtGraphicPrimitiveElt* ipElement, double& o_xmin, double& o_xmax, double& o_ymin,
              double& o_ymax);

 private:
  VYRPrintModelBoundingBoxComputer(const VYRPrintModelBoundingBoxComputer&);
  VYRPrintModelBoundingBoxComputer& operator=(const VYRPrintModelBoundingBoxComputer&);

  int Draw(VYRPrtGraphicPrimitiveElt* ipElement);
  int DrawLine(VYRPrtLineElt* ipLine);
  int DrawRectangle(VYRPrtRectangleElt* ipRectangle);
  int DrawCircle(VYRPrtCircleElt* ipCircle);
  int DrawEllipse(VYRPrtEllipseElt* ipEllipse);
  int DrawCircularArc(VYRPrtCircularArcElt* ipArc);
  int DrawEllipticalArc(VYRPrtEllipticalArcElt* ipArc);
  // Polygon, polyline and both poly-Beziers: every stored point.
  int DrawPolygon(VYRPrtPointListElt* ipPointList);
  int DrawPolyCubicBezier(VYRPrtPointListElt* ipBezier) { return DrawPolygon(ipBezier); }
  int DrawPolyQuadraticBezier(VYRPrtPointListElt* ipBezier) { return DrawPolygon(ipBezier); }
  int DrawDisjointPolyline(VYRPrtDisjointPolylineElt* ipPolyline);
  int DrawPolyPolygon(VYRPrtPolyPolygonElt* ipPolyPolygon);
  int DrawNURBS(VYRPrtNURBSElt* ipNURBS);
  int DrawTextW(VYRPrtTextElt* ipText);
  int DrawMarker(VYRPrtMarkerElt* ipMarker);
  int DrawImage(VYRPrtImageElt* iprImageElt);
  int DrawBitmapImage(VYRPrtBitmapImageElt* ipBitmap);
  int DrawSymbol(VYRPrtSymbolElt* ipSymbol);
  int DrawPattern(VYRPrtPatternElt* iprPattern);
  int DrawGroup(VYRPrtNodeTreeElt* iprGroupElt);
  int DrawClosedFigure(VYRPrtNodeTreeElt* ipFigure) { return DrawGroup(ipFigure); }
  int DrawClosedFigureRegion(VYRPrtNodeTreeElt* ipRegion) { return DrawGroup(ipRegion); }
  int DrawSwitch(VYRPrtNodeTreeElt* iprSwitchElt);

  // Draws every child, in order.
  void DrawChildren(const VYRPrtNodeTreeElt& i_node);
  // A symbol or pattern tile: its children when it has no size, else its rectangle, untransformed.
  void DrawPlacedTile(const VYRPrtNodeTreeElt& i_tile, const VYRMathPoint2D& i_origin, double i_width,
                      double i_height);
  // Adds points given in the current element's frame: in double precision
  // when there is no accumulated transform, else as floats through its matrix.
  void AddOutline(const VYRMathPoint2D* i_paPoints, int i_count);
  // Adds the box of a point under the accumulated transform, then grown by
  // (i_width, i_height) after the transform (markers and texts).
  void AddPlacedExtent(const VYRMathPoint2D& i_point, double i_width, double i_height);
  // Adds the outline sampled with the circle's chord rule along a sweep of an ellipse.
  void AddEllipticalSweep(const VYRMathPoint2D& i_center, double i_horzRadius, double i_vertRadius,
                          double i_slopeDegrees, double i_startDegrees, double i_sweepDegrees);
  void AddPoint(double i_x, double i_y);
  void ResetBox();
  void CopyBoxOut(double& o_xmin, double& o_xmax, double& o_ymin, double& o_ymax) const;

  // The matrix of a whole transform list, its first entry outermost: 1, or 0 and the identity for an empty list.
  int GetTransformationMatrix(const VYRPrtTransformAttributes& i_transform, VYRMath3x3Matrix& o_matrix);
  // Maps i_count (x, y) pairs in place: 1, or -1 for no points.
  int TransformPoints(unsigned int i_count, float* io_paXY, VYRMath3x3Matrix& i_matrix);
  // 1 when the matrix is the identity within 0.0001 per coefficient.
  unsigned char IsIdentityMatrix(VYRMath2x2Matrix& i_matrix);

  VYRPrtTransformAttributes _transformAttributes;
  double _xmin;
  double _xmax;
  double _ymin;
  double _ymax;
};
