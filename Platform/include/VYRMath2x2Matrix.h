#pragma once

#include "VYRExport.h"
#include "VYRMathPoint2D.h"
#include "VYRMathVector2D.h"

// A linear map of the plane, doubles, identity by default. Coefficients are
// row-major,
//   | a  b |
//   | c  d |
// so a point (x, y) maps to (a*x + b*y, c*x + d*y). GetCoef and SetCoef take
// them in the order a, b, c, d, which is also their order in byte streams.
class VYR_EXPORT VYRMath2x2Matrix {
 public:
  VYRMath2x2Matrix() = default;
  VYRMath2x2Matrix(double i_a, double i_b, double i_c, double i_d) : _a(i_a), _b(i_b), _c(i_c), _d(i_d) {}

  void GetCoef(double& o_a, double& o_b, double& o_c, double& o_d) const {
    o_a = _a;
    o_b = _b;
    o_c = _c;
    o_d = _d;
  }
  void SetCoef(double i_a, double i_b, double i_c, double i_d) { *this = VYRMath2x2Matrix(i_a, i_b, i_c, i_d); }

  double Determinant() const { return _a * _d - _b * _c; }

  // Stores the inverse in o_inverse and returns 1; a singular matrix
  // (determinant 0) returns -1 and leaves o_inverse untouched.
  int Invert(VYRMath2x2Matrix& o_inverse) const;

  // True when the map keeps lengths (rotation or reflection): columns of unit
  // length, orthogonal to each other, within i_tolerance.
  bool IsIsometry(double i_tolerance = 1e-9) const;
  bool IsIdentity() const { return *this == VYRMath2x2Matrix(); }

  // The product this x other: applying it applies i_other first.
  VYRMath2x2Matrix operator*(const VYRMath2x2Matrix& i_other) const;
  VYRMathPoint2D operator*(const VYRMathPoint2D& i_point) const {
    return VYRMathPoint2D(_a * i_point.x + _b * i_point.y, _c * i_point.x + _d * i_point.y);
  }
  VYRMathVector2D operator*(const VYRMathVector2D& i_vector) const {
    return VYRMathVector2D(_a * i_vector.x + _b * i_vector.y, _c * i_vector.x + _d * i_vector.y);
  }

  bool operator==(const VYRMath2x2Matrix& i_other) const {
    return _a == i_other._a && _b == i_other._b && _c == i_other._c && _d == i_other._d;
  }
  bool operator!=(const VYRMath2x2Matrix& i_other) const { return !(*this == i_other); }

 private:
  double _a = 1.0, _b = 0.0;
  double _c = 0.0, _d = 1.0;
};
