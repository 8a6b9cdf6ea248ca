#include "VYR3x3Matrix.h"

#include "VYRMath3x3Matrix.h"

VYR3x3Matrix::VYR3x3Matrix(const VYRMathVector2D& i_firstColumn, const VYRMathVector2D& i_secondColumn,
                           const VYRMathVector2D& i_translation)
    : _a(static_cast<float>(i_firstColumn.x)),
      _b(static_cast<float>(i_secondColumn.x)),
      _c(static_cast<float>(i_translation.x)),
      _d(static_cast<float>(i_firstColumn.y)),
      _e(static_cast<float>(i_secondColumn.y)),
      _f(static_cast<float>(i_translation.y)) {}

VYR3x3Matrix::VYR3x3Matrix(const VYRMath3x3Matrix& i_matrix)
    : _a(static_cast<float>(i_matrix.Get(0, 0))),
      _b(static_cast<float>(i_matrix.Get(0, 1))),
      _c(static_cast<float>(i_matrix.Get(0, 2))),
      _d(static_cast<float>(i_matrix.Get(1, 0))),
      _e(static_cast<float>(i_matrix.Get(1, 1))),
      _f(static_cast<float>(i_matrix.Get(1, 2))) {}

void VYR3x3Matrix::GetColumns(VYRMathVector2D& o_firstColumn, VYRMathVector2D& o_secondColumn,
                              VYRMathVector2D& o_translation) const {
  o_firstColumn = VYRMathVector2D(_a, _d);
  o_secondColumn = VYRMathVector2D(_b, _e);
  o_translation = VYRMathVector2D(_c, _f);
}

VYR3x3Matrix VYR3x3Matrix::operator*(const VYR3x3Matrix& i_other) const {
  return VYR3x3Matrix(_a * i_other._a + _b * i_other._d, _a * i_other._b + _b * i_other._e,
                      _a * i_other._c + _b * i_other._f + _c, _d * i_other._a + _e * i_other._d,
                      _d * i_other._b + _e * i_other._e, _d * i_other._c + _e * i_other._f + _f);
}

int VYR3x3Matrix::Invert(VYR3x3Matrix& o_inverse) const {
  // In double so that nearly singular float matrices keep their precision.
  const double determinant = static_cast<double>(_a) * _e - static_cast<double>(_b) * _d;
  if (determinant == 0.0) return -1;
  const double a = _e / determinant, b = -_b / determinant;
  const double d = -_d / determinant, e = _a / determinant;
  o_inverse = VYR3x3Matrix(static_cast<float>(a), static_cast<float>(b), static_cast<float>(-(a * _c + b * _f)),
                           static_cast<float>(d), static_cast<float>(e), static_cast<float>(-(d * _c + e * _f)));
  return 1;
}
