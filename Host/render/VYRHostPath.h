#pragma once

#include <vector>

#include "VYRMath3x3Matrix.h"
#include "VYRMathPoint2D.h"

class VYRPrtGraphicPrimitiveElt;
class VYRPrtPathElt;

// The outline of one model element as move, line, cubic and close commands
// in the element's own coordinates: circles, ellipses, rounded corners and
// arcs become cubic Beziers, so that the outline can be mapped by any affine
// transform exactly, and drawn or added to a clip the same way.
class VYRHostPath {
 public:
  enum Verb { eMove, eLine, eCubic, eClose };
  struct Command {
    Verb verb;
    VYRMathPoint2D points[3];  // the end point last: points[0] for move and line, points[2] for a cubic
  };

  // The outline of a rectangle, circle, ellipse, arc, line, polyline,
  // polygon or path element; false (and no command) for other elements.
  bool BuildFrom(VYRPrtGraphicPrimitiveElt* i_pElement);

  void MoveTo(const VYRMathPoint2D& i_point);
  void LineTo(const VYRMathPoint2D& i_point);
  void CubicTo(const VYRMathPoint2D& i_control1, const VYRMathPoint2D& i_control2, const VYRMathPoint2D& i_end);
  void QuadTo(const VYRMathPoint2D& i_control, const VYRMathPoint2D& i_end);
  // Angles in degrees; a line joins the current point to the arc's start when there is one.
  void ArcTo(const VYRMathPoint2D& i_centre, double i_rx, double i_ry, double i_rotation, double i_startAngle,
             double i_sweepAngle);
  void Close();

  void Transform(const VYRMath3x3Matrix& i_matrix);
  // The box of every point (control points included): false when there is none.
  bool GetBounds(double& o_xmin, double& o_xmax, double& o_ymin, double& o_ymax) const;

  const std::vector<Command>& GetCommands() const { return _commands; }
  bool IsEmpty() const { return _commands.empty(); }

 private:
  void AddRectangle(double i_x, double i_y, double i_width, double i_height, double i_rx, double i_ry);
  void AddEllipse(const VYRMathPoint2D& i_centre, double i_rx, double i_ry, double i_rotation);
  void AddPath(const VYRPrtPathElt& i_path);

  std::vector<Command> _commands;
  VYRMathPoint2D _current;
  VYRMathPoint2D _subpathStart;
  bool _hasCurrent = false;
};
