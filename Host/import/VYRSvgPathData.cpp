#include "VYRSvgPathData.h"

#include <cmath>

#include "MM2DPathTypes.h"
#include "MMParsingTools.h"
#include "VYRMathConstants.h"
#include "VYRPrtPathElt.h"
#include "VYRPrtPathSegArcTo.h"
#include "VYRPrtPathSegClosePath.h"
#include "VYRPrtPathSegCurveToCubic.h"
#include "VYRPrtPathSegCurveToQuadratic.h"
#include "VYRPrtPathSegLineTo.h"
#include "VYRPrtPathSegMoveTo.h"

namespace VYRSvgPathData {
namespace {

double Degrees(double i_radians) { return i_radians * 180.0 / VYRMathPi; }

// The signed angle from vector u to vector v, in radians.
double VectorAngle(double i_ux, double i_uy, double i_vx, double i_vy) {
  return std::atan2(i_ux * i_vy - i_uy * i_vx, i_ux * i_vx + i_uy * i_vy);
}

// The centre form of an end-point arc; false when the arc is a straight line
// (a zero radius) or nothing at all (equal end points).
bool MakeArc(const VYRMathPoint2D& i_from, double i_rx, double i_ry, double i_rotationDegrees, bool i_largeArc,
             bool i_sweep, const VYRMathPoint2D& i_to, VYRPrtPathSegArcTo& o_arc) {
  double rx = std::fabs(i_rx);
  double ry = std::fabs(i_ry);
  if (rx == 0.0 || ry == 0.0) return false;
  const double phi = i_rotationDegrees * VYRMathPi / 180.0;
  const double cosPhi = std::cos(phi);
  const double sinPhi = std::sin(phi);
  const double dx = (i_from.x - i_to.x) / 2.0;
  const double dy = (i_from.y - i_to.y) / 2.0;
  const double x1 = cosPhi * dx + sinPhi * dy;
  const double y1 = -sinPhi * dx + cosPhi * dy;
  const double lambda = (x1 * x1) / (rx * rx) + (y1 * y1) / (ry * ry);
  if (lambda > 1.0) {
    rx *= std::sqrt(lambda);
    ry *= std::sqrt(lambda);
  }
  const double numerator = rx * rx * ry * ry - rx * rx * y1 * y1 - ry * ry * x1 * x1;
  const double denominator = rx * rx * y1 * y1 + ry * ry * x1 * x1;
  double factor = denominator > 0.0 ? std::sqrt(std::fmax(0.0, numerator / denominator)) : 0.0;
  if (i_largeArc == i_sweep) factor = -factor;
  const double cx1 = factor * rx * y1 / ry;
  const double cy1 = -factor * ry * x1 / rx;
  const double cx = cosPhi * cx1 - sinPhi * cy1 + (i_from.x + i_to.x) / 2.0;
  const double cy = sinPhi * cx1 + cosPhi * cy1 + (i_from.y + i_to.y) / 2.0;
  const double startAngle = VectorAngle(1.0, 0.0, (x1 - cx1) / rx, (y1 - cy1) / ry);
  double sweep = VectorAngle((x1 - cx1) / rx, (y1 - cy1) / ry, (-x1 - cx1) / rx, (-y1 - cy1) / ry);
  if (!i_sweep && sweep > 0.0) sweep -= VYRMath2Pi;
  if (i_sweep && sweep < 0.0) sweep += VYRMath2Pi;
  if (!std::isfinite(cx) || !std::isfinite(cy) || !std::isfinite(sweep)) return false;

  o_arc.SetCenter(VYRMathPoint2D(cx, cy));
  o_arc.SetRX(rx);
  o_arc.SetRY(ry);
  o_arc.SetRotation(i_rotationDegrees);
  o_arc.SetStartAngle(Degrees(startAngle));
  o_arc.SetSweepAngle(Degrees(sweep));
  o_arc.SetEndPointParameters(MM2D::ArcEndPointParameters(i_from, i_to, i_largeArc, i_sweep));
  return true;
}

class PathDataReader {
 public:
  PathDataReader(const std::string& i_data, VYRPrtPathElt& io_path)
      : _pCursor(i_data.c_str()), _pEnd(i_data.c_str() + i_data.size()), _path(io_path) {}

  bool Read() {
    char command = 0;
    MMParsingTools::SkipSVGSpaces(_pCursor, _pEnd);
    while (_pCursor < _pEnd) {
      const char letter = *_pCursor;
      if (MM2D::GetPathSegType(letter) != MM2D::PathSegUnknown) {
        if (command == 0 && letter != 'M' && letter != 'm') return false;  // a path begins with a move-to
        command = letter;
        ++_pCursor;
      } else if (command == 0 || command == 'z' || command == 'Z') {
        return false;  // numbers need a command before them
      } else if (command == 'm') {
        command = 'l';  // pairs after a move-to are line-tos
      } else if (command == 'M') {
        command = 'L';
      }
      if (!ReadCommand(command)) return false;
      MMParsingTools::SkipSVGSpacesAndDelimiters(_pCursor, _pEnd);
    }
    return true;
  }

 private:
  bool Number(double& o_value) {
    MMParsingTools::SkipSVGSpacesAndDelimiters(_pCursor, _pEnd);
    return MMParsingTools::ParseNumber(_pCursor, _pEnd, o_value) && std::isfinite(o_value);
  }
  bool Point(bool i_relative, VYRMathPoint2D& o_point) {
    double x = 0.0;
    double y = 0.0;
    if (!Number(x) || !Number(y)) return false;
    o_point = i_relative ? VYRMathPoint2D(_current.x + x, _current.y + y) : VYRMathPoint2D(x, y);
    return true;
  }
  // Arc flags are single characters and may touch the next number.
  bool Flag(bool& o_flag) {
    MMParsingTools::SkipSVGSpacesAndDelimiters(_pCursor, _pEnd);
    if (_pCursor >= _pEnd || (*_pCursor != '0' && *_pCursor != '1')) return false;
    o_flag = *_pCursor++ == '1';
    return true;
  }

  void LineTo(const VYRMathPoint2D& i_point) {
    _path.AddPathSegment(new VYRPrtPathSegLineTo(MM2D::PathCoordAbsolute, i_point));
    _current = i_point;
  }

  bool ReadCommand(char i_command) {
    const bool relative = i_command >= 'a';
    const char upper = static_cast<char>(relative ? i_command - 'a' + 'A' : i_command);
    VYRMathPoint2D p1, p2, p3;
    const char previous = _previousUpper;
    _previousUpper = upper;
    switch (upper) {
      case 'Z':
        _path.AddPathSegment(new VYRPrtPathSegClosePath(MM2D::PathCoordAbsolute));
        _current = _subpathStart;
        return true;
      case 'M':
        if (!Point(relative, p1)) return false;
        _path.AddPathSegment(new VYRPrtPathSegMoveTo(MM2D::PathCoordAbsolute, p1));
        _current = _subpathStart = p1;
        return true;
      case 'L':
        if (!Point(relative, p1)) return false;
        LineTo(p1);
        return true;
      case 'H': {
        double x = 0.0;
        if (!Number(x)) return false;
        LineTo(VYRMathPoint2D(relative ? _current.x + x : x, _current.y));
        return true;
      }
      case 'V': {
        double y = 0.0;
        if (!Number(y)) return false;
        LineTo(VYRMathPoint2D(_current.x, relative ? _current.y + y : y));
        return true;
      }
      case 'C':
      case 'S':
        if (upper == 'C' && !Point(relative, p1)) return false;
        if (upper == 'S') {
          const bool reflect = previous == 'C' || previous == 'S';
          p1 = reflect ? VYRMathPoint2D(2 * _current.x - _control.x, 2 * _current.y - _control.y) : _current;
        }
        if (!Point(relative, p2) || !Point(relative, p3)) return false;
        _path.AddPathSegment(new VYRPrtPathSegCurveToCubic(MM2D::PathCoordAbsolute, p1, p2, p3));
        _control = p2;
        _current = p3;
        return true;
      case 'Q':
      case 'T':
        if (upper == 'Q' && !Point(relative, p1)) return false;
        if (upper == 'T') {
          const bool reflect = previous == 'Q' || previous == 'T';
          p1 = reflect ? VYRMathPoint2D(2 * _current.x - _control.x, 2 * _current.y - _control.y) : _current;
        }
        if (!Point(relative, p2)) return false;
        _path.AddPathSegment(new VYRPrtPathSegCurveToQuadratic(MM2D::PathCoordAbsolute, p1, p2));
        _control = p1;
        _current = p2;
        return true;
      case 'A': {
        double rx = 0.0, ry = 0.0, rotation = 0.0;
        bool largeArc = false, sweep = false;
        if (!Number(rx) || !Number(ry) || !Number(rotation) || !Flag(largeArc) || !Flag(sweep) ||
            !Point(relative, p1)) {
          return false;
        }
        if (p1.x == _current.x && p1.y == _current.y) return true;
        auto* pArc = new VYRPrtPathSegArcTo(MM2D::PathCoordAbsolute);
        if (MakeArc(_current, rx, ry, rotation, largeArc, sweep, p1, *pArc)) {
          _path.AddPathSegment(pArc);
          _current = p1;
        } else {
          delete pArc;
          LineTo(p1);
        }
        return true;
      }
      default:
        return false;
    }
  }

  const char* _pCursor;
  const char* const _pEnd;
  VYRPrtPathElt& _path;
  VYRMathPoint2D _current;
  VYRMathPoint2D _subpathStart;
  VYRMathPoint2D _control;
  char _previousUpper = 0;
};

}  // namespace

bool Parse(const std::string& i_data, VYRPrtPathElt& io_path) { return PathDataReader(i_data, io_path).Read(); }

}  // namespace VYRSvgPathData
