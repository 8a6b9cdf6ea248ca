#include "VYRHostPath.h"

#include <algorithm>
#include <cmath>

#include "VYRMathConstants.h"
#include "VYRPrtCircleElt.h"
#include "VYRPrtCircularArcElt.h"
#include "VYRPrtEllipseElt.h"
#include "VYRPrtEllipticalArcElt.h"
#include "VYRPrtLineElt.h"
#include "VYRPrtPathElt.h"
#include "VYRPrtPathSegArcTo.h"
#include "VYRPrtPathSegCurveToCubic.h"
#include "VYRPrtPathSegCurveToQuadratic.h"
#include "VYRPrtPathSegWithSinglePoint.h"
#include "VYRPrtPointListElt.h"
#include "VYRPrtRectangleElt.h"

namespace {

double Radians(double i_degrees) { return i_degrees * VYRMathPi / 180.0; }

// The point at an angle (radians) of an ellipse turned by a rotation (radians).
VYRMathPoint2D EllipsePoint(const VYRMathPoint2D& i_centre, double i_rx, double i_ry, double i_rotation,
                            double i_angle) {
  const double x = i_rx * std::cos(i_angle);
  const double y = i_ry * std::sin(i_angle);
  return VYRMathPoint2D(i_centre.x + x * std::cos(i_rotation) - y * std::sin(i_rotation),
                        i_centre.y + x * std::sin(i_rotation) + y * std::cos(i_rotation));
}

// The derivative of EllipsePoint along the angle.
VYRMathPoint2D EllipseTangent(double i_rx, double i_ry, double i_rotation, double i_angle) {
  const double x = -i_rx * std::sin(i_angle);
  const double y = i_ry * std::cos(i_angle);
  return VYRMathPoint2D(x * std::cos(i_rotation) - y * std::sin(i_rotation),
                        x * std::sin(i_rotation) + y * std::cos(i_rotation));
}

}  // namespace

void VYRHostPath::MoveTo(const VYRMathPoint2D& i_point) {
  _commands.push_back({eMove, {i_point, {}, {}}});
  _current = _subpathStart = i_point;
  _hasCurrent = true;
}

void VYRHostPath::LineTo(const VYRMathPoint2D& i_point) {
  if (!_hasCurrent) {
    MoveTo(i_point);
    return;
  }
  _commands.push_back({eLine, {i_point, {}, {}}});
  _current = i_point;
}

void VYRHostPath::CubicTo(const VYRMathPoint2D& i_control1, const VYRMathPoint2D& i_control2,
                          const VYRMathPoint2D& i_end) {
  if (!_hasCurrent) MoveTo(i_control1);
  _commands.push_back({eCubic, {i_control1, i_control2, i_end}});
  _current = i_end;
}

void VYRHostPath::QuadTo(const VYRMathPoint2D& i_control, const VYRMathPoint2D& i_end) {
  if (!_hasCurrent) MoveTo(i_control);
  const VYRMathPoint2D start = _current;
  CubicTo(VYRMathPoint2D(start.x + 2.0 / 3.0 * (i_control.x - start.x), start.y + 2.0 / 3.0 * (i_control.y - start.y)),
          VYRMathPoint2D(i_end.x + 2.0 / 3.0 * (i_control.x - i_end.x), i_end.y + 2.0 / 3.0 * (i_control.y - i_end.y)),
          i_end);
}

void VYRHostPath::ArcTo(const VYRMathPoint2D& i_centre, double i_rx, double i_ry, double i_rotation,
                        double i_startAngle, double i_sweepAngle) {
  if (!std::isfinite(i_sweepAngle) || !std::isfinite(i_startAngle)) return;
  const double rotation = Radians(i_rotation);
  double angle = Radians(i_startAngle);
  const double sweep = Radians(std::clamp(i_sweepAngle, -360.0, 360.0));
  const VYRMathPoint2D start = EllipsePoint(i_centre, i_rx, i_ry, rotation, angle);
  LineTo(start);
  // Pieces of at most a quarter turn keep each Bezier within a tiny fraction of a unit.
  const int pieces = std::max(1, static_cast<int>(std::ceil(std::fabs(sweep) / (VYRMathPi / 2.0) - 1e-9)));
  const double step = sweep / pieces;
  const double k = 4.0 / 3.0 * std::tan(step / 4.0);
  for (int i = 0; i < pieces; ++i) {
    const double next = angle + step;
    const VYRMathPoint2D p0 = EllipsePoint(i_centre, i_rx, i_ry, rotation, angle);
    const VYRMathPoint2D p3 = EllipsePoint(i_centre, i_rx, i_ry, rotation, next);
    const VYRMathPoint2D t0 = EllipseTangent(i_rx, i_ry, rotation, angle);
    const VYRMathPoint2D t3 = EllipseTangent(i_rx, i_ry, rotation, next);
    CubicTo(VYRMathPoint2D(p0.x + k * t0.x, p0.y + k * t0.y), VYRMathPoint2D(p3.x - k * t3.x, p3.y - k * t3.y), p3);
    angle = next;
  }
}

void VYRHostPath::Close() {
  if (!_hasCurrent) return;
  _commands.push_back({eClose, {}});
  _current = _subpathStart;
}

void VYRHostPath::Transform(const VYRMath3x3Matrix& i_matrix) {
  for (Command& command : _commands) {
    for (VYRMathPoint2D& point : command.points) point = i_matrix * point;
  }
  _current = i_matrix * _current;
  _subpathStart = i_matrix * _subpathStart;
}

bool VYRHostPath::GetBounds(double& o_xmin, double& o_xmax, double& o_ymin, double& o_ymax) const {
  bool any = false;
  for (const Command& command : _commands) {
    const int count = command.verb == eCubic ? 3 : (command.verb == eClose ? 0 : 1);
    for (int i = 0; i < count; ++i) {
      const VYRMathPoint2D& p = command.points[i];
      if (!any) {
        o_xmin = o_xmax = p.x;
        o_ymin = o_ymax = p.y;
        any = true;
      }
      o_xmin = std::min(o_xmin, p.x);
      o_xmax = std::max(o_xmax, p.x);
      o_ymin = std::min(o_ymin, p.y);
      o_ymax = std::max(o_ymax, p.y);
    }
  }
  return any;
}

void VYRHostPath::AddRectangle(double i_x, double i_y, double i_width, double i_height, double i_rx, double i_ry) {
  const double rx = std::min(std::fabs(i_rx), i_width / 2.0);
  const double ry = std::min(std::fabs(i_ry), i_height / 2.0);
  if (rx <= 0.0 || ry <= 0.0) {
    MoveTo(VYRMathPoint2D(i_x, i_y));
    LineTo(VYRMathPoint2D(i_x + i_width, i_y));
    LineTo(VYRMathPoint2D(i_x + i_width, i_y + i_height));
    LineTo(VYRMathPoint2D(i_x, i_y + i_height));
    Close();
    return;
  }
  const double right = i_x + i_width;
  const double bottom = i_y + i_height;
  MoveTo(VYRMathPoint2D(i_x + rx, i_y));
  ArcTo(VYRMathPoint2D(right - rx, i_y + ry), rx, ry, 0.0, -90.0, 90.0);
  ArcTo(VYRMathPoint2D(right - rx, bottom - ry), rx, ry, 0.0, 0.0, 90.0);
  ArcTo(VYRMathPoint2D(i_x + rx, bottom - ry), rx, ry, 0.0, 90.0, 90.0);
  ArcTo(VYRMathPoint2D(i_x + rx, i_y + ry), rx, ry, 0.0, 180.0, 90.0);
  Close();
}

void VYRHostPath::AddEllipse(const VYRMathPoint2D& i_centre, double i_rx, double i_ry, double i_rotation) {
  if (i_rx <= 0.0 || i_ry <= 0.0) return;
  _hasCurrent = false;
  ArcTo(i_centre, i_rx, i_ry, i_rotation, 0.0, 360.0);
  Close();
}

void VYRHostPath::AddPath(const VYRPrtPathElt& i_path) {
  const VYRSYPDynArray<VYRPrtPathSeg*>& segments = i_path.GetPathSegments();
  for (int i = 0; i < segments.GetLength(); ++i) {
    const VYRPrtPathSeg* pSeg = segments[i];
    if (pSeg == nullptr) continue;
    // Relative segments are taken from the current point, as SVG reads them.
    const bool relative = pSeg->GetPathCoordMode() == MM2D::PathCoordRelative;
    const VYRMathPoint2D origin = relative ? _current : VYRMathPoint2D();
    auto at = [&origin](const VYRMathPoint2D& i_p) { return VYRMathPoint2D(origin.x + i_p.x, origin.y + i_p.y); };
    switch (pSeg->GetStreamType()) {
      case kPathSegStreamTypeClosePath:
        Close();
        break;
      case kPathSegStreamTypeMoveTo:
        MoveTo(at(static_cast<const VYRPrtPathSegWithSinglePoint*>(pSeg)->GetTarget()));
        break;
      case kPathSegStreamTypeLineTo:
        LineTo(at(static_cast<const VYRPrtPathSegWithSinglePoint*>(pSeg)->GetTarget()));
        break;
      case kPathSegStreamTypeCurveToCubic: {
        const auto* pCubic = static_cast<const VYRPrtPathSegCurveToCubic*>(pSeg);
        CubicTo(at(pCubic->GetCP1()), at(pCubic->GetCP2()), at(pCubic->GetTarget()));
        break;
      }
      case kPathSegStreamTypeCurveToQuadratic: {
        const auto* pQuad = static_cast<const VYRPrtPathSegCurveToQuadratic*>(pSeg);
        QuadTo(at(pQuad->GetCP1()), at(pQuad->GetTarget()));
        break;
      }
      case kPathSegStreamTypeArcTo: {
        const auto* pArc = static_cast<const VYRPrtPathSegArcTo*>(pSeg);
        ArcTo(at(pArc->GetCenter()), pArc->GetRX(), pArc->GetRY(), pArc->GetRotation(), pArc->GetStartAngle(),
              pArc->GetSweepAngle());
        break;
      }
      default:
        break;
    }
  }
}

bool VYRHostPath::BuildFrom(VYRPrtGraphicPrimitiveElt* i_pElement) {
  _commands.clear();
  _hasCurrent = false;
  if (i_pElement == nullptr) return false;
  switch (i_pElement->GetStreamType()) {
    case kStreamTypeRectangleElt: {
      const auto* pRect = static_cast<const VYRPrtRectangleElt*>(i_pElement);
      VYRMathPoint2D p1, p2;
      double rx = 0.0, ry = 0.0;
      pRect->GetPoints(p1, p2);
      pRect->GetRadius(rx, ry);
      AddRectangle(std::min(p1.x, p2.x), std::min(p1.y, p2.y), std::fabs(p2.x - p1.x), std::fabs(p2.y - p1.y), rx,
                   ry);
      return true;
    }
    case kStreamTypeCircleElt: {
      const auto* pCircle = static_cast<const VYRPrtCircleElt*>(i_pElement);
      AddEllipse(pCircle->GetCenter(), pCircle->GetRadius(), pCircle->GetRadius(), 0.0);
      return true;
    }
    case kStreamTypeEllipseElt: {
      const auto* pEllipse = static_cast<const VYRPrtEllipseElt*>(i_pElement);
      AddEllipse(pEllipse->GetCenter(), pEllipse->GetHorzRadius(), pEllipse->GetVertRadius(), pEllipse->GetSlope());
      return true;
    }
    case kStreamTypeCircularArcElt: {
      const auto* pArc = static_cast<const VYRPrtCircularArcElt*>(i_pElement);
      ArcTo(pArc->GetCenter(), pArc->GetRadius(), pArc->GetRadius(), 0.0, pArc->GetStartAngle(),
            pArc->GetEndAngle() - pArc->GetStartAngle());
      return true;
    }
    case kStreamTypeEllipticalArcElt: {
      const auto* pArc = static_cast<const VYRPrtEllipticalArcElt*>(i_pElement);
      ArcTo(pArc->GetCenter(), pArc->GetHorzRadius(), pArc->GetVertRadius(), pArc->GetSlope(), pArc->GetStartAngle(),
            pArc->GetSweepAngle());
      return true;
    }
    case kStreamTypeLineElt: {
      const auto* pLine = static_cast<const VYRPrtLineElt*>(i_pElement);
      MoveTo(pLine->GetStartPoint());
      LineTo(pLine->GetEndPoint());
      return true;
    }
    case kStreamTypePolylineElt:
    case kStreamTypePolygonElt: {
      const VYRSYPDynArray<VYRMathPoint2D>& points = static_cast<const VYRPrtPointListElt*>(i_pElement)->GetPoints();
      for (int i = 0; i < points.GetLength(); ++i) {
        if (i == 0) {
          MoveTo(points[i]);
        } else {
          LineTo(points[i]);
        }
      }
      if (i_pElement->GetStreamType() == kStreamTypePolygonElt) Close();
      return true;
    }
    case kStreamTypePathElt:
      AddPath(*static_cast<const VYRPrtPathElt*>(i_pElement));
      return true;
    default:
      return false;
  }
}
