#include "VYRMath3x3Matrix.h"

#include "VYRAssert.h"

void VYRMath3x3Matrix::GetCoef(double& o_m00, double& o_m01, double& o_m02, double& o_m10, double& o_m11,
                               double& o_m12, double& o_m20, double& o_m21, double& o_m22) const {
  o_m00 = _m[0][0], o_m01 = _m[0][1], o_m02 = _m[0][2];
  o_m10 = _m[1][0], o_m11 = _m[1][1], o_m12 = _m[1][2];
  o_m20 = _m[2][0], o_m21 = _m[2][1], o_m22 = _m[2][2];
}

void VYRMath3x3Matrix::SetCoef(double i_m00, double i_m01, double i_m02, double i_m10, double i_m11,
                               double i_m12, double i_m20, double i_m21, double i_m22) {
  _m[0][0] = i_m00, _m[0][1] = i_m01, _m[0][2] = i_m02;
  _m[1][0] = i_m10, _m[1][1] = i_m11, _m[1][2] = i_m12;
  _m[2][0] = i_m20, _m[2][1] = i_m21, _m[2][2] = i_m22;
}

bool VYRMath3x3Matrix::CheckIndex(int i_row, int i_column) {
  return VYR_CHECK_CONDITION_TEXT(i_row >= 0 && i_row < 3 && i_column >= 0 && i_column < 3,
                                  "(i_row>=0 && i_row<3 && i_column>=0 && i_column<3)");
}

double VYRMath3x3Matrix::Get(int i_row, int i_column) const {
  return CheckIndex(i_row, i_column) ? _m[i_row][i_column] : 0.0;
}

void VYRMath3x3Matrix::Set(int i_row, int i_column, double i_value) {
  if (CheckIndex(i_row, i_column)) _m[i_row][i_column] = i_value;
}

// The cofactor of (row, column) up to its sign pattern: the 2x2 minor taken
// cyclically, which folds the sign in.
static double Cofactor(const double i_m[3][3], int i_row, int i_column) {
  const int r1 = (i_row + 1) % 3, r2 = (i_row + 2) % 3;
  const int c1 = (i_column + 1) % 3, c2 = (i_column + 2) % 3;
  return i_m[r1][c1] * i_m[r2][c2] - i_m[r1][c2] * i_m[r2][c1];
}

double VYRMath3x3Matrix::Determinant() const {
  return _m[0][0] * Cofactor(_m, 0, 0) + _m[0][1] * Cofactor(_m, 0, 1) + _m[0][2] * Cofactor(_m, 0, 2);
}

int VYRMath3x3Matrix::Invert(VYRMath3x3Matrix& o_inverse) const {
  const double determinant = Determinant();
  if (determinant == 0.0) return -1;
  VYRMath3x3Matrix inverse;
  for (int row = 0; row < 3; ++row)
    for (int column = 0; column < 3; ++column) inverse._m[row][column] = Cofactor(_m, column, row) / determinant;
  o_inverse = inverse;
  return 1;
}

VYRMath3x3Matrix VYRMath3x3Matrix::operator*(const VYRMath3x3Matrix& i_other) const {
  VYRMath3x3Matrix product;
  for (int row = 0; row < 3; ++row)
    for (int column = 0; column < 3; ++column)
      product._m[row][column] =
          _m[row][0] * i_other._m[0][column] + _m[row][1] * i_other._m[1][column] + _m[row][2] * i_other._m[2][column];
  return product;
}

VYRMathPoint2D VYRMath3x3Matrix::operator*(const VYRMathPoint2D& i_point) const {
  return VYRMathPoint2D(_m[0][0] * i_point.x + _m[0][1] * i_point.y + _m[0][2],
                        _m[1][0] * i_point.x + _m[1][1] * i_point.y + _m[1][2]);
}

bool VYRMath3x3Matrix::operator==(const VYRMath3x3Matrix& i_other) const {
  for (int row = 0; row < 3; ++row)
    for (int column = 0; column < 3; ++column)
      if (_m[row][column] != i_other._m[row][column]) return false;
  return true;
}
