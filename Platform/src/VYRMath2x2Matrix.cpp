#include "VYRMath2x2Matrix.h"

#include <cmath>

int VYRMath2x2Matrix::Invert(VYRMath2x2Matrix& o_inverse) const {
  const double determinant = Determinant();
  if (determinant == 0.0) return -1;
  o_inverse = VYRMath2x2Matrix(_d / determinant, -_b / determinant, -_c / determinant, _a / determinant);
  return 1;
}

bool VYRMath2x2Matrix::IsIsometry(double i_tolerance) const {
  const double firstLength = _a * _a + _c * _c;
  const double secondLength = _b * _b + _d * _d;
  const double dot = _a * _b + _c * _d;
  return std::fabs(firstLength - 1.0) <= i_tolerance && std::fabs(secondLength - 1.0) <= i_tolerance &&
         std::fabs(dot) <= i_tolerance;
}

VYRMath2x2Matrix VYRMath2x2Matrix::operator*(const VYRMath2x2Matrix& i_other) const {
  return VYRMath2x2Matrix(_a * i_other._a + _b * i_other._c, _a * i_other._b + _b * i_other._d,
                          _c * i_other._a + _d * i_other._c, _c * i_other._b + _d * i_other._d);
}
