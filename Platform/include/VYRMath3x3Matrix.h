#pragma once

#include "VYRExport.h"
#include "VYRMathPoint2D.h"

// A 3x3 matrix of doubles, identity by default, used for the homogeneous
// transforms of the plane: a point (x, y) maps to
// (m00*x + m01*y + m02, m10*x + m11*y + m12); the third row is not used when
// mapping points. GetCoef and SetCoef take the nine coefficients row by row,
// which is also their order in byte streams. Rows and columns count from 0.
class VYR_EXPORT VYRMath3x3Matrix {
 public:
  VYRMath3x3Matrix() = default;

  void GetCoef(double& o_m00, double& o_m01, double& o_m02, double& o_m10, double& o_m11, double& o_m12,
               double& o_m20, double& o_m21, double& o_m22) const;
  void SetCoef(double i_m00, double i_m01, double i_m02, double i_m10, double i_m11, double i_m12,
               double i_m20, double i_m21, double i_m22);

  // A row or column outside 0..2 reports "(i_row>=0 && i_row<3 && i_column>=0 && i_column<3)";
  // Get then returns 0 and Set does nothing.
  double Get(int i_row, int i_column) const;
  void Set(int i_row, int i_column, double i_value);

  // Stores the inverse in o_inverse and returns 1; a singular matrix returns
  // -1 and leaves o_inverse untouched.
  int Invert(VYRMath3x3Matrix& o_inverse) const;
  double Determinant() const;
  bool IsIdentity() const { return *this == VYRMath3x3Matrix(); }

  // The product this x other: applying it applies i_other first.
  VYRMath3x3Matrix operator*(const VYRMath3x3Matrix& i_other) const;
  VYRMathPoint2D operator*(const VYRMathPoint2D& i_point) const;

  bool operator==(const VYRMath3x3Matrix& i_other) const;
  bool operator!=(const VYRMath3x3Matrix& i_other) const { return !(*this == i_other); }

 private:
  static bool CheckIndex(int i_row, int i_column);

  double _m[3][3] = {{1.0, 0.0, 0.0}, {0.0, 1.0, 0.0}, {0.0, 0.0, 1.0}};
};
